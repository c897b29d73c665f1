#!/usr/bin/env bash
# The real program as a user has it: an alarm with its window and sound, the tray click, a reminder.
# Usage: desktop_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
start_desktop
start_sound_server
not_near_midnight 235900
# Settings that load my.dat at start, which loads the Alarm Set window and with it the schedule.
write_settings ALAEOnDCWSOfUISPOfISOMOf
start_program
icon=$(wait_for_icon 10) || fail "no tray icon"

# 1. The alarm rings at its second with its message window and sound; a second start is refused meanwhile.
add_alarm --plays repeat --message "E2E check"
message_window=$(wait_for_window '^Message  ' 25) || fail "no message window for $due"
expect_sound "ringing for $due"
second_start_refused
alive "after a second start"

# 2. A left click on the tray icon stops the repeating alarm.
xdotool mousemove --window "$icon" 10 10 click 1
sleep 1
expect_silence "after the tray click"
alive "after the tray click"

# 3. A reminder of one minute hides the message window, which comes back with its sound at the next minute.
message_gone() { ! xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -qx "$message_window"; }
focus_window "$message_window" || fail "the message window would not take the keyboard"
xdotool mousemove --window "$message_window" 90 176 click 1
xdotool key End BackSpace BackSpace
xdotool type 1
xdotool mousemove --window "$message_window" 260 176 click 1
eventually 3 message_gone || fail "the message window stayed after OK with a reminder"
echo "reminder set at $(date +%T)"
# Its ding lasts about a second: the recording spans the turn of the minute.
second=$((10#$(date +%S)))
[ "$second" -lt 56 ] && sleep $((56 - second))
record_rms 12 >"$work/rms" &
recording=$!
wait_for_window '^Message  ' 65 >/dev/null || fail "the reminder did not come back"
wait "$recording"
echo "reminder at $(date +%T): RMS $(cat "$work/rms")"
loud "$(cat "$work/rms")" || fail "the reminder rang without sound"
