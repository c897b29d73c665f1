#!/usr/bin/env bash
# A recurring alarm on a real desktop: 'bellwick add --every day' at a time 5 s away rings
# with its message window and sound, is listed with its rule and next day, its file parses as iCalendar with
# python3-icalendar (Debian's python, where the package puts it), and 'bellwick remove' takes it away.
# Usage: recurring_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop
start_sound_server
folder="$XDG_DATA_HOME/bellwick"
# The alarm must fall today.
while [ "$(date +%H%M%S)" -gt 235930 ]; do sleep 5; done

# The program is started first, so the 5 s are the alarm's, not the start's.
"$program" list >/dev/null || fail "list exited $? when starting the program"
due=$(date -d '+5 seconds' +%H:%M:%S)
line=$("$program" add --time "$due" --every day --plays repeat --message 'Daily stretch' 2>"$work/add.err")
status=$?
[ "$status" -eq 0 ] || fail "add --every exited $status: $(cat "$work/add.err")"
echo "added: $line"
echo "$line" | grep -qxF "$(date +%Y/%m/%d) $due repeat (every day) Daily stretch" || fail "add printed '$line'"
main_pid=$(head -1 "$XDG_RUNTIME_DIR/bellwick/bellwick.lock" 2>/dev/null)
[ -n "$main_pid" ] && kill -0 "$main_pid" 2>/dev/null || fail "no running program after add"
pids+=("$main_pid")

wait_for_window '^Message  ' 12 >/dev/null || fail "no message window for $due"
echo "message window at $(date +%T) for $due"
rms=$(record_rms 2)
echo "sound while ringing: RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r > 0.01) }' || fail "no sound was recorded"
grep -q "$(date +%Y/%m/%d) $due" "$folder/recurring.state" || fail "the rung occurrence is not kept: $(cat "$folder/recurring.state")"

json=$("$program" list --json) || fail "list --json exited $?"
echo "$json" | grep -q '"every": "day"' || fail "list --json has no rule: $json"
echo "$json" | grep -q "\"next\": \"$(date -d tomorrow +%Y/%m/%d) $due\"" || fail "the next occurrence is not tomorrow's: $json"
/usr/bin/python3 - "$folder/recurring.ics" <<'PY' || fail "recurring.ics does not parse with python3-icalendar"
import sys
from icalendar import Calendar
cal = Calendar.from_ical(open(sys.argv[1], 'rb').read())
events = [c for c in cal.walk('VEVENT')]
assert len(events) == 1, events
assert str(events[0]['RRULE'].to_ical(), 'ascii') == 'FREQ=DAILY', events[0]['RRULE']
assert events[0].walk('VALARM'), 'no VALARM'
print('python3-icalendar reads', len(events), 'event with', events[0]['RRULE'].to_ical())
PY

"$program" remove --message 'Daily stretch' >"$work/remove.out" 2>"$work/remove.err" || fail "remove exited $?: $(cat "$work/remove.err")"
[ -z "$("$program" list)" ] || fail "the removed alarm is still listed"
grep -q 'BEGIN:VEVENT' "$folder/recurring.ics" && fail "recurring.ics still holds the alarm"
"$program" remove --message 'Daily stretch' 2>"$work/again.err"
[ $? -eq 1 ] || fail "a second remove did not exit 1"
kill -0 "$main_pid" 2>/dev/null || fail "the program ended"
echo "recurring: all checks passed"
