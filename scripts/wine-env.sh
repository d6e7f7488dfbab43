# Sourced by run.sh, test.sh and bench/run.sh: a Wine prefix cut off from the
# host, and a display.
#   wh_use_prefix DIR XDG  points WINEPREFIX at DIR and the folders Wine
#                          shares with the desktop at XDG; call it before any
#                          Wine process starts.
#   wh_new_prefix          wipes both and makes a fresh prefix, without Z:
#                          and without links from the user folders into the
#                          host's home.
#   wh_display             starts Xvfb when DISPLAY is unset.
#   wh_cleanup             stops the wineserver and the Xvfb started here.
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml="
WINE64=/usr/lib/wine/wine64
[ -x "$WINE64" ] || WINE64=$(command -v wine64 || command -v wine)
WINESERVER=/usr/lib/wine/wineserver64
[ -x "$WINESERVER" ] || WINESERVER=$(command -v wineserver)
wh_xvfb_pid=
wh_server_pid=
wh_xdg=

wh_display() {
  [ -n "${DISPLAY:-}" ] && return 0
  local n=90
  while [ -e "/tmp/.X11-unix/X$n" ] || [ -e "/tmp/.X$n-lock" ]; do n=$((n + 1)); done
  Xvfb ":$n" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
  wh_xvfb_pid=$!
  export DISPLAY=":$n"
  for _ in $(seq 50); do [ -e "/tmp/.X11-unix/X$n" ] && return 0; sleep 0.1; done
  echo "Xvfb did not start" >&2; return 1
}

wh_use_prefix() {
  export WINEPREFIX=$1
  wh_xdg=$2
  # Wine's recycle bin IS the desktop's trash, $XDG_DATA_HOME/Trash: left
  # alone, emptying the bin empties the user's own trash. winemenubuilder
  # writes menu entries, icons and file types under $XDG_DATA_HOME and
  # $XDG_CONFIG_HOME. Every Wine process reads these when it starts, and the
  # helpers (services, winemenubuilder) inherit them from the first one. The
  # bin moves files in by rename, so XDG stays on the prefix's file system.
  export XDG_DATA_HOME=$wh_xdg/data XDG_CONFIG_HOME=$wh_xdg/config
  mkdir -p "$XDG_DATA_HOME" "$XDG_CONFIG_HOME"
}

wh_new_prefix() {
  if [ -z "$wh_xdg" ] || [ -z "${WINEPREFIX:-}" ]; then
    echo "wh_new_prefix: call wh_use_prefix first" >&2; return 1
  fi
  # A new prefix starts with an empty bin.
  rm -rf "$WINEPREFIX" "$wh_xdg"
  mkdir -p "$(dirname "$WINEPREFIX")" "$XDG_DATA_HOME" "$XDG_CONFIG_HOME"
  "$WINE64" wineboot -i >/dev/null 2>&1
  "$WINESERVER" -w
  # No way back to the host: drop Z: and the shell folders that Wine links
  # into $HOME (Desktop, Documents ...), leaving plain empty folders.
  # winemenubuilder puts desktop launchers into the Desktop folder, so they
  # stay in the prefix too.
  rm -f "$WINEPREFIX/dosdevices/z:"
  local l
  find "$WINEPREFIX/drive_c/users" -maxdepth 3 -type l | while read -r l; do
    rm -f "$l" && mkdir -p "$l"
  done
}

wh_start_server() {
  "$WINESERVER" -p &
  wh_server_pid=$!
}

wh_cleanup() {
  if [ -n "$wh_server_pid" ]; then
    "$WINESERVER" -k 2>/dev/null || true
    kill "$wh_server_pid" 2>/dev/null || true
    wait "$wh_server_pid" 2>/dev/null || true
  fi
  if [ -n "$wh_xvfb_pid" ]; then
    kill "$wh_xvfb_pid" 2>/dev/null || true
    wait "$wh_xvfb_pid" 2>/dev/null || true
  fi
}
