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
wh_new_prefix "$build/wineprefix"
mkdir -p "$WINEPREFIX/drive_c/wh"
cp "$build"/bin/*.exe "$WINEPREFIX/drive_c/wh/"
wh_start_server
cd "$build"
ctest --output-on-failure --timeout "${TEST_TIMEOUT:-600}" "$@"
