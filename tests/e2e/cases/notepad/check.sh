# Notepad saved what the script typed, in the Windows-1252 code page that
# the script is written in: é and è are single bytes, the braced characters
# are plain, and the line end typed with ~ is CR LF.
set -e
if [ ! -f note.txt ]; then
  echo "Notepad saved no note.txt in the working folder"
  exit 1
fi
expected="$(printf 'Hello from Velmora.\r\nCaf\351 cr\350me: 3 + 4 %% {x}' | od -An -c)"
actual="$(od -An -c note.txt)"
if [ "$actual" != "$expected" ]; then
  echo "note.txt holds:"
  echo "$actual"
  echo "expected:"
  echo "$expected"
  exit 1
fi
