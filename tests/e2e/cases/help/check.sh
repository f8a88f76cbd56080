# The editor's stored settings go, so that the next case starts fresh.
# shellcheck source=../../../../tools/wine-env.sh
source "$(dirname "$E2E_LIB")/../../tools/wine-env.sh"
wine_run reg delete 'HKCU\Software\Velmora Software\Velmora\Editor' /f >/dev/null 2>&1 || true
