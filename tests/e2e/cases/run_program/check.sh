# The started program ran in the script's folder with the expanded text, and
# the failed branch ran after the missing program.
set -e
source "$E2E_LIB"
wait_for_end writefile.exe
expect_text out.txt $'hello from velmora\r'
expect_text failed.txt $'the run failed\r'
