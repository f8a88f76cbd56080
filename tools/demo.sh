#!/usr/bin/env bash
# Shows Velmora at work: builds velmora.exe and the sample installer, and lets
# samples/install.vls install the sample unattended under Wine, into
# C:\Velmora Sample of a fresh Wine prefix. Prints the debug log, lists what
# arrived, and saves a picture of the installer's finish page, which the
# script leaves on the screen for a few seconds, as docs/demo-finish.png,
# and pictures of the editor (docs/editor.png), of a first script's run line
# (docs/first-script.png), of a pick (docs/pick.png), of a recording (docs/record.png), of
# the batch editor (docs/batch-editor.png) and of the about box (docs/about.png).
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1

"$root/tools/setup.sh" || exit 1

echo "demo: building velmora.exe and the sample installer"
mkdir -p build
if ! { cmake --preset windows >build/demo-build.log 2>&1 &&
  cmake --build --preset windows -j2 --target velmora launch wintree sample_setup >>build/demo-build.log 2>&1; }; then
  tail -n 40 build/demo-build.log
  echo "demo: the build failed (build/demo-build.log)"
  exit 1
fi

bin="$root/build/windows/bin"
demo="$root/build/demo"
rm -rf "$demo"
mkdir -p "$demo"
cp -a "$root/samples/." "$demo/"
cp "$bin/velmora-sample-setup.exe" "$demo/"
# The command line exactly as a Windows shell would pass it.
printf '%s\n' '"install.vls" "install.vld"' >"$root/build/demo-cmdline.txt"
picture="$root/docs/demo-finish.png"

# The editor with the sample script loaded, as docs/editor.png: opened the
# way the shell opens a script, with a debug file it remembers, so that no
# dialog asks for one; the picture is taken once its window is up.
take_editor_picture() {
  : >"$demo/editor.vld"
  wine_run reg add 'HKCU\Software\Velmora Software\Velmora\Editor' /v "Debug File" /t REG_SZ \
    /d "\"$(wine_winpath "$demo/editor.vld")\"" /f >/dev/null 2>&1
  launch '"install.vls"' 20 editor
  window_picture "Velmora - IDE" "$root/docs/editor.png"
  wait "$launched"  # launch.exe ends the editor after its 20 seconds
  wine_run reg delete 'HKCU\Software\Velmora Software\Velmora' /f >/dev/null 2>&1
}

# Starts velmora.exe in build/demo with the exact command line $1, for at most
# $2 seconds, in the background (its command line file named after $3); the
# process id is left in $launched.
launch() {
  local file="$root/build/demo-$3-cmdline.txt"
  printf '%s\n' "$1" >"$file"
  (cd "$demo" && wine_run "$bin/launch.exe" "$(wine_winpath "$bin/velmora.exe")" "$(wine_winpath "$file")" "$2" \
    >/dev/null 2>&1) &
  launched=$!
}

# The lines of a session that starts the editor, opens a new script <name>.vls
# with the debug file <name>.vld, and finds the command catalogue.
new_script_lines() {
  sed "s/NAME/$1/g" <<'SCRIPT'
run: "velmora.exe"
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "&Open Script", "Button", 1007, 0.5, 0.5, 0.30
sendbuttons: sl
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "New Script File", "#32770", 0, 0.5, 0.5, 0.15
sendkeys: "NAME.vls{ENTER}"
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Open New Debug File", "#32770", 0, 0.5, 0.5, 0.15
sendkeys: "NAME.vld{ENTER}"
findwindow: 3, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Automation Commands", "VelmoraFrame", 1100, 0.5, 0.5, "", "ListBox", 1101, 0.5, 0.5, 0.10
SCRIPT
}

# The editor's place at the top right of the screen, stored for a fresh
# editor's next start, and the lines of a session that starts the sample setup and then the editor
# with a new script <name>.vls (see new_script_lines).
setup_and_editor_lines() {
  local key='HKCU\Software\Velmora Software\Velmora\Editor'
  # The editor of the picture before closes after its session has ended, and
  # then stores its files; a new editor that remembered them would ask for no
  # debug file.
  _wine_wait_for "! wine_run '$bin/wintree.exe' --wait 0 'Velmora - IDE' >/dev/null 2>&1" 150
  wine_run reg delete 'HKCU\Software\Velmora Software\Velmora' /f >/dev/null 2>&1
  wine_run reg add "$key" /v Left /t REG_SZ /d 9600 /f >/dev/null 2>&1
  wine_run reg add "$key" /v Top /t REG_SZ /d 0 /f >/dev/null 2>&1
  printf '%s\n' 'run: "velmora-sample-setup.exe"' \
    'findwindow: 2, "Velmora Sample Setup", "#32770", 0, 0.5, 0.5, "&Next >", "Button", 1, 0.5, 0.5, 0.30'
  new_script_lines "$1"
}

# A pick in progress, as docs/pick.png: a Velmora session opens the editor at
# the top right of the screen, chooses "Find a Window", enters its field and
# points at the sample setup's Next button; the picture is taken while the
# editor waits for the mouse to stand still, the button framed.
take_pick_picture() {
  local pick_picture="$root/docs/pick.png"
  {
    setup_and_editor_lines picked
    cat <<'SCRIPT'
sendkeys: "{UP 12}{DOWN}{ENTER}"
findwindow: 3, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Command Parameters", "VelmoraFrame", 1200, 0.5, 0.5, "", "Edit", 1202, 0.5, 0.5, 0.10
sendbuttons: sl
usemouse: nc, 39526, 43456
findwindow: 1, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, 0.10
sendkeys: "%{F4}"
findwindow: 1, "Velmora Sample Setup", "#32770", 0, 0.5, 0.5, 0.10
sendkeys: "{ESC}"
SCRIPT
  } >"$demo/pick-picture.vls"
  launch '"pick-picture.vls" "pick-picture.vld"' 60 pick
  local session=$launched
  if wine_run "$bin/wintree.exe" --wait 40 "Velmora Script Editor  ** DISABLED PENDING WINDOW LOCATION INPUT! **" \
    >/dev/null; then
    sleep 2.5  # the pointer reaches the button a second into the pick
    import -display "$DISPLAY" -window root -crop 940x720+340+0 +repage -strip -define png:exclude-chunks=date,time \
      "$pick_picture" && echo "demo: saved a pick in progress as ${pick_picture#"$root/"}"
  else
    echo "demo: the editor did not start a pick"
  fi
  wait "$session"
  wine_run reg delete 'HKCU\Software\Velmora Software\Velmora' /f >/dev/null 2>&1
}

# A recording, as docs/record.png: a Velmora session opens the editor at the
# top right, chooses Record Actions and clicks the sample setup's Next button;
# the picture is taken once the licence page is up, the two recorded lines in
# the script. The session then ends the recording and closes both without saving.
take_record_picture() {
  local record_picture="$root/docs/record.png"
  {
    setup_and_editor_lines recorded
    cat <<'SCRIPT'
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "&Velmora", "Button", 1001, 0.5, 0.5, 0.10
sendbuttons: sl
sendkeys: "r"
findwindow: 2, "Velmora Sample Setup", "#32770", 0, 0.5, 0.5, "&Next >", "Button", 1, 0.5, 0.5, 0.10
sendbuttons: sl
findwindow: 2, "Velmora Sample Setup ", "#32770", 0, 0.5, 0.5, "I &Agree", "Button", 1, 0.5, 0.5, 0.30
wait: 0.04
findwindow: 2, "Velmora - IDE  ** RECORDING ACTIONS! **", "VelmoraEditor", 0, 0.5, 0.5, "&Velmora", "Button", 1001, 0.5, 0.5, 0.10
sendbuttons: sl
sendkeys: "r"
findwindow: 1, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, 0.10
sendkeys: "%{F4}"
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Velmora - IDE", "#32770", 0, 0.5, 0.5, 0.10
sendkeys: "n"
findwindow: 1, "Velmora Sample Setup ", "#32770", 0, 0.5, 0.5, 0.10
sendkeys: "{ESC}"
SCRIPT
  } >"$demo/record-picture.vls"
  launch '"record-picture.vls" "record-picture.vld"' 90 record
  local session=$launched
  if wine_run "$bin/wintree.exe" --wait 60 "Velmora Sample Setup " >/dev/null; then
    sleep 1.5  # the licence page is drawn
    import -display "$DISPLAY" -window root -crop 940x720+340+0 +repage -strip -define png:exclude-chunks=date,time \
      "$record_picture" && echo "demo: saved a recording as ${record_picture#"$root/"}"
  else
    echo "demo: the recording did not reach the licence page"
  fi
  wait "$session"
  wine_run reg delete 'HKCU\Software\Velmora Software\Velmora' /f >/dev/null 2>&1
}

# The first steps of the README's "Your first script", as docs/first-script.png:
# a new script, its Run: line for the sample setup inserted and then clicked.
# The picture is taken during the session's wait after the click (its log
# shows when the wait begins); closing the editor lets the new script go.
take_first_script_picture() {
  {
    new_script_lines first
    cat <<'SCRIPT'
sendkeys: "{UP 12}{ENTER}"
findwindow: 3, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Command Parameters", "VelmoraFrame", 1200, 0.5, 0.5, "", "Edit", 1202, 0.5, 0.5, 0.10
sendbuttons: sl
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Browse for Program", "#32770", 0, 0.5, 0.5, 0.15
sendkeys: "velmora-sample-setup.exe{ENTER}"
findwindow: 3, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Command Parameters", "VelmoraFrame", 1200, 0.5, 0.5, "Insert Command", "Button", 1230, 0.5, 0.5, 0.10
sendbuttons: sl
findwindow: 3, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Script", "VelmoraFrame", 1300, 0.5, 0.5, "", "ListBox", 1301, 0.5, 0.5, 0.10
sendkeys: "{UP 30}"
usemouse: nc, 65535, 65535
wait: 0.06
findwindow: 1, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, 0.10
sendkeys: "%{F4}"
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "Velmora - IDE", "#32770", 0, 0.5, 0.5, 0.10
sendkeys: "n"
SCRIPT
  } >"$demo/first-script-picture.vls"
  rm -f "$demo/first-script-picture.vld"
  launch '"first-script-picture.vls" "first-script-picture.vld"' 60 first
  local session=$launched
  if _wine_wait_for "grep -qa '^==> wait: 0.06' '$demo/first-script-picture.vld' 2>/dev/null" 450; then
    window_picture "Velmora - IDE" "$root/docs/first-script.png"
  else
    echo "demo: the first script's Run: line was not highlighted"
  fi
  wait "$session"
  wine_run reg delete 'HKCU\Software\Velmora Software\Velmora' /f >/dev/null 2>&1
}

# shellcheck source=wine-env.sh
source "$root/tools/wine-env.sh"
wine_start || exit 1
export TARGETDIR='C:\Velmora Sample'
echo "demo: TARGETDIR=$TARGETDIR velmora.exe \"install.vls\" \"install.vld\"   (in ${demo#"$root/"})"
started=$(date +%s)
(cd "$demo" && wine_run "$bin/launch.exe" "$(wine_winpath "$bin/velmora.exe")" \
  "$(wine_winpath "$root/build/demo-cmdline.txt")" 90) &
session=$!

# The finish page stays up for the script's wait before it clicks Finish.
if wine_run "$bin/wintree.exe" --wait 60 "Completing Velmora Sample Setup" >/dev/null; then
  # The setup window's rectangle, from the tree: ... id=0 [left,top,right,bottom]
  rect="$(wine_run "$bin/wintree.exe" "Velmora Sample Setup " | head -n 1 |
    sed -nE 's/.* id=0 \[(-?[0-9]+),(-?[0-9]+),(-?[0-9]+),(-?[0-9]+)\].*/\1 \2 \3 \4/p')"
  crop=()
  if [ -n "$rect" ]; then
    read -r left top right bottom <<<"$rect"
    crop=(-crop "$((right - left + 16))x$((bottom - top + 16))+$((left - 8))+$((top - 8))" +repage)
  fi
  # No time stamps in the file: the same screen gives the same bytes.
  if import -display "$DISPLAY" -window root "${crop[@]}" -strip -define png:exclude-chunks=date,time "$picture"; then
    echo "demo: saved the finish page as ${picture#"$root/"}"
  else
    echo "demo: could not take the picture of the finish page"
  fi
else
  echo "demo: the finish page did not appear"
fi

wait "$session"
status=$?
echo "demo: the session took $(($(date +%s) - started)) s"

# The batch editor with the sample batch file and its TARGETDIR line chosen
# (docs/batch-editor.png), then the about box (docs/about.png), both opened
# from the Velmora menu; each picture is cut to its window.
take_batch_pictures() {
  cat >"$demo/batch-pictures.vls" <<'SCRIPT'
run: "velmora.exe"
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "&Velmora", "Button", 1001, 0.5, 0.5, 0.30
sendbuttons: sl
sendkeys: "b"
findwindow: 2, "Assign Environment Variables in Batch File", "VelmoraBatchEditor", 0, 0.5, 0.5, "New Batch File", "#32770", 0, 0.5, 0.5, 0.15
sendkeys: "install.bat{ENTER}"
findwindow: 2, "Assign Environment Variables in Batch File", "VelmoraBatchEditor", 0, 0.5, 0.5, "", "ListBox", 2004, 0.5, 0.5, 0.10
sendkeys: "{DOWN}{ENTER}"
usemouse: nc, 65535, 65535
wait: 0.06
findwindow: 1, "Assign Environment Variables in Batch File", "VelmoraBatchEditor", 0, 0.5, 0.5, 0.10
sendkeys: "%{F4}"
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "&Velmora", "Button", 1001, 0.5, 0.5, 0.10
sendbuttons: sl
sendkeys: "a"
wait: 0.06
findwindow: 2, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, "About Velmora", "#32770", 0, 0.5, 0.5, 0.10
sendkeys: "{ENTER}"
findwindow: 1, "Velmora - IDE", "VelmoraEditor", 0, 0.5, 0.5, 0.10
sendkeys: "%{F4}"
SCRIPT
  launch '"batch-pictures.vls" "batch-pictures.vld"' 60 batch
  local session=$launched
  window_picture "Assign Environment Variables in Batch File" "$root/docs/batch-editor.png" TARGETDIR
  window_picture "About Velmora" "$root/docs/about.png"
  wait "$session"
  wine_run reg delete 'HKCU\Software\Velmora Software\Velmora' /f >/dev/null 2>&1
}

# Waits for the window titled $1 (and for a window with the text $3, when
# given: a sign that the window shows what the picture is for), lets it
# settle, and saves it cut from the screen as $2.
window_picture() {
  local title="$1" picture="$2" ready="${3:-$1}" line
  if ! wine_run "$bin/wintree.exe" --wait 30 "$title" >/dev/null ||
    ! wine_run "$bin/wintree.exe" --wait 30 "$ready" >/dev/null; then
    echo "demo: no window \"$title\" showing \"$ready\" appeared"
    return
  fi
  sleep 2
  # Without a window manager nothing draws the frame and the title bar, so
  # the picture is the area of the window's controls with a small margin.
  local box
  box="$(wine_run "$bin/wintree.exe" "$title" | tr -d '\r' | awk -v margin=4 '
    match($0, /\[-?[0-9]+,-?[0-9]+,-?[0-9]+,-?[0-9]+\]/) {
      split(substr($0, RSTART + 1, RLENGTH - 2), r, ",")
      if (NR == 1) { wl = r[1]; wt = r[2]; wr = r[3]; wb = r[4]; next }
      if ($0 !~ /^  [^ ]/) next
      if (n++ == 0) { l = r[1]; t = r[2]; rt = r[3]; b = r[4] }
      if (r[1] < l) l = r[1]
      if (r[2] < t) t = r[2]
      if (r[3] > rt) rt = r[3]
      if (r[4] > b) b = r[4]
    }
    END {
      if (!n) exit 1
      l = (l - margin < wl) ? wl : l - margin; t = (t - margin < wt) ? wt : t - margin
      rt = (rt + margin > wr) ? wr : rt + margin; b = (b + margin > wb) ? wb : b + margin
      printf "%dx%d+%d+%d\n", rt - l, b - t, l, t
    }')" || return
  import -display "$DISPLAY" -window root -crop "$box" +repage -strip \
    -define png:exclude-chunks=date,time "$picture" && echo "demo: saved ${picture#"$root/"}"
}

installed="$WINEPREFIX/drive_c/Velmora Sample"
if [ -d "$installed" ]; then
  echo "demo: installed into $TARGETDIR:"
  (cd "$installed" && ls -l) | sed 's/^/  /'
  printf '  velmora-hello.exe says: '
  wine_run "$(wine_winpath "$installed/velmora-hello.exe")" | tr -d '\r'
else
  echo "demo: nothing was installed into $TARGETDIR"
fi
take_editor_picture
take_first_script_picture
take_pick_picture
take_record_picture
take_batch_pictures
wine_stop

if [ -f "$demo/install.vld" ]; then
  echo "demo: debug log ${demo#"$root/"}/install.vld:"
  echo "----------------------------------------------------------------------"
  tr -d '\r' <"$demo/install.vld"
  echo "----------------------------------------------------------------------"
else
  echo "demo: no debug log was written"
fi
echo "demo: velmora.exe exited with status $status"
exit "$status"
