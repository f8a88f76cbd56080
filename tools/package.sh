#!/usr/bin/env bash
# Builds what Velmora ships, from the windows preset's outputs:
#   build/dist/velmora-setup-<version>.exe   the installer (NSIS, packaging/velmora.nsi)
#   build/dist/velmora-<version>.zip         the same files, to copy by hand
# Brings the windows preset's build up to date first (configuring it when it
# has never been); the version is the CMake project's. Needs makensis (Debian
# package nsis).
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build/windows"
bin="$build/bin"
dist="$root/build/dist"

die() { echo "package: $*" >&2; exit 1; }

command -v makensis >/dev/null || die "makensis not found; run tools/setup.sh (Debian package nsis)"

# One short line a stage on the terminal; everything the tools print goes to
# the log, whose end is shown when a stage fails.
log="$root/build/package-build.log"
mkdir -p "$root/build"
: >"$log"
say() { echo "package: $*"; }
failed() { tail -n 30 "$log"; die "$1 failed (the whole output is in ${log#"$root/"})"; }

# The build's own progress lines, one for every tenth of it: a build from
# scratch takes minutes.
build_with_progress() {
  local shown=-10 line
  cmake --build --preset windows -j2 2>&1 | tee -a "$log" | while IFS= read -r line; do
    [[ "$line" =~ ^\[\ *([0-9]+)%\] ]] || continue
    if ((BASH_REMATCH[1] >= shown + 10)); then
      shown=${BASH_REMATCH[1]}
      say "  building: $shown %"
    fi
  done
  return "${PIPESTATUS[0]}"
}

say "full output in ${log#"$root/"}"
if [ ! -f "$build/CMakeCache.txt" ]; then
  say "configuring the windows preset"
  # The sample setup is built with the tests' programs.
  cmake --preset windows -DVELMORA_TESTS=ON >>"$log" 2>&1 || failed "configuring the windows preset"
fi
say "building the windows preset"
build_with_progress || failed "building the windows preset"

# The texts velmora.exe itself was built with: the installer's version,
# publisher and settings key cannot disagree with the program's.
header="$build/generated/velmora_version.h"
[ -f "$header" ] || die "$header is missing; configure the windows preset"
define() { sed -n "s/^#define $1 \"\(.*\)\"$/\1/p" "$header"; }
version="$(define VELMORA_VERSION_TEXT)"
product="$(define VELMORA_PRODUCT_TEXT)"
company="$(define VELMORA_COMPANY_TEXT)"
[[ "$version" =~ ^[0-9]+(\.[0-9]+){0,3}$ ]] || die "no version in $header"
# The version resource wants four numbers.
version4="$version"
while [ "$(tr -cd . <<<"$version4" | wc -c)" -lt 3 ]; do version4+=".0"; done

for name in velmora.exe velmora-check.exe wintree.exe Velmora.chm velmora-sample-setup.exe; do
  [ -f "$bin/$name" ] || die "$bin/$name is missing; build the windows preset with its tests' programs
  (cmake --preset windows -DVELMORA_TESTS=ON && cmake --build --preset windows)"
done

# The installation's layout: program, help and samples in one folder (install.vls
# finds the sample setup beside velmora.exe), the user guide under Docs. The
# installer takes its files from here and the zip holds the folder, so both
# ship the same files. Only this version's files stay in build/dist.
stage="$dist/velmora-$version"
say "staging the files in ${stage#"$root/"}"
rm -rf "$dist"
mkdir -p "$stage/Docs"
cp "$bin/velmora.exe" "$bin/velmora-check.exe" "$bin/wintree.exe" "$bin/Velmora.chm" \
  "$bin/velmora-sample-setup.exe" "$root/samples/install.vls" "$root/samples/install.bat" "$stage/"
# Windows line ends for the text a user opens in Notepad (and the licence page).
sed 's/$/\r/' "$root/LICENSE" >"$stage/LICENSE.txt"
# The user guide and the pages and pictures it links to, and theirs.
wanted=(user-guide.md)
while [ "${#wanted[@]}" -gt 0 ]; do
  name="${wanted[0]}"
  wanted=("${wanted[@]:1}")
  [ -f "$stage/Docs/$name" ] && continue
  cp "$root/docs/$name" "$stage/Docs/" || die "docs/$name is missing"
  if [[ "$name" == *.md ]]; then
    wanted+=($(grep -o '](\([a-z0-9-]*\.\(md\|png\)\)[)#]' "$root/docs/$name" | sed 's/^](\(.*\).$/\1/'))
  fi
done

setup="$dist/velmora-setup-$version.exe"
zip="$dist/velmora-$version.zip"
say "makensis: the installer"
makensis -V2 -DVERSION="$version" -DVERSION4="$version4" -DPRODUCT="$product" -DCOMPANY="$company" \
  -DSTAGE="$stage" -DOUTFILE="$setup" "$root/packaging/velmora.nsi" >>"$log" 2>&1 || failed "makensis"
say "zip: the same files"
(cd "$dist" && cmake -E tar cf "$zip" --format=zip "velmora-$version") >>"$log" 2>&1 || failed "making $zip"
say "${setup#"$root/"}"
say "${zip#"$root/"}"
