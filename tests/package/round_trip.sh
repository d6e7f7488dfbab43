#!/usr/bin/env bash
# The packages' round trip under Wine, in the prefix WINEPREFIX names (the
# tests' own, or package.sh's), with C:\wh\package_probe.exe in it:
#   the setup with /S installs the files, the shortcuts and the entry, and
#   registers every plug-in of the pack;
#   the installed program lists itself in its uninstall section and asks
#   before it uninstalls itself;
#   the uninstaller with /S takes away every file, key and value of the
#   product and leaves a file the user put in its folder, and the folder;
#   the portable zip unpacked into a new folder runs, and its first start
#   makes every plug-in of the pack usable; one plug-in's unregistration
#   takes back the pack's registration.
# Usage: round_trip.sh DIST VERSION. Exits 77 (ctest: skipped) when DIST has
# no packages of VERSION: scripts/package.sh makes them.
set -u
dist=$1 version=$2
setup=$dist/Wellharrower-$version-setup.exe
zip_file=$dist/Wellharrower-$version-portable.zip
if [ ! -f "$setup" ] || [ ! -f "$zip_file" ]; then
  echo "round_trip: no packages of $version in $dist (bash scripts/package.sh makes them)"
  exit 77
fi
. "$(dirname "$0")/../../scripts/wine-env.sh"
c=$WINEPREFIX/drive_c
probe='C:\wh\package_probe.exe'
dir='C:\Program Files\Wellharrower'
host_dir="$c/Program Files/Wellharrower"
uninst_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Wellharrower'
run_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Run'
store_key='HKCU\Software\Wellharrower'
file_verb='HKCR\*\shell\Wellharrow'
folder_verb='HKCR\Folder\shell\Wellshred'
start_menu="$c/ProgramData/Microsoft/Windows/Start Menu/Programs/Wellharrower.lnk"
desktop="$c/users/Public/Desktop/Wellharrower.lnk"
[ -f "$c/wh/package_probe.exe" ] || { echo "round_trip: no $probe"; exit 1; }
cd "$c/wh"
# Shortcuts made by the setup would come back as launchers in the prefix's
# desktop and menus.
export WINEDLLOVERRIDES="$WINEDLLOVERRIDES;winemenubuilder.exe="

failed=0
pass() { echo "  ok: $1"; }
fail() { echo "  FAILED: $1"; failed=1; }
expect() {  # expect DESCRIPTION COMMAND...
  local what=$1; shift
  if "$@"; then pass "$what"; else fail "$what"; fi
}
run_wine() { "$WINE64" "$@" 2>/dev/null | tr -d '\r'; return "${PIPESTATUS[0]}"; }
key_exists() { run_wine reg query "$1" >/dev/null; }
no_key() { ! key_exists "$1"; }
# The data of a value as reg prints it: "    name    REG_SZ    data".
value_of() {
  run_wine reg query "$1" /v "$2" | sed -n "s/^    $2    REG_[A-Z_]*    //p"
}
no_value() { ! run_wine reg query "$1" /v "$2" >/dev/null; }
# The file a class name is served by, "" when the class is unknown.
default_of() { run_wine reg query "$1" /ve | sed -n 's/^    (Default)    REG_[A-Z_]*    //p'; }
server_of() {
  local clsid
  clsid=$(default_of "HKCR\\$1\\CLSID")
  [ -n "$clsid" ] && default_of "HKCR\\CLSID\\$clsid\\InprocServer32"
}
server_is() { [ "$(server_of "$1")" = "$2" ] || { echo "    $1: '$(server_of "$1")'"; false; }; }
value_is() { [ "$(value_of "$1" "$2")" = "$3" ] || { echo "    $2 = '$(value_of "$1" "$2")'"; false; }; }
# The files under a folder, relative, one a line, sorted.
files_under() { (cd "$1" && find . -type f | sed 's|^\./||' | LC_ALL=C sort); }
same_files() {  # same_files FOLDER EXPECTED-LINES
  local d
  d=$(diff <(printf '%s\n' "$2" | LC_ALL=C sort) <(files_under "$1")) || { sed 's/^/    /' <<<"$d"; false; }
}
# The program's settings: a known user (no first-run window, no tips) on
# English and the uninstall section; $1 "traces" also ticks its start with
# Windows and its Explorer verbs.
settings() {
  local v
  for v in 'runed=3' 'readed 0.95=1' 'Limba=engleza' 'mod=Uninstall programs'; do
    run_wine reg add "$store_key\\Optiuni" /v "${v%%=*}" /d "${v#*=}" /f >/dev/null
  done
  if [ "${1:-}" = traces ]; then
    run_wine reg add "$store_key\\Optiuni" /v autostart /d true /f >/dev/null
    run_wine reg add "$store_key\\Optiuni" /v context /d true /f >/dev/null
  fi
}

if [ -e "$host_dir" ] || key_exists "$uninst_key"; then
  echo "round_trip: Wellharrower is installed in this prefix already"; exit 1
fi
scratch=$c/wh/scratch/package
rm -rf "$scratch"
mkdir -p "$scratch"
cp "$setup" "$scratch/"
packaged=$(unzip -Z1 "$zip_file" | grep -v '/$')

echo "setup /S /DESKTOP"
expect "the setup ends with 0" run_wine "$probe" wait "C:\\wh\\scratch\\package\\$(basename "$setup")" /S /DESKTOP
expect "the program's folder holds the zip's files and the uninstaller" \
  same_files "$host_dir" "$packaged"$'\n'"uninstall.exe"
expect "a Start-menu shortcut" test -f "$start_menu"
expect "a desktop shortcut" test -f "$desktop"
expect "DisplayName" value_is "$uninst_key" DisplayName Wellharrower
expect "DisplayVersion" value_is "$uninst_key" DisplayVersion "$version"
expect "Publisher" value_is "$uninst_key" Publisher Wellharrower
expect "InstallLocation" value_is "$uninst_key" InstallLocation "$dir"
expect "UninstallString" value_is "$uninst_key" UninstallString "\"$dir\\uninstall.exe\""
expect "DisplayIcon" value_is "$uninst_key" DisplayIcon "$dir\\Wellharrower.exe,0"
size=$(value_of "$uninst_key" EstimatedSize)
kb=$(( $(du -sk "$host_dir" | cut -f1) ))
expect "EstimatedSize near the folder's size ($size KB in hex, $kb KB)" \
  test $(( size )) -gt $(( kb / 2 )) -a $(( size )) -le $(( kb * 2 ))

echo "the installed program"
settings traces
expect "it lists itself, asks, and stays on no" \
  run_wine "$probe" harrow "$dir\\Wellharrower.exe" Wellharrower
expect "it wrote its Run value" value_is "$run_key" Wellharrower "$dir\\Wellharrower.exe"
# The Explorer verbs as the program writes them, where it did not yet.
for verb in "$file_verb" "$folder_verb"; do
  key_exists "$verb\\command" ||
    run_wine reg add "$verb\\command" /ve /d "$dir\\Wellharrower.exe %1" /f >/dev/null
done
expect "the store holds its settings" key_exists "$store_key\\Optiuni"
# The setup registered each plug-in of the pack where it put it.
plugins=$(grep '^JunkHarrower Plugins/' <<<"$packaged")
expect "the packages carry plug-ins" test -n "$plugins"
while read -r plugin_file; do
  [ -n "$plugin_file" ] || continue
  base=$(basename "${plugin_file%.*}")
  expect "the setup registered $base.Plugin" server_is "$base.Plugin" "$dir\\${plugin_file//\//\\}"
done <<<"$plugins"
printf 'my notes\r\n' >"$host_dir/notes.txt"

echo "uninstall.exe /S"
expect "the uninstaller ends with 0" run_wine "$probe" wait "$dir\\uninstall.exe" /S
expect "the user's file stays in the program's folder, alone" same_files "$host_dir" notes.txt
expect "no Start-menu shortcut" test ! -e "$start_menu"
expect "no desktop shortcut" test ! -e "$desktop"
expect "no Uninstall entry" no_key "$uninst_key"
expect "no Run value" no_value "$run_key" Wellharrower
expect "the Run key stays" key_exists "$run_key"
expect "no file verb" no_key "$file_verb"
expect "no folder verb" no_key "$folder_verb"
expect "no key store" no_key "$store_key"
while read -r plugin_file; do
  [ -n "$plugin_file" ] || continue
  base=$(basename "${plugin_file%.*}")
  expect "no class $base.Plugin" no_key "HKCR\\$base.Plugin"
done <<<"$plugins"
rm -f "$host_dir/notes.txt"
rmdir "$host_dir"

echo "the portable zip"
portable=$c/wh/scratch/portable
rm -rf "$portable"
mkdir -p "$portable"
unzip -q "$zip_file" -d "$portable"
settings
out=$(run_wine "$probe" start 'C:\wh\scratch\portable\Wellharrower.exe')
echo "$out" | sed 's/^/    /'
expect "it starts from a new folder" grep -q 'window up' <<<"$out"
version4=$version
while [ "$(tr -cd . <<<"$version4" | wc -c)" -lt 3 ]; do version4=$version4.0; done
expect "its version resource says $version4" grep -q "version $version4\$" <<<"$out"
# Its first start registered one plug-in, and that one the rest of the pack.
first=
while read -r plugin_file; do
  [ -n "$plugin_file" ] || continue
  base=$(basename "${plugin_file%.*}")
  first=${first:-$plugin_file}
  expect "the first start made $base.Plugin usable" \
    server_is "$base.Plugin" "C:\\wh\\scratch\\portable\\${plugin_file//\//\\}"
done <<<"$plugins"
run_wine regsvr32 /u /s "C:\\wh\\scratch\\portable\\${first//\//\\}" >/dev/null
while read -r plugin_file; do
  [ -n "$plugin_file" ] || continue
  base=$(basename "${plugin_file%.*}")
  expect "one unregistration took $base.Plugin back" no_key "HKCR\\$base.Plugin"
done <<<"$plugins"
run_wine reg delete "$store_key" /f >/dev/null
rm -rf "$portable" "$scratch"

[ $failed = 0 ] && echo "round_trip: passed" || echo "round_trip: FAILED"
exit $failed
