#!/usr/bin/env bash
# Installs what building and testing need on Debian 12 (run as root).
# Does nothing when everything is there already.
set -euo pipefail
pkgs=(cmake make g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
      mingw-w64-x86-64-dev wine64 wine xvfb xauth googletest imagemagick)
# "deps.sh fuzz": what scripts/fuzz.sh needs instead (clang with libFuzzer).
[ "${1:-}" = fuzz ] && pkgs=(cmake make clang-14 libclang-rt-14-dev)
# "deps.sh package": what scripts/package.sh needs on top (NSIS, zip).
[ "${1:-}" = package ] && pkgs=(nsis zip unzip)
# "deps.sh bench": the native anchor bench/run.sh needs beyond coreutils.
[ "${1:-}" = bench ] && pkgs=(jdupes)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "deps: installing ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
