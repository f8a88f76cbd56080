#!/usr/bin/env bash
# The default pace and the fast one (VELMORA_PACE=fast, handed to velmora.exe
# through the environment) side by side, in one Wine session:
#   1. samples/install.vls (without its written wait) installing the sample setup, each pace into a fresh
#      folder: the whole run, and each step (from its "==> " line in the debug
#      log, stamped as it is written, to the next line or the end of the run);
#      both paces must install the same files;
#   2. a window appearing -> its button clicked by findwindow + sendbuttons,
#      timed inside the window's program (bench/win32/delayed_window.cpp);
#   3. the CPU a waiting findwindow takes on a crowded desktop
#      (tools/findwindow_cpu.sh);
#   4. keys and clicks that reached a hostile window (the e2e case
#      hostile_desktop, whose *_fast rows play at the fast pace).
# Ends with a markdown table of the measures against their bounds.
#   tools/pace_bench.sh        PACE_BENCH_ROUNDS (default 20) sets the clicks
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1
rounds="${PACE_BENCH_ROUNDS:-20}"
work="$root/build/pace-bench"
paces=(default fast)
unset VELMORA_PACE  # a pace is given to each run on its own

mkdir -p "$work"
echo "pace_bench: building (log in ${work#"$root/"}/build.log)"
if ! { cmake --preset windows && cmake --build --preset windows -j2 --target velmora launch sample_setup \
  velmora_delayed_window wizard hostile writefile; } >"$work/build.log" 2>&1; then
  tail -n 30 "$work/build.log"
  exit 1
fi

# shellcheck source=../tests/e2e/lib.sh
source "$root/tests/e2e/lib.sh"  # the Wine session's helpers, E2E_BIN, launch
bin="$E2E_BIN"
velmora_win="$(wine_winpath "$bin/velmora.exe")"
wine_start || exit 1

# Plays velmora.exe with the command line $3 in the folder $2 at the pace $1,
# for at most $4 seconds, between the times play_started and play_ended. The
# Windows programs it started are then given 5 s to end (a window clicked by
# the last line may still be handling the click), and ended.
play() {
  local before="$2.programs"
  wine_programs >"$before"
  play_started=$EPOCHREALTIME
  (
    cd "$2" || exit 125
    [ "$1" = fast ] && export VELMORA_PACE=fast
    launch "$velmora_win" "$3" "$4" "$2/cmdline.txt"
  ) >"$2/launch.log" 2>&1
  local status=$? pid
  play_ended=$EPOCHREALTIME
  _wine_wait_for "! wine_programs | grep -qvxFf '$before'" 50 ||
    for pid in $(wine_programs | grep -vxFf "$before" | cut -d' ' -f1); do kill -KILL "$pid" 2>/dev/null; done
  return $status
}

# Prints "<epoch seconds>\t<line>" for each "==> " line of the debug log $1
# when it appears, polling every 5 ms, until the file $2 exists (then once
# more) or $3 seconds have passed.
watch_steps() {
  perl -MTime::HiRes=time,sleep -e '
    my ($log, $stop, $limit) = @ARGV;
    my ($fh, $part, $end) = (undef, "", time + $limit);
    while (time < $end) {
      my $last = -e $stop;
      open($fh, "<", $log) or undef $fh unless $fh;
      if ($fh) {
        while (defined(my $chunk = <$fh>)) {
          $part .= $chunk;
          next unless $part =~ /\n\z/;
          $part =~ s/\r?\n\z//;
          printf "%.4f\t%s\n", time, substr($part, 4) if $part =~ /^==> /;
          $part = "";
        }
        seek($fh, 0, 1);  # clears the end of file, for what comes next
      }
      last if $last;
      sleep 0.005;
    }' "$1" "$2" "$3"
}

# 1. The sample install at the pace $1: its wall time in install_seconds[$1],
# steps in $work/install-$1/steps.tsv, files installed in .../files.txt.
declare -A install_seconds
install_run() {
  local dir="$work/install-$1" folder="Pace $1"
  rm -rf "$dir" "$WINEPREFIX/drive_c/$folder" && mkdir -p "$dir"
  cp "$bin/velmora-sample-setup.exe" "$dir/"
  # Without the script's own `wait:` (it keeps the finish page up for the
  # demo's picture): a written wait lasts as long at either pace.
  grep -v '^wait:' samples/install.vls >"$dir/install.vls"
  watch_steps "$dir/install.vld" "$dir/stop" 200 >"$dir/steps.tsv" &
  local watcher=$!
  TARGETDIR="C:\\$folder" play "$1" "$dir" '"install.vls" "install.vld"' 150 || echo "pace_bench: the $1 install ended with status $?"
  : >"$dir/stop" && wait "$watcher"
  printf '%s\tend of the run\n' "$play_ended" >>"$dir/steps.tsv"
  install_seconds[$1]=$(awk -v a="$play_started" -v b="$play_ended" 'BEGIN { printf "%.1f", b - a }')
  (cd "$WINEPREFIX/drive_c/$folder" 2>/dev/null && find . -type f -printf '%P %s\n' | sort) >"$dir/files.txt"
}

# The steps' durations in ms, one per line: "<ms>\t<line>".
step_ms() { awk -F'\t' 'NR > 1 { printf "%.0f\t%s\n", 1000 * ($1 - t), line } { t = $1; line = $2 }' "$1"; }

# 2. Rounds of a window that appears after a varying delay and is clicked as
# soon as it is found; the latencies (ms) go to $work/clicks-$1/latency.txt.
clicks_run() {
  local dir="$work/clicks-$1" i
  rm -rf "$dir" && mkdir -p "$dir"
  for ((i = 1; i <= rounds; i++)); do
    # Delays that fall at different points of the search's own rhythm.
    echo "run: \"velmora_delayed_window.exe $((300 + i * 137 % 700)) clicks.txt Delayed-$i\""
    echo "findwindow: 2, \"Delayed-$i\", \"VelmoraDelayed\", 0, 0.5, 0.5, \"Click me\", \"Button\", 1, 0.5, 0.5, 0.10"
    echo "sendbuttons: sl"
  done >"$dir/clicks.vls"
  play "$1" "$dir" '"clicks.vls" "clicks.vld"' $((10 + rounds * 6)) || echo "pace_bench: the $1 clicks ended with status $?"
  # The last windows may still be writing down their click as the run ends.
  for ((i = 0; i < 50; i++)); do
    [ "$(grep -c . "$dir/clicks.txt" 2>/dev/null)" -ge "$rounds" ] && break
    sleep 0.1
  done
  awk '$2 != "none" { printf "%.1f\n", $2 - $1 }' "$dir/clicks.txt" 2>/dev/null | sort -n >"$dir/latency.txt"
}

# "median p95 max" of the sorted numbers in $1 (nearest rank), "- - -" if none.
quantiles() {
  awk '{ v[NR] = $1 } END {
    if (!NR) { print "- - -"; exit }
    p = int(0.95 * NR); if (p < 0.95 * NR) p++
    printf "%.0f %.0f %.0f\n", v[int((NR + 1) / 2)], v[p], v[NR] }' "$1"
}

# 3. findwindow_cpu.sh at the pace $1: "velmora% wineserver%".
declare -A cpu
cpu_run() {
  local out="$work/cpu-$1.txt"
  if [ "$1" = fast ]; then VELMORA_PACE=fast tools/findwindow_cpu.sh 10; else tools/findwindow_cpu.sh 10; fi >"$out" 2>&1 ||
    echo "pace_bench: findwindow_cpu.sh failed at the $1 pace (${out#"$root/"})"
  cpu[$1]="$(awk '/^  velmora.exe/ { v = $2 } /^  wineserver  / { s = $2 } END { print (v == "" ? "-" : v), (s == "" ? "-" : s) }' "$out")"
}

for pace in "${paces[@]}"; do echo "pace_bench: the sample install, $pace pace" && install_run "$pace"; done
for pace in "${paces[@]}"; do echo "pace_bench: $rounds windows to click, $pace pace" && clicks_run "$pace"; done
for pace in "${paces[@]}"; do echo "pace_bench: a waiting findwindow's CPU, $pace pace" && cpu_run "$pace"; done
echo "pace_bench: the hostile desktop (tests/e2e/run.sh hostile_desktop)"
tests/e2e/run.sh hostile_desktop 2>&1 | sed 's/^/  /'
# Key and button messages (down, char, up each count) that the hostile
# windows recorded, per pace.
declare -A stray
for pace in "${paces[@]}"; do
  suffix="" && [ "$pace" = fast ] && suffix=_fast
  stray[$pace]=$(cat "$root/build/e2e/hostile_desktop/"{steal,cover}"$suffix/work/"{stolen,covered}.txt 2>/dev/null | wc -l)
done
wine_stop

echo
echo "Sample install, step by step (ms, from a step's line to the next):"
paste <(step_ms "$work/install-default/steps.tsv") <(step_ms "$work/install-fast/steps.tsv") |
  awk -F'\t' '{ printf "  %3d %8s %8s   %s\n", NR, $1, $3, substr($2, 1, 70) }'
[ "$(wc -l <"$work/install-default/steps.tsv")" = "$(wc -l <"$work/install-fast/steps.tsv")" ] ||
  echo "  (the paces logged a different number of steps)"
if [ ! -s "$work/install-default/files.txt" ]; then
  files_note="nothing was installed at the default pace"
elif cmp -s "$work/install-default/files.txt" "$work/install-fast/files.txt"; then
  files_note="both paces installed the same $(wc -l <"$work/install-default/files.txt") files, of the same sizes"
else
  files_note="the paces installed different files:"$'\n'"$(diff "$work"/install-{default,fast}/files.txt)"
fi
echo "$files_note"
# Until velmora.exe knows the fast pace, both columns are the default pace.
grep -qa "VELMORA_PACE IN USE:  fast" "$work/install-fast/install.vld" ||
  echo "NOTE: the fast runs' debug logs do not say \"VELMORA_PACE IN USE:  fast\": velmora.exe played its default pace"

# A ratio and whether it meets its bound, or how a fast figure stands to its bound.
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { if (b + 0 > 0) printf "%.1fx (bound >= 5x: %s)", a / b, (a / b >= 5) ? "met" : "NOT met"; else print "-" }'; }
bound() { awk -v v="$1" -v max="$2" -v text="$3" 'BEGIN { if (v == "-") print "-"; else printf "bound %s: %s", text, (v + 0 <= max) ? "met" : "NOT met" }'; }

read -r dmed dp95 dmax < <(quantiles "$work/clicks-default/latency.txt")
read -r fmed fp95 fmax < <(quantiles "$work/clicks-fast/latency.txt")
read -r dcpu dserver <<<"${cpu[default]}"
read -r fcpu fserver <<<"${cpu[fast]}"
echo
echo "| Measure | Default pace | Fast pace | Ratio / bound |"
echo "|---|---|---|---|"
echo "| Sample install, whole run | ${install_seconds[default]} s | ${install_seconds[fast]} s | $(ratio "${install_seconds[default]}" "${install_seconds[fast]}") |"
echo "| Window shown -> button clicked, median | $dmed ms | $fmed ms | |"
echo "| Window shown -> button clicked, p95 | $dp95 ms | $fp95 ms | $(bound "$fp95" 150 "<= 150 ms") |"
echo "| Window shown -> button clicked, max | $dmax ms | $fmax ms | |"
echo "| Waiting findwindow, velmora.exe CPU | $dcpu % | $fcpu % | $(bound "$fcpu" 2 "<= 2 %") |"
echo "| Waiting findwindow, wineserver CPU | $dserver % | $fserver % | $(bound "$fserver" 2 "<= 2 %") |"
echo "| Hostile desktop, key and button messages at the wrong window | ${stray[default]} | ${stray[fast]} | $(bound "${stray[fast]}" 0 "0") |"
echo
echo "Clicks measured: $(wc -l <"$work/clicks-default/latency.txt") and $(wc -l <"$work/clicks-fast/latency.txt") of $rounds;" \
  "CPU over 10 s of the wait with 2,000 windows open; install: $files_note."
