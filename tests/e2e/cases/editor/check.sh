# The saved script, byte for byte; the placement and file names that the
# editor stored; and the second start, which loaded them without asking.
set -e
source "$E2E_LIB"
expected_script="$(dirname "${BASH_SOURCE[0]}")/expected_script.vls"
if ! cmp -s saved.vls "$expected_script"; then
  echo "saved.vls differs from expected_script.vls:"
  diff <(cat -A "$expected_script") <(cat -A saved.vls 2>&1) | sed 's/^/  /' || true
  exit 1
fi

# shellcheck source=../../../../tools/wine-env.sh
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
key='HKCU\Software\Velmora Software\Velmora\Editor'
stored="$(wine_run reg query "$key" 2>/dev/null | tr -d '\r')"
wine_run reg delete "$key" /f >/dev/null 2>&1 || true  # the next run starts fresh
folder="$(wine_winpath "$PWD")"
value() { awk -v name="$1" '{ line = $0; sub(/^ +/, "", line) } index(line, name "    REG_SZ    ") == 1 {
  print substr(line, length(name) + 15) }' <<<"$stored"; }
# A first start centres the designed 9600 x 9000 twips on the 1280 x 1024 screen.
for pair in "Left=4800" "Top=3180" "Width=9600" "Height=9000" "WindowState=0" \
  "Script File=\"$folder\\saved.vls\"" "Debug File=\"$folder\\built.vld\""; do
  name="${pair%%=*}"
  if [ "$(value "$name")" != "${pair#*=}" ]; then
    echo "stored $name is '$(value "$name")', expected '${pair#*=}'; the key holds:"
    printf '%s\n' "$stored" | sed 's/^/  /'
    exit 1
  fi
done
log="$(tr -d '\r' <built.vld)"
for line in "Info: Script File Open:  $folder\\saved.vls" "Info: Debug File Open:  $folder\\built.vld"; do
  if ! grep -qxF "$line" <<<"$log"; then
    echo "the second start did not log: $line"
    printf '%s\n' "$log" | sed 's/^/  /'
    exit 1
  fi
done
