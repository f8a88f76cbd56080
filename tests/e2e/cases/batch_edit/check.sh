# The file the batch editor keeps for its next opening, once the editor that
# the script closed last has ended (it stores its settings as it closes); the
# saved batch file is in expect/.
wait_for_end velmora.exe
stored="$(wine_run reg query 'HKCU\Software\Velmora Software\Velmora\EnvVarSetup' /v "Batch File" 2>/dev/null | tr -d '\r')"
expect_line "$stored" "    Batch File    REG_SZ    \"$(wine_winpath "$PWD")\\saved.bat\""
