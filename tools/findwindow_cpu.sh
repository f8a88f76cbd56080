#!/usr/bin/env bash
# How much of a processor a waiting `findwindow` keeps busy under Wine on a
# crowded desktop. The window search benchmark holds its 40 dialogs of 49
# controls open (2,000 windows); velmora.exe plays a script whose findwindow
# waits 30 s for the button of a dialog that never opens. The CPU time of
# velmora.exe and of the wineserver is read from /proc/<pid>/stat before and
# after a span of the wait, and once before velmora.exe starts (the crowded
# desktop alone, for comparison). velmora.exe plays at the pace that
# VELMORA_PACE in the environment names (default when unset), as Wine hands
# it the environment; the pace is printed.
#   tools/findwindow_cpu.sh [seconds measured, default 20, at most 25]
# Needs build/windows/bin/{velmora,launch}.exe (the windows preset); builds
# the benchmark in build/bench-windows as tools/bench.sh does.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root"
seconds="${1:-20}"
[ "$seconds" -ge 1 ] && [ "$seconds" -le 25 ] || { echo "findwindow_cpu: 1 to 25 seconds" >&2; exit 2; }
bin="$root/build/windows/bin"
bench="$root/build/bench-windows/bin/velmora_window_search_bench.exe"
work="$root/build/findwindow-cpu"

for program in velmora.exe launch.exe; do
  [ -f "$bin/$program" ] || { echo "findwindow_cpu: $bin/$program is missing; build the windows preset" >&2; exit 2; }
done
mkdir -p "$work"
if ! { cmake -S . -B build/bench-windows -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
  -DCMAKE_BUILD_TYPE=Release -DVELMORA_TESTS=OFF -DVELMORA_BENCH=ON &&
  cmake --build build/bench-windows -j2 --target velmora_window_search_bench; } >"$work/build.log" 2>&1; then
  tail -n 40 "$work/build.log"
  exit 1
fi

cat >"$work/a.vls" <<'EOF'
findwindow: 2, "Velmora Setup That Never Opens", "#32770", 0, 0.5, 0.5, "Next >", "Button", 12, 0.5, 0.5, 0.30
EOF
printf '"a.vls" "a.vld"\n' >"$work/cmdline.txt"

# shellcheck source=wine-env.sh
source "$root/tools/wine-env.sh"
wine_start || exit 1

ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
percent() { awk -v t="$1" -v hz="$(getconf CLK_TCK)" -v s="$seconds" 'BEGIN { printf "%.1f", 100 * t / hz / s }'; }
# The Linux process of a Windows program of this session, by its name.
session_pid() {
  local p
  for p in /proc/[0-9]*; do
    [ "$(cat "$p/comm" 2>/dev/null)" = "$1" ] || continue
    tr '\0' '\n' <"$p/environ" 2>/dev/null | grep -qxF "WINEPREFIX=$WINEPREFIX" && { basename "$p"; return 0; }
  done
  return 1
}

server="$VELMORA_WINESERVER_PID"
(cd "$work" && VELMORA_WINE_TIMEOUT=$((seconds + 90)) wine_run "$bench" --hold $((seconds + 70)) >holder.out 2>&1) &
for ((i = 0; i < 600; i++)); do grep -q ready "$work/holder.out" 2>/dev/null && break; sleep 0.1; done
grep -q ready "$work/holder.out" || { echo "findwindow_cpu: the benchmark's windows did not open" >&2; exit 1; }
sleep 2

s0=$(ticks "$server")
sleep "$seconds"
idle=$(($(ticks "$server") - s0))

(cd "$work" && VELMORA_WINE_TIMEOUT=90 wine_run "$bin/launch.exe" "$(wine_winpath "$bin/velmora.exe")" \
  "$(wine_winpath "$work/cmdline.txt")" 60 >launch.log 2>&1) &
run=$!
velmora=""
for ((i = 0; i < 100; i++)); do
  velmora="$(session_pid velmora.exe || true)"
  [ -n "$velmora" ] && break
  sleep 0.1
done
[ -n "$velmora" ] || { echo "findwindow_cpu: velmora.exe did not start" >&2; exit 1; }
sleep 3  # start-up, and into the wait
v0=$(ticks "$velmora")
s0=$(ticks "$server")
sleep "$seconds"
v=$(($(ticks "$velmora") - v0))
s=$(($(ticks "$server") - s0))
wait_status=0
wait "$run" || wait_status=$?

echo "A findwindow waiting for a window that is not there, $seconds s measured, pace: ${VELMORA_PACE:-default}"
echo "(40 dialogs of 49 controls open besides; percent of one core):"
echo "  velmora.exe          $(percent "$v") %"
echo "  wineserver           $(percent "$s") %"
echo "  together             $(percent $((v + s))) %"
echo "  wineserver, desktop alone before: $(percent "$idle") %"
grep -q "The window was NOT found." "$work/a.vld" 2>/dev/null ||
  { echo "findwindow_cpu: the script did not end as expected (status $wait_status)" >&2; exit 1; }
