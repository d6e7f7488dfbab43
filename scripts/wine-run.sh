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
cat "$log"
# A crashed test binary can leave Wine with exit code 0: only gtest's own
# closing line counts as a pass.
if [ $rc -eq 0 ] && grep -q '^\[==========\]' "$log" && ! grep -q '^\[  PASSED  \]' "$log"; then
  echo "wine-run: $exe ended without gtest's PASSED line"; rc=1
fi
if [ $rc -eq 0 ] && ! grep -q '^\[==========\]' "$log" && [ "${exe#test_}" != "$exe" ]; then
  echo "wine-run: $exe ended before gtest's summary"; rc=1
fi
rm -f "$log"
exit $rc
