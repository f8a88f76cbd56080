# The editor's log from the first run on, masked, as expected_run.vld holds
# it: the runs' frames, the stop at the breakpoint, two halts, the step, and
# the close that waited for the running line.
set -e
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
wine_run reg delete 'HKCU\Software\Velmora Software\Velmora\Editor' /f >/dev/null 2>&1 || true  # the next case starts fresh
mask="$(dirname "${BASH_SOURCE[0]}")/../../mask.sed"
diff <(sed -E -f "$mask" "$(dirname "${BASH_SOURCE[0]}")/expected_run.vld") \
  <(tr -d '\r' <run.vld | sed -n '/^\*\{49\}$/,$p' | sed -E -f "$mask")
