# The preprocessing stopped the script before its first line.
source "$E2E_LIB" && expect_absent ran.txt
