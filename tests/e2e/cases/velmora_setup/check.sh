# files/setup.vls installed Velmora through its installer's wizard. Then: the installed
# velmora.exe plays the installed sample; uninstall /S (settings kept); install /S /D=;
# files/uninstall.vls uninstalls through the wizard, answering Yes to removing the settings.
wizard_dir="$(sed -n 's/^INSTALLDIR=//p' "$E2E_CASE/env" | tr -d '\r')" silent_dir='C:\Velmora Test' sample_dir='C:\Velmora Sample Test'
stage=("$E2E_ROOT"/build/dist/velmora-*/) && stage="${stage[0]%/}" # the packaged files, as staged
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora'
start_menu="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Velmora"

unix() { local path="${1#C:\\}"; printf '%s/drive_c/%s' "$WINEPREFIX" "${path//\\//}"; }
fail() { echo "$*" && exit 1; }
wait_for() { _wine_wait_for "$1" 300 || fail "$2 (after 30 s)"; }
# The Unix ids of this Wine session's processes whose command line matches.
session_pids() { for pid in $(pgrep -f "$1"); do grep -qxzF "WINEPREFIX=$WINEPREFIX" "/proc/$pid/environ" 2>/dev/null && echo "$pid"; done; true; }
# Nothing left for the next cases: no setup window to take their keys, no folders.
trap 'kill $(session_pids "velmora-(sample-)?setup\.exe|\\\\Un\.exe") 2>/dev/null || true;
  rm -rf "$(unix "$wizard_dir")" "$(unix "$silent_dir")" "$(unix "$sample_dir")"' EXIT
# launch_here <program> <exact arguments> <seconds>; a setup it starts inherits its output: a file, not run.sh's pipe.
launch_here() { launch "$@" "$PWD/arguments.txt" >>wine.txt 2>&1; }
# expect_value <key> <value name, empty for the default> <data>
expect_value() {
  local which=(/ve) && [ -n "$2" ] && which=(/v "$2")
  local actual="$(wine_run reg query "$1" "${which[@]}" 2>/dev/null | tr -d '\r' | sed -nE 's/^    .*    REG_[A-Z_]+    //p')"
  [ "$actual" = "$3" ] || fail "$1 ${2:-(default)} is [$actual], expected [$3]"
}
key_exists() { wine_run reg query "$1" >/dev/null 2>&1; }
# uninstall.exe hands over to a copy of itself (Un.exe) and returns at once.
uninstalled() {
  local gone="$(unix "$1")"
  wait_for '[ ! -e "$gone" ]' "$1 is still there after uninstalling"
  wait_for '[ -z "$(session_pids "\\\\Un\.exe")" ]' "the uninstaller still runs"
}

# The wizard's installation: every packaged file but the user guide (Docs).
folder="$(unix "$wizard_dir")"
while IFS= read -r name; do
  [[ "$name" != Docs/* ]] || { [ ! -e "$folder/$name" ] || fail "$name was installed, although the guide was left out"; continue; }
  cmp -s "$stage/$name" "$folder/$name" || fail "$wizard_dir\\$name is missing or not the packaged file"
done < <(cd "$stage" && find . -type f | sed 's|^\./||')
for file in "$folder/uninstall.exe" "$start_menu/"{Velmora,"Velmora Help","Uninstall Velmora"}.lnk; do [ -f "$file" ] || fail "no $file"; done
while IFS='|' read -r key name want; do expect_value "$key" "$name" "$want"; done <<ROWS
HKCR\.vls||velmora
HKCR\velmora||Velmora Script file
HKCR\velmora\shell\open\command||"$wizard_dir\velmora.exe" "%1"
HKCR\velmora\DefaultIcon||$wizard_dir\velmora.exe,0
$uninstall_key|DisplayVersion|${stage##*/velmora-}
$uninstall_key|Publisher|Velmora Software
$uninstall_key|InstallLocation|$wizard_dir
$uninstall_key|QuietUninstallString|"$wizard_dir\uninstall.exe" /S
ROWS

# The installed velmora.exe plays the installed sample, which installs the sample program.
TARGETDIR="$sample_dir" launch_here "$wizard_dir\\velmora.exe" "\"$wizard_dir\\install.vls\" \"sample.vld\"" 90 ||
  fail "status $?: $(cat sample.vld 2>&1)"$'\n'"output: $(cat wine.txt)"$'\n'"here: $(ls -l)"$'\n'"installed: $(ls -l "$folder")"
cmp "$E2E_BIN/velmora-hello.exe" "$(unix "$sample_dir")/velmora-hello.exe"
wait_for '[ -z "$(session_pids "velmora-sample-setup\\.exe")" ]' "the sample setup still runs" # its file is in use

# A silent uninstall removes everything but the settings.
wine_run "$wizard_dir\\uninstall.exe" /S >>wine.txt 2>&1
uninstalled "$wizard_dir"
[ ! -e "$start_menu" ] || fail "the Start-menu folder is left"
for key in 'HKCR\.vls' 'HKCR\velmora' "$uninstall_key"; do ! key_exists "$key" || fail "$key is left"; done
expect_value 'HKCU\Software\Velmora Software\Velmora\EnvVarSetup' BatchFile 'C:\kept.bat'

# A silent installation, into the folder that /D= names.
launch_here "$(wine_winpath "$PWD/velmora-setup.exe")" "/S /D=$silent_dir" 60 || fail "silent installation: status $?"
folder="$(unix "$silent_dir")"
for name in velmora.exe velmora-check.exe; do cmp "$stage/$name" "$folder/$name"; done
[ -f "$folder/uninstall.exe" ] || fail "no uninstall.exe in $silent_dir"
expect_value "$uninstall_key" InstallLocation "$silent_dir"

# Played by the velmora.exe under test: an installed one could not be deleted while it runs.
INSTALLDIR="$silent_dir" launch_here "$(wine_winpath "$E2E_BIN/velmora.exe")" '"uninstall.vls" "uninstall.vld"' 60 || fail "status $?: $(cat uninstall.vld)"
uninstalled "$silent_dir"
! key_exists 'HKCU\Software\Velmora Software' || fail "the settings are left, although the uninstall was told Yes"
