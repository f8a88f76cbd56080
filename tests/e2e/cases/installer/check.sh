# samples/install.vls ran the sample installer: the program and the readme
# arrived in the folder that the script typed (TARGETDIR, see env), the
# component it left out did not, and the installed program runs. The case
# plays the sample itself: its command line names samples/install.vls from
# the working folder, build/e2e/installer/<variant>/work.

: "${WINEPREFIX:?no Wine session}"
target="$(sed -n 's/^TARGETDIR=//p' "$E2E_CASE/env" | tr -d '\r')"
relative="${target#C:\\}"
folder="$WINEPREFIX/drive_c/${relative//\\//}"
# The prefix may be kept between runs: leave nothing behind for the next one.
trap 'rm -rf "$WINEPREFIX/drive_c/${relative%%\\*}"' EXIT

for name in readme.txt velmora-hello.exe; do  # a file older than the run is not this run's
  [ "$folder/$name" -nt "$E2E_BEFORE" ] ||
    { echo "$target\\$name was not installed by this run; the folder holds:" && ls -la "$folder" 2>&1; exit 1; }
done
cmp "$E2E_ROOT/samples/installer/readme.txt" "$folder/readme.txt"
cmp "$E2E_BIN/velmora-hello.exe" "$folder/velmora-hello.exe"
expect_absent "$folder/notes.txt"  # the script left out its component
greeting="$(wine_run "$(wine_winpath "$folder/velmora-hello.exe")" | tr -d '\r')"
[ "$greeting" == "Hello from the Velmora sample installation." ] ||
  { echo "the installed velmora-hello.exe printed: $greeting" && exit 1; }
