#!/usr/bin/env bash
# Shows Velmora at work: builds velmora.exe, plays samples/demo.vls as an
# automatic session under Wine (in a copy of samples/ under build/demo/) and
# prints the debug log it wrote.
set -uo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root" || exit 1

"$root/tools/setup.sh" || exit 1

echo "demo: building velmora.exe"
mkdir -p build
if ! { cmake --preset windows >build/demo-build.log 2>&1 &&
  cmake --build --preset windows -j2 --target velmora launch >>build/demo-build.log 2>&1; }; then
  tail -n 40 build/demo-build.log
  echo "demo: the build failed (build/demo-build.log)"
  exit 1
fi

demo="$root/build/demo"
rm -rf "$demo"
mkdir -p "$demo"
cp -a "$root/samples/." "$demo/"
# The command line exactly as a Windows shell would pass it.
printf '%s\n' '"demo.vls" "demo.vld"' >"$root/build/demo-cmdline.txt"

# shellcheck source=wine-env.sh
source "$root/tools/wine-env.sh"
wine_start || exit 1
bin="$root/build/windows/bin"
echo "demo: velmora.exe \"demo.vls\" \"demo.vld\"   (in ${demo#"$root/"})"
(cd "$demo" && wine_run "$bin/launch.exe" "$(wine_winpath "$bin/velmora.exe")" \
  "$(wine_winpath "$root/build/demo-cmdline.txt")" 60)
status=$?
wine_stop

if [ -f "$demo/demo.vld" ]; then
  echo "demo: debug log ${demo#"$root/"}/demo.vld:"
  echo "----------------------------------------------------------------------"
  tr -d '\r' <"$demo/demo.vld"
  echo "----------------------------------------------------------------------"
else
  echo "demo: no debug log was written"
fi
echo "demo: velmora.exe exited with status $status"
exit "$status"
