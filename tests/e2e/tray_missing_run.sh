#!/usr/bin/env bash
# The real program on a desktop with no notification area, driven by keys alone until the tray comes.
# Usage: tray_missing_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
start_desktop 96 notray
not_near_midnight 235800
tomorrow=$(date -d tomorrow +%Y/%m/%d)
write_settings ALAEOnDCWSOfUISPOfISOMOf
start_program

press() { xdotool key --delay 120 "$@"; sleep 0.4; }
gone() { eventually 5 window_gone "$1"; } # window pattern
schedule_has() { eventually 5 grep -a -q -- "$1" "$folder/future.dat"; } # pattern
active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ]; }
active_is() { eventually 5 active "$1"; } # window id: the window that has the keyboard
popup_open() { eventually 3 more_windows_than "$1"; } # a menu of ours stands besides that many windows

# 1. The stand-in, said once on standard error.
alarm_set=$(wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 12) || fail "no Alarm Set window without a tray"
grep -q '^bellwick: no notification area' "$work/stderr.log" || fail "nothing said on standard error"
[ "$(grep -c . "$work/stderr.log")" -eq 1 ] || fail "more than one line on standard error"
active_is "$alarm_set" || fail "the Alarm Set window did not take the keyboard"

# 2. Settings: Alt reaches the menu bar, whose first entry is Settings; Escape closes it.
press alt Return
settings=$(wait_for_window '^Settings$' 5) || fail "Alt, Return opened no Settings window"
active_is "$settings" || fail "Settings did not take the keyboard"
press Escape
gone '^Settings$' || fail "Escape did not close Settings"
active_is "$alarm_set" || fail "the keyboard did not come back to the Alarm Set window"

# 3. An alarm for tomorrow: hour, minute, second, then the date (Tab, Space opens the calendar, Right is the next
# day, Return picks it and closes the calendar), then Tab to Add and Return.
press 1 0 Tab 3 0 Tab 0 0 Tab Tab space Right Return Tab Return
schedule_has "\"$tomorrow" || fail "no alarm for $tomorrow in future.dat: $(cat "$folder/future.dat")"

# 4. Adding for another day shows the event list; Coming hides it and shows it again, with the keyboard in it.
press alt Right Return
press alt Right Return
windows=$(own_windows)
press Home Menu
popup_open "$windows" || fail "the Menu key opened no menu on the event list"
press Escape
press shift+F10
popup_open "$windows" || fail "Shift+F10 opened no menu on the event list"
press Down Return
edit=$(wait_for_window '^ Edit$' 5) || fail "Edit from the event list's menu opened no Edit window"
active_is "$edit" || fail "the Edit window did not take the keyboard"
# Escape closes it as Cancel does, and changes nothing.
press Escape
gone '^ Edit$' || fail "Escape did not close the Edit window"
# The message box is the sixth Tab stop from the date; OK is the next.
press Home Menu Down Return
edit=$(wait_for_window '^ Edit$' 5) || fail "the Edit window did not open again"
active_is "$edit" || fail "the Edit window did not take the keyboard again"
press Tab Tab Tab Tab Tab
xdotool type --delay 80 "keyed"
press Tab Return
gone '^ Edit$' || fail "OK did not close the Edit window"
schedule_has "\"keyed$tomorrow" || fail "the edit did not reach future.dat: $(cat "$folder/future.dat")"
# Delete: the menu's second entry.
press Home Menu Down Down Return
emptied() { ! grep -a -q "$tomorrow" "$folder/future.dat"; }
eventually 5 emptied || fail "the alarm is still in future.dat: $(cat "$folder/future.dat")"

# 5. The tray's menu is the menu bar's third entry.
focus_window "$alarm_set" || fail "the Alarm Set window would not take the keyboard"
windows=$(own_windows)
xdotool key alt+b
popup_open "$windows"
opened=$?
xdotool key Escape
[ "$opened" -eq 0 ] || fail "Alt+B opened no menu"

# 6. The close box only minimises: the window is iconic, not withdrawn.
iconic() { xprop -id "$alarm_set" WM_STATE 2>/dev/null | grep -q 'Iconic'; }
focus_window "$alarm_set" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+F4
eventually 3 iconic || fail "closing left the window $(xprop -id "$alarm_set" WM_STATE | tail -1)"
alive "when its window closed"

# 7. An alarm rings; a tray that comes later gets the icon.
add_alarm --message "No tray check"
wait_for_window '^Message  ' 20 >/dev/null || fail "no message window for the alarm at $due"
start_tray
wait_for_icon 5 >/dev/null || fail "no icon in a tray that came later"
eventually 3 grep -q 'notification area is there now' "$work/stderr.log" || fail "the tray's coming was not noticed"
