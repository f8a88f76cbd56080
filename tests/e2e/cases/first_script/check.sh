# The saved script, its folder masked for expect/, holds the run line of the
# setup chosen in the browse dialog and the two picked lines with their
# clicks; the editor found one window for each pick; the replay brought the
# fresh setup to the folder page.
sed -E 's/^(Run:  ").*\\(velmora-sample-setup\.exe"\r)$/\1<folder>\\\2/' first.vls >first-masked.vls
[ "$(grep -c '^Info: 1 window matches the picked description now.' first.vld)" = 2 ] ||
  { echo "the editor did not find one window for each pick; its log holds:" && cat first.vld && exit 1; }
[ -f folder_page.txt ] || { echo "the replay did not reach the folder page; replay.vld:" && cat replay.vld && exit 1; }
