# shellcheck shell=bash
# A private X server for scripts that run the calendar without a desktop. Source this file, then:
#   xvfb_start [screen]  starts Xvfb on a display number it picks itself (-displayfd), exports
#                        DISPLAY and XDG_RUNTIME_DIR and sets XVFB_WORK, a private scratch folder;
#                        the server, the tracked processes and the folder go when the script exits
#   xvfb_track PID...    ends these processes (by PID) before the server when stopping
#   xvfb_stop            ends the tracked processes, then the server, and removes XVFB_WORK
# Every process is ended by its PID, never by name.

xvfb_pid=
xvfb_pids=()
XVFB_WORK=

xvfb_track() {
  xvfb_pids+=("$@")
}

xvfb_start() {
  local screen=${1:-1280x800x24}
  XVFB_WORK=$(mktemp -d)
  chmod 700 "$XVFB_WORK"
  trap xvfb_stop EXIT
  Xvfb -displayfd 3 -screen 0 "$screen" -nolisten tcp -noreset 3>"$XVFB_WORK/display" \
    >/dev/null 2>&1 &
  xvfb_pid=$!
  for _ in $(seq 200); do
    [ -s "$XVFB_WORK/display" ] && break
    kill -0 "$xvfb_pid" 2>/dev/null || break
    sleep 0.05
  done
  if [ ! -s "$XVFB_WORK/display" ]; then
    echo "Xvfb did not start" >&2
    return 1
  fi
  DISPLAY=":$(head -n1 "$XVFB_WORK/display")"
  export DISPLAY
  export XDG_RUNTIME_DIR="$XVFB_WORK"
}

xvfb_stop() {
  # Clients first: the calendar saves on SIGTERM and needs its display for that.
  local pid
  for pid in "${xvfb_pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${xvfb_pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  xvfb_pids=()
  if [ -n "$xvfb_pid" ]; then
    kill "$xvfb_pid" 2>/dev/null || true
    wait "$xvfb_pid" 2>/dev/null || true
    xvfb_pid=
  fi
  if [ -n "$XVFB_WORK" ]; then
    rm -rf "$XVFB_WORK"
    XVFB_WORK=
  fi
}
