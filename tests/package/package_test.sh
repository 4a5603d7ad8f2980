#!/usr/bin/env bash
# The Debian package, unpacked into a temporary root, works from there alone: every program
# answers --help and has its manual page, the editor uses the tree's own data and settings and
# writes its screenshots (help topics included) from there, and the menu entry is valid.
# Usage: package_test.sh CPACK_CONFIG VERSION
set -euo pipefail
config=$1
version=$2
work=$(mktemp -d)
trap 'rm -rf "${work}"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cpack --config "${config}" -B "${work}/out" >"${work}/cpack.log" 2>&1 || { cat "${work}/cpack.log"; fail "cpack"; }
deb="${work}/out/pelkor_${version}_amd64.deb"
[ -f "${deb}" ] || fail "no ${deb##*/}: $(ls "${work}/out")"

root="${work}/root"
dpkg-deb -x "${deb}" "${root}"
depends=$(dpkg-deb -f "${deb}" Depends)
for library in libqt6widgets6 libsqlite3-0 libpqxx libmuparser; do
  [[ "${depends}" == *"${library}"* ]] || fail "Depends lacks ${library}: ${depends}"
done
dpkg-deb --ctrl-tarfile "${deb}" | tar -xO ./conffiles | grep -qx /etc/pelkor/pelkor.ini ||
  fail "the settings file is not a conffile"

for program in pelkor-edit pelkor-help pelkor-db pelkedit-script; do
  "${root}/usr/bin/${program}" --help >/dev/null || fail "${program} --help"
  gzip -t "${root}/usr/share/man/man1/${program}.1.gz" || fail "manual page of ${program}"
done
desktop-file-validate "${root}/usr/share/applications/pelkor-edit.desktop" || fail "desktop entry"
[ -s "${root}/usr/share/icons/hicolor/scalable/apps/pelkor.svg" ] || fail "icon"

# Nobody's own settings or state: the tree's alone.
export HOME="${work}/home" XDG_CONFIG_HOME="${work}/home/.config" XDG_STATE_HOME="${work}/home/.state"
unset PELKOR_DB PELKOR_SYSTEM_CONFIG PELKOR_ADVISOR_RULES
mkdir -p "${HOME}"
places=$("${root}/usr/bin/pelkor-edit" --version)
expected="data: ${root}/usr/share/pelkor, settings: ${root}/etc/pelkor/pelkor.ini)"
[[ "${places}" == *"${expected}" ]] || fail "pelkor-edit uses ${places}, not ${expected}"

"${root}/usr/bin/pelkor-db" seed "${work}/demo.pelkdb" >/dev/null
QT_QPA_PLATFORM=offscreen "${root}/usr/bin/pelkor-edit" --db "${work}/demo.pelkdb" \
  --screenshots "${work}/shots" >"${work}/shots.log" 2>"${work}/shots.err" ||
  { cat "${work}/shots.err"; fail "screenshots"; }
[ ! -s "${work}/shots.err" ] || { cat "${work}/shots.err"; fail "the screenshots reported problems"; }
for shot in ibo1001-sales-advisor pipeline-main help-topic-10; do
  [ -s "${work}/shots/${shot}.png" ] || fail "no ${shot}.png"
done
echo "package ${deb##*/}: $(ls "${work}/shots" | wc -l) screenshots from the unpacked tree"
