#!/usr/bin/env bash
# on_display.sh x11|wayland PROGRAM [ARGUMENTS…]
# Runs a program on a display of its own, which needs no screen: X11 with a window manager, or a Wayland compositor.
# The program finds the kind in VELT_TEST_DISPLAY. Gives its status; 77, with the reason, when the display cannot be
# started.
set -uo pipefail

[ "$#" -ge 2 ] || { printf 'on_display.sh x11|wayland PROGRAM [ARGUMENTS...]\n' >&2; exit 2; }
kind=$1
shift
export VELT_TEST_DISPLAY=$kind
folder=$(mktemp -d "${TMPDIR:-/tmp}/velt-display-XXXXXX")
servers=()

finish() {
  local server
  for server in "${servers[@]}"; do kill "$server" 2>/dev/null; done
  for server in "${servers[@]}"; do wait "$server" 2>/dev/null; done
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP

give_up() {
  printf 'on_display.sh: %s\n' "$1" >&2
  cat "$folder"/*.log >&2 2>/dev/null
  exit 77
}
need() {
  local command
  for command in "$@"; do
    command -v "$command" >/dev/null || give_up "$command is not installed, so there is no $kind display"
  done
}
# Waits until a command succeeds, as long as the server that was started last lives.
await() { # what, command…
  local what=$1 tries=0
  shift
  until "$@" >/dev/null 2>&1; do
    kill -0 "${servers[-1]}" 2>/dev/null || give_up "$what ended instead of starting"
    tries=$((tries + 1))
    [ "$tries" -lt 600 ] || give_up "$what did not answer within 30 seconds"
    sleep 0.05
  done
}

unset WAYLAND_DISPLAY DISPLAY
case $kind in
x11)
  need Xvfb openbox
  # The server picks a free number itself.
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/number" >"$folder/server.log" 2>&1 &
  servers+=($!)
  await "the X server" grep -q '[0-9]' "$folder/number"
  DISPLAY=:$(tr -d '[:space:]' <"$folder/number")
  export DISPLAY QT_QPA_PLATFORM=xcb
  # It runs the start-up command once it looks after windows.
  openbox --sm-disable --startup "touch $folder/manages" >"$folder/manager.log" 2>&1 &
  servers+=($!)
  await "the window manager" test -e "$folder/manages"
  ;;
wayland)
  need weston
  export XDG_RUNTIME_DIR=$folder WAYLAND_DISPLAY=wayland-tests QT_QPA_PLATFORM=wayland
  # There is neither a mouse nor a keyboard here; the toolkit's own input method asks for one without looking.
  export QT_IM_MODULE=compose
  chmod 700 "$folder"
  weston --backend=headless-backend.so --socket="$WAYLAND_DISPLAY" --width=1280 --height=1024 --idle-time=0 \
    --no-config >"$folder/server.log" 2>&1 &
  servers+=($!)
  await "the Wayland compositor" test -S "$folder/$WAYLAND_DISPLAY"
  ;;
*)
  printf 'on_display.sh: no display of the kind %s is known\n' "$kind" >&2
  exit 2
  ;;
esac

# The toolkit's Wayland client before version 6.5 may let two threads give up the same callback, which libwayland ends the
# program for. That says nothing about the program: it is run again.
ended_by_toolkit() { [ "$1" -eq 134 ] && grep -q 'wl_proxy_unref: Assertion' "$folder/errors.log"; }

for turn in 1 2 3; do
  { "$@" 2>&1 >&3 3>&- | tee "$folder/errors.log" >&2; status=${PIPESTATUS[0]}; } 3>&1
  if ! ended_by_toolkit "$status" || [ "$turn" -eq 3 ]; then exit "$status"; fi
  printf 'on_display.sh: libwayland ended the program; again\n' >&2
done
