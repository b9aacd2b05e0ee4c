#!/usr/bin/env bash
# Makes sure the Debian packages needed to build and test quorls are installed.
# Run as root, it installs the missing ones; otherwise it prints the one
# apt-get line to run and fails. Every script that builds calls it first, so
# this list is the only place a new build or test dependency is named.
set -euo pipefail

packages=(
  cmake
  ninja-build
  g++
  libgtest-dev
  libgmock-dev
  libbenchmark-dev
  chromium
  nodejs
  neovim
  unzip
)
# The browser test of the documentation pages runs npm. Some Node.js builds
# ship npm inside their nodejs package, and Debian's own npm would clash.
command -v npm >/dev/null 2>&1 || packages+=(npm)

if ! command -v dpkg-query >/dev/null 2>&1; then
  echo "ensure-packages: no dpkg here; make sure these are installed: ${packages[*]}" >&2
  exit 0
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
  echo "ensure-packages: installing ${missing[*]}" >&2
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -q
  apt-get install -y -q --no-install-recommends "${missing[@]}"
  exit 0
fi

echo "Some Debian packages are missing. Install them with:" >&2
echo "  sudo apt-get install -y --no-install-recommends ${missing[*]}" >&2
exit 1
