# The installer that tools/package.sh built, named without its version (the
# expected log shows the name), and a setting that the silent uninstall keeps.
setups=("$E2E_ROOT"/build/dist/velmora-setup-*.exe)
[ "${#setups[@]}" -eq 1 ] && cp "${setups[0]}" velmora-setup.exe ||
  { echo "build/dist holds no single velmora-setup-<version>.exe; run tools/package.sh" && exit 1; }
# Not run.sh's pipe: a first Wine program starts Wine's background processes, which inherit it.
wine_run reg add 'HKCU\Software\Velmora Software\Velmora\EnvVarSetup' /v BatchFile /d 'C:\kept.bat' /f >/dev/null 2>&1 ||
  { echo "could not store the setting" && exit 1; }
