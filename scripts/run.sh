#!/usr/bin/env bash
# Installs what PelkEdit needs, builds it, and runs the editor on the demo database.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default -j "$(nproc)"
bin=build/default
data_dir="${XDG_DATA_HOME:-$HOME/.local/share}/pelkor"
mkdir -p "${data_dir}"
db="${data_dir}/demo.pelkdb"
if [ -x "${bin}/src/desktop/pelkor-edit" ]; then
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "${bin}/src/desktop/pelkor-edit" --db "${db}" "$@"
  fi
  shots="${PWD}/build/screenshots"
  QT_QPA_PLATFORM=offscreen "${bin}/src/desktop/pelkor-edit" --db "${db}" --screenshots "${shots}" "$@"
  echo "No display: screenshots of every tab are in ${shots}"
  exit 0
fi
[ -f "${db}" ] || "${bin}/src/components/data/tool/pelkor-db" seed "${db}"
exec "${bin}/src/script/pelkedit-script" --db "${db}" examples/demo.pelk
