#!/usr/bin/env bash
# Reads every window of the real program through the accessibility bus, as a screen reader does, on a private
# session bus: no showing control without a name, no top-level window with the role filler, and the desktop
# clock's text reads as the time it shows (accessibility_walk.py walks the windows).
# Usage: accessibility_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
need_tools dbus-daemon /usr/libexec/at-spi-bus-launcher
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || fail "python3-pyatspi is not installed"
start_desktop 96 notray
export SDL_AUDIODRIVER=dummy

{ read -r DBUS_SESSION_BUS_ADDRESS && read -r bus_pid; } < <(dbus-daemon --session --fork --print-address=1 --print-pid=1)
[ -n "${bus_pid:-}" ] || fail "no session bus"
export DBUS_SESSION_BUS_ADDRESS
pids+=("$bus_pid")
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

# Not too close to midnight: every event but the bad file's must be today's or tomorrow's.
while [ "$(date +%H%M%S)" -gt 235500 ]; do sleep 5; done
folder="$XDG_DATA_HOME/bellwick"
today=$(date +%Y/%m/%d)
due=$(date -d "+50 seconds" +%H:%M:%S)
{
    printf '"Ring now%sonce%s"\r\n' "$today" "$due"
    printf '"First of two%sonce23:59:59"\r\n' "$today"
    printf '"Second of two%sonce23:59:59"\r\n' "$today"
} >"$folder/future.dat"
printf '"not a record"\r\n"nor this one"\r\n' >"$folder/bad.dat"
write_settings ALAEOfDCWSOfUISPOfISOMOf clock

"$program" >"$work/bellwick.log" 2>&1 &
pids+=($!)
/usr/bin/python3 "$(dirname "$0")/accessibility_walk.py" || { cat "$work/bellwick.log"; fail "see above"; }
echo "1 passed, 0 failed"
