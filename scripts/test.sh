#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test under Wine in a new
# prefix inside the build tree. Exits non-zero on any failure.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
bash "$here/scripts/deps.sh"
BUILD_DIR=$build bash "$here/scripts/build.sh"

# The host's own trash, as it is before Wine's is moved into the build tree.
host_trash=${XDG_DATA_HOME:-$HOME/.local/share}/Trash
. "$here/scripts/wine-env.sh"

marker= made_dirs=()
cleanup() {
  wh_cleanup
  if [ -n "$marker" ]; then
    rm -f "$marker" "$host_trash/info/$(basename "$marker").trashinfo"
  fi
  local d
  for d in "${made_dirs[@]}"; do rmdir "$d" 2>/dev/null || true; done
}
trap cleanup EXIT
trap 'exit 130' INT TERM HUP

# Makes a folder and its missing parents, noting each one made (deepest
# first) so that cleanup removes only those, and only while empty.
mkdir_noted() {
  local d=$1 missing=()
  while [ ! -d "$d" ]; do missing=("$d" "${missing[@]}"); d=$(dirname "$d"); done
  for d in "${missing[@]}"; do mkdir "$d" && made_dirs=("$d" "${made_dirs[@]}"); done
}

# A marker in the host's trash, as a trashed file with its .trashinfo: a bin
# that reached the host's trash would count it and empty it (a file without
# one is invisible to Wine). The platform tests check that it survives.
mkdir_noted "$host_trash/files"
mkdir_noted "$host_trash/info"
marker=$(mktemp "$host_trash/files/wellharrower-test-marker.XXXXXXXX")
printf '[Trash Info]\nPath=%s\nDeletionDate=%s\n' "$build/$(basename "$marker")" \
  "$(date +%Y-%m-%dT%H:%M:%S)" >"$host_trash/info/$(basename "$marker").trashinfo"
export WH_HOST_TRASH_MARKER=$marker

wh_display
wh_use_prefix "$build/wineprefix" "$build/xdg"
wh_new_prefix
# Drive A: is a folder of the build tree, the floppy the floppy tests format
# and span over, and a removable drive the junk scan passes over. The link
# must be there before the wineserver starts again, or Wine calls it fixed.
rm -rf "$build/floppy"
mkdir -p "$build/floppy"
ln -sfn "$build/floppy" "$WINEPREFIX/dosdevices/a:"
# No window manager: Wine would otherwise wait up to two seconds for one each
# time a shown window of the tests goes away.
"$WINE64" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
mkdir -p "$WINEPREFIX/drive_c/wh"
cp "$build"/bin/*.exe "$WINEPREFIX/drive_c/wh/"
# The plug-in pack, which the pack's tests install where they need it and
# whose sample the program's plug-in tests copy under other names. Not in a
# "JunkHarrower Plugins" folder: every start of a form there would list it.
mkdir -p "$WINEPREFIX/drive_c/wh/plugins"
cp "$build"/pack/*.dll "$WINEPREFIX/drive_c/wh/plugins/"
wh_start_server
cd "$build"
rc=0
ctest --output-on-failure --timeout "${TEST_TIMEOUT:-600}" "$@" || rc=$?
# Pictures the tests took of the program (the window's screenshots).
if [ -d "$WINEPREFIX/drive_c/wh/artefacts" ]; then
  mkdir -p "$build/artefacts"
  cp "$WINEPREFIX"/drive_c/wh/artefacts/* "$build/artefacts/" 2>/dev/null || true
fi
exit $rc
