#!/usr/bin/env bash
# Builds the fuzz targets of tests/fuzz natively (clang, libFuzzer, address
# and undefined-behaviour sanitizers) and runs each for the given seconds
# (default 60), or only the targets named after the seconds. Exits non-zero
# when any target finds a crash, a hang, a leak or a broken expectation; the
# input that did it lands in build/fuzz/findings/<target>/.
#
#   bash scripts/fuzz.sh [seconds] [target...]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
secs=${1:-60}
shift || true
build=${FUZZ_BUILD_DIR:-$here/build/fuzz}
bash "$here/scripts/deps.sh" fuzz
mkdir -p "$build"
{ cmake -S "$here/tests/fuzz" -B "$build" -DCMAKE_CXX_COMPILER=clang++-14 \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo && cmake --build "$build" -j"$(nproc)"; } \
  >"$build/build.log" 2>&1 || { cat "$build/build.log"; exit 1; }

if (($#)); then targets=("$@"); else mapfile -t targets < <(grep . "$build/targets.txt"); fi
failed=()
for t in "${targets[@]}"; do
  seeds=$here/tests/fuzz/corpus/$t
  work=$build/corpus/$t           # what the run adds; the seeds stay as they are
  findings=$build/findings/$t/
  log=$build/logs/$t.log
  mkdir -p "$work" "$findings" "$(dirname "$log")" "$seeds"
  opts=(-max_total_time="$secs" -timeout=10 -rss_limit_mb=2048 -max_len=4096
        -print_final_stats=1 -artifact_prefix="$findings")
  [ -f "$here/tests/fuzz/$t.dict" ] && opts+=(-dict="$here/tests/fuzz/$t.dict")
  if "$build/fuzz_$t" "${opts[@]}" "$work" "$seeds" >"$log" 2>&1; then
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    cov=$(grep -o 'cov: [0-9]*' "$log" | tail -1)
    echo "fuzz $t: clean, ${runs:-?} runs in ${secs} s, $cov"
  else
    echo "fuzz $t: FINDING (log $log, input in $findings)"
    grep -m1 -E 'ERROR:|runtime error|expectation failed|deadly signal' "$log" || true
    failed+=("$t")
  fi
done
if ((${#failed[@]})); then
  echo "fuzz: findings in ${failed[*]}"
  exit 1
fi
