# The saved batch file, byte for byte, and the file the batch editor keeps
# for its next opening.
set -e
source "$E2E_LIB"
expected="$(dirname "${BASH_SOURCE[0]}")/expected.bat"
if ! cmp -s saved.bat "$expected"; then
  echo "saved.bat differs from expected.bat:"
  diff <(cat -A "$expected") <(cat -A saved.bat 2>&1) | sed 's/^/  /' || true
  exit 1
fi
# shellcheck source=../../../../tools/wine-env.sh
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
root='HKCU\Software\Velmora Software\Velmora'
stored="$(wine_run reg query "$root\\EnvVarSetup" /v "Batch File" 2>/dev/null | tr -d '\r')"
for section in EnvVarSetup Editor; do wine_run reg delete "$root\\$section" /f >/dev/null 2>&1 || true; done
want="\"$(wine_winpath "$PWD")\\saved.bat\""
if ! grep -qF "REG_SZ    $want" <<<"$stored"; then
  echo "the batch editor did not keep $want; the key holds:"
  printf '%s\n' "$stored" | sed 's/^/  /'
  exit 1
fi
