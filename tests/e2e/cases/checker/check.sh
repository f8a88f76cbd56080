# The checker, run on the same script, reports every fault the run met the
# first of, in the form build logs link to (expect/check.txt), and ends with
# status 1.
expect_absent ran.txt
status=0
wine_run "$E2E_BIN/velmora-check.exe" 'a*.vls' >check.txt || status=$?
[ "$status" = 1 ] || { echo "velmora-check ended with $status, not 1"; exit 1; }
