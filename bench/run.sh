#!/usr/bin/env bash
# Installs what is missing, builds, and runs the benchmark programs under Wine
# against native Linux tools, on the same data in the same folder of a
# throwaway prefix (C:\wh\bench\ = build/bench-prefix/drive_c/wh/bench/).
# Prints one line per figure:
#   name: ratio X (ours A unit, anchor B unit)
# Every figure is a time, and ratio = ours / anchor: 1.00 is as fast as the
# anchor, 2.00 takes twice as long. Each side is the best of a few warm runs.
# The programs' own, longer reports are kept in build/bench-logs/.
set -euo pipefail
export LC_ALL=C  # one decimal point for bash's clock, awk and the programs
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
rounds=3
benches=(bench_shred_throughput bench_folder_size bench_lcd_write bench_ini_records bench_split_file
         bench_junk_scan bench_clean_tree bench_duplicates_scan bench_disk_root bench_url_cache
         bench_monitor_tick bench_uninstall_scan bench_url_scan bench_chromium_plugin)
bash "$here/scripts/deps.sh"
# The anchor of the duplicate finder.
if ! command -v jdupes >/dev/null; then
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends jdupes >/dev/null ||
    { apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq jdupes >/dev/null; }
fi
BUILD_TYPE=Release BUILD_DIR=$build bash "$here/scripts/build.sh" --target "${benches[@]}" plugin_pack >/dev/null

. "$here/scripts/wine-env.sh"
data=
cleanup() {
  wh_cleanup
  # The 256 MB files go as they are used; the tree stays only for the run.
  [ -z "$data" ] || rm -rf "$data"
}
trap cleanup EXIT
trap 'exit 130' INT TERM HUP
wh_display
wh_use_prefix "$build/bench-prefix" "$build/bench-xdg"
wh_new_prefix
# No window manager: see test.sh.
"$WINE64" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
mkdir -p "$WINEPREFIX/drive_c/wh"
for b in "${benches[@]}"; do cp "$build/bin/$b.exe" "$WINEPREFIX/drive_c/wh/"; done
mkdir -p "$WINEPREFIX/drive_c/wh/plugins"
cp "$build"/pack/*.dll "$WINEPREFIX/drive_c/wh/plugins/"
wh_start_server
data=$WINEPREFIX/drive_c/wh/bench
logs=$build/bench-logs
mkdir -p "$data" "$logs"

# Best time in microseconds of `rounds` runs of a command, after `setup` (a
# command, not timed) before each run. The clock is bash's own
# EPOCHREALTIME, read in place: no process or subshell start is timed.
best_us() {
  local setup=$1 best= t0 t i
  shift
  for ((i = 0; i < rounds; i++)); do
    $setup || return 1
    t0=${EPOCHREALTIME//[!0-9]/}
    "$@" || return 1
    t=${EPOCHREALTIME//[!0-9]/}
    t=$((t - t0))
    if [ -z "$best" ] || [ "$t" -lt "$best" ]; then best=$t; fi
  done
  echo "$best"
}

# Runs a program in the prefix. Its output goes through a file: Wine's
# helper processes inherit stdout and outlive it, so a pipe would never close.
run_wine() {
  local name=$1 log=$logs/$1.txt
  shift
  if ! "$WINE64" "C:\\wh\\$name.exe" "$@" >"$log" 2>&1 </dev/null; then
    echo "bench: $name failed:" >&2
    cat "$log" >&2
    return 1
  fi
  sed -i 's/\r$//' "$log"
}

# The value of "figure NAME VALUE UNIT" in a program's log.
figure() {
  local v
  v=$(awk -v n="$2" '$1 == "figure" && $2 == n { print $3 }' "$logs/$1.txt")
  [ -n "$v" ] || { echo "bench: $1 printed no figure $2" >&2; return 1; }
  echo "$v"
}

# report NAME OURS ANCHOR UNIT DECIMALS
report() {
  awk -v n="$1" -v a="$2" -v b="$3" -v u="$4" -v d="$5" 'BEGIN {
    printf "%s: ratio %.2f (ours %.*f %s, anchor %.*f %s)\n", n, a / b, d, a, u, d, b, u }'
}

nothing() { :; }

# --- shred_file, one pass over 256 MB, against dd and GNU shred -------------
mb=256
dir=$data/shred
mkdir -p "$dir"
fill() { dd if=/dev/zero of="$1" bs=1M count=$mb conv=fsync status=none; }
ours_files=()
for ((i = 1; i <= rounds; i++)); do
  fill "$dir/ours$i.bin"
  ours_files+=("C:\\wh\\bench\\shred\\ours$i.bin")
done
sync
run_wine bench_shred_throughput "${ours_files[@]}"
if [ -n "$(ls -A "$dir")" ]; then
  echo "bench: shred_file left files behind in $dir: $(ls "$dir")" >&2
  exit 1
fi
ours=$(figure bench_shred_throughput shred_file)

# A shred ends by deleting the file: the plain write is timed with its rm.
dd_write() { fill "$dir/dd.bin" && rm -f "$dir/dd.bin"; }
dd_us=$(best_us nothing dd_write)
report "shred_file vs dd" "$ours" "$(awk -v t="$dd_us" 'BEGIN { print t / 1e6 }')" s 3

gnu_fill() { fill "$dir/gnu.bin"; sync; }
gnu_us=$(best_us gnu_fill shred -n1 -u "$dir/gnu.bin")
report "shred_file vs shred -n1 -u" "$ours" "$(awk -v t="$gnu_us" 'BEGIN { print t / 1e6 }')" s 3

# --- Folder.Size of 50,000 files against du -sb -----------------------------
# 500 folders of 100 files, two levels deep, 1 to 700 bytes each.
tree=$data/tree
make_tree() {
  local f i n=0 sub pad
  printf -v pad '%700s' ''
  pad=${pad// /x}
  for ((f = 0; f < 500; f++)); do
    sub=$tree/d$((f % 8))/e$f
    mkdir -p "$sub"
    for ((i = 0; i < 100; i++)); do
      printf '%s' "${pad:0:n % 700 + 1}" >"$sub/f$i.dat"
      n=$((n + 1))
    done
  done
}
make_tree
run_wine bench_folder_size 'C:\wh\bench\tree'  # warms itself
ours=$(figure bench_folder_size folder_size)
du_sb() { du -sb "$tree" >/dev/null; }
du_sb  # warm
du_us=$(best_us nothing du_sb)
report "Folder.Size vs du -sb" "$ours" "$(awk -v t="$du_us" 'BEGIN { print t / 1e3 }')" ms 1

# --- one LCD hover on screen against FillRect + TextOutA (both in Wine) -----
run_wine bench_lcd_write
report "LCD hover vs FillRect+TextOutA" "$(figure bench_lcd_write lcd_hover_screen)" \
  "$(figure bench_lcd_write fill_textout_screen)" us 1

# --- the ini record reader on a 200,000-line win.ini against awk ------------
# Lines of an ini file with commas and quoted records, CR LF ends; awk cuts
# the same text at commas and line ends (without the quote rules).
ini=$data/big.ini
awk 'BEGIN { for (i = 0; i < 200000; i++)
  printf "load=C:\\Apps\\p%d.exe;x.exe,\"C:\\q %d\\r.exe\",tail%d\r\n", i, i, i }' >"$ini"
run_wine bench_ini_records 'C:\wh\bench\big.ini'
ours=$(figure bench_ini_records ini_records)
awk_cut() { awk 'BEGIN { RS = "[,\r\n]+" } END { print NR }' "$ini" >/dev/null; }
awk_cut  # warm
awk_us=$(best_us nothing awk_cut)
report "ini records vs awk" "$ours" "$(awk -v t="$awk_us" 'BEGIN { print t / 1e3 }')" ms 1

# --- split_file, 1 GB into 10 MB fragments, against GNU split -b 10M --------
# Both cut the same file in the same folder; the fragments go between runs.
dir=$data/split
mkdir -p "$dir"
dd if=/dev/urandom of="$dir/big.bin" bs=1M count=1024 status=none
cat "$dir/big.bin" >/dev/null  # both start from a warm cache
run_wine bench_split_file 'C:\wh\bench\split\big.bin' 10
ours=$(figure bench_split_file split_file)
unsplit() { find "$dir" -maxdepth 1 -type f ! -name big.bin -delete; }
gnu_split() { (cd "$dir" && split -b 10M big.bin frag_); }
gnu_us=$(best_us unsplit gnu_split)
unsplit
rm -f "$dir/big.bin"
report "split_file vs split -b 10M" "$ours" "$(awk -v t="$gnu_us" 'BEGIN { print t / 1e6 }')" s 3

# --- junk_scan with 100,000 files in the temporary folder, against du -sb ---
# 100 folders of 1,000 files, 1 to 700 bytes each.
temp=$data/temp
python3 - "$temp" <<'PY'
import os, sys
root = sys.argv[1]
n = 0
for f in range(100):
    d = os.path.join(root, "t%d" % f)
    os.makedirs(d, exist_ok=True)
    for i in range(1000):
        with open(os.path.join(d, "f%d.tmp" % i), "wb") as out:
            out.write(b"x" * (n % 700 + 1))
        n += 1
PY
run_wine bench_junk_scan 'C:\wh\bench\temp'  # warms itself
ours=$(figure bench_junk_scan junk_scan)
du_temp() { du -sb "$temp" >/dev/null; }
du_temp  # warm
du_us=$(best_us nothing du_temp)
report "junk_scan vs du -sb" "$ours" "$(awk -v t="$du_us" 'BEGIN { print t / 1e3 }')" ms 1
rm -rf "$temp"

# --- clean_tree of 50,000 files against rm -rf of the same tree -------------
# The tree of Folder.Size above, copied afresh before each run of either.
# A second copy goes by a plain FindFirstFileA/DeleteFileA walk in the same
# program: what Wine itself needs for the same removals.
copy=$data/clean
plain=$data/plain
fresh_copy() { rm -rf "$copy" && cp -a "$tree" "$copy" && sync; }
lesser() { awk -v a="$1" -v b="$2" 'BEGIN { print (b == "" || a < b) ? a : b }'; }
best= best_plain=
for ((i = 0; i < rounds; i++)); do
  fresh_copy
  rm -rf "$plain" && cp -a "$tree" "$plain" && sync
  run_wine bench_clean_tree 'C:\wh\bench\clean' 'C:\wh\bench\plain'
  best=$(lesser "$(figure bench_clean_tree clean_tree)" "$best")
  best_plain=$(lesser "$(figure bench_clean_tree plain_delete)" "$best_plain")
done
rm_us=$(best_us fresh_copy rm -rf "$copy")
report "clean_tree vs rm -rf" "$best" "$(awk -v t="$rm_us" 'BEGIN { print t / 1e3 }')" ms 1
report "clean_tree vs DeleteFileA walk (both in Wine)" "$best" "$best_plain" ms 1

  "$(figure bench_lcd_write fill_textout)" us 1

# --- same-content search of 30,000 files against jdupes -r ------------------
# 100 folders of 300 files in 1,000 sizes (600 to 7,593 bytes), so each size
# has 30 equal files: the most files the finder takes, every one a candidate.
dups=$data/dups
make_dups() {
  local d i g pad
  printf -v pad '%8000s' ''
  pad=${pad// /d}
  for ((d = 0; d < 100; d++)); do
    mkdir -p "$dups/f$d"
    for ((i = 0; i < 300; i++)); do
      g=$(((d * 300 + i) % 1000))
      printf '%s' "${pad:0:600 + 7 * g}" >"$dups/f$d/n$i.bin"
    done
  done
}
make_dups
run_wine bench_duplicates_scan 'C:\wh\bench\dups'  # warms itself
ours=$(figure bench_duplicates_scan dup_scan)
jd() { jdupes -r -q "$dups" >/dev/null; }
jd  # warm
jd_us=$(best_us nothing jd)
report "duplicate search vs jdupes -r" "$ours" "$(awk -v t="$jd_us" 'BEGIN { print t / 1e6 }')" s 3
rm -rf "$dups"

# --- afisdirs of a root holding 200,000 files against du -sb ----------------
# 20 top folders of 50 folders of 200 files, 1 to 700 bytes; the tree is
# drive T: of the prefix, so the listing is a root's.
big=$data/big
make_big() {
  local t f i n=0 sub pad
  printf -v pad '%700s' ''
  pad=${pad// /x}
  for ((t = 0; t < 20; t++)); do
    for ((f = 0; f < 50; f++)); do
      sub=$big/t$t/f$f
      mkdir -p "$sub"
      for ((i = 0; i < 200; i++)); do
        printf '%s' "${pad:0:n % 700 + 1}" >"$sub/$i.dat"
        n=$((n + 1))
      done
    done
  done
}
make_big
ln -sfn "$big" "$WINEPREFIX/dosdevices/t:"
run_wine bench_disk_root 'T:\'  # warms itself
ours=$(figure bench_disk_root afisdirs_root)
du_big() { du -sb "$big" >/dev/null; }
du_big  # warm
du_us=$(best_us nothing du_big)
report "afisdirs of a root vs du -sb" "$ours" "$(awk -v t="$du_us" 'BEGIN { print t / 1e3 }')" ms 1
rm -f "$WINEPREFIX/dosdevices/t:"

# --- load_url_cache_list over 5,000 history entries -------------------------
# No native tool reads Wine's URL cache: the anchor is a walk of the same
# cache with one fixed buffer, in the same program.
run_wine bench_url_cache 'C:\wh\bench' 5000
report "load_url_cache_list vs FindNextUrlCacheEntryA walk (both in Wine)" \
  "$(figure bench_url_cache url_cache)" "$(figure bench_url_cache plain_walk)" ms 1

# --- one monitor tick against reading /proc/stat and /proc/meminfo ----------
# Ours: drive line, memory, CPU sample and four panel lines, per tick; the
# anchor: one read of each file by a native process, per read, 500 times.
run_wine bench_monitor_tick
ours=$(figure bench_monitor_tick monitor_tick)
proc_reads() { for ((k = 0; k < 500; k++)); do read -r _ </proc/stat; read -r _ </proc/meminfo; done; }
proc_us=$(best_us nothing proc_reads)
report "monitor tick vs /proc/stat+meminfo reads" "$ours" "$(awk -v t="$proc_us" 'BEGIN { print t / 500 }')" us 1

# --- the installed-programs scan of 1000 entries, against awk ---------------
# The program writes 1000 Uninstall entries with their folders, times the
# scan (registry walk, folder inference, memory file) and writes the same
# entries as text. The anchor reads that text and the folder listing, keeps
# the names whose folder exists and writes them as the memory file.
dir=$data/uninst
mkdir -p "$dir"
run_wine bench_uninstall_scan 'C:\wh\bench\uninst'
ours=$(figure bench_uninstall_scan uninstall_scan)
awk_scan() {
  find "$dir" -mindepth 1 -maxdepth 1 -type d -printf '%f\n' |
    awk -F'\t' 'NR == FNR { d[$1] = 1; next } { n = split($3, a, "\\"); if (a[n] in d) print $2 }
      ' /dev/stdin "$dir/entries.txt" >"$dir/apps"
}
awk_scan  # warm
awk_us=$(best_us nothing awk_scan)
report "uninstall_scan vs awk" "$ours" "$(awk -v t="$awk_us" 'BEGIN { print t / 1e3 }')" ms 1
rm -rf "$dir"

# --- scan_index_file over 64 MB of random bytes, against grep -a -o ---------
# An address every 64 KB among the noise; grep looks for the same scheme
# words up to a blank. Times, so a ratio of 2.00 is half grep's throughput.
index=$data/index.dat
python3 - "$index" <<'PY'
import random, sys
random.seed(17)
data = bytearray(random.randbytes(64 << 20))
for n, at in enumerate(range(1000, len(data) - 100, 65536)):
    url = b" http://www.example%d.com/page/%d.html " % (n % 97, n)
    data[at:at + len(url)] = url
open(sys.argv[1], "wb").write(data)
PY
run_wine bench_url_scan 'C:\wh\bench\index.dat'
ours=$(figure bench_url_scan scan_index_file)
# Into a file: with its output on /dev/null grep stops at the first match.
grep_urls() { grep -a -o -E '([Cc][Oo][Oo][Kk][Ii][Ee]|file|http|hcp|ftp):[^ ]*' "$index" >"$index.txt"; }
grep_urls  # warm
grep_us=$(best_us nothing grep_urls)
report "scan_index_file vs grep -a -o" "$ours" "$(awk -v t="$grep_us" 'BEGIN { print t / 1e3 }')" ms 1
rm -f "$index" "$index.txt"

# --- the Chromium plug-in's RUN over 50,000 cache files, against rm -rf -----
# One Chrome profile in the prefix's real user data folder, where the
# plug-in looks: Cache, Code Cache, GPUCache and Service Worker\CacheStorage
# (40 folders), 50,000 files of 1 to 700 bytes, beside its Preferences. Made
# afresh before each run of either; a copy of the same caches goes by a
# plain FindFirstFileA/DeleteFileA walk in the same program (the floor).
user=$(ls "$WINEPREFIX/drive_c/users" | grep -vx Public | head -1)
profile=$WINEPREFIX/drive_c/users/$user/AppData/Local/Google/Chrome/User\ Data/Default
caches=$data/chrome_caches
python3 - "$caches" <<'PY'
import os, sys
root, n = sys.argv[1], 0
for sub, count, folders in [("Cache/Cache_Data", 30000, 1), ("Code Cache/js", 9000, 1),
                            ("Code Cache/wasm", 1000, 1), ("Service Worker/CacheStorage", 9960, 40),
                            ("GPUCache", 40, 1)]:
    for i in range(count):
        d = sub if folders == 1 else "%s/%040x/%08d-0000-4000-8000-000000000000" % (sub, i % folders, i % folders)
        os.makedirs(os.path.join(root, d), exist_ok=True)
        with open(os.path.join(root, d, "f_%06x" % i), "wb") as out:
            out.write(b"c" * (n % 700 + 1))
        n += 1
PY
fresh_profile() {
  rm -rf "$profile" && mkdir -p "$(dirname "$profile")" && cp -a "$caches" "$profile" &&
    printf '{}' >"$profile/Preferences" && sync
}
best= best_plain=
for ((i = 0; i < rounds; i++)); do
  fresh_profile
  rm -rf "$plain" && cp -a "$caches" "$plain" && sync
  run_wine bench_chromium_plugin 'C:\wh\plugins\Chromium.dll' \
    "C:\\users\\$user\\AppData\\Local\\Google\\Chrome\\User Data\\Default" 'C:\wh\bench\plain'
  best=$(lesser "$(figure bench_chromium_plugin chromium_run)" "$best")
  best_plain=$(lesser "$(figure bench_chromium_plugin plain_delete)" "$best_plain")
done
rm_caches() { (cd "$profile" && rm -rf Cache "Code Cache" GPUCache "Service Worker"); }
rm_us=$(best_us fresh_profile rm_caches)
report "Chromium plug-in RUN vs rm -rf" "$best" "$(awk -v t="$rm_us" 'BEGIN { print t / 1e3 }')" ms 1
report "Chromium plug-in RUN vs DeleteFileA walk (both in Wine)" "$best" "$best_plain" ms 1
rm -rf "$WINEPREFIX/drive_c/users/$user/AppData/Local/Google" "$caches" "$plain"
