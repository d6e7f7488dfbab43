#!/usr/bin/env bash
# Configures and builds the cross build in ${BUILD_DIR:-build}. Arguments go
# to the build step (e.g. --target wh).
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
cmake -S "$here" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$here/cmake/mingw-w64-x86_64.cmake" \
      -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-Release}" >/dev/null
cmake --build "$build" -j"${JOBS:-2}" "$@"
