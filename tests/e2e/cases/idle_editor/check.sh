# The editor closed: the script saw it gone, and no line says it did not respond.
[ -f closed.txt ] || { echo "the editor did not close; a.vld:" && cat a.vld && exit 1; }
! grep -q 'did not respond' a.vld || { echo "the editor was reported as not responding:" && grep 'Info:' a.vld && exit 1; }
