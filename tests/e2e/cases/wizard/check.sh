# The wizard wrote what the script typed and clicked: the name, the folder
# that replaced the default one, and the check box that the mouse ticked.
set -e
expected=$'name=Ada Lovelace\r\nfolder=D:\\Apps\\Engine\r\nshortcut=1\r'
if [ ! -f result.txt ]; then
  echo "the wizard wrote no result.txt (it did not reach Finish)"
  exit 1
fi
if [ "$(cat result.txt)" != "$expected" ]; then
  echo "result.txt holds:"
  cat -A result.txt
  exit 1
fi
