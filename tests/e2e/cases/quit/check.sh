# The line after quit did not run.
source "$E2E_LIB" && expect_absent after.txt
