source "$E2E_LIB" && expect_no_new_files
