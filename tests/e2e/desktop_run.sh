#!/usr/bin/env bash
# Runs the real program on a real X display with a tray and a sound server, as a user would:
# an alarm set through the running program fires with its message and sound, a second start is refused, and a left
# click on the tray icon stops a repeating alarm, and a reminder of one minute rings again.
# Usage: desktop_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop
start_sound_server

# Not too close to midnight: the event must be today's. It is set once the program stands (the tray icon): one
# planted ahead of a slow start would pass unrung.
while [ "$(date +%H%M%S)" -gt 235900 ]; do sleep 5; done
# Settings that load my.dat at start, which loads the Alarm Set window and with it the schedule.
: >"$XDG_DATA_HOME/bellwick/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf

"$program" >"$work/bellwick.log" 2>&1 &
main_pid=$!
pids+=($main_pid)
icon=$(wait_for_icon 10) || { cat "$work/trayer.log"; fail "no tray icon"; }
due=$("$program" add --in 3s --plays repeat --message "E2E check" | cut -d' ' -f2) && [ -n "$due" ] || fail "no alarm"

# 1. The alarm fires at its second: the message window appears and sound plays.
message_window=$(wait_for_window '^Message  ' 25) || { cat "$work/bellwick.log"; fail "no message window"; }
echo "message window $message_window at $(date +%T) for $due"
rms=$(record_rms 2)
echo "sound while ringing: RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r > 0.01) }' || fail "no sound was recorded"

# 2. A second start is refused with its message; the first copy goes on.
second_start_refused "$program"
kill -0 "$main_pid" 2>/dev/null || fail "first copy ended"

# 3. A left click on the tray icon stops the repeating alarm.
xdotool mousemove --window "$icon" 10 10 click 1
sleep 1
rms=$(record_rms 2)
echo "sound after the click: RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r < 0.001) }' || fail "the alarm goes on after the tray click"
kill -0 "$main_pid" 2>/dev/null || fail "the program ended"

# 4. A reminder of one minute hides the message window, which comes back with its sound at the next minute.
message_shown() { xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -qx "$message_window"; }
focus_window "$message_window" || fail "the message window would not take the keyboard"
xdotool mousemove --window "$message_window" 90 176 click 1
xdotool key End BackSpace BackSpace
xdotool type 1
xdotool mousemove --window "$message_window" 260 176 click 1
for _ in $(seq 30); do message_shown || break; sleep 0.1; done
message_shown && fail "the message window stayed after OK with a reminder"
echo "reminder set at $(date +%T)"
# Its ding lasts about a second: the recording spans the turn of the minute.
second=$((10#$(date +%S)))
[ "$second" -lt 56 ] && sleep $((56 - second))
record_rms 12 >"$work/rms" &
recording=$!
wait_for_window '^Message  ' 65 >/dev/null || fail "the reminder did not come back"
wait "$recording"
rms=$(cat "$work/rms")
echo "reminder at $(date +%T): RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r > 0.01) }' || fail "the reminder rang without sound"
echo "1 passed, 0 failed"
