#!/usr/bin/env bash
# The real program on a desktop with no notification area: after a few seconds it says so on standard error and
# opens the Alarm Set window with the tray's menu in its menu bar; closing that window only minimises it; an
# alarm still rings with its message window; a tray that comes later gets the icon.
# Usage: tray_missing_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
need_tools xprop
start_desktop 96 notray
export SDL_AUDIODRIVER=dummy
folder="$XDG_DATA_HOME/bellwick"

while [ "$(date +%H%M%S)" -gt 235900 ]; do sleep 5; done
: >"$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
"$program" 2>"$work/stderr.log" &
pid=$!
pids+=($pid)

window=$(wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 12) || { cat "$work/stderr.log"; fail "no Alarm Set window without a tray"; }
grep -q '^bellwick: no notification area' "$work/stderr.log" || fail "nothing said on standard error: $(cat "$work/stderr.log")"
[ "$(grep -c . "$work/stderr.log")" -eq 1 ] || fail "more than one line on standard error: $(cat "$work/stderr.log")"
echo "stands in at $(date +%T): $(xdotool getwindowname "$window")"

# The tray's menu is the menu bar's third entry: open it from the keyboard and read its first entry's window.
focus_window "$window" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+b
for _ in $(seq 30); do
    menus=$(xdotool search --onlyvisible --class bellwick 2>/dev/null | wc -l) && [ "$menus" -ge 2 ] && break
    sleep 0.1
done
xdotool key Escape
[ "$menus" -ge 2 ] || fail "Alt+B opened no menu"

# The close box only minimises: the window is iconic, not withdrawn.
focus_window "$window" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+F4
for _ in $(seq 30); do xprop -id "$window" WM_STATE 2>/dev/null | grep -q 'Iconic' && break; sleep 0.1; done
xprop -id "$window" WM_STATE | grep -q 'Iconic' || fail "closing left the window $(xprop -id "$window" WM_STATE | tail -1)"
kill -0 "$pid" 2>/dev/null || fail "the program ended when its window closed"
echo "closed: minimised"

# The alarm is set through the program once it stands: one planted ahead of a slow start would pass unrung.
due=$("$program" add --in 3s --message "No tray check" | cut -d' ' -f2) && [ -n "$due" ] || fail "no alarm set"
wait_for_window '^Message  ' 20 >/dev/null || fail "no message window for the alarm at $due"
echo "alarm at $due: message window at $(date +%T)"

start_tray
wait_for_icon 5 >/dev/null || fail "no icon in a tray that came later"
for _ in $(seq 30); do grep -q 'notification area is there now' "$work/stderr.log" && break; sleep 0.1; done
grep -q 'notification area is there now' "$work/stderr.log" || fail "the tray's coming was not noticed"
echo "tray came: icon shown"
echo "1 passed, 0 failed"
