# The saved script holds the run line of the setup chosen in the browse dialog
# (its folder is the working folder's) and the two picked lines with their
# clicks; the editor found one window for each pick; the replay brought the
# fresh setup to the folder page.
set -e
source "$E2E_LIB"
forget_settings Editor
sed -E 's/^(Run:  ").*\\(velmora-sample-setup\.exe"\r)$/\1<folder>\\\2/' first.vls >first-masked.vls
expect_same_bytes first-masked.vls expected_script.vls
if [ "$(grep -c '^Info: 1 window matches the picked description now.' first.vld)" != 2 ]; then
  echo "the editor did not find one window for each pick; its log holds:" && cat first.vld && exit 1
fi
[ -f folder_page.txt ] || { echo "the replay did not reach the folder page; replay.vld:" && cat replay.vld && exit 1; }
