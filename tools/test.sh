#!/usr/bin/env bash
# Builds Velmora both ways and runs every test layer:
#   1. native unit tests (host g++, AddressSanitizer and UBSan), through ctest
#   2. the Win32 platform tests, under Wine, and the check that opening a
#      script in the editor costs at most a bounded multiple of a bare list
#      box fill of the same lines (bench/win32/editor_open_bench.cpp)
#   3. the end-to-end cases of velmora.exe, under Wine (after tools/package.sh
#      has built the installer that one of them installs)
#   4. the fuzz targets of the parsers, each for VELMORA_FUZZ_SECONDS (20)
# One Wine session (display, server, prefix) serves layers 2 and 3.
# Exits non-zero when anything fails; the last line is "N passed, N failed",
# counting every test of every layer (each GoogleTest test, each e2e run),
# and a build that fails counts as one failure.
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1
logs="$root/build/test-logs"

passed=0
failed=0
started=$(date +%s)

section() { printf '\n=== %s\n' "$*"; }
elapsed() { echo "$(($(date +%s) - $1)) s"; }
# Adds a layer's counts: add <layer> <passed> <failed>
add() {
  echo "[$1] $2 passed, $3 failed"
  passed=$((passed + $2))
  failed=$((failed + $3))
}

section "setup"
if ! "$root/tools/setup.sh"; then
  echo "setup failed"
  echo "0 passed, 1 failed"
  exit 1
fi
mkdir -p "$logs"

# The first count named $1 in a JUnit report (the suite's, before any case) or
# a GoogleTest JSON report (the totals, before any suite); empty when absent.
junit_count() { [ -f "$2" ] && sed -nE "s/^[[:space:]]*$1=\"([0-9]+)\".*/\1/p" "$2" | head -n 1; }
json_count() { [ -f "$2" ] && sed -nE "s/^[[:space:]]*\"$1\": ([0-9]+).*/\1/p" "$2" | head -n 1; }

# Builds one preset; its full output goes to a log, shown when it fails.
build() {
  local preset="$1" since
  since=$(date +%s)
  section "build $preset"
  # Tests on, whatever an earlier configure of the same folder left in its cache.
  if cmake --preset "$preset" -DVELMORA_TESTS=ON >"$logs/configure-$preset.log" 2>&1 &&
    cmake --build --preset "$preset" -j2 >"$logs/build-$preset.log" 2>&1; then
    echo "built $preset in $(elapsed "$since")"
    return 0
  fi
  cat "$logs/configure-$preset.log" "$logs/build-$preset.log" 2>/dev/null | tail -n 60
  echo "building $preset failed (logs in ${logs#"$root/"})"
  return 1
}

# --- layer 1: native ---------------------------------------------------------
if build native; then
  section "native unit tests"
  since=$(date +%s)
  rm -f "$logs/native.xml"
  ctest --preset native -j2 --timeout 120 --output-junit "$logs/native.xml" 2>&1 | tee "$logs/native.log" |
    grep -vE '^ +Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed'
  # ctest's JUnit report: the test suite's counts before the first test case.
  total=$(junit_count tests "$logs/native.xml")
  if [ -n "$total" ]; then
    bad=$(junit_count failures "$logs/native.xml")
    skipped=$(($(junit_count skipped "$logs/native.xml") + $(junit_count disabled "$logs/native.xml")))
    add native "$((total - bad - skipped))" "$bad"
  else
    echo "ctest wrote no report"
    add native 0 1
  fi
  echo "native tests took $(elapsed "$since")"
else
  add native 0 1
fi

# --- layers 2 and 3: under Wine ----------------------------------------------
if build windows; then
  # The installer and the zip, which the velmora_setup case installs.
  section "package"
  since=$(date +%s)
  if "$root/tools/package.sh" >"$logs/package.log" 2>&1; then
    echo "packaged in $(elapsed "$since")"
  else
    tail -n 30 "$logs/package.log"
    echo "packaging failed (log in ${logs#"$root/"}/package.log)"
    add package 0 1
  fi
  # shellcheck source=wine-env.sh
  source "$root/tools/wine-env.sh"
  section "Wine"
  if wine_start; then
    section "Win32 tests (Wine)"
    since=$(date +%s)
    rm -f "$logs/win32.json"
    VELMORA_WINE_TIMEOUT=300 wine_run "$root/build/windows/bin/velmora_win32_tests.exe" --gtest_color=no --gtest_brief=1 \
      "--gtest_output=json:Z:${logs//\//\\}\\win32.json" 2>&1 | tee "$logs/win32.log"
    # GoogleTest's JSON report, written when the program ends normally: the
    # totals come first; a skipped test is a test case whose result says so.
    ran=$(json_count tests "$logs/win32.json")
    if [ -z "$ran" ]; then
      echo "the Win32 test program ended without its report"
      add win32 0 1
    else
      bad=$(json_count failures "$logs/win32.json")
      skipped=$(($(grep -c '"result": "SKIPPED"' "$logs/win32.json") + $(json_count disabled "$logs/win32.json")))
      add win32 "$((ran - bad - skipped))" "$bad"
    fi
    echo "Win32 tests took $(elapsed "$since")"

    # Opening a script in the editor against a bare list box fill of the same
    # lines, in the same run: a bound on the ratio fails a large slowdown.
    section "editor open check (Wine)"
    since=$(date +%s)
    if VELMORA_WINE_TIMEOUT=120 wine_run "$root/build/windows/bin/velmora_editor_open_bench.exe" --check 2>&1 |
      tee "$logs/editor-open.log" | tail -n 1; then
      add editor-open 1 0
    else
      add editor-open 0 1
    fi
    echo "editor open check took $(elapsed "$since")"

    section "end-to-end tests (Wine)"
    "$root/tests/e2e/run.sh" 2>&1 | tee "$logs/e2e.log"
    line="$(grep -E '^e2e: [0-9]+ passed, [0-9]+ failed' "$logs/e2e.log" | tail -n 1)"
    if [ -n "$line" ]; then
      add e2e "$(sed -E 's/^e2e: ([0-9]+) passed.*/\1/' <<<"$line")" \
        "$(sed -E 's/^e2e: [0-9]+ passed, ([0-9]+) failed.*/\1/' <<<"$line")"
    else
      echo "the end-to-end runner ended without its summary"
      add e2e 0 1
    fi
    wine_stop
  else
    echo "Wine did not start (logs in build/wine-logs)"
    add wine 0 1
  fi
else
  add windows 0 1
fi

# --- layer 4: fuzzing -----------------------------------------------------------
section "fuzzing"
since=$(date +%s)
fuzz_output="$("$root/tools/fuzz.sh" "${VELMORA_FUZZ_SECONDS:-20}" 2>&1)"
echo "$fuzz_output" | tail -n 12
# One line per target: "<target>  ok ..." or "<target>  FAILED ...".
fuzz_ok=$(grep -cE '^[a-z_]+_fuzz +ok ' <<<"$fuzz_output")
fuzz_bad=$(grep -cE '^[a-z_]+_fuzz +FAILED |: no result$|building the fuzz preset failed' <<<"$fuzz_output")
[ "$fuzz_ok" -eq 0 ] && [ "$fuzz_bad" -eq 0 ] && fuzz_bad=1
add fuzz "$fuzz_ok" "$fuzz_bad"
echo "fuzzing took $(elapsed "$since")"

section "total"
echo "tools/test.sh took $(elapsed "$started")"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
