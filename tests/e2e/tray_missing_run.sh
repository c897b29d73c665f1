#!/usr/bin/env bash
# The real program on a desktop with no notification area: after a few seconds it says so on standard error and
# opens the Alarm Set window with the tray's menu in its menu bar; closing that window only minimises it; an
# alarm still rings with its message window; a tray that comes later gets the icon.
# Usage: tray_missing_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop 96 notray
export SDL_AUDIODRIVER=dummy
not_near_midnight 235900
: >"$XDG_DATA_HOME/bellwick/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
start_program

window=$(wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 12) || fail "no Alarm Set window without a tray"
grep -q '^bellwick: no notification area' "$work/stderr.log" || fail "nothing said on standard error"
[ "$(grep -c . "$work/stderr.log")" -eq 1 ] || fail "more than one line on standard error"
echo "stands in at $(date +%T): $(xdotool getwindowname "$window")"

# The tray's menu is the menu bar's third entry: open it from the keyboard.
focus_window "$window" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+b
eventually 3 more_windows_than 1
opened=$?
xdotool key Escape
[ "$opened" -eq 0 ] || fail "Alt+B opened no menu"

# The close box only minimises: the window is iconic, not withdrawn.
iconic() { xprop -id "$window" WM_STATE 2>/dev/null | grep -q 'Iconic'; }
focus_window "$window" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+F4
eventually 3 iconic || fail "closing left the window $(xprop -id "$window" WM_STATE | tail -1)"
alive "when its window closed"
echo "closed: minimised"

add_alarm --message "No tray check"
wait_for_window '^Message  ' 20 >/dev/null || fail "no message window for the alarm at $due"
echo "alarm at $due: message window at $(date +%T)"

start_tray
wait_for_icon 5 >/dev/null || fail "no icon in a tray that came later"
eventually 3 grep -q 'notification area is there now' "$work/stderr.log" || fail "the tray's coming was not noticed"
echo "tray came: icon shown"
echo "1 passed, 0 failed"
