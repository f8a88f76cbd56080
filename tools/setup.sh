#!/usr/bin/env bash
# Installs the Debian packages that building and testing Velmora need.
# Idempotent: asks apt only for what is missing, and runs `apt-get update`
# at most once, only when something has to be installed. Never prompts.
set -euo pipefail

packages=(
  # build
  cmake g++ make mingw-w64
  # the Windows side of the tests: Wine on a virtual X display
  wine64 xvfb xauth
  # Wine loads these X and TLS libraries at run time; apt only recommends
  # them, and we install without recommends to keep the machine small.
  libxrender1 libxrandr2 libxi6 libxcursor1 libxcomposite1 libxinerama1 libxfixes3 libxxf86vm1 libgnutls30
  # installers for the end-to-end tests, screenshots
  nsis imagemagick
  # unit tests, benchmarks, fuzzers
  googletest libgtest-dev libbenchmark-dev clang
  # libFuzzer and the sanitizer runtimes for clang (only recommended by it); jq reads benchmark results
  libclang-rt-14-dev jq
  # the help file: GitHub Markdown to HTML, and the CHM compiler of Free Pascal
  cmark-gfm fp-utils
)

installed() {
  [ "$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null)" = "install ok installed" ]
}

missing=()
for package in "${packages[@]}"; do
  installed "$package" || missing+=("$package")
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "setup: all ${#packages[@]} packages are installed"
  exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null 2>&1; then
    echo "setup: missing packages (${missing[*]}), and neither root nor sudo is available" >&2
    exit 1
  fi
  as_root=(sudo)
fi

echo "setup: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt_options=(-y -q -o Dpkg::Options::=--force-confdef -o Dpkg::Options::=--force-confold)
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q update </dev/null
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install "${apt_options[@]}" --no-install-recommends "${missing[@]}" </dev/null

for package in "${missing[@]}"; do
  if ! installed "$package"; then
    echo "setup: $package did not install" >&2
    exit 1
  fi
done
echo "setup: done"
