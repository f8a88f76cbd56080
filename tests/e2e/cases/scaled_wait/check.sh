# The log says 2 + 2 + 2 + 0 seconds; the run took at least that long.
[ "$E2E_SECONDS" -ge 6 ] || { echo "the waits took $E2E_SECONDS s, expected at least 6" && exit 1; }
