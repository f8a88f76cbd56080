# The saved script holds the picked lines byte for byte, the editor said that
# each description matches one window, and the replay pressed both buttons.
set -e
source "$E2E_LIB"
# shellcheck source=../../../../tools/wine-env.sh
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
wine_run reg delete 'HKCU\Software\Velmora Software\Velmora\Editor' /f >/dev/null 2>&1 || true  # the next case starts fresh
expected_script="$(dirname "${BASH_SOURCE[0]}")/expected_script.vls"
if ! cmp -s saved.vls "$expected_script"; then
  echo "saved.vls differs from expected_script.vls:"
  diff <(cat -A "$expected_script") <(cat -A saved.vls 2>&1) | sed 's/^/  /' || true
  exit 1
fi
if [ "$(grep -c '^Info: 1 window matches the picked description now.' picked.vld)" != 2 ]; then
  echo "the editor did not report one matching window for each pick; its log holds:"
  sed 's/^/  /' picked.vld
  exit 1
fi
for pressed in wizard_pressed.txt installer_pressed.txt; do
  if [ ! -f "$pressed" ]; then
    echo "$pressed is missing: the replay did not press that button; replay.vld holds:"
    sed 's/^/  /' replay.vld 2>&1
    exit 1
  fi
done
