#!/usr/bin/env bash
# Reads every window of the real program through the accessibility bus, as a screen reader does, on a private
# session bus (accessibility_walk.py walks the windows).
# Usage: accessibility_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
need_tools /usr/libexec/at-spi-bus-launcher
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || fail "python3-pyatspi is not installed"
start_desktop 96 notray
start_session_bus
export SDL_AUDIODRIVER=dummy QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
# Every event but the bad file's must be today's or tomorrow's.
not_near_midnight 235500
folder="$XDG_DATA_HOME/bellwick"
today=$(date +%Y/%m/%d)
{
    printf '"Ring now%sonce%s"\r\n' "$today" "$(date -d "+50 seconds" +%H:%M:%S)"
    printf '"First of two%sonce23:59:59"\r\n' "$today"
    printf '"Second of two%sonce23:59:59"\r\n' "$today"
} >"$folder/future.dat"
printf '"not a record"\r\n"nor this one"\r\n' >"$folder/bad.dat"
write_settings ALAEOfDCWSOfUISPOfISOMOf clock
start_program
/usr/bin/python3 "$(dirname "$0")/accessibility_walk.py" || fail "see above"
echo "1 passed, 0 failed"
