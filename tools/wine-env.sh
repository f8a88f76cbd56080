# shellcheck shell=bash
# Wine for one test run: a virtual X display, one persistent wineserver and a
# Wine prefix under build/, all started once and stopped together.
#
#   source tools/wine-env.sh
#   wine_start                      # display, server, prefix; installs an EXIT trap
#   wine_run path/to/prog.exe args  # runs a Windows program; returns its exit status
#   wine_programs                   # lists the Windows programs running in the session
#   wine_stop                       # also run by the trap
#
# The prefix (build/wineprefix) is recreated by every run, so no run sees
# registry keys or files that an earlier one left behind. Set
# VELMORA_REUSE_PREFIX=1 to keep an existing prefix when iterating by hand.
# Creating it takes about 8 s on two cores; the time is printed.
#
# A script started by one that already called wine_start (tools/test.sh runs
# tests/e2e/run.sh) finds the exported session and reuses it; only the shell
# that started the session stops it. Everything is stopped by process id.
#
# wine_start installs `trap wine_stop EXIT` (and INT/TERM): a caller with its
# own EXIT trap must call wine_stop from it.

_velmora_wine_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

# A Windows path for an absolute Unix path, through drive Z: (Wine maps it to /).
wine_winpath() {
  local path="$1"
  printf 'Z:%s\n' "${path//\//\\}"
}

_wine_log() { echo "wine: $*" >&2; }

_wine_find_programs() {
  VELMORA_WINE="$(command -v wine64 || true)"
  [ -n "$VELMORA_WINE" ] || { [ -x /usr/lib/wine/wine64 ] && VELMORA_WINE=/usr/lib/wine/wine64; }
  [ -n "$VELMORA_WINE" ] || VELMORA_WINE="$(command -v wine || true)"
  # The server binary itself: Debian's wineserver wrapper adds its own -p0.
  _velmora_wineserver=""
  [ -x /usr/lib/wine/wineserver64 ] && _velmora_wineserver=/usr/lib/wine/wineserver64
  [ -n "$_velmora_wineserver" ] || _velmora_wineserver="$(command -v wineserver || true)"
  if [ -z "$VELMORA_WINE" ] || [ -z "$_velmora_wineserver" ]; then
    _wine_log "wine64 or wineserver not found; run tools/setup.sh"
    return 1
  fi
  export VELMORA_WINE
}

# Waits (up to $2 tenths of a second) until the command in $1 succeeds.
_wine_wait_for() {
  local condition="$1" tenths="$2" i
  for ((i = 0; i < tenths; i++)); do
    eval "$condition" && return 0
    sleep 0.1
  done
  eval "$condition"
}

# Stops one process that this shell started: a polite signal, then KILL.
_wine_stop_pid() {
  local pid="$1" signal="$2"
  [ -n "$pid" ] || return 0
  if kill -0 "$pid" 2>/dev/null; then
    kill "-$signal" "$pid" 2>/dev/null || true
    if ! _wine_wait_for "! kill -0 $pid 2>/dev/null" 100; then
      _wine_log "process $pid ignored SIG$signal; killing it"
      kill -KILL "$pid" 2>/dev/null || true
    fi
  fi
  wait "$pid" 2>/dev/null || true
}

# The wineserver's socket for the prefix: Debian's Wine keeps it under a
# /tmp/wine-XXXXXX folder, upstream Wine under /tmp/.wine-<uid>.
_wine_server_socket_exists() {
  local id
  id="$(printf 'server-%x-%x' $(stat -c '%d %i' "$WINEPREFIX"))"
  compgen -G "${TMPDIR:-/tmp}/wine-*/$id/socket" >/dev/null ||
    [ -S "${TMPDIR:-/tmp}/.wine-$(id -u)/$id/socket" ]
}

wine_start() {
  if [ -n "${VELMORA_WINE_SESSION:-}" ] && kill -0 "${VELMORA_WINESERVER_PID:-0}" 2>/dev/null; then
    return 0  # a parent script's session
  fi
  _wine_find_programs || return 1

  local build="$_velmora_wine_root/build"
  _velmora_wine_logs="$build/wine-logs"
  mkdir -p "$_velmora_wine_logs"

  # One run at a time per checkout: they share the prefix.
  exec {_velmora_wine_lock}>"$build/wineprefix.lock"
  if ! flock -w 900 "$_velmora_wine_lock"; then
    _wine_log "another run holds $build/wineprefix.lock"
    return 1
  fi

  trap wine_stop EXIT
  trap 'wine_stop; exit 130' INT TERM
  _velmora_wine_owner=$BASHPID

  export WINEDEBUG=-all WINEARCH=win64
  export WINEPREFIX="$build/wineprefix"
  # No Mono or Gecko installer prompts, and no menu entries in the home folder.
  export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d"
  # Dates and numbers in the user's formats must not depend on the machine.
  export LC_ALL=C.UTF-8 LANG=C.UTF-8
  unset WINESERVER WINELOADER

  # Xvfb chooses a free display itself and writes its number to fd 3.
  local display_file="$_velmora_wine_logs/display"
  : >"$display_file"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp \
    3>"$display_file" {_velmora_wine_lock}>&- >"$_velmora_wine_logs/xvfb.log" 2>&1 </dev/null &
  VELMORA_XVFB_PID=$!
  if ! _wine_wait_for "[ -s '$display_file' ]" 150; then
    _wine_log "Xvfb did not start; see $_velmora_wine_logs/xvfb.log"
    wine_stop
    return 1
  fi
  export DISPLAY=":$(tr -d '[:space:]' <"$display_file")"

  local created=0 started
  if [ "${VELMORA_REUSE_PREFIX:-0}" = 1 ] && [ -f "$WINEPREFIX/system.reg" ]; then
    _wine_log "reusing $WINEPREFIX"
  else
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    created=1
  fi

  "$_velmora_wineserver" -p -f {_velmora_wine_lock}>&- >"$_velmora_wine_logs/wineserver.log" 2>&1 </dev/null &
  VELMORA_WINESERVER_PID=$!
  if ! _wine_wait_for _wine_server_socket_exists 150; then
    _wine_log "wineserver did not start; see $_velmora_wine_logs/wineserver.log"
    wine_stop
    return 1
  fi

  if [ "$created" = 1 ]; then
    started=$(date +%s.%N)
    if ! timeout -k 5 180 "$VELMORA_WINE" wineboot -i {_velmora_wine_lock}>&- \
      >"$_velmora_wine_logs/wineboot.log" 2>&1 </dev/null; then
      _wine_log "wineboot failed; see $_velmora_wine_logs/wineboot.log"
      wine_stop
      return 1
    fi
    # No sound driver: on some machines the first beep of every process
    # waits about 10 s for the audio system, and velmora.exe beeps at the end.
    if ! timeout -k 5 60 "$VELMORA_WINE" reg add 'HKCU\Software\Wine\Drivers' /v Audio /t REG_SZ /d "" /f \
      {_velmora_wine_lock}>&- >>"$_velmora_wine_logs/wineboot.log" 2>&1 </dev/null; then
      _wine_log "could not switch off the sound driver; see $_velmora_wine_logs/wineboot.log"
      wine_stop
      return 1
    fi
    VELMORA_PREFIX_SECONDS=$(awk -v a="$started" -v b="$(date +%s.%N)" 'BEGIN { printf "%.1f", b - a }')
    _wine_log "prefix created in ${VELMORA_PREFIX_SECONDS} s ($WINEPREFIX)"
  fi

  # Children inherit the lock's descriptor; they close it for Wine's processes.
  VELMORA_WINE_LOCK_FD=$_velmora_wine_lock
  export VELMORA_WINE_SESSION=$BASHPID VELMORA_WINESERVER_PID VELMORA_XVFB_PID VELMORA_PREFIX_SECONDS \
    VELMORA_WINE_LOCK_FD
  _wine_log "display $DISPLAY, wineserver pid $VELMORA_WINESERVER_PID, Xvfb pid $VELMORA_XVFB_PID"
}

# Runs a Windows program under the session and returns its exit status; a
# program that hangs is stopped after VELMORA_WINE_TIMEOUT seconds (124).
wine_run() {
  local program="$1" lock="${VELMORA_WINE_LOCK_FD:-}"
  shift
  if [ -n "$lock" ]; then
    timeout -k 5 "${VELMORA_WINE_TIMEOUT:-120}" "$VELMORA_WINE" "$program" "$@" {lock}>&- </dev/null
  else
    timeout -k 5 "${VELMORA_WINE_TIMEOUT:-120}" "$VELMORA_WINE" "$program" "$@" </dev/null
  fi
}

# Wine's own processes, which come and go with the session, not with a test.
_velmora_wine_services=" services.exe winedevice.exe plugplay.exe svchost.exe rpcss.exe conhost.exe "

# Prints "<Linux pid> <program name>" for each Windows program running in this
# session (a Wine process with its WINEPREFIX), Wine's own services and the
# desktop's explorer.exe aside.
wine_programs() {
  local environ proc exe arg0 name
  for environ in $(grep -lzxF "WINEPREFIX=${WINEPREFIX:?no Wine session}" /proc/[0-9]*/environ 2>/dev/null); do
    proc="${environ%/environ}"
    exe="$(readlink "$proc/exe" 2>/dev/null)" || continue
    [[ "${exe##*/}" == wine* && "${exe##*/}" != wineserver* ]] || continue
    IFS= read -r -d '' arg0 <"$proc/cmdline" 2>/dev/null || continue
    name="${arg0##*[\\/]}"
    [[ "$_velmora_wine_services" != *" ${name,,} "* ]] || continue
    [[ "${name,,}" == explorer.exe && "$(tr '\0' ' ' <"$proc/cmdline")" == *" /desktop"* ]] && continue
    echo "${proc#/proc/} $name"
  done
}

wine_stop() {
  # Only the shell that started the session stops it.
  [ "${_velmora_wine_owner:-}" = "$BASHPID" ] || return 0
  _velmora_wine_owner=""
  trap - EXIT INT TERM

  local server_tmp=""
  [ -r "${WINEPREFIX:-}/wineserver" ] && server_tmp="$(cat "$WINEPREFIX/wineserver")"
  # SIGINT makes the server close its socket and end its Windows processes.
  _wine_stop_pid "${VELMORA_WINESERVER_PID:-}" INT
  _wine_stop_pid "${VELMORA_XVFB_PID:-}" TERM
  # Debian's server leaves its private /tmp folder behind.
  case "$server_tmp" in
    wine-??????) rm -rf "${TMPDIR:-/tmp}/$server_tmp" ;;
  esac
  if [ -n "${_velmora_wine_lock:-}" ]; then
    exec {_velmora_wine_lock}>&-
    _velmora_wine_lock=""
  fi
  unset VELMORA_WINE_SESSION VELMORA_WINESERVER_PID VELMORA_XVFB_PID VELMORA_WINE_LOCK_FD
}
