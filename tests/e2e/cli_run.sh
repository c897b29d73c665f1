#!/usr/bin/env bash
# The real program as a user has it: alarms from the command line and from scripts on a real desktop, the program
# they start, its ringing, the tray click, a reminder, and --show.
# Usage: cli_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
# No session bus, as under a bare startx: the runtime folder holds none either. The sound server comes before the
# display, so that it cannot start one for the display itself.
unset DBUS_SESSION_BUS_ADDRESS
start_sound_server
start_desktop
not_near_midnight 235930 # the events of step 1 are today's

# 1. No copy runs: the command starts one, hands the alarm over and prints it. It runs as a cron job guarded by
# flock would, with one more pipe open: the program it starts keeps neither the lock nor the pipe.
started=$(date +%s%N)
(
    flock "$work/job.lock" "$program" add --in 20s --plays repeat --message 'From a "script"' 3>&1 2>"$work/add.err" |
        cat >"$work/add.out"
    echo "${PIPESTATUS[0]}" >"$work/add.status"
) &
pids+=($!)
eventually 15 [ -s "$work/add.status" ] || fail "add did not return: the program it started holds the pipe of its caller"
flock -n "$work/job.lock" true || fail "the program started by add holds its caller's lock"
line=$(cat "$work/add.out")
status=$(cat "$work/add.status")
took=$((($(date +%s%N) - started) / 1000000))
[ "$status" -eq 0 ] || fail "add exited $status: $(cat "$work/add.err")"
echo "set in ${took} ms, with the program started: $line"
echo "$line" | grep -qE "^$(date +%Y/%m/%d) [0-9]{2}:[0-9]{2}:[0-9]{2} repeat From a 'script'$" || fail "add printed '$line'"
adopt_program
[ "$(readlink "/proc/$pid/cwd")" = / ] || fail "the program started by add works in $(readlink "/proc/$pid/cwd")"
[ "$(ps -o sid= -p "$pid" | tr -d ' ')" != "$(ps -o sid= -p $$ | tr -d ' ')" ] || fail "the program started by add is in its caller's session"
[ "$(ps -o tty= -p "$pid" | tr -d ' ')" = "?" ] || fail "the program started by add has a terminal"
listed=$("$program" list) || fail "list exited $?"
[ "$(echo "$listed" | head -1)" = "$line" ] || fail "list printed '$listed', not '$line'"
echo "$listed" | tail -1 | grep -q '^Wake-up: ' || fail "list does not end with its wake-up line: '$listed'"

# 2. The alarm rings at its second with its message window, and sounds; a second start is refused meanwhile; a
# left click on the tray icon stops it.
icon=$(wait_for_icon 5) || fail "no tray icon"
due=$(echo "$line" | cut -d' ' -f2)
next_message 30 || fail "no message window for $due"
message_window=${messages%$'\n'}
expect_sound "ringing for $due"
"$program" >"$work/second.log" 2>&1 &
second_pid=$!
answer_box 10 "refusing a second start"
eventually 5 ended "$second_pid" || fail "the second copy still runs"
xdotool mousemove --window "$icon" 10 10 click 1
sleep 1
expect_silence "after the tray click"
[ -z "$("$program" list)" ] || fail "the rung alarm is still listed"

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
start_recording 12
wait_for_window '^Message  ' 65 >/dev/null || fail "the reminder did not come back"
expect_recorded "the reminder"
new_message

# 4. A recurring alarm: added with its rule, it rings, is listed with its next day, its file parses as iCalendar
# with python3-icalendar (Debian's python, where the package puts it), and remove takes it away.
not_near_midnight 235930
due=$(date -d '+5 seconds' +%H:%M:%S)
line=$("$program" add --time "$due" --every day --plays repeat --message 'Daily stretch') || fail "add exited $?"
[ "$line" = "$(date +%Y/%m/%d) $due repeat (every day) Daily stretch" ] || fail "add --every printed '$line'"
next_message 12 || fail "no message window for $due"
expect_sound "the recurring alarm ringing for $due"
grep -q "$(date +%Y/%m/%d) $due" "$folder/recurring.state" || fail "the rung occurrence is not kept: $(cat "$folder/recurring.state")"
json=$("$program" list --json) || fail "list --json exited $?"
grep -q '"every": "day"' <<<"$json" || fail "list --json has no rule: $json"
grep -q "\"next\": \"$(date -d tomorrow +%Y/%m/%d) $due\"" <<<"$json" || fail "the next occurrence is not tomorrow's: $json"
/usr/bin/python3 - "$folder/recurring.ics" <<'PY' || fail "recurring.ics does not parse with python3-icalendar"
import sys
from icalendar import Calendar
events = Calendar.from_ical(open(sys.argv[1], 'rb').read()).walk('VEVENT')
assert len(events) == 1, events
assert events[0]['RRULE'].to_ical() == b'FREQ=DAILY', events[0]['RRULE']
assert events[0].walk('VALARM'), 'no VALARM'
PY
"$program" remove --message 'Daily stretch' >/dev/null || fail "remove exited $?"
[ -z "$("$program" list)" ] || fail "the removed alarm is still listed"
grep -q 'BEGIN:VEVENT' "$folder/recurring.ics" && fail "recurring.ics still holds the alarm"
"$program" remove --message 'Daily stretch' 2>/dev/null
[ $? -eq 1 ] || fail "a second remove did not exit 1"

# 5. Two scripts add 50 events each at once, for tomorrow: the schedule holds all 100, each whole.
tomorrow=$(date -d tomorrow +%Y/%m/%d)
script() { # <name>
    for n in $(seq 0 49); do
        "$program" add --date "$tomorrow" --time "$(printf '%02d:%02d:%02d' $((n % 24)) "$n" "$n")" \
            --message "$1 event $n" >/dev/null || echo "$1 $n exited $?"
    done
}
started=$(date +%s%N)
script first >"$work/first.fail" 2>&1 &
first=$!
script second >"$work/second.fail" 2>&1 &
second=$!
wait "$first" "$second"
took=$((($(date +%s%N) - started) / 1000000))
echo "100 adds from two scripts in ${took} ms"
[ -s "$work/first.fail" ] || [ -s "$work/second.fail" ] && fail "adds failed: $(cat "$work/first.fail" "$work/second.fail")"
expected=$(for who in first second; do for n in $(seq 0 49); do
    printf '"%s event %d%sonce%02d:%02d:%02d"\r\n' "$who" "$n" "$tomorrow" $((n % 24)) "$n" "$n"
done; done | sort)
[ "$(sort "$folder/future.dat")" = "$expected" ] ||
    fail "the schedule is not the 100 records: $(diff <(echo "$expected") <(sort "$folder/future.dat") | head -5)"
alive "under the adds"

# 6. What the program keeps is the user's alone: the data folder that stood open is closed, a new file is private.
[ "$(stat -c %a "$folder")" = 700 ] || fail "the data folder is $(stat -c %a "$folder")"
[ "$(stat -c %a "$folder/future.dat")" = 600 ] || fail "future.dat is $(stat -c %a "$folder/future.dat")"
# 7. Without a session bus it started none, and none outlives it.
kill "$pid"
eventually 5 ended "$pid" || fail "the program did not end on TERM"
for daemon in $(pgrep -x dbus-daemon); do
    tr '\0' '\n' <"/proc/$daemon/environ" 2>/dev/null | grep -qxF "XDG_RUNTIME_DIR=$XDG_RUNTIME_DIR" &&
        fail "the program started a session bus (dbus-daemon $daemon) that outlives it"
done
[ -e "$HOME/.dbus" ] && fail "the program wrote $HOME/.dbus"
# 8. '--show WINDOW' starts the program when none runs and opens that window.
"$program" --show alarm-set >"$work/show.out" 2>&1 || fail "--show alarm-set exited $?: $(cat "$work/show.out")"
[ -s "$work/show.out" ] && fail "--show printed '$(cat "$work/show.out")'"
wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 5 >/dev/null || fail "--show alarm-set opened no Alarm Set window"
adopt_program
window_gone '^Settings$' || fail "Settings was open before --show settings"
"$program" --show settings || fail "--show settings exited $?"
wait_for_window '^Settings$' 5 >/dev/null || fail "--show settings opened no Settings window"
window_of_width 200 1 >/dev/null && fail "the clock was up before --show clock"
"$program" --show clock || fail "--show clock exited $?"
window_of_width 200 5 >/dev/null || fail "--show clock showed no clock" # 3000 twips at 96 dpi
