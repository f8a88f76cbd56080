# The files that expect/ holds are written once the started program has ended:
# the text expanded, in the script's folder, and the failed branch run after
# the missing program.
wait_for_end writefile.exe
