#!/usr/bin/env bash
# The computer's wake-up for the next alarm, seen in the timer the kernel holds (a real suspend needs a real-time
# clock, which these machines lack). build: the program's own timer as root, and a user without the capability;
# helper: a user of the installed package, whose helper arms the timer.
# Usage: wake_run.sh <path to bellwick> [build|helper]
mode="${2:-build}"
[ "$(id -u)" -eq 0 ] || { echo "SKIP: needs root, to make a throwaway user and to hold the capability"; exit 77; }
. "$(dirname "$0")/desktop_env.sh"
need_tools setpriv useradd userdel pactl
start_desktop
start_sound_server
not_near_midnight 235700
tomorrow=$(date -d tomorrow +%Y/%m/%d)

alarm_timer() { # <pid>: seconds until its CLOCK_REALTIME_ALARM timer goes off; nothing when it holds none armed
    grep -lx 'clockid: 8' /proc/"$1"/fdinfo/* 2>/dev/null | head -1 |
        xargs -r awk '/^it_value:/ { gsub(/[(),]/, " "); if ($2 + $3 > 0) print $2 + $3 / 1e9 }'
}
timer_at() { # <pid> <epoch second>: its timer goes off then, give or take a second and a half; sets left, want
    left=$(alarm_timer "$1")
    want=$(($2 - $(date +%s)))
    [ -n "$left" ] && awk -v l="$left" -v w="$want" 'BEGIN { exit !(l - w < 1.5 && l - w > -1.5) }'
}
expect_timer() { # <pid> <epoch second it must go off at> <what>; armed again on the next tick at the latest
    eventually 5 timer_at "$1" "$2" || fail "$3: the timer of process $1 goes off in '${left:-never}' s, not in $want s"
    echo "$3: the timer goes off in ${left} s"
}
epoch_of() { date -d "$(echo "$1" | cut -d' ' -f1-2)" +%s; }
first_wake() { "$@" list --json | sed -n 's/.*"wake": "\(.*\)".*/\1/p' | head -1; }

if [ "$mode" = build ]; then
    export BELLWICK_WAKE_ADVANCE=20
    printf '"%sonce07:00:00"\r\n' "$tomorrow" >"$folder/future.dat"
    "$program" list >/dev/null || fail "list exited $?"
    adopt_program

    later=$(date -d "$tomorrow 06:59:40" +%s)
    expect_timer "$pid" "$later" "the schedule's alarm of tomorrow"
    [ "$(first_wake "$program")" = armed ] || fail "list --json: $("$program" list --json)"

    line=$("$program" add --in 35s --message 'Wake check') || fail "add exited $?"
    due=$(epoch_of "$line")
    expect_timer "$pid" $((due - 20)) "after an earlier add"
    while [ "$(date +%s)" -lt $((due - 19)) ]; do sleep 0.2; done
    expect_timer "$pid" $((due - 5)) "after the early wake"
    wait_for_window '^Message  ' 30 >/dev/null || fail "the alarm did not ring"
    expect_timer "$pid" "$later" "once the alarm has rung"
    kill "$pid"
    eventually 5 ended "$pid" || fail "the program did not end on TERM"
fi

# A throwaway user with a folder of its own, the display and the sound server.
user=bwkwake$$
useradd -M -d "$work/user" -s /usr/sbin/nologin "$user" || fail "useradd failed"
trap 'cleanup; userdel "$user" 2>/dev/null' EXIT
chmod 711 "$work"
mkdir -p "$work"/user/{data/bellwick,config,home} "$work/open" && mkdir -m 700 "$work/user/run"
chown -R "$user:" "$work/user"
pactl load-module module-native-protocol-unix socket="$work/open/native" auth-anonymous=1 >/dev/null ||
    fail "no open socket on the sound server"
chmod 755 "$work/open" && chmod 777 "$work/open/native"
as_user() { setpriv --reuid="$user" --regid="$user" --init-groups env -i PATH="$PATH" DISPLAY="$DISPLAY" \
    HOME="$work/user/home" XDG_DATA_HOME="$work/user/data" XDG_CONFIG_HOME="$work/user/config" \
    XDG_RUNTIME_DIR="$work/user/run" PULSE_SERVER="unix:$work/open/native" PULSE_SINK=e2e QT_QPA_PLATFORM=xcb \
    BELLWICK_WAKE_ADVANCE=10 "$@"; }
line=$(as_user "$program" add --in 25s --plays repeat --message 'Wake as a user') || fail "add as $user exited $?"
due=$(epoch_of "$line")
adopt_program "$work/user/run"
user_pid=$pid
grep -q '^CapEff:[[:space:]]*0*$' "/proc/$user_pid/status" || fail "the program holds a capability"
[ "$mode" = build ] && want="unavailable: no permission" || want=armed
wake=$(first_wake as_user "$program")
[ "$wake" = "$want" ] || fail "the user's alarm says '$wake', not '$want'"
echo "as $user: $wake"
if [ "$mode" != build ]; then
    helper_pid=$(pgrep -P "$user_pid" -x bellwick-wake) || fail "no helper runs"
    expect_timer "$helper_pid" $((due - 10)) "the helper's timer"
    [ -z "$(alarm_timer "$user_pid")" ] || fail "the program holds a wake-up timer itself"
fi
wait_for_window '^Message  ' 40 >/dev/null || fail "the user's alarm did not ring"
expect_sound "the user's alarm"
