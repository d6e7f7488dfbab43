#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test under Wine in a new
# prefix inside the build tree. Exits non-zero on any failure.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
bash "$here/scripts/deps.sh"
BUILD_DIR=$build bash "$here/scripts/build.sh"

. "$here/scripts/wine-env.sh"
trap wh_cleanup EXIT
wh_display
wh_use_prefix "$build/wineprefix" "$build/xdg"
wh_new_prefix
# No window manager: Wine would otherwise wait up to two seconds for one each
# time a shown window of the tests goes away.
"$WINE64" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
mkdir -p "$WINEPREFIX/drive_c/wh"
cp "$build"/bin/*.exe "$WINEPREFIX/drive_c/wh/"
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
