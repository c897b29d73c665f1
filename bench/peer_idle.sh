#!/usr/bin/env bash
# What another alarm clock from Debian costs idle, measured as idle_cost.sh measures this program: on Xvfb +
# openbox + trayer, on a session bus of its own, one alarm set for tomorrow through the peer's own settings where
# they can be written, then the median of three windows of wake-ups/s and CPU %. Screenshots go to $SHOTS when set.
# Usage: peer_idle.sh gnome-clocks|kalarm|alarm-clock-applet [seconds]   (default 60)
set -uo pipefail
[ -n "${PEER_BUS:-}" ] || PEER_BUS=1 exec dbus-run-session -- "$0" "$@"
peer="$1"
seconds="${2:-60}"
here="$(cd "$(dirname "$0")" && pwd)"
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
# shellcheck source=idle_measure.sh
source "$here/idle_measure.sh"
need_tools "$peer" gsettings bc
start_desktop 96
# Settings in a file under the temporary home, which the peer and gsettings share without a settings daemon.
export GSETTINGS_BACKEND=keyfile NO_AT_BRIDGE=1 GSK_RENDERER=cairo
# Services the bus starts for the peer (KDE's key daemon, say) need the display too.
dbus-update-activation-environment DISPLAY XDG_DATA_HOME XDG_CONFIG_HOME XDG_RUNTIME_DIR HOME GSETTINGS_BACKEND
shot() { [ -n "${SHOTS:-}" ] && import -window root "$SHOTS/$peer-$1.png"; }

# Tomorrow at this minute: today's has passed by the time the peer reads it.
hour=$(date +%-H) minute=$(date +%-M)
at=$(date -d "tomorrow $(date +%H:%M)" +%s)
case "$peer" in
gnome-clocks)
    gsettings set org.gnome.clocks alarms "[{'name': <'bench'>, 'id': <'bench'>, 'hour': <int32 $hour>,
        'minute': <int32 $minute>, 'days': <@ai []>, 'active': <true>,
        'ring_time': <'$(date -d @"$at" --iso-8601=seconds)'>}]" || fail "gnome-clocks took no alarm"
    command=(gnome-clocks)
    ;;
alarm-clock-applet)
    gsettings set io.github.alarm-clock-applet gconf-migrated true
    gsettings set io.github.alarm-clock-applet alarms '[uint32 0]'
    alarm=io.github.alarm-clock-applet.alarm:/io/github/alarm-clock-applet/alarm-0/
    gsettings set "$alarm" type clock && gsettings set "$alarm" time "$at" &&
        gsettings set "$alarm" timestamp "$at" && gsettings set "$alarm" message bench &&
        gsettings set "$alarm" active true || fail "alarm-clock-applet took no alarm"
    command=(alarm-clock-applet)
    ;;
kalarm)
    command=(kalarm)
    ;;
*) fail "no such peer: $peer" ;;
esac

"${command[@]}" >"$work/peer.log" 2>&1 &
pid=$!
pids+=($pid)
sleep 8
kill -0 "$pid" 2>/dev/null || { cat "$work/peer.log"; fail "$peer ended"; }
shot started
if [ "$peer" = kalarm ]; then
    # Its own command line hands the alarm to the running instance.
    timeout 20 kalarm --time "$(date -d @"$at" +%Y-%m-%d-%H:%M)" bench >>"$work/peer.log" 2>&1 ||
        echo "kalarm took no alarm from its command line"
    sleep 5
    shot alarm
fi
sleep 8 # start-up is not idle
echo "$peer $(dpkg-query -W -f '${Version}' "$peer" 2>/dev/null), pid $pid, $(ls /proc/"$pid"/task | wc -l) threads"
idle_windows "$pid" "$seconds" "$peer"
shot end
if [ "$peer" = gnome-clocks ]; then
    xdotool mousemove 447 66 click 1 # its Alarms page, to see the alarm
    sleep 1
    shot alarms
fi
