# The saved script holds the picked lines byte for byte, the editor found
# one window for each description, and the replay pressed both buttons.
set -e
source "$E2E_LIB"
forget_settings Editor
expect_same_bytes saved.vls expected_script.vls
if [ "$(grep -c '^Info: 1 window matches the picked description now.' picked.vld)" != 3 ]; then
  echo "the editor did not find one window for each pick; its log holds:" && cat picked.vld && exit 1
fi
for pressed in wizard_pressed.txt installer_pressed.txt; do
  [ -f "$pressed" ] || { echo "no $pressed: the replay did not press that button; replay.vld:" && cat replay.vld && exit 1; }
done
