#!/usr/bin/env bash
# Installs the Debian packages PelkEdit builds and tests with.
set -euo pipefail
packages=(
  g++ cmake ninja-build clang-format
  libgtest-dev libgmock-dev libbenchmark-dev
  libsqlite3-dev libsqlitecpp-dev libcli11-dev nlohmann-json3-dev
  libmuparser-dev libinih-dev libcsv-dev pkg-config libpqxx-dev postgresql
  qt6-base-dev xvfb xauth
  dpkg-dev desktop-file-utils
  clang libclang-rt-14-dev
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
