#!/usr/bin/env bash
# ctest's emulator: runs a built test binary from its copy in the prefix
# (C:\wh\, the prefix has no Z: to reach the build tree).
# Wine's helper processes (services, explorer) outlive the test and inherit
# its stdout; were that ctest's pipe, ctest would wait for them forever. So
# the output goes through a file.
set -u
exe=$(basename "$1"); shift
log=$(mktemp)
WINE64=/usr/lib/wine/wine64
[ -x "$WINE64" ] || WINE64=$(command -v wine64 || command -v wine)
"$WINE64" "C:\\wh\\$exe" "$@" >"$log" 2>&1 </dev/null
rc=$?
cat "$log"; rm -f "$log"
exit $rc
