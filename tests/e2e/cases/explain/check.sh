# Cancel closed the wizard: it wrote no result.
expect_absent result.txt
