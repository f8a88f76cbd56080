# The editor found one window for each description, and the replay pressed
# both buttons (expect/ holds the saved script).
[ "$(grep -c '^Info: 1 window matches the picked description now.' picked.vld)" = 3 ] ||
  { echo "the editor did not find one window for each pick; its log holds:" && cat picked.vld && exit 1; }
for pressed in wizard_pressed.txt installer_pressed.txt; do
  [ -f "$pressed" ] || { echo "no $pressed: the replay did not press that button; replay.vld:" && cat replay.vld && exit 1; }
done
