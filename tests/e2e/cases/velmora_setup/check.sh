# files/setup.vls installed Velmora through the wizard of the installer that
# tools/package.sh built. Checks that installation, plays the installed sample
# with the installed velmora.exe, uninstalls silently (settings kept), then
# installs silently and lets velmora.exe uninstall through the wizard,
# answering Yes to removing the settings.
set -e
root="$(cd "$E2E_CASE/../../../.." && pwd)"
bin="${VELMORA_BIN:-$root/build/windows/bin}"
source "$E2E_LIB"
: "${WINEPREFIX:?no Wine session}"

wizard_dir="$(sed -n 's/^INSTALLDIR=//p' "$E2E_CASE/env" | tr -d '\r')"
silent_dir='C:\Velmora Test'
sample_dir='C:\Velmora Wizard Sample'
stage=("$root"/build/dist/velmora-*/) # the packaged files, as staged for the installer
stage="${stage[0]%/}"
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora'
start_menu="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Velmora"

unix() { local path="${1#C:\\}"; printf '%s/drive_c/%s' "$WINEPREFIX" "${path//\\//}"; }
fail() { echo "$*"; exit 1; }
# Waits up to 30 s for a condition: wait_for <condition> <message if it never holds>
wait_for() { _wine_wait_for "$1" 300 || fail "$2"; }
# The Unix ids of this Wine session's processes whose command line matches.
session_pids() {
  local pid
  for pid in $(pgrep -f "$1"); do
    grep -qxzF "WINEPREFIX=$WINEPREFIX" "/proc/$pid/environ" 2>/dev/null && echo "$pid"
  done
  return 0
}
# Leave nothing behind for the cases that follow: no setup window that could
# take their keystrokes, and (the prefix may be kept between runs) no folders.
cleanup() {
  kill $(session_pids 'velmora-setup\.exe|velmora-sample-setup\.exe|\\Un\.exe') 2>/dev/null || true
  rm -rf "$(unix "$wizard_dir")" "$(unix "$silent_dir")" "$(unix "$sample_dir")"
}
trap cleanup EXIT

# Runs a Windows program with an exact argument line: launch <program> <arguments> <seconds>.
# A setup it starts inherits its output: a file, never run.sh's pipe.
launch() {
  printf '%s\n' "$2" >launch-arguments.txt
  VELMORA_WINE_TIMEOUT=$(($3 + 30)) wine_run "$bin/launch.exe" "$1" "$(wine_winpath "$PWD/launch-arguments.txt")" "$3" \
    >>wine-output.txt 2>&1
}
# expect_value <key> <value name, empty for the default> <data>
expect_value() {
  local which=(/ve) actual
  [ -n "$2" ] && which=(/v "$2")
  actual="$(wine_run reg query "$1" "${which[@]}" 2>/dev/null | tr -d '\r' | sed -nE 's/^    .*    REG_[A-Z_]+    //p')"
  [ "$actual" = "$3" ] || fail "$1 ${2:-(default)} is [$actual], expected [$3]"
}
# uninstall.exe hands over to a copy of itself (Un.exe) and returns at once:
# waits for the folder to go and the copy to end.
uninstalled() {
  local gone="$(unix "$1")"
  wait_for '[ ! -e "$gone" ]' "$1 is still there 30 s after uninstalling"
  wait_for '[ -z "$(session_pids "\\\\Un\.exe")" ]' "the uninstaller still runs 30 s after removing $1"
}
key_exists() { wine_run reg query "$1" >/dev/null 2>&1; }

# The wizard's installation: every packaged file but the user guide (Docs).
folder="$(unix "$wizard_dir")"
while IFS= read -r name; do
  case "$name" in
    Docs/*) [ ! -e "$folder/$name" ] || fail "$name was installed, although the script left out the user guide" ;;
    *) cmp -s "$stage/$name" "$folder/$name" || fail "$wizard_dir\\$name is missing or not the packaged file" ;;
  esac
done < <(cd "$stage" && find . -type f | sed 's|^\./||')
[ -f "$folder/uninstall.exe" ] || fail "no uninstall.exe in $wizard_dir"
for link in "Velmora" "Velmora Help" "Uninstall Velmora"; do
  [ -f "$start_menu/$link.lnk" ] || fail "no Start-menu entry $link"
done
while IFS='|' read -r key name want; do
  expect_value "$key" "$name" "$want"
done <<ROWS
HKCR\.vls||velmora
HKCR\velmora||Velmora Script file
HKCR\velmora\shell\open\command||"$wizard_dir\velmora.exe" "%1"
HKCR\velmora\DefaultIcon||$wizard_dir\velmora.exe,0
$uninstall_key|DisplayName|Velmora
$uninstall_key|DisplayVersion|${stage##*/velmora-}
$uninstall_key|Publisher|Velmora Software
$uninstall_key|InstallLocation|$wizard_dir
$uninstall_key|UninstallString|"$wizard_dir\uninstall.exe"
$uninstall_key|QuietUninstallString|"$wizard_dir\uninstall.exe" /S
ROWS

# The installed velmora.exe plays the installed sample, which installs the sample program.
export TARGETDIR="$sample_dir"
launch "$wizard_dir\\velmora.exe" "\"$wizard_dir\\install.vls\" \"sample.vld\"" 90 ||
  fail "the installed velmora.exe ended with status $?: $(tr -d '\r' <sample.vld)"
cmp "$bin/velmora-hello.exe" "$(unix "$sample_dir")/velmora-hello.exe"
# A running program's file cannot be deleted.
wait_for '[ -z "$(session_pids "velmora-sample-setup\\.exe")" ]' "the sample setup still runs after 30 s"

# A silent uninstall removes everything but the settings.
wine_run "$wizard_dir\\uninstall.exe" /S >>wine-output.txt 2>&1
uninstalled "$wizard_dir"
[ ! -e "$start_menu" ] || fail "the Start-menu folder is left: $(ls "$start_menu")"
for key in 'HKCR\.vls' 'HKCR\velmora' "$uninstall_key"; do
  ! key_exists "$key" || fail "$key is left after uninstalling"
done
expect_value 'HKCU\Software\Velmora Software\Velmora\EnvVarSetup' BatchFile 'C:\kept.bat'

# A silent installation, into the folder that /D= names.
launch "$(wine_winpath "$PWD/velmora-setup.exe")" "/S /D=$silent_dir" 60 || fail "the silent installation ended with status $?"
folder="$(unix "$silent_dir")"
for name in velmora.exe velmora-check.exe; do
  cmp "$stage/$name" "$folder/$name"
done
[ -f "$folder/uninstall.exe" ] || fail "no uninstall.exe in $silent_dir"
expect_value "$uninstall_key" InstallLocation "$silent_dir"

# files/uninstall.vls uninstalls through the wizard, with Yes to removing the
# settings; played by the velmora.exe under test, since an installed one
# could not be deleted while it runs.
export INSTALLDIR="$silent_dir"
launch "$(wine_winpath "$bin/velmora.exe")" '"uninstall.vls" "uninstall.vld"' 60 ||
  fail "velmora.exe uninstall.vls ended with status $?: $(tr -d '\r' <uninstall.vld)"
uninstalled "$silent_dir"
! key_exists 'HKCU\Software\Velmora Software' || fail "the settings are left, although the uninstall was told to remove them"
