#!/usr/bin/env bash
# Plays the end-to-end cases: velmora.exe under Wine, started with an exact
# command line, its exit status and debug log compared with what the case
# expects.
#
#   tests/e2e/run.sh [case...]      (all cases when none is named)
#
# tests/e2e/README.md describes the cases' format.
# Logs are compared after mask.sed (time stamps, window handles). Needs
# build/windows/bin/{velmora,launch}.exe; starts its own Wine session unless a
# calling script already has one. Ends with "e2e: N passed, N failed".
#
# A case ends with none of its programs running, whatever its outcome. A
# time-out ends velmora.exe and every program it started (launch.exe runs
# them in one job). Then, after check.sh (which may end programs itself),
# every Windows program that was not running before the case and still runs
# fails the case ("left running: wizard.exe (pid N)") and is killed.
set -uo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
root="$(cd "$here/../.." && pwd)"
bin="${VELMORA_BIN:-$root/build/windows/bin}"
work_root="$root/build/e2e"
mask="$here/mask.sed"

for program in velmora.exe launch.exe; do
  [ -f "$bin/$program" ] || { echo "e2e: $bin/$program is missing; build the windows preset first" >&2 && exit 2; }
done

# shellcheck source=../../tools/wine-env.sh
source "$root/tools/wine-env.sh"
wine_start || { echo "e2e: no Wine session" >&2; exit 2; }

velmora_win="$(wine_winpath "$bin/velmora.exe")"
passed=0
failed=0

# Normalised debug log for comparison: CR removed, masks applied, and the
# path of the velmora.exe under test (which depends on the checkout) shown as
# <E2E_VELMORA>.
normalise() {
  tr -d '\r' <"$1" | sed -E -f "$mask" | perl -pe 'BEGIN { $path = shift } s/\Q$path\E/<E2E_VELMORA>/g' "$velmora_win"
}

# Succeeds when every line of the file ends in CR LF, the last one too, and
# no CR stands anywhere else.
all_lines_end_in_crlf() {
  [ ! -s "$1" ] || { [ -z "$(tail -c 1 "$1")" ] && ! grep -qv $'\r$' "$1" &&
    [ "$(tr -cd '\r' <"$1" | wc -c)" -eq "$(wc -l <"$1")" ]; }
}

# Seconds that the programs a case leaves may take to end by themselves (one
# closed by the script's last line may still be on its way out).
readonly ending_seconds=5

# Reports and kills the session's Windows programs that run now and are not
# listed in the file $1 (wine_programs before the case).
end_left_programs() {
  local before="$1" left pid name tries
  for ((tries = ending_seconds * 5; tries >= 0; tries--)); do
    left="$(wine_programs | grep -vxFf "$before")"
    [ -z "$left" ] && return 0
    [ "$tries" -gt 0 ] && sleep 0.2
  done
  while read -r pid name; do
    echo "left running: $name (pid $pid)"
    kill -KILL "$pid" 2>/dev/null
  done <<<"$left"
  # Gone before the next case starts (a killed process may linger as a zombie).
  for pid in $(cut -d' ' -f1 <<<"$left"); do
    _wine_wait_for "! [ -e /proc/$pid ] || grep -q '^State:.*zombie' /proc/$pid/status 2>/dev/null" 100 ||
      echo "pid $pid did not end when killed"
  done
}

# Runs one variant of a case and prints its verdict.
#   run_one <case dir> <label> <variant> <expected status> <expected log or ""> <KEY=VALUE lines> <command line>
run_one() {
  local case_dir="$1" label="$2" variant="$3" want_status="$4" expected="$5" env_lines="$6" command_line="$7"
  local scratch="$work_root/$label" problems="" prepared
  local wd="$scratch/work"
  rm -rf "$scratch" && mkdir -p "$wd"
  [ -d "$case_dir/files" ] && cp -a "$case_dir/files/." "$wd/"
  wine_programs >"$scratch/programs_before.txt"
  if [ -f "$case_dir/prepare.sh" ] &&
    ! prepared="$(cd "$wd" && E2E_CASE="$case_dir" E2E_LIB="$here/lib.sh" bash "$case_dir/prepare.sh" 2>&1)"; then
    echo "FAIL $label (prepare.sh failed)" && printf '%s\n' "$prepared" | sed 's/^/    /'
    end_left_programs "$scratch/programs_before.txt" | sed 's/^/    /'
    failed=$((failed + 1)) && return
  fi
  printf '%s\n' "$command_line" >"$scratch/cmdline.txt"
  (cd "$wd" && find . -type f | sort) >"$scratch/before.txt"

  local status started=$SECONDS
  (
    cd "$wd" || exit 125
    # Wine hands the Unix environment to Windows programs: only the case's own.
    unset SPEED_FACTOR
    # A script that drives Velmora's own editor starts it by this name.
    export E2E_VELMORA="$velmora_win"
    local assignment
    while IFS= read -r assignment; do
      [ -n "$assignment" ] && export "${assignment?}"
    done <<<"$env_lines"
    local limit=30
    [ -f "$case_dir/time_limit" ] && limit="$(trim "$(cat "$case_dir/time_limit")")"
    VELMORA_WINE_TIMEOUT=$((limit + 30)) wine_run "$bin/launch.exe" "$velmora_win" \
      "$(wine_winpath "$scratch/cmdline.txt")" "$limit"
  ) >"$scratch/launch.log" 2>&1
  status=$?
  local seconds=$((SECONDS - started))

  [ "$status" == "$want_status" ] || problems+="exit status $status, expected $want_status"$'\n'

  if [ -n "$expected" ] && [ ! -f "$expected" ]; then
    problems+="the case has no file ${expected#"$root/"}"$'\n'
  elif [ -n "$expected" ]; then
    local debug_name="a.vld"
    [ -f "$case_dir/debug_file" ] && debug_name="$(head -n 1 "$case_dir/debug_file")"
    local actual="$wd/$debug_name"
    if [ ! -f "$actual" ]; then
      problems+="no debug file $debug_name was written"$'\n'
    else
      all_lines_end_in_crlf "$actual" || problems+="$debug_name has a line that does not end in CR LF"$'\n'
      local difference
      if ! difference="$(diff -u --label "expected ${expected#"$root/"}" --label "actual $debug_name (masked)" \
        <(normalise "$expected") <(normalise "$actual"))"; then
        problems+="debug log differs:"$'\n'"$difference"$'\n'
      fi
    fi
  fi

  if [ -f "$case_dir/check.sh" ]; then
    local check_output
    if ! check_output="$(cd "$wd" && E2E_STATUS="$status" E2E_VARIANT="$variant" E2E_BEFORE="$scratch/before.txt" E2E_SECONDS="$seconds" \
      E2E_CASE="$case_dir" E2E_LIB="$here/lib.sh" bash "$case_dir/check.sh" 2>&1)"; then
      problems+="check.sh failed:"$'\n'"$check_output"$'\n'
    fi
  fi
  local left_running
  left_running="$(end_left_programs "$scratch/programs_before.txt")"
  [ -z "$left_running" ] || problems+="$left_running"$'\n'

  if [ -z "$problems" ]; then
    echo "PASS $label"
    # A start that Wine lost and launch.exe made again is worth seeing.
    grep -h 'died while starting' "$scratch/launch.log" | sed 's/^/    note: /'
    passed=$((passed + 1))
  else
    echo "FAIL $label (command line: $command_line)"
    printf '%s' "$problems" | sed 's/^/    /'
    if [ -s "$scratch/launch.log" ]; then
      echo "    output of the run:"
      sed 's/^/      /' "$scratch/launch.log"
    fi
    failed=$((failed + 1))
  fi
}

trim() { local s="$1"; s="${s#"${s%%[![:space:]]*}"}"; printf '%s' "${s%"${s##*[![:space:]]}"}"; }

run_case() {
  local case_dir="$1" name row field variant status log env_words env_lines command_line expected label common_env=""
  name="$(basename "$case_dir")"
  [ -f "$case_dir/table" ] || { echo "FAIL $name (the case has no table)" && failed=$((failed + 1)) && return; }
  [ -f "$case_dir/env" ] && common_env="$(tr -d '\r' <"$case_dir/env" | grep -v '^[[:space:]]*\(#\|$\)')"
  while IFS= read -r row || [ -n "$row" ]; do
    row="${row%$'\r'}"
    [[ "$(trim "$row")" == "" || "$(trim "$row")" == \#* ]] && continue
    IFS='|' read -r variant status log env_words _ <<<"$row"
    for field in variant status log env_words; do printf -v "$field" '%s' "$(trim "${!field}")"; done
    command_line="${row#*|*|*|*|}"
    command_line="${command_line#"${command_line%%[! ]*}"}"
    expected=""
    [ "$log" != "-" ] && expected="$case_dir/$log"
    env_lines="$common_env"
    [ "$env_words" != "-" ] && env_lines+=$'\n'"$(tr -s ' ' '\n' <<<"$env_words")"
    # A case of one run has no variant name.
    label="$name/$variant"
    [ "$variant" == "-" ] && variant="" && label="$name"
    run_one "$case_dir" "$label" "$variant" "$status" "$expected" "$env_lines" "$command_line"
  done <"$case_dir/table"
}

cases=()
if [ $# -gt 0 ]; then
  for name in "$@"; do cases+=("$here/cases/${name%/}"); done
else
  for dir in "$here"/cases/*/; do cases+=("${dir%/}"); done
fi

started=$(date +%s)
for case_dir in "${cases[@]}"; do
  if [ ! -d "$case_dir" ]; then
    echo "FAIL $(basename "$case_dir") (no such case)"
    failed=$((failed + 1))
    continue
  fi
  run_case "$case_dir"
done
echo "e2e: $passed passed, $failed failed ($(($(date +%s) - started)) s)"
[ "$failed" -eq 0 ]
