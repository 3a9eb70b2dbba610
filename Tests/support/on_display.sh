#!/usr/bin/env bash
# on_display.sh x11 COMMAND…: runs a command on a display of its own with a window manager, ends both, and gives the
# command's status. Status 77, with the reason, where they cannot be started.
set -uo pipefail

skip() { printf 'on_display.sh: %s\n' "$*" >&2; exit 77; }

[ "$#" -ge 2 ] || { printf 'on_display.sh x11 COMMAND...\n' >&2; exit 2; }
kind=$1
shift
[ "$kind" = x11 ] || { printf 'on_display.sh: no display of the kind %s is known\n' "$kind" >&2; exit 2; }
for program in Xvfb openbox; do
  command -v "$program" >/dev/null || skip "$program is not installed"
done

folder=$(mktemp -d)
server= manager=
finish() {
  local process
  for process in $manager $server; do
    kill "$process" 2>/dev/null && wait "$process" 2>/dev/null
  done
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP

waitUntil() { # process, command…: at most twenty seconds, and no longer than the process lives
  local process=$1 tries
  shift
  for ((tries = 0; tries < 400; tries++)); do
    "$@" && return 0
    kill -0 "$process" 2>/dev/null || return 1
    sleep 0.05
  done
  return 1
}

# The server takes a free number itself and tells it once it answers.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/number" >"$folder/server" 2>&1 &
server=$!
waitUntil "$server" test -s "$folder/number" || skip "Xvfb did not start: $(tail -n 1 "$folder/server")"
DISPLAY=:$(cat "$folder/number")
export DISPLAY

# It runs the start-up command once it manages windows.
openbox --sm-disable --startup "touch $folder/manages" >"$folder/manager" 2>&1 &
manager=$!
waitUntil "$manager" test -e "$folder/manages" || skip "openbox did not start: $(tail -n 1 "$folder/manager")"

unset WAYLAND_DISPLAY
QT_QPA_PLATFORM=xcb VELT_TEST_DISPLAY=$kind "$@"
