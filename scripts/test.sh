#!/usr/bin/env bash
# Installs what PelkEdit needs, builds it, and runs every test: the normal build, then the
# AddressSanitizer + UndefinedBehaviorSanitizer build.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh
jobs=$(nproc)
for preset in default asan; do
  echo "== ${preset}: configure and build"
  cmake --preset "${preset}" >/dev/null
  cmake --build --preset "${preset}" -j "${jobs}"
  echo "== ${preset}: tests"
  QT_QPA_PLATFORM=offscreen ctest --preset "${preset}" -j "${jobs}"
done
