# The line after quit did not run.
expect_absent after.txt
