#!/usr/bin/env bash
# Installs what is missing, builds, and runs Wellharrower.exe under Wine.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
bash "$here/scripts/deps.sh"
BUILD_DIR=$build bash "$here/scripts/build.sh"
if [ -z "${DISPLAY:-}" ]; then
  echo "No display (DISPLAY is unset): the window has nowhere to appear."
  echo "Run the tests instead: bash scripts/test.sh"
  exit 1
fi
. "$here/scripts/wine-env.sh"
# A prefix of its own that is kept between runs, so settings survive; its
# recycle bin is kept beside it, in run-xdg.
wh_use_prefix "$build/run-prefix" "$build/run-xdg"
[ -d "$WINEPREFIX/drive_c" ] || wh_new_prefix
mkdir -p "$WINEPREFIX/drive_c/Wellharrower"
cp "$build/bin/Wellharrower.exe" "$WINEPREFIX/drive_c/Wellharrower/"
# The plug-in pack, as the packages carry it.
mkdir -p "$WINEPREFIX/drive_c/Wellharrower/JunkHarrower Plugins"
cp "$build"/pack/*.dll "$WINEPREFIX/drive_c/Wellharrower/JunkHarrower Plugins/"
# Started from its own folder, as Explorer would: from a host folder Wine has
# no drive for (no Z:), the current folder would read "unix\...".
cd "$WINEPREFIX/drive_c/Wellharrower"
exec "$WINE64" 'C:\Wellharrower\Wellharrower.exe' "$@"
