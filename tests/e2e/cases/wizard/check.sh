# The wizard wrote what the script typed and clicked (it reached Finish): the
# name, the folder that replaced the default one, and the check box that the
# mouse ticked.
set -e
source "$E2E_LIB"
expect_text result.txt $'name=Ada Lovelace\r\nfolder=D:\\Apps\\Engine\r\nshortcut=1\r'
