# shellcheck shell=bash
# Helpers for the cases' prepare.sh and check.sh, which run.sh runs under
# bash -e with these loaded. Each prints what is wrong and returns non-zero.

# shellcheck source=../../tools/wine-env.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine-env.sh"
# The checkout, and the folder of the programs under test.
E2E_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
E2E_BIN="${VELMORA_BIN:-$E2E_ROOT/build/windows/bin}"

# Starts a Windows program with exactly these arguments (launcher.cpp) and
# waits at most the seconds: launch <program> <arguments> <seconds> <file for the arguments>
launch() {
  printf '%s\n' "$2" >"$4"
  VELMORA_WINE_TIMEOUT=$(($3 + 30)) wine_run "$E2E_BIN/launch.exe" "$1" "$(wine_winpath "$4")" "$3"
}

# The working folder holds exactly the files it held before the run.
expect_no_new_files() {
  local changes
  changes="$(diff "$E2E_BEFORE" <(find . -type f | sort))" && return 0
  echo "the working folder changed:" && sed 's/^/  /' <<<"$changes" && return 1
}

# None of the files exists: the run did not get that far.
expect_absent() {
  local name
  for name in "$@"; do [ ! -e "$name" ] || { echo "$name exists, and should not" && return 1; }; done
}

# The text has the whole line: expect_line <text> <line>
expect_line() {
  grep -qxF "$2" <<<"$1" || { echo "no line '$2' in:" && sed 's/^/  /' <<<"$1" && return 1; }
}

# Waits until no program of the name runs in the Wine session (a program that
# the script started may still be at work when velmora.exe ends): wait_for_end <name.exe>
wait_for_end() {
  _wine_wait_for "! wine_programs | cut -d' ' -f2- | grep -qixF '$1'" 300 || { echo "$1 still runs after 30 s" && return 1; }
}

# Places the editor at the top right, where it covers no button to pick.
place_editor_top_right() {
  wine_run reg add 'HKCU\Software\Velmora Software\Velmora\Editor' /v Left /d 9600 /f >/dev/null 2>&1 &&
    wine_run reg add 'HKCU\Software\Velmora Software\Velmora\Editor' /v Top /d 0 /f >/dev/null 2>&1 ||
    { echo "could not store the editor's place" && return 1; }
}

# Ends a Windows program that the case started, by the process identifier it
# wrote to the file: a hung program would otherwise outlive the case.
end_windows_process() {
  local pid
  pid="$(tr -dc '0-9' <"$1" 2>/dev/null || true)"
  [ -n "$pid" ] || { echo "no process identifier in $1" && return 1; }
  VELMORA_WINE_TIMEOUT=30 wine_run taskkill /F /PID "$pid" >/dev/null 2>&1
}
