#!/usr/bin/env bash
# Plays the end-to-end cases (tests/e2e/README.md) with velmora.exe under Wine
# and compares its exit status, debug log (after mask.sed) and files with the
# case's:   tests/e2e/run.sh [case...]      (all cases when none is named)
# Starts its own Wine session unless a calling script already has one. Ends
# with "e2e: N passed, N failed".
set -uo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
# shellcheck source=lib.sh
source "$here/lib.sh"  # E2E_ROOT, E2E_BIN, the Wine session's helpers, launch
work_root="$E2E_ROOT/build/e2e"

for program in velmora.exe launch.exe; do
  [ -f "$E2E_BIN/$program" ] || { echo "e2e: $E2E_BIN/$program is missing; build the windows preset first" >&2 && exit 2; }
done
wine_start || { echo "e2e: no Wine session" >&2; exit 2; }

velmora_win="$(wine_winpath "$E2E_BIN/velmora.exe")"
passed=0
failed=0

# A debug log as compared: CR removed, masked, and the checkout's path of the
# velmora.exe under test shown as <E2E_VELMORA>.
normalise() {
  tr -d '\r' <"$1" | sed -E -f "$here/mask.sed" | perl -pe 'BEGIN { $path = shift } s/\Q$path\E/<E2E_VELMORA>/g' "$velmora_win"
}

# Every line ends in CR LF, the last one too, and no CR stands anywhere else.
all_lines_end_in_crlf() { perl -0777 -ne 'exit !/\A(?:[^\r\n]*\r\n)*\z/' "$1"; }

# Reports and kills the session's Windows programs that are not listed in the
# file $1 (those running before the case) and do not end within 5 s: one
# closed by the script's last line may still be on its way out.
end_left_programs() {
  local left pid tries
  for ((tries = 25; tries >= 0; tries--)); do
    left="$(wine_programs | grep -vxFf "$1")"
    [ -z "$left" ] && return 0
    [ "$tries" -gt 0 ] && sleep 0.2
  done
  sed -E 's/^([0-9]+) (.*)$/left running: \2 (pid \1)/' <<<"$left"
  for pid in $(cut -d' ' -f1 <<<"$left"); do
    kill -KILL "$pid" 2>/dev/null
    # Gone before the next case starts (a killed process may linger as a zombie).
    _wine_wait_for "! [ -e /proc/$pid ] || grep -q '^State:.*zombie' /proc/$pid/status 2>/dev/null" 100 ||
      echo "pid $pid did not end when killed"
  done
}

# Prints how the debug log $2 differs from the case's expected log $1.
compare_log() {
  local expected="$1" actual="$2" name="${2##*/}"
  [ -f "$expected" ] || { echo "the case has no file ${expected#"$E2E_ROOT/"}" && return; }
  [ -f "$actual" ] || { echo "no debug file $name was written" && return; }
  all_lines_end_in_crlf "$actual" || echo "$name has a line that does not end in CR LF"
  diff -u --label "expected ${expected#"$E2E_ROOT/"}" --label "actual $name (masked)" \
    <(normalise "$expected") <(normalise "$actual") | sed '1s/^/debug log differs:\n/'
}

# Prints each file of the case's expect/ folder $1 that the working folder $2
# does not hold with exactly those bytes.
compare_files() {
  local name
  while IFS= read -r name; do
    cmp -s "$1/$name" "$2/$name" && continue
    echo "$name differs from expect/$name:"
    diff <(cat -A "$1/$name") <(cat -A "$2/$name" 2>&1) | sed 's/^/  /'
  done < <([ -d "$1" ] && cd "$1" && find . -type f | sed 's|^\./||' | sort)
}

# Runs the case's prepare.sh or check.sh ($2) in the working folder $3, under
# bash -e with lib.sh's helpers loaded, E2E_CASE and E2E_LIB set.
case_script() {
  (cd "$3" && E2E_CASE="$1" E2E_LIB="$here/lib.sh" bash -ec 'source "$E2E_LIB"; source "$0"' "$1/$2")
}

# Plays one run of the case; sets status and seconds.
#   play <case dir> <scratch> <command line> <KEY=VALUE lines>
play() {
  local case_dir="$1" wd="$2/work" started=$SECONDS limit=30
  [ -f "$case_dir/time_limit" ] && limit="$(tr -d '[:space:]' <"$case_dir/time_limit")"
  (
    cd "$wd" || exit 125
    # Wine hands the Unix environment to Windows programs: only the case's own.
    unset SPEED_FACTOR
    export E2E_VELMORA="$velmora_win"
    while IFS= read -r assignment; do [ -z "$assignment" ] || export "${assignment?}"; done <<<"$4"
    launch "$velmora_win" "$3" "$limit" "$2/cmdline.txt"
  ) >"$2/launch.log" 2>&1
  status=$?
  seconds=$((SECONDS - started))
}

# Runs one variant of a case and prints its verdict.
#   run_one <case dir> <label> <variant> <expected status> <expected log or ""> <KEY=VALUE lines> <command line>
run_one() {
  local case_dir="$1" label="$2" scratch="$work_root/$2" problems prepared status seconds debug_name="a.vld"
  local wd="$scratch/work"
  rm -rf "$scratch" && mkdir -p "$wd"
  [ -d "$case_dir/files" ] && cp -a "$case_dir/files/." "$wd/"
  [ -f "$case_dir/debug_file" ] && debug_name="$(head -n 1 "$case_dir/debug_file")"
  wine_programs >"$scratch/programs_before.txt"
  if [ -f "$case_dir/prepare.sh" ] &&
    ! prepared="$(case_script "$case_dir" prepare.sh "$wd" 2>&1)"; then
    problems="prepare.sh failed, the case was not played:"$'\n'"$prepared"
  else
    (cd "$wd" && find . -type f | sort) >"$scratch/before.txt"
    play "$case_dir" "$scratch" "$7" "$6"
    problems="$(
      [ "$status" == "$4" ] || echo "exit status $status, expected $4"
      [ -z "$5" ] || compare_log "$5" "$wd/$debug_name"
      if [ -f "$case_dir/check.sh" ]; then
        E2E_STATUS="$status" E2E_VARIANT="$3" E2E_BEFORE="$scratch/before.txt" E2E_SECONDS="$seconds" \
          case_script "$case_dir" check.sh "$wd" >"$scratch/check.log" 2>&1 ||
          { echo "check.sh failed:" && cat "$scratch/check.log"; }
      fi
    )"
  fi
  problems+=$'\n'"$(end_left_programs "$scratch/programs_before.txt")"
  # Once the programs ended: the files they wrote are whole.
  problems+=$'\n'"$(compare_files "$case_dir/expect" "$wd")"
  # Settings that a run stored do not reach the next one.
  wine_run reg delete 'HKCU\Software\Velmora Software' /f >/dev/null 2>&1
  problems="$(grep -v '^$' <<<"$problems")"

  if [ -z "$problems" ]; then
    echo "PASS $label"
    # A start that Wine lost and launch.exe made again is worth seeing.
    grep -hs 'died while starting' "$scratch/launch.log" | sed 's/^/    note: /'
    passed=$((passed + 1))
  else
    echo "FAIL $label (command line: $7)"
    sed 's/^/    /' <<<"$problems"
    [ -s "$scratch/launch.log" ] && echo "    output of the run:" && sed 's/^/      /' "$scratch/launch.log"
    failed=$((failed + 1))
  fi
}

run_case() {
  local case_dir="$1" name row field variant status log env_words env_lines command_line label common_env=""
  name="$(basename "$case_dir")"
  [ -f "$case_dir/table" ] || { echo "FAIL $name (the case has no table)" && failed=$((failed + 1)) && return; }
  [ -f "$case_dir/env" ] && common_env="$(tr -d '\r' <"$case_dir/env" | grep -v '^[[:space:]]*\(#\|$\)')"
  while IFS= read -r row || [ -n "$row" ]; do
    row="${row%$'\r'}"
    [[ "$row" =~ ^[[:space:]]*(#|$) ]] && continue
    IFS='|' read -r variant status log env_words _ <<<"$row"
    for field in variant status log env_words; do read -r "${field?}" <<<"${!field}"; done
    command_line="${row#*|*|*|*|}"
    command_line="${command_line#"${command_line%%[! ]*}"}"
    env_lines="$common_env"
    [ "$env_words" != "-" ] && env_lines+=$'\n'"$(tr -s ' ' '\n' <<<"$env_words")"
    # A case of one run has no variant name.
    label="$name/$variant"
    [ "$variant" == "-" ] && variant="" && label="$name"
    [ "$log" == "-" ] && log="" || log="$case_dir/$log"
    run_one "$case_dir" "$label" "$variant" "$status" "$log" "$env_lines" "$command_line"
  done <"$case_dir/table"
}

cases=("$@")
[ $# -gt 0 ] || for dir in "$here"/cases/*/; do cases+=("$(basename "$dir")"); done
started=$(date +%s)
for name in "${cases[@]}"; do
  if [ -d "$here/cases/${name%/}" ]; then
    run_case "$here/cases/${name%/}"
  else
    echo "FAIL $name (no such case)" && failed=$((failed + 1))
  fi
done
echo "e2e: $passed passed, $failed failed ($(($(date +%s) - started)) s)"
[ "$failed" -eq 0 ]
