#!/usr/bin/env bash
# Resident memory over an accelerated day: the real program on a real display under libfaketime, its clock
# running <speed> times as fast from just after midnight. A few thousand alarms from the schedule, every fourth
# with a message window that the bench answers (every 25th with a one-minute reminder that rings again), the
# Alarm Set window opened from the tray menu and closed, and 'bellwick add' / 'list' calls. Reports the resident
# memory's slope after the warm-up, per real minute and per day of the program's clock.
# Usage: soak.sh <path to bellwick> [real minutes, default 5] [speed, default 60] [heaptrack]
#   heaptrack: runs the program under heaptrack and prints what it still held at the end.
set -uo pipefail
program="$(realpath "$1")"
minutes="${2:-5}"
speed="${3:-60}"
profiler="${4:-}"
here="$(cd "$(dirname "$0")" && pwd)"
faketime_lib=$(find /usr/lib -name libfaketime.so.1 2>/dev/null | head -1)
[ -n "$faketime_lib" ] || { echo "libfaketime is missing: apt-get install faketime" >&2; exit 2; }
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
export SDL_AUDIODRIVER=dummy
start_desktop 96
folder="$XDG_DATA_HOME/bellwick"

# The program's day starts tomorrow at 00:00:30; an alarm every 6 s of its clock from 00:01:00 on, for as long
# as the run lasts and a little more.
day=$(date -d tomorrow +%F)
slash=$(echo "$day" | tr - /)
span=$((minutes * 60 * speed + 600))
[ "$span" -lt 86000 ] || { echo "the run must stay within one day of the program's clock" >&2; exit 2; }
awk -v span="$span" -v day="$slash" 'BEGIN {
    split("once twic thri repe", w, " ");
    for (t = 60; t < span; t += 6) {
        n++;
        message = (n % 4 == 0) ? "soak " n : "";
        printf "\"%s%s%s%02d:%02d:%02d\"\r\n", message, day, w[1 + n % 3], t / 3600, (t / 60) % 60, t % 60;
    }
}' >"$folder/future.dat"
alarms=$(wc -l <"$folder/future.dat")
: >"$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf

wrapper=()
if [ "$profiler" = heaptrack ]; then
    command -v heaptrack >/dev/null || { echo "heaptrack is missing: apt-get install heaptrack" >&2; exit 2; }
    wrapper=(heaptrack -o "$work/heap")
fi
export FAKETIME="@$day 00:00:30 x$speed"
LD_PRELOAD="$faketime_lib" "${wrapper[@]}" "$program" >"$work/bellwick.log" 2>&1 &
launcher=$!
pids+=($launcher)
pid=""
for _ in $(seq 100); do
    pid=$(head -1 "$XDG_RUNTIME_DIR/bellwick/bellwick.lock" 2>/dev/null) && [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null && break
    sleep 0.1
done
[ -n "$pid" ] || { cat "$work/bellwick.log"; fail "the program did not start"; }
pids+=($pid)
for _ in $(seq 100); do tray_icon && break; sleep 0.1; done
icon=$(for w in $(xdotool search --onlyvisible --class bellwick); do
    g=$(xdotool getwindowgeometry "$w" | awk '/Geometry/ {print $2}')
    [ "${g%x*}" -le 64 ] && echo "$w"
done | head -1)
[ -n "$icon" ] || fail "no tray icon"
echo "$alarms alarms over $((span / 3600)) h of the program's clock, $speed times as fast; pid $pid"

rss() { awk '/VmRSS/ {print $2}' "/proc/$pid/status"; }
answered=0 reminded=0 alarm_sets=0 commands=0
answer() { # <window>: OK, or every 25th a reminder of one minute
    local w=$1
    timeout 3 xdotool windowactivate --sync "$w" 2>/dev/null || return
    if [ $(((answered + 1) % 25)) -eq 0 ]; then
        xdotool mousemove --window "$w" 90 176 click 1 type 1
        reminded=$((reminded + 1))
    fi
    xdotool mousemove --window "$w" 260 176 click 1
    answered=$((answered + 1))
}
alarm_set() {
    eval "$(xdotool getwindowgeometry --shell "$icon")"
    xdotool mousemove $((X + 5)) $((Y + 5)) click 3
    sleep 0.7
    xdotool key Down Down Return
    local w
    w=$(wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 5) || { xdotool key Escape; return; }
    sleep 0.5
    xdotool windowactivate --sync "$w" 2>/dev/null && xdotool key alt+F4
    alarm_sets=$((alarm_sets + 1))
}

start=$(date +%s)
end=$((start + minutes * 60))
next_sample=$start next_alarm_set=$((start + 20)) next_command=$((start + 5))
: >"$work/rss"
while [ "$(date +%s)" -lt "$end" ]; do
    kill -0 "$pid" 2>/dev/null || { cat "$work/bellwick.log"; fail "the program ended"; }
    now=$(date +%s)
    if [ "$now" -ge "$next_sample" ]; then
        echo "$((now - start)) $(rss)" >>"$work/rss"
        next_sample=$((next_sample + 10))
    fi
    # A few at a time, so that the samples keep their pace on a busy machine.
    for w in $(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | head -4); do answer "$w"; done
    if [ "$now" -ge "$next_alarm_set" ]; then
        alarm_set
        next_alarm_set=$((now + 20))
    fi
    if [ "$now" -ge "$next_command" ]; then
        timeout 10 "$program" add --in 40s --plays twice --message "added $commands" >/dev/null 2>&1 || echo "add failed"
        timeout 10 "$program" list >/dev/null 2>&1 || echo "list failed"
        commands=$((commands + 1))
        next_command=$((now + 5))
    fi
    sleep 0.2
done
echo "$(($(date +%s) - start)) $(rss)" >>"$work/rss"
echo "ran $minutes min (the program's clock went $((minutes * speed)) min): answered $answered message windows ($reminded with a reminder)," \
    "opened the Alarm Set window $alarm_sets times, $commands add + list pairs"
# The slope by least squares over the samples after the first third of the run.
awk -v warm=$((minutes * 20)) -v speed="$speed" '$1 >= warm { n++; sx += $1; sy += $2; sxx += $1 * $1; sxy += $1 * $2 }
    { first = first ? first : $2; last = $2 }
    END {
        slope = (n * sxy - sx * sy) / (n * sxx - sx * sx) * 60;
        printf "resident: %d kB at start, %d kB at the end; after warm-up %.1f kB per real minute, %.2f kB per minute of the program clock, %.0f kB per day of it\n",
            first, last, slope, slope / speed, slope / speed * 1440;
    }' "$work/rss"

if [ "$profiler" = heaptrack ]; then
    kill "$pid"
    wait "$launcher" 2>/dev/null
    data=$(ls "$work"/heap*.zst "$work"/heap*.gz 2>/dev/null | head -1)
    [ -n "$data" ] || fail "heaptrack wrote nothing"
    heaptrack_print --print-leaks 1 --print-peaks 0 --print-allocators 0 --print-temporary 0 "$data" |
        sed -n '/^MEMORY LEAKS/,$p' | head -80
fi
