#!/usr/bin/env bash
# Every window of the real program read through the accessibility bus, as a screen reader does.
# Usage: accessibility_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
need_tools /usr/libexec/at-spi-bus-launcher
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || fail "python3-pyatspi is not installed"
start_desktop 96 notray
start_session_bus
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
# Every event but the bad file's must be today's or tomorrow's.
not_near_midnight 235500
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
