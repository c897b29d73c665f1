#!/usr/bin/env bash
# A recurring alarm on a real desktop: 'bellwick add --every day' at a time 5 s away rings with its message window
# and sound, is listed with its rule and next day, its file parses as iCalendar with python3-icalendar (Debian's
# python, where the package puts it), and 'bellwick remove' takes it away.
# Usage: recurring_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop
start_sound_server
folder="$XDG_DATA_HOME/bellwick"
not_near_midnight 235930

# The program is started first, so the 5 s are the alarm's, not the start's.
"$program" list >/dev/null || fail "list exited $? when starting the program"
adopt_program
due=$(date -d '+5 seconds' +%H:%M:%S)
line=$("$program" add --time "$due" --every day --plays repeat --message 'Daily stretch') || fail "add exited $?"
[ "$line" = "$(date +%Y/%m/%d) $due repeat (every day) Daily stretch" ] || fail "add printed '$line'"
wait_for_window '^Message  ' 12 >/dev/null || fail "no message window for $due"
expect_sound "ringing for $due"
grep -q "$(date +%Y/%m/%d) $due" "$folder/recurring.state" || fail "the rung occurrence is not kept: $(cat "$folder/recurring.state")"

json=$("$program" list --json) || fail "list --json exited $?"
echo "$json" | grep -q '"every": "day"' || fail "list --json has no rule: $json"
echo "$json" | grep -q "\"next\": \"$(date -d tomorrow +%Y/%m/%d) $due\"" || fail "the next occurrence is not tomorrow's: $json"
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
alive "after remove"
echo "recurring: all checks passed"
