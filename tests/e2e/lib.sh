# shellcheck shell=bash
# Helpers for the cases' check.sh, sourced as: source "$E2E_LIB"
# Each prints what is wrong and returns non-zero; check.sh runs under set -e.

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

expect_absent() {
  local name
  for name in "$@"; do
    if [ -e "$name" ]; then
      echo "$name exists, and should not"
      return 1
    fi
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
  # shellcheck source=../../tools/wine-env.sh
  source "$(dirname "${BASH_SOURCE[0]}")/../../tools/wine-env.sh"
  VELMORA_WINE_TIMEOUT=30 wine_run taskkill /F /PID "$pid" >/dev/null 2>&1
}
