# The preprocessing stopped the script before its first line.
expect_absent ran.txt
