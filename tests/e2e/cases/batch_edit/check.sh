# The saved batch file, byte for byte, and the file the batch editor keeps
# for its next opening, once the editor that the script closed last has ended
# (it stores its settings as it closes).
set -e
source "$E2E_LIB"
wait_for_end velmora.exe
expect_same_bytes saved.bat expected.bat
stored="$(wine_run reg query 'HKCU\Software\Velmora Software\Velmora\EnvVarSetup' /v "Batch File" 2>/dev/null | tr -d '\r')"
forget_settings EnvVarSetup Editor
expect_line "$stored" "    Batch File    REG_SZ    \"$(wine_winpath "$PWD")\\saved.bat\""
