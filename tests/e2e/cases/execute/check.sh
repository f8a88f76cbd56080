# The editor's log from the first run on, after the masks: the runs' frames,
# the stop at the breakpoint, the two halts and the step, as expected_run.vld
# holds them; and the close that waited for the running line left a whole log.
set -e
source "$E2E_LIB"
# shellcheck source=../../../../tools/wine-env.sh
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
wine_run reg delete 'HKCU\Software\Velmora Software\Velmora\Editor' /f >/dev/null 2>&1 || true  # the next case starts fresh
here="$(dirname "${BASH_SOURCE[0]}")"
actual="$(tr -d '\r' <run.vld | sed -n '/^\*\{49\}$/,$p' | sed -E -f "$here/../../mask.sed")"
if ! difference="$(diff <(sed -E -f "$here/../../mask.sed" "$here/expected_run.vld") <(printf '%s\n' "$actual"))"; then
  echo "run.vld from the first run on differs from expected_run.vld:"
  printf '%s\n' "$difference" | sed 's/^/  /'
  exit 1
fi
