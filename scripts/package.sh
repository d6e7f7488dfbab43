#!/usr/bin/env bash
# Builds the Release exe and writes, in ${DIST_DIR:-dist}:
#   Wellharrower-<version>-portable.zip  the exe, the plug-in pack in
#                                        "JunkHarrower Plugins", PLUGINS.md,
#                                        readme.txt and licence.txt
#   Wellharrower-<version>-setup.exe     the same, installed by NSIS, which
#                                        registers the pack
# <version> is the project's version in CMakeLists.txt, which the build also
# writes into the exe's version resource. Then it runs the packages' round
# trip (tests/package/round_trip.sh) under Wine in a throwaway prefix,
# build/package-prefix; ROUND_TRIP=0 leaves it out.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
dist=${DIST_DIR:-$here/dist}
bash "$here/scripts/deps.sh"
bash "$here/scripts/deps.sh" package

BUILD_TYPE=Release BUILD_DIR=$build bash "$here/scripts/build.sh" --target Wellharrower
# package.txt is written by CMake: version=, exe=, and one plugin= line for
# each plug-in of the pack.
manifest() { sed -n "s/^$1=//p" "$build/package.txt"; }
version=$(manifest version)
exe=$(manifest exe)
mapfile -t plugins < <(manifest plugin)
if ((${#plugins[@]})); then
  BUILD_TYPE=Release BUILD_DIR=$build bash "$here/scripts/build.sh" --target plugin_pack
else
  echo "package: no plug-in pack, the packages carry no plug-in"
fi
version4=$version
while [ "$(tr -cd . <<<"$version4" | wc -c)" -lt 3 ]; do version4=$version4.0; done

# The stage holds exactly what the zip holds and the setup installs.
stage=$build/package-stage
rm -rf "$stage"
mkdir -p "$stage" "$dist"
cp "$exe" "$stage/Wellharrower.exe"
# Notepad of older Windows shows LF-only text on one line.
crlf() { sed -e "s/@VERSION@/$version/" -e 's/\r*$/\r/' "$1" >"$2"; }
crlf "$here/installer/readme.txt" "$stage/readme.txt"
crlf "$here/installer/licence.txt" "$stage/licence.txt"
nsis_defs=()
if [ -f "$here/docs/PLUGINS.md" ]; then
  crlf "$here/docs/PLUGINS.md" "$stage/PLUGINS.md"
  nsis_defs+=(-DPLUGINS_DOC)
else
  echo "package: no docs/PLUGINS.md, the packages carry none"
fi
# The setup installs and registers each plug-in, and its uninstaller
# unregisters and deletes each: their lines are written here, one a file.
if ((${#plugins[@]})); then
  mkdir -p "$stage/JunkHarrower Plugins"
  nsh=$build/package-plugins.nsh
  {
    echo '; Written by scripts/package.sh: the plug-in pack, one line a file.'
    echo '!macro INSTALL_PLUGINS'
    for p in "${plugins[@]}"; do
      cp "$p" "$stage/JunkHarrower Plugins/"
      echo "  File \"\${STAGE}/\${PLUGINS_DIR}/$(basename "$p")\""
    done
    for p in "${plugins[@]}"; do echo "  RegDLL \"\$INSTDIR\\\${PLUGINS_DIR}\\$(basename "$p")\""; done
    echo '!macroend'
    echo '!macro UNINSTALL_PLUGINS'
    for p in "${plugins[@]}"; do
      echo "  UnRegDLL \"\$INSTDIR\\\${PLUGINS_DIR}\\$(basename "$p")\""
      echo "  Delete \"\$INSTDIR\\\${PLUGINS_DIR}\\$(basename "$p")\""
    done
    echo '!macroend'
  } >"$nsh"
  nsis_defs+=("-DPLUGINS_NSH=$nsh")
fi

zip_file=$dist/Wellharrower-$version-portable.zip
setup_file=$dist/Wellharrower-$version-setup.exe
rm -f "$zip_file" "$setup_file"
(cd "$stage" && zip -q -X -r "$zip_file" .)
makensis -V2 -NOCD -DVERSION="$version" -DVERSION4="$version4" -DSTAGE="$stage" \
  -DOUTFILE="$setup_file" -DICON="$here/resources/skin/wellharrower.ico" "${nsis_defs[@]}" \
  "$here/installer/wellharrower.nsi"
echo "package: $zip_file"
echo "package: $setup_file"

[ "${ROUND_TRIP:-1}" = 0 ] && exit 0
BUILD_DIR=$build bash "$here/scripts/build.sh" --target package_probe
. "$here/scripts/wine-env.sh"
trap wh_cleanup EXIT
wh_display
wh_use_prefix "$build/package-prefix" "$build/package-xdg"
wh_new_prefix
"$WINE64" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
mkdir -p "$WINEPREFIX/drive_c/wh"
cp "$build/bin/package_probe.exe" "$WINEPREFIX/drive_c/wh/"
wh_start_server
bash "$here/tests/package/round_trip.sh" "$dist" "$version"
