# The checker, run on the same script, reports every fault the run met the
# first of, in the form build logs link to, and ends with status 1.
set -e
source "$E2E_LIB"
expect_absent ran.txt
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
status=0
wine_run "${VELMORA_BIN:-$(dirname "$E2E_LIB")/../../build/windows/bin}/velmora-check.exe" 'a*.vls' >check.txt || status=$?
[ "$status" = 1 ] || { echo "velmora-check ended with $status, not 1"; exit 1; }
diff <(tr -d '\r' <check.txt) "$(dirname "$0")/expected-check.txt"
