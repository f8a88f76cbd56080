#!/usr/bin/env bash
# Plants each fault of tools/mutations.txt in turn, builds the native preset,
# runs the native tests, and says whether they caught it; the file is put
# back after each fault (and if the run is interrupted).
#   tools/mutate.sh [name ...]     only the faults named
# Prints one line per fault ("caught", "MISSED", or "not planted" when its
# text is no longer in the file) and a summary; exits 1 when a fault was
# missed or could not be planted.
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1
table="$root/tools/mutations.txt"
logs="$root/build/mutate"
mkdir -p "$logs"

planted=""
backup="$logs/original"
restore() { [ -n "$planted" ] && cp "$backup" "$root/$planted" && planted=""; }
trap 'restore; exit 130' INT TERM
trap restore EXIT

cmake --preset native >"$logs/configure.log" 2>&1 || { tail -n 20 "$logs/configure.log"; exit 1; }
cmake --build --preset native -j2 >"$logs/build.log" 2>&1 || { tail -n 20 "$logs/build.log"; echo "the unplanted build fails"; exit 1; }

# Fields are separated by " | " (a code's "||" is no separator); tabs out.
rows() {
  awk -F' [|] ' '!/^#/ && NF == 5 {
    for (i = 1; i <= 5; i++) { gsub(/^[ \t]+|[ \t]+$/, "", $i) }
    print $1 "\t" $2 "\t" $3 "\t" $4 "\t" $5 }' "$table"
}
caught=0 missed=0 broken=0
while IFS=$'\t' read -r -u 3 name area file text replacement; do
  if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then continue; fi
  cp "$root/$file" "$backup"
  planted="$file"
  FROM="$text" TO="$replacement" perl -0pi -e 's/\Q$ENV{FROM}\E/$ENV{TO}/' "$root/$file"
  if cmp -s "$backup" "$root/$file"; then
    verdict="not planted"
    broken=$((broken + 1))
  elif ! cmake --build --preset native -j2 >"$logs/$name.build.log" 2>&1; then
    verdict="not planted (does not build)"
    broken=$((broken + 1))
  elif ctest --preset native -j2 --timeout 120 >"$logs/$name.log" 2>&1 </dev/null; then
    verdict="MISSED"
    missed=$((missed + 1))
  else
    verdict="caught"
    caught=$((caught + 1))
  fi
  restore
  printf '%-22s %-11s %s\n' "$name" "$area" "$verdict"
done 3< <(rows)
# The tree as it was, built again so that later runs test the real code.
cmake --build --preset native -j2 >"$logs/build.log" 2>&1
echo "mutate: $caught caught, $missed missed, $broken not planted"
[ "$missed" -eq 0 ] && [ "$broken" -eq 0 ]
