#!/usr/bin/env bash
# Measures the real program on a real display: time from start to tray icon, resident memory and CPU of
# the idle program over 60 s, and how late alarms fire while both cores are fully loaded.
# Usage: desktop_measure.sh <path to bellwick> [idle seconds]
set -uo pipefail
program="$1"
idle_seconds="${2:-60}"
work=$(mktemp -d)
pids=()
cleanup() {
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null; done
    rm -rf "$work"
}
trap cleanup EXIT
export XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/run" HOME="$work/home"
export QT_QPA_PLATFORM=xcb SDL_AUDIODRIVER=dummy
mkdir -p "$XDG_DATA_HOME/bellwick" "$HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"
display=:$((300 + RANDOM % 200))
Xvfb "$display" -screen 0 1024x768x24 -nolisten tcp -noreset >/dev/null 2>&1 &
pids+=($!)
export DISPLAY=$display
for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
openbox >/dev/null 2>&1 &
pids+=($!)
trayer --edge top --align right --widthtype request --height 26 >/dev/null 2>&1 &
pids+=($!)
sleep 1

tray_icon() {
    for w in $(xdotool search --class bellwick 2>/dev/null); do
        read -r width height < <(xdotool getwindowgeometry "$w" | awk '/Geometry/ {split($2, g, "x"); print g[1], g[2]}')
        [ "${width:-0}" -gt 8 ] && [ "${width:-0}" -le 64 ] && [ "${height:-0}" -le 64 ] && return 0
    done
    return 1
}

# Alarms a few seconds apart, each with a message, starting after the idle measurement.
first=$((idle_seconds + 10))
today=$(date +%Y/%m/%d)
: >"$XDG_DATA_HOME/bellwick/future.dat"
dues=()
for i in 0 1 2 3 4 5 6 7; do
    due=$(date -d "+$((first + i * 3)) seconds" +%H:%M:%S)
    dues+=("$due")
    printf '"late check %d%sonce%s"\r\n' "$i" "$today" "$due" >>"$XDG_DATA_HOME/bellwick/future.dat"
done
: >"$XDG_DATA_HOME/bellwick/my.dat"
{ head -c 165 /dev/zero; printf '%-17s' '[Setting]'; printf '\x01\x00\x00\x00\x01\x00\x00\x00'; printf '%-30s' 'ALAEOnDCWSOfUISPOfISOMOf'; } \
    >"$XDG_DATA_HOME/bellwick/tolm.ini"

start=$(date +%s.%N)
"$program" >/dev/null 2>&1 &
pid=$!
pids+=($pid)
until tray_icon; do sleep 0.02; done
echo "start to tray icon: $(echo "$(date +%s.%N) - $start" | bc | xargs printf '%.3f') s"

sleep 2
ticks() { awk '{print $14 + $15}' "/proc/$pid/stat"; }
t0=$(ticks)
sleep "$idle_seconds"
t1=$(ticks)
hz=$(getconf CLK_TCK)
cpu=$(echo "($t1 - $t0) / $hz / $idle_seconds * 100" | bc -l)
echo "idle over ${idle_seconds} s: CPU $(printf '%.2f' "$cpu") %, resident $(awk '/VmRSS/ {print $2, $3}' /proc/$pid/status)"

# Both cores busy while the alarms fall due.
for _ in 1 2; do
    (while :; do :; done) &
    pids+=($!)
done
seen=()
deadline=$(($(date +%s) + first + 40))
while [ ${#seen[@]} -lt ${#dues[@]} ] && [ "$(date +%s)" -lt "$deadline" ]; do
    # The message text is not in the title, so count windows: the n-th window is the n-th alarm.
    count=$(xdotool search --onlyvisible --name "^Message  " 2>/dev/null | wc -l)
    now=$(date +%s.%N)
    while [ ${#seen[@]} -lt "$count" ]; do seen+=("$now"); done
    sleep 0.05
done
worst=0
for i in "${!dues[@]}"; do
    due_epoch=$(date -d "${dues[$i]}" +%s)
    at=${seen[$i]:-}
    if [ -z "$at" ]; then echo "alarm ${dues[$i]}: not seen"; worst=999; continue; fi
    late=$(echo "$at - $due_epoch" | bc)
    echo "alarm ${dues[$i]}: window after $(printf '%.2f' "$late") s from the start of its second"
    worst=$(echo "if ($late > $worst) $late else $worst" | bc)
done
echo "worst under load: $(printf '%.2f' "$worst") s from the start of the due second"
