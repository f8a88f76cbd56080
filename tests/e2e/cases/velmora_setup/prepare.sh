# The installer that tools/package.sh built, under a name without the version
# (the expected log shows it), and a setting of an earlier session, which the
# silent uninstall must keep.
set -e
root="$(cd "$E2E_CASE/../../../.." && pwd)"
setups=("$root"/build/dist/velmora-setup-*.exe)
if [ "${#setups[@]}" -ne 1 ] || [ ! -f "${setups[0]}" ]; then
  echo "build/dist holds no single velmora-setup-<version>.exe; run tools/package.sh"
  exit 1
fi
cp "${setups[0]}" velmora-setup.exe
source "$E2E_LIB"
# Nothing of Wine's may hold run.sh's pipe: a first Wine program starts Wine's
# own background processes, which inherit its outputs.
wine_run reg add 'HKCU\Software\Velmora Software\Velmora\EnvVarSetup' /v BatchFile /d 'C:\kept.bat' /f \
  >/dev/null 2>&1 || { echo "reg add failed"; exit 1; }
