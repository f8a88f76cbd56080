# The editor that the script closed last stores its settings as it ends;
# run.sh forgets them only after that.
wait_for_end velmora.exe
