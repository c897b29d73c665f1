#!/usr/bin/env bash
# Measures the real program with a large schedule on a real display: the time from start to tray icon with
# auto-load on (three runs), and the midnight reload under libfaketime: the schedule's last record is an alarm
# at 00:00:05 of the new day; the script reports when its window stood (rung, or reported as slipped) and how
# long the reload kept the program busy.
# Usage: schedule_load.sh <path to bellwick> [events ...]   (default: 100000 1000000)
set -uo pipefail
program="$(realpath "$1")"
shift
sizes=("$@")
[ ${#sizes[@]} -gt 0 ] || sizes=(100000 1000000)
here="$(cd "$(dirname "$0")" && pwd)"
faketime_lib=$(find /usr/lib -name libfaketime.so.1 2>/dev/null | head -1)
[ -n "$faketime_lib" ] || { echo "libfaketime is missing: apt-get install faketime" >&2; exit 2; }
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
export SDL_AUDIODRIVER=dummy
start_desktop 96

tray_icon() {
    for w in $(xdotool search --class bellwick 2>/dev/null); do
        read -r width height < <(xdotool getwindowgeometry "$w" | awk '/Geometry/ {split($2, g, "x"); print g[1], g[2]}')
        [ "${width:-0}" -gt 8 ] && [ "${width:-0}" -le 64 ] && [ "${height:-0}" -le 64 ] && return 0
    done
    return 1
}
now() { date +%s.%N; }
since() { echo "$(now) - $1" | bc | xargs printf '%.2f'; }

# <file> <events> <first day yyyy-mm-dd> [last record]: events spread over the year after the first day.
make_schedule() {
    awk -v n="$2" -v first="$3" -v last="${4:-}" 'BEGIN {
        srand(7); split(first, d, "-"); base = mktime(d[1] " " d[2] " " d[3] " 12 00 00");
        split("once twic thri repe", w, " ");
        for (i = 1; i <= n; i++) {
            t = base + 86400 * (1 + int(rand() * 365)) + int(rand() * 86400) - 43200;
            printf "\"event %d%s%s%s\"\r\n", i, strftime("%Y/%m/%d", t), w[1 + int(rand() * 4)], strftime("%H:%M:%S", t);
        }
        if (last != "") printf "\"%s\"\r\n", last;
    }' >"$1"
}

stop_program() {
    kill "$1" 2>/dev/null
    wait "$1" 2>/dev/null
}

for n in "${sizes[@]}"; do
    export XDG_DATA_HOME="$work/data-$n"
    folder="$XDG_DATA_HOME/bellwick"
    mkdir -p "$folder"
    write_settings 'ALAEOnDCWSOfUISPOfISOMOf'
    : >"$folder/my.dat"
    make_schedule "$folder/future.dat" "$n" "$(date +%F)"

    for run in 1 2 3; do
        start=$(now)
        "$program" >/dev/null 2>&1 &
        pid=$!
        pids+=($pid)
        for _ in $(seq 600); do tray_icon && break; sleep 0.02; done
        echo "$n events, run $run: start to tray icon $(since "$start") s"
        stop_program "$pid"
    done

    # Midnight: the program's clock starts at 23:59:30, so the start's own load is over before the turn of the
    # day; the alarm at 00:00:05 is the file's last record. The CPU time the program spends from 23:59:55 on is
    # the length of the reload, for all of it runs on the one thread that also answers the user.
    day=$(date -d tomorrow +%F)
    next=$(date -d "$day + 1 day" +%Y/%m/%d)
    make_schedule "$folder/future.dat" "$n" "$day" "midnight check${next}once00:00:05"
    start=$(now)
    FAKETIME="@$day 23:59:30" FAKETIME_DONT_FAKE_MONOTONIC=1 LD_PRELOAD="$faketime_lib" "$program" >/dev/null 2>&1 &
    pid=$!
    pids+=($pid)
    ticks() { awk '{print $14 + $15}' "/proc/$pid/stat"; }
    until [ "$(echo "$(since "$start") >= 25" | bc)" = 1 ]; do sleep 0.1; done
    before=$(ticks)
    shown=""
    until [ "$(echo "$(since "$start") >= 95" | bc)" = 1 ]; do
        if xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -q .; then
            shown=$(echo "$(since "$start") - 35" | bc | xargs printf '%.2f')
            break
        fi
        sleep 0.1
    done
    sleep 1
    cpu=$(echo "($(ticks) - $before) / $(getconf CLK_TCK)" | bc -l | xargs printf '%.2f')
    if [ -n "$shown" ]; then
        echo "$n events, midnight: the 00:00:05 alarm's window stood $shown s after its due second; reload busy ${cpu} s"
    else
        echo "$n events, midnight: NO window for the 00:00:05 alarm within 60 s of its due second; reload busy ${cpu} s"
    fi
    stop_program "$pid"
    rm -rf "$XDG_DATA_HOME"
done
