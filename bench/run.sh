#!/usr/bin/env bash
# Installs what is missing, builds, and runs the benchmark programs under Wine
# against native Linux tools (the anchors) and against their floors, on the
# same data in the same folder of a throwaway prefix (C:\wh\bench\ =
# $BUILD_DIR/bench-prefix/drive_c/wh/bench/).
#   bash bench/run.sh           the full data: takes a while
#   bash bench/run.sh --smoke   every figure on tiny data, one round: shows
#                               that the script and every program still run
#   bash bench/run.sh [--smoke] SECTION...   only those (e.g. duplicates
#                               clean_tree: the sections' names less "sec_")
# A floor is the plainest Win32 loop doing the same work in the same Wine,
# timed by the same program in turns with ours. Each figure prints a line
#   name: ratio X (ours A unit, anchor B unit)
# as it comes, and all of them again as a table at the end. Every figure is
# a time, ratio = ours / anchor: 1.00 is as fast, 2.00 takes twice as long.
# "vs <tool>" lines hold ours against a native tool, "(both in Wine)" lines
# against the floor. The programs' own, longer reports (with the phases of
# the duplicate search) are kept in $BUILD_DIR/bench-logs/.
#
# The run fails when a line does not come: every `report "..."` and
# `in_wine "..."` line of this file must print, or the run names what is
# missing and exits 1 (CI runs --smoke). A section that fails stops there
# and the next one runs.
#
# Adding a figure:
#   - A program bench/NAME.cpp is built and copied by itself. It prints
#     "figure KEY VALUE UNIT" lines (bench/plain_walks.h has the floors' loops).
#   - When the program makes its own data and times ours and its floor
#     itself, the figure is one line in sec_in_wine below:
#       in_wine "what vs floor (both in Wine)" bench_NAME ours_key floor_key ms 1 ARGS...
#   - Otherwise a function sec_NAME that makes the data (sizes through
#     `size FULL SMOKE`), runs the program (run_wine), times the anchor
#     (best_us) and calls `report` once per line; and its name in `sections`.
set -euo pipefail
export LC_ALL=C  # one decimal point for bash's clock, awk and the programs
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
smoke=0
only=()
for arg in "$@"; do
  case "$arg" in
    --smoke) smoke=1 ;;
    -*) echo "usage: bench/run.sh [--smoke] [SECTION...]" >&2; exit 2 ;;
    *) only+=("sec_$arg") ;;
  esac
done
# size FULL SMOKE: the figure of this run's kind.
size() { if ((smoke)); then echo "$2"; else echo "$1"; fi; }
rounds=$(size 3 1)

bash "$here/scripts/deps.sh"
bash "$here/scripts/deps.sh" bench
benches=()
for src in "$here"/bench/*.cpp; do
  name=${src##*/}
  benches+=("bench_${name%.cpp}")
done
# plugin_pack: the plug-ins of the pack, for the Chromium plug-in's figure.
BUILD_TYPE=Release BUILD_DIR=$build bash "$here/scripts/build.sh" --target "${benches[@]}" plugin_pack \
  >/dev/null

. "$here/scripts/wine-env.sh"
data=
cleanup() {
  wh_cleanup
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
# The pack's plug-ins, where bench_chromium_plugin registers them from.
mkdir -p "$WINEPREFIX/drive_c/wh/plugins"
cp "$build"/pack/*.dll "$WINEPREFIX/drive_c/wh/plugins/"
data=$WINEPREFIX/drive_c/wh/bench
logs=$build/bench-logs
rm -rf "$logs"
mkdir -p "$data/big" "$logs"
# Drive T: is the tree of the disk explorer's figure: a drive letter is a
# link that must be there before the wineserver starts.
ln -sfn "$data/big" "$WINEPREFIX/dosdevices/t:"
wh_start_server
lines=$logs/lines.tsv
: >"$lines"

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
nothing() { :; }
# The lesser of two numbers; the first when the second is "".
lesser() { awk -v a="$1" -v b="$2" 'BEGIN { print (b == "" || a < b) ? a : b }'; }
# Microseconds in the unit of a figure.
us_to() { awk -v t="$1" -v u="$2" 'BEGIN { print t / (u == "s" ? 1e6 : u == "ms" ? 1e3 : 1) }'; }

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

# report NAME OURS ANCHOR UNIT DECIMALS: prints the line and keeps it for
# the table. A value that is no positive number fails the section.
report() {
  local v
  for v in "$2" "$3"; do
    [[ $v =~ ^[0-9]*\.?[0-9]+$ ]] && awk -v v="$v" 'BEGIN { exit !(v > 0) }' ||
      { echo "bench: $1: no usable time ($v)" >&2; return 1; }
  done
  awk -v n="$1" -v a="$2" -v b="$3" -v u="$4" -v d="$5" 'BEGIN {
    printf "%s: ratio %.2f (ours %.*f %s, anchor %.*f %s)\n", n, a / b, d, a, u, d, b, u }'
  printf '%s\t%s\t%s\t%s\t%s\n' "$1" "$2" "$3" "$4" "$5" >>"$lines"
}

# in_wine NAME PROGRAM OURS FLOOR UNIT DECIMALS [ARGS...]: a program that
# times ours and its floor itself.
in_wine() {
  local name=$1 program=$2 ours_key=$3 floor_key=$4 unit=$5 decimals=$6 ours floor
  shift 6
  run_wine "$program" "$@"
  ours=$(figure "$program" "$ours_key")
  floor=$(figure "$program" "$floor_key")
  report "$name" "$ours" "$floor" "$unit" "$decimals"
}

# A tree of small files: FOLDERS folders two levels deep, FILES files each,
# 1 to 700 bytes.
make_tree() {
  local root=$1 folders=$2 files=$3 f i n=0 sub pad
  printf -v pad '%700s' ''
  pad=${pad// /x}
  for ((f = 0; f < folders; f++)); do
    sub=$root/d$((f % 8))/e$f
    mkdir -p "$sub"
    for ((i = 0; i < files; i++)); do
      printf '%s' "${pad:0:n % 700 + 1}" >"$sub/f$i.dat"
      n=$((n + 1))
    done
  done
}

# --- shred_file, one pass over 256 MB, against dd and GNU shred -------------
sec_shred() {
  local mb dir i ours_files=() plain_files=() ours floor dd_us gnu_us
  mb=$(size 256 1)
  dir=$data/shred
  mkdir -p "$dir"
  fill() { dd if=/dev/zero of="$1" bs=1M count="$mb" conv=fsync status=none; }
  for ((i = 1; i <= rounds; i++)); do
    fill "$dir/ours$i.bin"
    fill "$dir/plain$i.bin"
    ours_files+=("C:\\wh\\bench\\shred\\ours$i.bin")
    plain_files+=("C:\\wh\\bench\\shred\\plain$i.bin")
  done
  sync
  run_wine bench_shred_throughput "${ours_files[@]}" -- "${plain_files[@]}"
  if [ -n "$(ls -A "$dir")" ]; then
    echo "bench: shred_file left files behind in $dir: $(ls "$dir")" >&2
    return 1
  fi
  ours=$(figure bench_shred_throughput shred_file)
  floor=$(figure bench_shred_throughput plain_shred)
  # A shred ends by deleting the file: the plain write is timed with its rm.
  dd_write() { fill "$dir/dd.bin" && rm -f "$dir/dd.bin"; }
  dd_us=$(best_us nothing dd_write)
  report "shred_file vs dd" "$ours" "$(us_to "$dd_us" s)" s 3
  gnu_fill() { fill "$dir/gnu.bin"; sync; }
  gnu_us=$(best_us gnu_fill shred -n1 -u "$dir/gnu.bin")
  report "shred_file vs shred -n1 -u" "$ours" "$(us_to "$gnu_us" s)" s 3
  report "shred_file vs write+rename+delete (both in Wine)" "$ours" "$floor" s 3
  rm -rf "$dir"
}

# --- Folder.Size of 50,000 files against du -sb ----------------------------
# 500 folders of 100 files; clean_tree takes copies of the same tree.
sec_folder_size() {
  local tree=$data/tree du_us
  make_tree "$tree" "$(size 500 8)" "$(size 100 10)"
  run_wine bench_folder_size 'C:\wh\bench\tree'  # warms itself
  du_sb() { du -sb "$tree" >/dev/null; }
  du_sb  # warm
  du_us=$(best_us nothing du_sb)
  report "Folder.Size vs du -sb" "$(figure bench_folder_size folder_size)" "$(us_to "$du_us" ms)" ms 1
  report "Folder.Size vs FindFirstFileA walk (both in Wine)" \
    "$(figure bench_folder_size folder_size)" "$(figure bench_folder_size plain_walk)" ms 1
}

# --- the ini record reader on a 200,000-line win.ini against awk ------------
# Lines of an ini file with commas and quoted records, CR LF ends; awk cuts
# the same text at commas and line ends (without the quote rules).
sec_ini() {
  local ini=$data/big.ini awk_us
  awk -v n="$(size 200000 2000)" 'BEGIN { for (i = 0; i < n; i++)
    printf "load=C:\\Apps\\p%d.exe;x.exe,\"C:\\q %d\\r.exe\",tail%d\r\n", i, i, i }' >"$ini"
  run_wine bench_ini_records 'C:\wh\bench\big.ini'
  awk_cut() { awk 'BEGIN { RS = "[,\r\n]+" } END { print NR }' "$ini" >/dev/null; }
  awk_cut  # warm
  awk_us=$(best_us nothing awk_cut)
  report "ini records vs awk" "$(figure bench_ini_records ini_records)" "$(us_to "$awk_us" ms)" ms 1
  report "ini records vs ReadFile+cut loop (both in Wine)" \
    "$(figure bench_ini_records ini_records)" "$(figure bench_ini_records plain_records)" ms 1
  rm -f "$ini"
}

# --- split_file, 1 GB into 10 MB fragments, against GNU split -b 10M --------
# Both cut the same file in the same folder; the fragments go between runs.
sec_split() {
  local dir=$data/split mb frag gnu_us
  mb=$(size 1024 4)
  frag=$(size 10 1)
  mkdir -p "$dir"
  dd if=/dev/urandom of="$dir/big.bin" bs=1M count="$mb" status=none
  cat "$dir/big.bin" >/dev/null  # both start from a warm cache
  run_wine bench_split_file 'C:\wh\bench\split\big.bin' "$frag"
  unsplit() { find "$dir" -maxdepth 1 -type f ! -name big.bin -delete; }
  gnu_split() { (cd "$dir" && split -b "${frag}M" big.bin frag_); }
  gnu_us=$(best_us unsplit gnu_split)
  report "split_file vs split -b ${frag}M" "$(figure bench_split_file split_file)" "$(us_to "$gnu_us" s)" s 3
  report "split_file vs ReadFile/WriteFile loop (both in Wine)" \
    "$(figure bench_split_file split_file)" "$(figure bench_split_file plain_split)" s 3
  rm -rf "$dir"
}

# --- junk_scan with 100,000 files in the temporary folder, against du -sb ---
# 100 folders of 1,000 files, 1 to 700 bytes each.
sec_junk_scan() {
  local temp=$data/temp folders files f i n=0 pad du_us
  folders=$(size 100 4)
  files=$(size 1000 20)
  printf -v pad '%700s' ''
  pad=${pad// /x}
  for ((f = 0; f < folders; f++)); do
    mkdir -p "$temp/t$f"
    for ((i = 0; i < files; i++)); do
      printf '%s' "${pad:0:n % 700 + 1}" >"$temp/t$f/f$i.tmp"
      n=$((n + 1))
    done
  done
  run_wine bench_junk_scan 'C:\wh\bench\temp'  # warms itself
  du_temp() { du -sb "$temp" >/dev/null; }
  du_temp  # warm
  du_us=$(best_us nothing du_temp)
  report "junk_scan vs du -sb" "$(figure bench_junk_scan junk_scan)" "$(us_to "$du_us" ms)" ms 1
  report "junk_scan vs FindFirstFileA walk (both in Wine)" \
    "$(figure bench_junk_scan junk_scan)" "$(figure bench_junk_scan plain_scan)" ms 1
  rm -rf "$temp"
}

# --- clean_tree of 50,000 files against rm -rf of the same tree -------------
# The tree of Folder.Size, copied afresh before each run of either. A second
# copy goes by a plain FindFirstFileA/DeleteFileA walk in the same program,
# after ours or before it by turns.
sec_clean_tree() {
  local tree=$data/tree copy=$data/clean plain=$data/plain best= floor= i rm_us
  [ -d "$tree" ] || make_tree "$tree" "$(size 500 8)" "$(size 100 10)"
  fresh_copy() { rm -rf "$copy" && cp -a "$tree" "$copy" && sync; }
  for ((i = 0; i < rounds; i++)); do
    fresh_copy
    rm -rf "$plain" && cp -a "$tree" "$plain" && sync
    # Ours first, then the floor first: whichever runs second finds the disk
    # still busy with the first one's removals.
    run_wine bench_clean_tree 'C:\wh\bench\clean' 'C:\wh\bench\plain' \
      "$( ((i % 2)) && echo plain-first || echo ours-first)"
    best=$(lesser "$(figure bench_clean_tree clean_tree)" "$best")
    floor=$(lesser "$(figure bench_clean_tree plain_delete)" "$floor")
  done
  rm_us=$(best_us fresh_copy rm -rf "$copy")
  report "clean_tree vs rm -rf" "$best" "$(us_to "$rm_us" ms)" ms 1
  report "clean_tree vs DeleteFileA walk (both in Wine)" "$best" "$floor" ms 1
  rm -rf "$tree" "$copy" "$plain"
}

# --- same-content search of 30,000 files against jdupes -r ------------------
# 100 folders of 300 files in 1,000 sizes (600 to 7,593 bytes), so each size
# has 30 equal files: the most files the finder takes, every one a candidate.
sec_duplicates() {
  local dups=$data/dups folders files groups d i g pad jd_us
  folders=$(size 100 4)
  files=$(size 300 30)
  groups=$(size 1000 10)
  printf -v pad '%8000s' ''
  pad=${pad// /d}
  for ((d = 0; d < folders; d++)); do
    mkdir -p "$dups/f$d"
    for ((i = 0; i < files; i++)); do
      g=$(((d * files + i) % groups))
      printf '%s' "${pad:0:600 + 7 * g}" >"$dups/f$d/n$i.bin"
    done
  done
  run_wine bench_duplicates_scan 'C:\wh\bench\dups'  # warms itself
  jd() { jdupes -r -q "$dups" >/dev/null; }
  jd  # warm
  jd_us=$(best_us nothing jd)
  report "duplicate search vs jdupes -r" "$(figure bench_duplicates_scan dup_scan)" "$(us_to "$jd_us" s)" s 3
  report "duplicate search vs FindFirstFileA+open+2 reads (both in Wine)" \
    "$(figure bench_duplicates_scan dup_scan)" "$(figure bench_duplicates_scan plain_samples)" s 3
  rm -rf "$dups"
}

# --- afisdirs of a root holding 200,000 files against du -sb ----------------
# 20 top folders of 50 folders of 200 files, 1 to 700 bytes; the tree is
# drive T: of the prefix, so the listing is a root's.
sec_disk_root() {
  local big=$data/big tops subs files t f i n=0 sub pad du_us
  tops=$(size 20 2)
  subs=$(size 50 3)
  files=$(size 200 10)
  printf -v pad '%700s' ''
  pad=${pad// /x}
  for ((t = 0; t < tops; t++)); do
    for ((f = 0; f < subs; f++)); do
      sub=$big/t$t/f$f
      mkdir -p "$sub"
      for ((i = 0; i < files; i++)); do
        printf '%s' "${pad:0:n % 700 + 1}" >"$sub/$i.dat"
        n=$((n + 1))
      done
    done
  done
  run_wine bench_disk_root 'T:\'  # warms itself
  du_big() { du -sb "$big" >/dev/null; }
  du_big  # warm
  du_us=$(best_us nothing du_big)
  report "afisdirs of a root vs du -sb" "$(figure bench_disk_root afisdirs_root)" "$(us_to "$du_us" ms)" ms 1
  report "afisdirs of a root vs FindFirstFileA walk (both in Wine)" \
    "$(figure bench_disk_root afisdirs_root)" "$(figure bench_disk_root plain_root)" ms 1
  find "$big" -mindepth 1 -delete
}

# --- one monitor tick against reading /proc/stat and /proc/meminfo ----------
# Ours: drive line, memory, CPU sample and four panel lines, per tick; the
# anchor: one read of each file by a native process, per read, 500 times.
sec_monitor() {
  local k proc_us
  run_wine bench_monitor_tick "$(size 500 20)" "$(size 5 1)"
  proc_reads() { for ((k = 0; k < 500; k++)); do read -r _ </proc/stat; read -r _ </proc/meminfo; done; }
  proc_us=$(best_us nothing proc_reads)
  report "monitor tick vs /proc/stat+meminfo reads" "$(figure bench_monitor_tick monitor_tick)" \
    "$(awk -v t="$proc_us" 'BEGIN { print t / 500 }')" us 1
  report "monitor tick vs plain queries+TextOutA (both in Wine)" \
    "$(figure bench_monitor_tick monitor_tick)" "$(figure bench_monitor_tick plain_tick)" us 1
}

# --- the installed-programs scan of 1000 entries, against awk ---------------
# The program writes 1000 Uninstall entries with their folders, times the
# scan (registry walk, folder inference, memory file) and writes the same
# entries as text. The anchor reads that text and the folder listing, keeps
# the names whose folder exists and writes them as the memory file. Then
# the section's shown list filled with the rows, a tenth of them new.
sec_uninstall() {
  local dir=$data/uninst awk_us
  mkdir -p "$dir"
  run_wine bench_uninstall_scan 'C:\wh\bench\uninst' "$(size 1000 20)"
  awk_scan() {
    find "$dir" -mindepth 1 -maxdepth 1 -type d -printf '%f\n' |
      awk -F'\t' 'NR == FNR { d[$1] = 1; next } { n = split($3, a, "\\"); if (a[n] in d) print $2 }
        ' /dev/stdin "$dir/entries.txt" >"$dir/apps"
  }
  awk_scan  # warm
  awk_us=$(best_us nothing awk_scan)
  report "uninstall_scan vs awk" "$(figure bench_uninstall_scan uninstall_scan)" "$(us_to "$awk_us" ms)" ms 1
  report "uninstall_scan vs RegEnumKeyExA walk (both in Wine)" \
    "$(figure bench_uninstall_scan uninstall_scan)" "$(figure bench_uninstall_scan plain_scan)" ms 1
  # The shown List1 filled with those rows, until painted.
  report "uninstall list vs LB_ADDSTRING fill (both in Wine)" \
    "$(figure bench_uninstall_scan uninstall_list)" "$(figure bench_uninstall_scan plain_list)" ms 1
  rm -rf "$dir"
}

# --- scan_index_file over 64 MB of random bytes, against grep -a -o ---------
# An address every 64 KB among the noise; grep looks for the same scheme
# words up to a blank. Times, so a ratio of 2.00 is half grep's throughput.
sec_url_scan() {
  local index=$data/index.dat grep_us
  head -c "$(size 64 1)M" /dev/urandom >"$index"
  awk -v size="$(stat -c %s "$index")" 'BEGIN {
    for (n = 0; 1000 + n * 65536 < size - 100; n++)
      printf "%d %s\n", 1000 + n * 65536, sprintf(" http://www.example%d.com/page/%d.html ", n % 97, n) }' |
    while read -r at url; do printf '%s' " $url " | dd of="$index" bs=1 seek="$at" conv=notrunc status=none; done
  run_wine bench_url_scan 'C:\wh\bench\index.dat'
  # Into a file: with its output on /dev/null grep stops at the first match.
  grep_urls() { grep -a -o -E '([Cc][Oo][Oo][Kk][Ii][Ee]|file|http|hcp|ftp):[^ ]*' "$index" >"$index.txt"; }
  grep_urls  # warm
  grep_us=$(best_us nothing grep_urls)
  report "scan_index_file vs grep -a -o" "$(figure bench_url_scan scan_index_file)" "$(us_to "$grep_us" ms)" ms 1
  report "scan_index_file vs ReadFile+search loop (both in Wine)" \
    "$(figure bench_url_scan scan_index_file)" "$(figure bench_url_scan plain_scan)" ms 1
  rm -f "$index" "$index.txt"
}

# --- the Chromium plug-in's RUN over 50,000 cache files, against rm -rf -----
# One Chrome profile in the prefix's real user data folder, where the
# plug-in looks: Cache, Code Cache, GPUCache and Service Worker\CacheStorage
# (40 folders), 50,000 files of 1 to 700 bytes, beside its Preferences. Made
# afresh before each run of either; a copy of the same caches goes by a
# plain FindFirstFileA/DeleteFileA walk in the same program (the floor).
sec_chromium_plugin() {
  local user profile caches=$data/chrome_caches plain=$data/plain total sw_folders pad
  local n=0 i best= floor= rm_us
  user=$(ls "$WINEPREFIX/drive_c/users" | grep -vx Public | head -1)
  profile=$WINEPREFIX/drive_c/users/$user/AppData/Local/Google/Chrome/User\ Data/Default
  total=$(size 50000 500)
  sw_folders=$(size 40 4)
  printf -v pad '%700s' ''
  pad=${pad// /c}
  # cache_files FOLDER COUNT [FOLDERS]: COUNT files in FOLDER, or spread over
  # FOLDERS subfolders named as Chromium names them.
  cache_files() {
    local dir=$caches/$1 count=$2 folders=${3:-0} k d name
    mkdir -p "$dir"
    for ((k = 0; k < count; k++)); do
      d=$dir
      if ((folders)); then
        printf -v d '%s/%040x/%08d-0000-4000-8000-000000000000' "$dir" $((k % folders)) $((k % folders))
        mkdir -p "$d"
      fi
      printf -v name 'f_%06x' "$n"
      printf '%s' "${pad:0:n % 700 + 1}" >"$d/$name"
      n=$((n + 1))
    done
  }
  cache_files Cache/Cache_Data $((total * 3 / 5))
  cache_files "Code Cache/js" $((total * 9 / 50))
  cache_files "Code Cache/wasm" $((total / 50))
  cache_files GPUCache $((total / 1250))
  cache_files "Service Worker/CacheStorage" $((total - n)) "$sw_folders"
  fresh_profile() {
    rm -rf "$profile" && mkdir -p "$(dirname "$profile")" && cp -a "$caches" "$profile" &&
      printf '{}' >"$profile/Preferences" && sync
  }
  for ((i = 0; i < rounds; i++)); do
    fresh_profile
    rm -rf "$plain" && cp -a "$caches" "$plain" && sync
    run_wine bench_chromium_plugin 'C:\wh\plugins\Chromium.dll' \
      "C:\\users\\$user\\AppData\\Local\\Google\\Chrome\\User Data\\Default" 'C:\wh\bench\plain'
    best=$(lesser "$(figure bench_chromium_plugin chromium_run)" "$best")
    floor=$(lesser "$(figure bench_chromium_plugin plain_delete)" "$floor")
  done
  rm_caches() { (cd "$profile" && rm -rf Cache "Code Cache" GPUCache "Service Worker"); }
  rm_us=$(best_us fresh_profile rm_caches)
  report "Chromium plug-in RUN vs rm -rf" "$best" "$(us_to "$rm_us" ms)" ms 1
  report "Chromium plug-in RUN vs DeleteFileA walk (both in Wine)" "$best" "$floor" ms 1
  rm -rf "$WINEPREFIX/drive_c/users/$user/AppData/Local/Google" "$caches" "$plain"
}

# --- figures that a program measures alone, ours and its floor in Wine -----
sec_in_wine() {
  # Clear and five lines on the shown panel, against a fill and five
  # TextOutA on the same shown window, each put on the screen at once.
  in_wine "LCD hover vs FillRect+TextOutA (both in Wine)" bench_lcd_write lcd_hover_screen \
    fill_textout_screen us 1 "$(size 2000 50)" "$(size 5 1)"
  # No native tool reads Wine's URL cache: the program fills it and walks
  # it with one fixed buffer.
  in_wine "load_url_cache_list vs FindNextUrlCacheEntryA walk (both in Wine)" bench_url_cache \
    url_cache plain_walk ms 1 'C:\wh\bench' "$(size 5000 50)"
}

sections=(sec_shred sec_folder_size sec_ini sec_split sec_junk_scan sec_clean_tree
          sec_duplicates sec_disk_root sec_monitor sec_uninstall sec_url_scan
          sec_chromium_plugin sec_in_wine)
if ((${#only[@]})); then
  for s in "${only[@]}"; do
    declare -F "$s" >/dev/null || { echo "bench: no section ${s#sec_}" >&2; exit 2; }
  done
  sections=("${only[@]}")
fi

failed=()
for s in "${sections[@]}"; do
  # A subshell of its own, where a failing command ends the section (not
  # the run: errexit is off in anything tested by if or ||).
  set +e
  (set -e; "$s")
  rc=$?
  set -e
  ((rc == 0)) || failed+=("$s")
done

# The table, then what did not come.
echo
awk -F'\t' 'BEGIN { printf "%-66s %14s %14s %7s\n", "figure", "ours", "anchor", "ratio" }
  { printf "%-66s %12.*f %-2s %12.*f %-2s %7.2f\n", $1, $5, $2, $4, $5, $3, $4, $2 / $3 }' "$lines"
missing=()
while IFS= read -r name; do
  cut -f1 "$lines" | grep -qxF -- "$name" || missing+=("$name")
done < <(grep -oE '^ *(report|in_wine) "[^"$]+"' "$0" | sed -E 's/^ *(report|in_wine) "//; s/"$//')
# A line whose name is made at run time ("split -b ${frag}M") is checked by count.
expected=$(grep -cE '^ *(report|in_wine) "[^$]' "$0")
got=$(wc -l <"$lines")
# Only some sections run: only their failures count.
((${#only[@]} == 0)) || { missing=(); expected=$got; }
if ((${#failed[@]})) || ((${#missing[@]})) || ((got < expected)); then
  echo "bench: failed sections: ${failed[*]:-none}" >&2
  ((${#missing[@]} == 0)) || printf 'bench: missing line: %s\n' "${missing[@]}" >&2
  echo "bench: $got of $expected lines" >&2
  exit 1
fi
