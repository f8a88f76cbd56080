# Notepad saved what the script typed, in the Windows-1252 code page that
# the script is written in: é and è are single bytes, the braced characters
# are plain, and the line end typed with ~ is CR LF.
set -e
if ! printf 'Hello from Velmora.\r\nCaf\351 cr\350me: 3 + 4 %% {x}' | cmp - note.txt; then
  echo "note.txt holds:"
  od -An -c note.txt
  exit 1
fi
