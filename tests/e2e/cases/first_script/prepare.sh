# The editor at the top right, where it covers no button to pick (check.sh
# forgets the place again), and the sample setup in the working folder, where
# "Browse for Program" opens.
source "$E2E_LIB"
for value in "Left 9600" "Top 0"; do
  wine_run reg add 'HKCU\Software\Velmora Software\Velmora\Editor' /v ${value% *} /d ${value#* } /f >/dev/null 2>&1 ||
    { echo "could not store the editor's ${value% *}" && exit 1; }
done
bin="${VELMORA_BIN:-$E2E_CASE/../../../../build/windows/bin}"
cp "$bin/velmora-sample-setup.exe" . || exit 1
