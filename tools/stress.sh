#!/usr/bin/env bash
# Runs the end-to-end cases with every core kept busy, to show that they hold
# under load (a findwindow that waits, keys that must reach the right window,
# a program that must not be taken for a hung one).
#
#   tools/stress.sh [case...]      (all cases when none is named; passed to tests/e2e/run.sh)
#
# It builds first, as tools/test.sh does (the windows preset with its tests,
# then tools/package.sh for the installer that one case installs): an
# incremental build takes seconds, and a stale velmora.exe would be stressed
# instead of the checked-out one. The build and the Wine prefix are made
# before the load starts; then one busy loop a core (plain sh) runs until the
# cases are done, and is killed by its process id, also when the run is
# interrupted. Ends with the end-to-end summary, "e2e: N passed, N failed".
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1
logs="$root/build/test-logs"
mkdir -p "$logs"

"$root/tools/setup.sh" >"$logs/stress-setup.log" 2>&1 || { tail -n 20 "$logs/stress-setup.log"; echo "setup failed"; exit 2; }
echo "stress: building the windows preset and the installer"
if ! { cmake --preset windows -DVELMORA_TESTS=ON && cmake --build --preset windows -j2 && "$root/tools/package.sh"; } \
  >"$logs/stress-build.log" 2>&1; then
  tail -n 40 "$logs/stress-build.log"
  echo "stress: the build failed (log in ${logs#"$root/"}/stress-build.log)"
  exit 2
fi

# shellcheck source=wine-env.sh
source "$root/tools/wine-env.sh"
wine_start || { echo "stress: no Wine session"; exit 2; }

load_pids=()
stop_load() {
  local pid
  for pid in "${load_pids[@]}"; do kill "$pid" 2>/dev/null; done
  for pid in "${load_pids[@]}"; do wait "$pid" 2>/dev/null; done
  load_pids=()
}
# wine_start's trap is replaced: this one also stops the load.
trap 'stop_load; wine_stop' EXIT
trap 'exit 130' INT TERM

cores="$(nproc)"
for ((i = 0; i < cores; i++)); do
  sh -c 'while :; do :; done' {VELMORA_WINE_LOCK_FD}>&- &
  load_pids+=($!)
done
echo "stress: $cores busy loops (pids ${load_pids[*]}) on $cores cores"

"$root/tests/e2e/run.sh" "$@" 2>&1 | tee "$logs/stress-e2e.log" | grep -vE '^e2e: [0-9]+ passed, [0-9]+ failed'
status=${PIPESTATUS[0]}

for pid in "${load_pids[@]}"; do
  kill -0 "$pid" 2>/dev/null || { echo "stress: busy loop $pid ended early; the load was lighter than meant"; status=1; }
done
echo "stress: load average at the end: $(cut -d' ' -f1-3 /proc/loadavg)"
stop_load
summary="$(grep -E '^e2e: [0-9]+ passed, [0-9]+ failed' "$logs/stress-e2e.log" | tail -n 1)"
echo "${summary:-e2e: the runner ended without its summary}"
[ -n "$summary" ] && exit "$status"
exit 1
