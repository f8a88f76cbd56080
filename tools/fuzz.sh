#!/usr/bin/env bash
# Builds the "fuzz" preset (clang, libFuzzer, AddressSanitizer, UBSan) and runs
# every fuzz target for the same number of seconds, printing one summary line
# per target.
#   tools/fuzz.sh [seconds-per-target, default 20] [extra libFuzzer options]
#   tools/fuzz.sh 600 -max_len=100000      long inputs, to catch slow growth
# FUZZ_JOBS=2 runs two targets at once (default 1).
# Seeds are read from tests/fuzz/corpus/<target>/; what the fuzzer learns goes
# to build/fuzz/corpus/<target>/ and is reused by the next run; findings are
# written to build/fuzz/artifacts/<target>/ and logs to build/fuzz/logs/.
# Exits non-zero when the build fails or any target reports a crash, a leak, a
# time-out, running out of memory or a sanitizer finding.
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1

seconds="${1:-20}"
[ $# -gt 0 ] && shift
if ! [[ "$seconds" =~ ^[0-9]+$ ]] || [ "$seconds" -lt 1 ]; then
  echo "usage: tools/fuzz.sh [seconds-per-target] [libFuzzer options]" >&2
  exit 2
fi
jobs="${FUZZ_JOBS:-1}"
# Every tests/fuzz/<target>.cpp ending in _fuzz is a target, as for CMake.
targets=()
for source in "$root"/tests/fuzz/*_fuzz.cpp; do
  name="${source##*/}"
  targets+=("${name%.cpp}")
done
out="$root/build/fuzz"
mkdir -p "$out/logs"

if ! { cmake --preset fuzz && cmake --build --preset fuzz -j2; } >"$out/logs/build.log" 2>&1; then
  tail -n 40 "$out/logs/build.log"
  echo "fuzz: building the fuzz preset failed (build/fuzz/logs/build.log)" >&2
  exit 1
fi

# Runs one target; its summary line goes to build/fuzz/logs/<target>.summary.
run_target() {
  local target="$1" log="$out/logs/$1.log" status runs coverage corpus finding input
  mkdir -p "$out/corpus/$target" "$out/artifacts/$target"
  "$out/bin/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$out/artifacts/$target/" "${@:2}" \
    "$out/corpus/$target" "$root/tests/fuzz/corpus/$target" >"$log" 2>&1
  status=$?
  runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)"
  coverage="$(grep -oE 'cov: [0-9]+' "$log" | tail -n 1 | cut -d' ' -f2)"
  corpus="$(find "$out/corpus/$target" -type f | wc -l)"
  if [ "$status" -eq 0 ]; then
    printf '%-24s ok      %s runs in %s s, coverage %s, corpus %s\n' "$target" "${runs:-?}" "$seconds" \
      "${coverage:-?}" "$corpus" >"$out/logs/$target.summary"
  else
    finding="$(grep -m1 '^SUMMARY: ' "$log" | cut -c10-)"
    input="$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)"
    printf '%-24s FAILED  %s; input %s; log %s\n' "$target" "${finding:-exit status $status}" \
      "${input:-none}" "${log#"$root/"}" >"$out/logs/$target.summary"
  fi
  return "$status"
}

echo "fuzz: ${#targets[@]} targets, $seconds s each, $jobs at a time"
for target in "${targets[@]}"; do
  rm -f "$out/logs/$target.summary"
  run_target "$target" "$@" &
  while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n; done
done
wait

failed=0
for target in "${targets[@]}"; do
  if [ -f "$out/logs/$target.summary" ]; then
    cat "$out/logs/$target.summary"
    grep -q ' FAILED ' "$out/logs/$target.summary" && failed=$((failed + 1))
  else
    echo "$target: no result"
    failed=$((failed + 1))
  fi
done
echo "fuzz: $failed of ${#targets[@]} targets failed"
[ "$failed" -eq 0 ]
