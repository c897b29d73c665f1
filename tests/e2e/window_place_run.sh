#!/usr/bin/env bash
# The Alarm Set window, dragged elsewhere by the user, hidden by its close box and shown again from the tray menu,
# comes back where the user left it, not where the window manager first put it.
# Usage: window_place_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop 96
export SDL_AUDIODRIVER=dummy
write_settings ALAEOnDCWSOfUISPOfISOMOf
: >"$XDG_DATA_HOME/bellwick/my.dat"
"$program" >"$work/bellwick.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do tray_icon && break; sleep 0.1; done
icon=$(for w in $(xdotool search --onlyvisible --class bellwick); do
    g=$(xdotool getwindowgeometry "$w" | awk '/Geometry/ {print $2}')
    [ "${g%x*}" -le 64 ] && echo "$w"
done | head -1)
[ -n "$icon" ] || fail "no tray icon"

open_alarm_set() { # the tray menu's third line: About, a separator, Alarm Set
    eval "$(xdotool getwindowgeometry --shell "$icon")"
    xdotool mousemove $((X + 5)) $((Y + 5)) click 3
    sleep 0.7
    xdotool key Down Down Return
}
position() { xdotool getwindowgeometry "$1" | awk '/Position/ {print $2}'; }

open_alarm_set
window=$(wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 10) || fail "the tray menu opened no Alarm Set window"
sleep 0.5
first=$(position "$window")
xdotool windowmove "$window" 136 125
sleep 0.5
moved=$(position "$window")
[ "$moved" != "$first" ] || fail "the window did not move from $first"
xdotool windowactivate --sync "$window" 2>/dev/null
xdotool key alt+F4
for _ in $(seq 30); do xdotool search --onlyvisible --name '^Bellwick Alarm Clock' >/dev/null 2>&1 || break; sleep 0.1; done
open_alarm_set
wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 10 >/dev/null || fail "the window did not come back"
sleep 0.5
again=$(position "$window")
echo "first at $first, moved to $moved, shown again at $again"
[ "$again" = "$moved" ] || fail "shown again at $again, not where it was left ($moved)"
echo "1 passed, 0 failed"
