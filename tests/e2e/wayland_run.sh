#!/usr/bin/env bash
# The real program in a Wayland session (weston, headless); the run sets no QT_QPA_PLATFORM of its own.
#   xwayland: with an X11 display beside Wayland it runs on X11, so the desktop clock keeps its 155 x 21
#             pixel pill outline; an alarm rings with its message window; no word about Wayland.
#   native:   first, a DISPLAY that leads nowhere falls back to Wayland instead of ending the program. Then
#             Wayland alone: one line on standard error says what is lost, and nothing else is said but the
#             missing tray; the clock, the Alarm Set window standing in for the tray and, at the due second,
#             the message window are asked of the compositor, the clock without an outline (read from the
#             Wayland protocol log: nothing can look at another program's windows there); the program is
#             still alive at the end.
# Usage: wayland_run.sh <path to bellwick> <xwayland|native>
set -uo pipefail
program="$1"
mode="$2"
. "$(dirname "$0")/desktop_env.sh"
need_tools weston
unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY XDG_SESSION_TYPE QT_FONT_DPI
export SDL_AUDIODRIVER=dummy
folder="$XDG_DATA_HOME/bellwick"

start_weston() { # [--xwayland]
    local socket=bellwick-$$
    weston --backend=headless-backend.so --no-config --socket="$socket" --idle-time=0 --width=1024 --height=768 \
        "$@" >"$work/weston.log" 2>&1 &
    pids+=($!)
    for _ in $(seq 50); do [ -S "$XDG_RUNTIME_DIR/$socket" ] && break; sleep 0.1; done
    [ -S "$XDG_RUNTIME_DIR/$socket" ] || { cat "$work/weston.log"; fail "weston did not start"; }
    export WAYLAND_DISPLAY=$socket
}

# The clock shown at start; the alarm is set through the program once it stands, a few seconds ahead.
while [ "$(date +%H%M%S)" -gt 235900 ]; do sleep 5; done
write_settings ALAEOfDCWSOfUISPOfISOMOf clock
add_alarm() { due=$("$program" add --in 3s --message "Wayland check" | cut -d' ' -f2) && [ -n "$due" ]; }

case "$mode" in
xwayland)
    need_tools Xwayland xwininfo
    start_weston --xwayland
    for _ in $(seq 50); do grep -q 'xserver listening on display' "$work/weston.log" && break; sleep 0.1; done
    DISPLAY=$(grep -o 'xserver listening on display :[0-9]*' "$work/weston.log" | grep -o ':[0-9]*$')
    [ -n "$DISPLAY" ] || { cat "$work/weston.log"; fail "weston started no XWayland"; }
    export DISPLAY
    "$program" 2>"$work/stderr.log" &
    pid=$!
    pids+=($pid)

    clock=$(window_of_width 200 10) || { cat "$work/stderr.log"; fail "no desktop clock on the X11 display $DISPLAY"; }
    extents=$(xwininfo -id "$clock" -shape | awk '/Window shape extents/ {print $4}')
    [ "$extents" = "155x21+1+1" ] || fail "the outline is $extents, not 155x21+1+1"
    echo "on XWayland $DISPLAY: outline $extents"
    add_alarm || fail "the alarm was not set"

    wait_for_window '^Message  ' 20 >/dev/null || { cat "$work/stderr.log"; fail "no message window for $due"; }
    echo "alarm at $due: message window at $(date +%T)"
    kill -0 "$pid" 2>/dev/null || fail "the program ended"
    grep -q 'Wayland' "$work/stderr.log" && fail "it says it runs on Wayland: $(cat "$work/stderr.log")"
    ;;
native)
    start_weston
    # A DISPLAY that leads nowhere: Qt says so, then the program comes up on Wayland.
    DISPLAY=:$((500 + RANDOM % 400)) "$program" 2>"$work/fallback.log" &
    pid=$!
    pids+=($pid)
    for _ in $(seq 50); do grep -q '^bellwick: on Wayland' "$work/fallback.log" && break; sleep 0.1; done
    grep -q '^bellwick: on Wayland' "$work/fallback.log" ||
        { cat "$work/fallback.log"; fail "with a dead DISPLAY it did not come up on Wayland"; }
    kill "$pid"
    wait "$pid" 2>/dev/null
    echo "a dead DISPLAY falls back to Wayland"

    # Every request to the compositor, each line stamped; the program's own lines are the others.
    WAYLAND_DEBUG=client "$program" 2>"$work/stderr.log" &
    pid=$!
    pids+=($pid)
    asked() { grep -q "xdg_toplevel@[0-9]*\.set_title(\"$1" "$work/stderr.log"; }
    for _ in $(seq 100); do asked 'bellwick")' && break; sleep 0.1; done
    add_alarm || fail "the alarm was not set"
    for _ in $(seq 100); do asked 'Message  ' && break; sleep 0.1; done
    asked 'Message  ' || fail "no message window asked for the alarm at $due"
    echo "alarm at $due: message window asked at $(date +%T)"
    [ "$(date +%s)" -ge "$(date -d "$due" +%s)" ] || fail "the message window came before $due"
    asked 'bellwick")' || fail "no desktop clock window"
    # Qt makes a widget's mask the input region there: the pill would only take clicks, not cut the window.
    grep -q 'set_input_region(wl_region' "$work/stderr.log" && fail "a window was given an outline"
    # The stand-in comes once the tray's grace period is over, which may be after the alarm.
    for _ in $(seq 100); do asked 'Bellwick Alarm Clock sp' && break; sleep 0.1; done
    asked 'Bellwick Alarm Clock sp' || fail "no Alarm Set window standing in for the tray"
    sleep 1
    kill -0 "$pid" 2>/dev/null || { grep -v '^\[' "$work/stderr.log"; fail "the program ended"; }
    ours=$(grep -v '^\[' "$work/stderr.log")
    echo "$ours"
    [ "$(grep -c '^bellwick: on Wayland' <<<"$ours")" -eq 1 ] || fail "the Wayland line is not there once"
    grep -v '^bellwick: on Wayland\|^bellwick: no notification area' <<<"$ours" | grep . && fail "more was said"
    ;;
*) fail "no mode $mode" ;;
esac
echo "1 passed, 0 failed"
