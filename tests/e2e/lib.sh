# shellcheck shell=bash
# Helpers for the cases' check.sh, sourced as: source "$E2E_LIB"
# Each prints what is wrong and returns non-zero; check.sh runs under set -e.

# shellcheck source=../../tools/wine-env.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine-env.sh"

# The working folder holds exactly the files it held before the run.
expect_no_new_files() {
  local now
  now="$(find . -type f | sort)"
  if [ "$now" != "$(cat "$E2E_BEFORE")" ]; then
    echo "the working folder changed:"
    diff <(cat "$E2E_BEFORE") <(printf '%s\n' "$now") | sed 's/^/  /'
    return 1
  fi
}

# None of the files exists: the run did not get that far.
expect_absent() {
  local name
  for name in "$@"; do
    [ -e "$name" ] && echo "$name exists, and should not" && return 1
  done
  return 0
}

# The file holds exactly the bytes of the case's file: expect_same_bytes <file> <case file>
expect_same_bytes() {
  cmp -s "$1" "$E2E_CASE/$2" && return 0
  echo "$1 differs from $2:"
  diff <(cat -A "$E2E_CASE/$2") <(cat -A "$1" 2>&1) | sed 's/^/  /'
  return 1
}

# The file holds the text, line feeds at its end aside: expect_text <file> <text>
expect_text() {
  [ -f "$1" ] && [ "$(cat "$1")" == "$2" ] && return 0
  echo "$1 should hold '$2', holds: $(cat -A "$1" 2>/dev/null || echo '(no file)')"
  return 1
}

# The text has the whole line: expect_line <text> <line>
expect_line() {
  grep -qxF "$2" <<<"$1" && return 0
  echo "no line '$2' in:"
  printf '%s\n' "$1" | sed 's/^/  /'
  return 1
}

# Waits until no program of the name runs in the Wine session (a program that
# the script started may still be at work when velmora.exe ends): wait_for_end <name.exe>
wait_for_end() {
  _wine_wait_for "! wine_programs | cut -d' ' -f2- | grep -qixF '$1'" 300 && return 0
  echo "$1 still runs after 30 s"
  return 1
}

# Deletes the stored settings of the named forms, so that the next case starts fresh.
forget_settings() {
  local section
  for section in "$@"; do
    wine_run reg delete "HKCU\\Software\\Velmora Software\\Velmora\\$section" /f >/dev/null 2>&1 || true
  done
}

# Ends a Windows program that the case started, by the process identifier it
# wrote to the file: a hung program would otherwise outlive the case.
end_windows_process() {
  local pid
  pid="$(tr -dc '0-9' <"$1" 2>/dev/null || true)"
  if [ -z "$pid" ]; then
    echo "no process identifier in $1"
    return 1
  fi
  VELMORA_WINE_TIMEOUT=30 wine_run taskkill /F /PID "$pid" >/dev/null 2>&1
}
