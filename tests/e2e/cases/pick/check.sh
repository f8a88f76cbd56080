# The saved script holds the picked lines byte for byte, the editor found
# one window for each description, and the replay pressed both buttons.
set -e
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
wine_run reg delete 'HKCU\Software\Velmora Software\Velmora\Editor' /f >/dev/null 2>&1 || true  # the next case starts fresh
if ! cmp -s saved.vls "$(dirname "${BASH_SOURCE[0]}")/expected_script.vls"; then
  echo "saved.vls differs from expected_script.vls; it holds:" && cat -A saved.vls && exit 1
fi
if [ "$(grep -c '^Info: 1 window matches the picked description now.' picked.vld)" != 2 ]; then
  echo "the editor did not find one window for each pick; its log holds:" && cat picked.vld && exit 1
fi
for pressed in wizard_pressed.txt installer_pressed.txt; do
  [ -f "$pressed" ] || { echo "no $pressed: the replay did not press that button; replay.vld:" && cat replay.vld && exit 1; }
done
