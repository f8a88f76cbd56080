# The recording wrote one findwindow line per target and its clicks and keys
# (expect/ holds the saved script), the editor forecast each findwindow line
# it wrote, and the replay installed into the typed folder again.
: "${WINEPREFIX:?no Wine session}"
folder="$WINEPREFIX/drive_c/Velmora Rec (1)+2"
trap 'rm -rf "$folder"' EXIT  # the prefix may be kept for the next run
findwindows="$(grep -c '^FindWindow:' saved.vls)"
[ "$(grep -c '^Info: 1 window matches the picked description now.' recorded.vld)" = "$findwindows" ] ||
  { echo "the editor did not forecast one window for each of the $findwindows findwindow lines; its log holds:" &&
    cat recorded.vld && exit 1; }
cmp "$E2E_ROOT/samples/installer/readme.txt" "$folder/readme.txt" ||
  { echo "the replay did not install the readme again; replay.vld:" && cat replay.vld && exit 1; }
expect_absent "$folder/notes.txt"  # the component that the recording left out
