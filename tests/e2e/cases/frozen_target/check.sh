# The frozen program thaws 60 s after the click that froze it, then ends. It
# must still be there, frozen, when the run has ended: each command gave up
# within its own bound instead of waiting for the program. (A bound on the
# run's wall-clock time would also measure how busy the machine is.) It is
# ended first, whatever else failed.
still_frozen="$(wine_programs | grep -ci ' frozen\.exe$' || true)"
end_windows_process frozen.pid || true  # gone already when it thawed
[ "$still_frozen" -gt 0 ] ||
  { echo "frozen.exe had thawed and ended before the run did ($E2E_SECONDS s): the run waited for it" && exit 1; }
