#!/usr/bin/env bash
# Installs what PelkEdit needs, builds it, and opens the editor on the demo database (created
# and seeded in the user's data folder on first run). Without a display it writes screenshots
# of every tab instead and says where they are. Extra arguments go to pelkor-edit.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default -j "$(nproc)"
editor=build/default/src/desktop/pelkor-edit
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "${editor}" "$@"
fi
QT_QPA_PLATFORM=offscreen "${editor}" --screenshots "${PWD}/build/screenshots" "$@"
