#!/usr/bin/env bash
# Builds the "bench" preset and runs the benchmarks, then prints a short table:
# the CPU time per line of each benchmark and size, and the ratios that the
# performance targets are stated in; then the window search over simulated
# trees, and over a real window tree under Wine (built for Windows in
# build/bench-windows, run in a Wine session of tools/wine-env.sh).
#   tools/bench.sh [extra Google Benchmark options, e.g. --benchmark_filter=Parse]
# BENCH_REPETITIONS (default 3) sets the repetitions; the table shows medians.
# BENCH_WINE=0 leaves out the run under Wine.
# The full results are kept in build/bench/results.json.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root"
results="$root/build/bench/results.json"
repetitions="${BENCH_REPETITIONS:-3}"

if ! command -v jq >/dev/null 2>&1; then
  echo "bench: jq is needed to read the results (tools/setup.sh installs it)" >&2
  exit 1
fi

mkdir -p build/bench
if ! { cmake --preset bench && cmake --build --preset bench -j2; } >build/bench/build.log 2>&1; then
  tail -n 40 build/bench/build.log
  echo "bench: building the bench preset failed (build/bench/build.log)" >&2
  exit 1
fi

# Repetitions of all the benchmarks run in a random order, so that a busy
# moment of the machine does not weigh on one size more than another.
build/bench/bin/velmora_bench --benchmark_repetitions="$repetitions" --benchmark_report_aggregates_only=true \
  --benchmark_enable_random_interleaving=true --benchmark_out="$results" --benchmark_out_format=json "$@"

# One row per benchmark: name, lines per iteration, CPU nanoseconds per line,
# CPU milliseconds per iteration.
rows="$(jq -r '
  .benchmarks[]
  | select(.run_type == "iteration" or .aggregate_name == "median")
  | select(.error_occurred | not)
  | select(.lines != null)
  | [(.run_name // .name), .lines, (.time_per_line * 1e9),
     (.cpu_time * ({"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}[.time_unit]))]
  | @tsv' "$results")"

echo
echo "Machine: $(nproc) cores, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | sed 's/^ *//'); load $(cut -d' ' -f1-3 /proc/loadavg)"
echo "CPU time (medians of $repetitions runs)"
printf '%-36s %12s %12s %14s\n' "benchmark" "lines" "ns/line" "ms/iteration"
sort -t$'\t' -k1,1V <<<"$rows" | awk -F'\t' '{ printf "%-36s %12d %12.1f %14.3f\n", $1, $2, $3, $4 }'

# ns per line of a benchmark by name, empty when it did not run.
per_line() { awk -F'\t' -v n="$1" '$1 == n { print $3 }' <<<"$rows"; }
ratio() {
  local a b
  a="$(per_line "$2")"
  b="$(per_line "$3")"
  [ -n "$a" ] && [ -n "$b" ] && awk -v l="$1" -v a="$a" -v b="$b" 'BEGIN { printf "%-58s %6.2fx\n", l, a / b }'
  return 0
}

echo
echo "Ratios"
ratio "parse: per line at 1M / at 10k" BM_Parse/1000000 BM_Parse/10000
ratio "preprocess (automatic): per line at 1M / at 10k (target 1.3)" \
  BM_Preprocess_Automatic/1000000 BM_Preprocess_Automatic/10000
ratio "preprocess (interactive): per line at 100k / at 10k" \
  BM_Preprocess_Interactive/100000 BM_Preprocess_Interactive/10000
ratio "interpreter loop, no debug file / bare walk" BM_Interpreter_Loop_NoFile BM_Baseline_Walk_Loop
ratio "interpreter loop, no debug file / parse + walk" BM_Interpreter_Loop_NoFile BM_Baseline_Parse_Walk_Loop
ratio "interpreter loop, debug file / parse + walk" BM_Interpreter_Loop_DebugFile BM_Baseline_Parse_Walk_Loop
ratio "interpreter straight, debug file: per line at 1M / at 10k" \
  BM_Interpreter_Straight_DebugFile/1000000 BM_Interpreter_Straight_DebugFile/10000
ratio "interpreter straight, no debug file: per line at 1M / at 10k" \
  BM_Interpreter_Straight_NoFile/1000000 BM_Interpreter_Straight_NoFile/10000

million="$(awk -F'\t' '$1 == "BM_Preprocess_Automatic/1000000" { printf "%.1f", $4 }' <<<"$rows")"
[ -n "$million" ] && echo "preprocess (automatic) of 1M lines: ${million} ms of CPU (target under 1000 ms)"

# The window search: name, windows in the tree, CPU milliseconds per search,
# CPU nanoseconds per window.
windows="$(jq -r '
  .benchmarks[]
  | select(.run_type == "iteration" or .aggregate_name == "median")
  | select(.error_occurred | not)
  | select(.windows != null)
  | [(.run_name // .name), .windows,
     (.cpu_time * ({"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}[.time_unit])), (.time_per_window * 1e9)]
  | @tsv' "$results")"
if [ -n "$windows" ]; then
  echo
  echo "Window search over a simulated tree (target under 50 ms per search)"
  printf '%-36s %12s %14s %12s\n' "benchmark" "windows" "ms/search" "ns/window"
  sort -t$'\t' -k1,1V <<<"$windows" | awk -F'\t' '{ printf "%-36s %12d %14.3f %12.1f\n", $1, $2, $3, $4 }'
  search_ratio() {
    awk -F'\t' -v l="$1" -v a="$2" -v b="$3" '$1 == a { x = $3 } $1 == b { y = $3 }
      END { if (x != "" && y != "") printf "%-58s %6.2fx\n", l, x / y }' <<<"$windows"
  }
  search_ratio "dialogs, a control repeated in each / bare walk" BM_Search_Dialogs_Repeated BM_Baseline_Walk_Dialogs
  search_ratio "dialogs, a window that is not there / bare walk" BM_Search_Dialogs_Absent BM_Baseline_Walk_Dialogs
  search_ratio "dialogs, a button of a dialog not open / bare walk" BM_Search_Dialogs_NoDialog BM_Baseline_Walk_Dialogs
  search_ratio "dialogs, one dialog by its title / bare walk" BM_Search_Dialogs_TopLevel BM_Baseline_Walk_Dialogs
  search_ratio "flat, one window / bare walk" BM_Search_Flat BM_Baseline_Walk_Flat
fi

[ "${BENCH_WINE:-1}" = 0 ] && exit 0

# The window search over a real window tree, under Wine.
echo
echo "Window search over a real window tree (Wine)"
if ! { cmake -S . -B build/bench-windows -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
  -DCMAKE_BUILD_TYPE=Release -DVELMORA_TESTS=OFF -DVELMORA_BENCH=ON &&
  cmake --build build/bench-windows -j2 --target velmora_window_search_bench velmora_editor_open_bench; } >build/bench/build-windows.log 2>&1; then
  tail -n 40 build/bench/build-windows.log
  echo "bench: building the Windows window search benchmark failed (build/bench/build-windows.log)" >&2
  exit 1
fi
# shellcheck source=wine-env.sh
source "$root/tools/wine-env.sh"
if ! wine_start; then
  echo "bench: Wine did not start (logs in build/wine-logs)" >&2
  exit 1
fi
status=0
wine_run "$root/build/bench-windows/bin/velmora_window_search_bench.exe" || status=$?
echo
echo "The editor opening scripts, inserting and removing a line (Wine)"
wine_run "$root/build/bench-windows/bin/velmora_editor_open_bench.exe" || status=$?
wine_stop
exit "$status"
