#!/usr/bin/env bash
# Resident memory over a long run of the real program on a real display, the desktop clock shown: an alarm every
# 2 s (every fourth with a message window that the bench answers, every 25th answer a one-minute reminder that rings
# again), the chime every minute, the Alarm Set window opened from the tray menu and closed, and 'bellwick add' /
# 'list' calls. Counts what the program did (sounds loaded, chimes, windows answered, adds accepted) and fails when
# something never happened; reports the resident memory's slope after the warm-up, per real minute and per day.
# Usage: soak.sh <path to bellwick> [real minutes, default 5] [speed, default 1] [heaptrack]
#   speed: above 1, libfaketime runs the program's clock that many times as fast from just after midnight. Its
#     timers run as fast, so on a busy machine the tick misses due seconds even at 3: the alarms are then reported
#     as slipped, and the catch-up puts up a window for each, faster than the bench answers them.
#   heaptrack: runs the program under heaptrack (at speed 1) and prints what it still held at the end, and the
#     stacks of it that pass through our own code. HEAP_KEEP=<file> keeps the recording.
set -uo pipefail
program="$(realpath "$1")"
minutes="${2:-5}"
speed="${3:-1}"
profiler="${4:-}"
here="$(cd "$(dirname "$0")" && pwd)"
faketime_lib=$(find /usr/lib -name libfaketime.so.1 2>/dev/null | head -1)
[ "$speed" = 1 ] || [ -n "$faketime_lib" ] || { echo "libfaketime is missing: apt-get install faketime" >&2; exit 2; }
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
need_tools inotifywait
export SDL_AUDIODRIVER=dummy
start_desktop 96
folder="$XDG_DATA_HOME/bellwick"

# An alarm every 2 s of the program's clock from about 12 real seconds on (the bench sets the chime before the windows
# come), for as long as the run lasts and a little more. At speed 1 on the real clock (libfaketime and heaptrack
# together crash the program), which must not pass midnight; else the program's day starts tomorrow at 00:00:30.
if [ "$speed" = 1 ]; then
    day=$(date +%F)
    begin=$((10#$(date +%H) * 3600 + 10#$(date +%M) * 60 + 10#$(date +%S)))
else
    day=$(date -d tomorrow +%F)
    begin=30
fi
slash=$(echo "$day" | tr - /)
first=$((begin + 12 * speed))
span=$((first + minutes * 60 * speed + 600))
[ "$span" -lt 86400 ] || { echo "the run must stay within one day of the program's clock" >&2; exit 2; }
awk -v span="$span" -v first="$first" -v day="$slash" 'BEGIN {
    split("once twic thri repe", w, " ");
    for (t = first; t < span; t += 2) {
        n++;
        message = (n % 4 == 0) ? "soak " n : "";
        printf "\"%s%s%s%02d:%02d:%02d\"\r\n", message, day, w[1 + n % 3], t / 3600, (t / 60) % 60, t % 60;
    }
}' >"$folder/future.dat"
alarms=$(wc -l <"$folder/future.dat")
: >"$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf clock
# Every load of a sound reads its file: the chime's and the alarms' are counted by their opens.
inotifywait -m -q -e open --format %f "$folder" >"$work/opens" 2>/dev/null &
pids+=($!)

wrapper=()
if [ "$profiler" = heaptrack ]; then
    command -v heaptrack >/dev/null || { echo "heaptrack is missing: apt-get install heaptrack" >&2; exit 2; }
    wrapper=(heaptrack -o "$work/heap")
fi
if [ "$speed" = 1 ]; then
    "${wrapper[@]}" "$program" >"$work/bellwick.log" 2>&1 &
else
    FAKETIME="@$day 00:00:30 x$speed" LD_PRELOAD="$faketime_lib" "${wrapper[@]}" "$program" >"$work/bellwick.log" 2>&1 &
fi
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
# The chime is stored nowhere: it is switched on in the Alarm Set window, every 1 minute.
open_alarm_set() {
    eval "$(xdotool getwindowgeometry --shell "$icon")"
    xdotool mousemove $((X + 5)) $((Y + 5)) click 3
    sleep 0.7
    xdotool key Down Down Return
    wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 5
}
# A slow start (under a profiler, say) can miss the first menu.
for _ in 1 2 3; do w=$(open_alarm_set) && break; xdotool key Escape; sleep 2; done
[ -n "$w" ] || fail "the Alarm Set window did not open"
sleep 0.5
xdotool windowactivate --sync "$w"
xdotool mousemove --window "$w" 247 203 click 1 # the interval's box opens its list below it
sleep 0.5
xdotool mousemove --window "$w" 234 205 click 1 # "1"
sleep 0.3
xdotool mousemove --window "$w" 182 203 click 1 # "Every"
sleep 0.3
xdotool key alt+F4
echo "$alarms alarms over $(((span - first) / 60)) min of the program's clock, $speed times as fast; pid $pid"

rss() { awk '/VmRSS/ {print $2}' "/proc/$pid/status"; }
answered=0 reminded=0 alarm_sets=0 commands=0 accepted=0
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
    local w
    w=$(open_alarm_set) || { xdotool key Escape; return; }
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
        echo "$((now - start)) $(rss) $(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | wc -l)" >>"$work/rss"
        next_sample=$((next_sample + 10))
    fi
    # A few at a time, so that the samples keep their pace on a busy machine.
    for w in $(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | head -4); do answer "$w"; done
    if [ "$now" -ge "$next_alarm_set" ]; then
        alarm_set
        next_alarm_set=$((now + 20))
    fi
    if [ "$now" -ge "$next_command" ]; then
        # The running program reads the delay on its own clock: the event lands on its day.
        out=$(timeout 10 "$program" add --in 40s --plays twice --message "added $commands" 2>&1)
        if [[ "$out" == "$slash "* ]]; then
            accepted=$((accepted + 1))
        else
            echo "add refused or off the program's day: $out"
        fi
        timeout 10 "$program" list >/dev/null 2>&1 || echo "list failed"
        commands=$((commands + 1))
        next_command=$((now + 5))
    fi
    sleep 0.2
done
echo "$(($(date +%s) - start)) $(rss)" >>"$work/rss"
echo "samples (real s, resident kB, message windows open): $(awk '{printf "%s/%s/%s ", $1, $2, $3}' "$work/rss")"
chimes=$(grep -c '^didi\.snd$' "$work/opens")
alarm_sounds=$(grep -c '^ding\.wav$' "$work/opens")
left=$(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | wc -l)
echo "ran $minutes min (the program's clock went $((minutes * speed)) min): $alarm_sounds alarm sounds loaded, $chimes chimes," \
    "answered $answered message windows ($reminded with a reminder, $left left open at the end)," \
    "opened the Alarm Set window $alarm_sets times, $accepted of $commands adds accepted (each with a list)"
[ "$alarm_sounds" -gt 0 ] && [ "$chimes" -gt 0 ] && [ "$answered" -gt 0 ] && [ "$alarm_sets" -gt 0 ] &&
    [ "$accepted" -gt 0 ] || fail "the run left something undone: it measures nothing"
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
    [ -n "${HEAP_KEEP:-}" ] && cp "$data" "$HEAP_KEEP"
    heaptrack_print --print-leaks 1 --print-peaks 0 --print-allocators 0 --print-temporary 0 "$data" |
        sed -n '/^MEMORY LEAKS/,$p' >"$work/leaks"
    echo "held at the end: $(sed -n 2p "$work/leaks")"
    # The kill leaves what open windows and the toolkit hold; a leak of ours has a frame of our own between the
    # event loop and the allocation. Those stacks, whole:
    awk -v exe="$program" '
        /^[^ ]/ { if (ours) printf "%s", block; block = ""; ours = 0; last = "" }
        { block = block $0 "\n" }
        /^ +in / { if (index($0, exe) && last !~ /^ *(main|BellwickApp::run\(\))$/) ours = 1; next }
        { last = $0 }
        END { if (ours) printf "%s", block }' "$work/leaks" | head -120
fi
