#!/usr/bin/env bash
# The real program on a desktop with no notification area, driven by keys until the tray comes; each window read
# through the accessibility bus as a screen reader does (pyatspi on a private session bus).
# Usage: tray_missing_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
need_tools /usr/libexec/at-spi-bus-launcher
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || fail "python3-pyatspi is not installed"
start_desktop 96 notray
start_session_bus
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
# Today's events must stay today's, tomorrow's tomorrow's.
not_near_midnight 235500
today=$(date +%Y/%m/%d) tomorrow=$(date -d tomorrow +%Y/%m/%d)
# One alarm with two messages for the Delete Alarm Event chooser; a data file the Load chooser finds bad.
printf '"First of two%sonce23:59:59"\r\n"Second of two%sonce23:59:59"\r\n' "$today" "$today" >"$folder/future.dat"
printf '"not a record"\r\n"nor this one"\r\n' >"$folder/bad.dat"
write_settings ALAEOfDCWSOfUISPOfISOMOf clock
start_program

walk() { /usr/bin/python3 "$(dirname "$0")/accessibility_walk.py" "$1" || fail "read through the bus: $1"; }
press() { xdotool key --delay 120 "$@"; sleep 0.4; }
schedule_has() { eventually 5 grep -a -q -- "$1" "$folder/future.dat"; } # pattern
active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ]; }
active_is() { eventually 5 active "$1"; } # window id: the window that has the keyboard
popup_open() { eventually 3 more_windows_than "$1"; } # a menu of ours stands besides that many windows

# 1. The stand-in, said once on standard error.
alarm_set=$(wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 12) || fail "no Alarm Set window without a tray"
[ "$(grep -c . "$work/stderr.log")" -eq 1 ] && grep -q '^bellwick: no notification area' "$work/stderr.log" ||
    fail "standard error is not the one line on the missing tray"
active_is "$alarm_set" || fail "the Alarm Set window did not take the keyboard"

# 2. Settings: Alt reaches the menu bar, whose first entry is Settings; both pages read; Escape closes it.
press alt Return
settings=$(wait_for_window '^Settings$' 5) || fail "Alt, Return opened no Settings window"
active_is "$settings" || fail "Settings did not take the keyboard"
walk settings
press Escape
eventually 5 window_gone '^Settings$' || fail "Escape did not close Settings"
active_is "$alarm_set" || fail "the keyboard did not come back to the Alarm Set window"

# 3. The Alarm Set window with and without the event list, the desktop clock, About, the Load chooser with the
# bad file and the Delete Alarm Event chooser, read and reached through the bus.
walk start

# 4. An alarm for tomorrow: hour, minute, second, the date (Tab; Space opens the calendar, Right, Return picks the
# next day), then Add with a message, the fourth Tab stop on, past Add and the AM or PM arrows.
focus_window "$alarm_set" || fail "the Alarm Set window would not take the keyboard after the walk"
press 1 0 Tab 3 0 Tab 0 0 Tab Tab space Right Return Tab Tab Tab Tab Return
walk '^Input Message$'
# The typing goes into the message box; Tab reaches Save.
xdotool type --delay 80 "ally"
press Tab space
schedule_has "\"ally$tomorrow" || fail "no alarm for $tomorrow in future.dat: $(cat "$folder/future.dat")"

# 5. Adding for another day shows the event list; Coming hides it and shows it again, with the keyboard in it.
# The current row stays on today's first alarm, the highlight on tomorrow's: Edit shows the row OK replaces.
press alt Right Return alt Right Return
windows=$(own_windows)
press Menu
popup_open "$windows" || fail "the Menu key opened no menu on the event list"
press Escape
press shift+F10
popup_open "$windows" || fail "Shift+F10 opened no menu on the event list"
press Down Return
edit=$(wait_for_window '^ Edit$' 5) || fail "Edit from the event list's menu opened no Edit window"
active_is "$edit" || fail "the Edit window did not take the keyboard"
walk '^ Edit$'
# Escape closes it as Cancel does, and changes nothing.
press Escape
eventually 5 window_gone '^ Edit$' || fail "Escape did not close the Edit window"
# The message box is the sixth Tab stop from the date; OK is the next.
press Menu Down Return
edit=$(wait_for_window '^ Edit$' 5) || fail "the Edit window did not open again"
active_is "$edit" || fail "the Edit window did not take the keyboard again"
press Tab Tab Tab Tab Tab ctrl+a
xdotool type --delay 80 "keyed"
press Tab Return
eventually 5 window_gone '^ Edit$' || fail "OK did not close the Edit window"
schedule_has "\"keyed$tomorrow" || fail "the edit did not reach future.dat: $(cat "$folder/future.dat")"
# Delete: the menu's second entry.
press Menu Down Down Return
emptied() { ! grep -a -q "$tomorrow" "$folder/future.dat"; }
eventually 5 emptied || fail "the alarm is still in future.dat: $(cat "$folder/future.dat")"

# 6. The tray's menu is the menu bar's third entry.
focus_window "$alarm_set" || fail "the Alarm Set window would not take the keyboard"
windows=$(own_windows)
xdotool key alt+b
popup_open "$windows" || fail "Alt+B opened no menu"
xdotool key Escape

# 7. The close box only minimises: the window is iconic, not withdrawn.
iconic() { xprop -id "$alarm_set" WM_STATE 2>/dev/null | grep -q 'Iconic'; }
xdotool key alt+F4
eventually 3 iconic || fail "closing left the window $(xprop -id "$alarm_set" WM_STATE | tail -1)"
alive "when its window closed"

# 8. An alarm rings and its message window reads; a tray that comes later gets the icon.
add_alarm --message "No tray check"
message=$(wait_for_window '^Message  ' 20) || fail "no message window for the alarm at $due"
focus_window "$message" || fail "the message window would not take the keyboard"
walk ringing
start_tray
wait_for_icon 5 >/dev/null || fail "no icon in a tray that came later"
eventually 3 grep -q 'notification area is there now' "$work/stderr.log" || fail "the tray's coming was not noticed"
