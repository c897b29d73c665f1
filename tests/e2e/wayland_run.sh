#!/usr/bin/env bash
# The real program in a headless weston session, which sets no QT_QPA_PLATFORM of its own: beside XWayland it
# runs on X11; on Wayland alone it says what is lost and asks the compositor for its windows.
# Usage: wayland_run.sh <path to bellwick> <xwayland|native>
mode="$2"
. "$(dirname "$0")/desktop_env.sh"
case "$mode" in
xwayland) need_tools weston Xwayland xwininfo ;;
native) need_tools weston ;;
*) fail "no mode $mode" ;;
esac
unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY XDG_SESSION_TYPE QT_FONT_DPI
# The clock shown at start.
not_near_midnight 235900
write_settings ALAEOfDCWSOfUISPOfISOMOf clock

weston --backend=headless-backend.so --no-config --socket="bellwick-$$" --idle-time=0 --width=1024 --height=768 \
    $([ "$mode" = native ] || echo --xwayland) >"$work/weston.log" 2>&1 &
pids+=($!)
eventually 5 [ -S "$XDG_RUNTIME_DIR/bellwick-$$" ] || { cat "$work/weston.log"; fail "weston did not start"; }
export WAYLAND_DISPLAY=bellwick-$$

if [ "$mode" = xwayland ]; then
    xserver() { DISPLAY=$(grep -o 'xserver listening on display :[0-9]*' "$work/weston.log" | grep -o ':[0-9]*$'); }
    eventually 5 xserver || { cat "$work/weston.log"; fail "weston started no XWayland"; }
    export DISPLAY
    start_program
    clock=$(window_of_width 200 10) || fail "no desktop clock on the X11 display $DISPLAY"
    expect_pill "$clock" "on XWayland $DISPLAY"
    add_alarm --message "Wayland check"
    wait_for_window '^Message  ' 20 >/dev/null || fail "no message window for $due"
    echo "alarm at $due: message window at $(date +%T)"
    alive "on XWayland"
    ! grep -q 'Wayland' "$work/stderr.log" || fail "it says it runs on Wayland"
    exit 0
fi

# A DISPLAY that leads nowhere: Qt says so, then the program comes up on Wayland.
DISPLAY=:$((500 + RANDOM % 400)) start_program
eventually 5 grep -q '^bellwick: on Wayland' "$work/stderr.log" ||
    fail "with a dead DISPLAY it did not come up on Wayland"
kill "$pid"
wait "$pid" 2>/dev/null

# Every request to the compositor, each line stamped; the program's own lines are the others.
WAYLAND_DEBUG=client start_program
asked() { grep -q "xdg_toplevel@[0-9]*\.set_title(\"$1" "$work/stderr.log"; }
eventually 10 asked 'bellwick")' || fail "no desktop clock window"
add_alarm --message "Wayland check"
eventually 10 asked 'Message  ' || fail "no message window asked for the alarm at $due"
echo "alarm at $due: message window asked at $(date +%T)"
[ "$(date +%s)" -ge "$(date -d "$due" +%s)" ] || fail "the message window came before $due"
# Qt makes a widget's mask the input region there: the pill would only take clicks, not cut the window.
! grep -q 'set_input_region(wl_region' "$work/stderr.log" || fail "a window was given an outline"
# The stand-in comes once the tray's grace period is over, which may be after the alarm.
eventually 10 asked 'Bellwick Alarm Clock sp' || fail "no Alarm Set window standing in for the tray"
sleep 1
alive "on Wayland"
ours=$(grep -v '^\[' "$work/stderr.log")
[ "$(grep -c '^bellwick: on Wayland' <<<"$ours")" -eq 1 ] || fail "the Wayland line is not there once: $ours"
! grep -v '^bellwick: on Wayland\|^bellwick: no notification area' <<<"$ours" | grep . || fail "more was said: $ours"
