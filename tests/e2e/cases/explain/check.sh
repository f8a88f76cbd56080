# Cancel closed the wizard: it wrote no result.
set -e
source "$E2E_LIB"
expect_absent result.txt
