#!/usr/bin/env bash
# The real program driven by keys alone (xdotool key, no pointer), on a desktop without a notification area where
# the Alarm Set window stands in for the tray: Settings opens from the menu bar and closes with Escape; an alarm
# for tomorrow is set with the date picked from the calendar by keys; the event list opens from the menu bar, its
# menu from the Menu key and Shift+F10; the alarm is edited in the Edit window and deleted, and Escape closes the
# Edit window.
# Usage: keyboard_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop 96 notray
export SDL_AUDIODRIVER=dummy
folder="$XDG_DATA_HOME/bellwick"
not_near_midnight 235800
tomorrow=$(date -d tomorrow +%Y/%m/%d)
: >"$folder/future.dat"
write_settings ALAEOfDCWSOfUISPOfISOMOf

start_program

press() { xdotool key --delay 120 "$@"; sleep 0.4; }
gone() { eventually 5 window_gone "$1"; } # window pattern
schedule_has() { eventually 5 grep -a -q -- "$1" "$folder/future.dat"; } # pattern
active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ]; }
active_is() { eventually 5 active "$1"; } # window id: the window that has the keyboard
popup_open() { eventually 3 more_windows_than "$1"; } # a menu of ours stands besides that many windows

alarm_set=$(wait_for_window '^Bellwick Alarm Clock' 15) || fail "no Alarm Set window"
active_is "$alarm_set" || fail "the Alarm Set window did not take the keyboard"

# Settings: Alt reaches the menu bar, whose first entry is Settings; Escape closes it.
press alt Return
settings=$(wait_for_window '^Settings$' 5) || fail "Alt, Return opened no Settings window"
active_is "$settings" || fail "Settings did not take the keyboard"
press Escape
gone '^Settings$' || fail "Escape did not close Settings"
active_is "$alarm_set" || fail "the keyboard did not come back to the Alarm Set window"
echo "Settings opened from the menu bar and closed with Escape"

# An alarm for tomorrow: hour, minute, second, then the date (Tab, Space opens the calendar, Right is the next
# day, Return picks it and closes the calendar), then Tab to Add and Return.
press 1 0 Tab 3 0 Tab 0 0 Tab Tab space Right Return Tab Return
schedule_has "\"$tomorrow" || fail "no alarm for $tomorrow in future.dat: $(cat "$folder/future.dat")"
echo "set for tomorrow: $(tr -d '\r' <"$folder/future.dat")"

# Adding for another day shows the event list; Coming hides it and shows it again, with the keyboard in it.
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
echo "Edit window from the keyboard"
# Escape closes it as Cancel does, and changes nothing.
press Escape
gone '^ Edit$' || fail "Escape did not close the Edit window"

# Edit: the message box is the sixth Tab stop from the date; OK is the next.
press Home Menu Down Return
edit=$(wait_for_window '^ Edit$' 5) || fail "the Edit window did not open again"
active_is "$edit" || fail "the Edit window did not take the keyboard again"
press Tab Tab Tab Tab Tab
xdotool type --delay 80 "keyed"
press Tab Return
gone '^ Edit$' || fail "OK did not close the Edit window"
schedule_has "\"keyed$tomorrow" || fail "the edit did not reach future.dat: $(cat "$folder/future.dat")"
echo "edited: $(tr -d '\r' <"$folder/future.dat")"

# Delete: the menu's second entry.
press Home Menu Down Down Return
emptied() { ! grep -a -q "$tomorrow" "$folder/future.dat"; }
eventually 5 emptied || fail "the alarm is still in future.dat: $(cat "$folder/future.dat")"
echo "deleted: future.dat holds $(wc -c <"$folder/future.dat") bytes"
echo "1 passed, 0 failed"
