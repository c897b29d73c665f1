#!/usr/bin/env bash
# How soon an alarm is heard and seen after its due second begins: `once` alarms with a message, a few seconds
# apart, on a real display with PulseAudio on a null sink. The sound's onset is found in a recording of the sink,
# placed in time by its sample count; the message window's map is the X server's MapNotify, time-stamped on
# arrival. Both are a little late rather than early (a measure's own delays add to them). Run quiet, then with
# both cores loaded by stress-ng. Needs stress-ng (apt-get install stress-ng).
# Usage: alarm_latency.sh <path to bellwick> [alarms]   (default 30)
set -uo pipefail
program="$(realpath "$1")"
count="${2:-30}"
spacing=3
here="$(cd "$(dirname "$0")" && pwd)"
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
need_tools stress-ng xev stdbuf python3
start_desktop 96
start_sound_server

# Onsets of sound in the sink, as wall-clock times: each sample's time is the recording's start, estimated as the
# earliest (arrival time - samples so far / rate), plus its index / rate.
cat >"$work/onsets.py" <<'PY'
import subprocess, sys, time, array
rate, block = 48000, 240  # 5 ms blocks
seconds = float(sys.argv[2])
rec = subprocess.Popen(["parec", "-d", "e2e.monitor", "--raw", "--format=s16le", "--rate=%d" % rate,
                        "--channels=1", "--latency-msec=5"], stdout=subprocess.PIPE)
start, samples, quiet, onsets, pending = None, 0, rate, [], b""
while samples < seconds * rate:
    data = rec.stdout.read1(block * 2)
    if not data:
        break
    now = time.time()
    data = pending + data
    usable = len(data) // 2 * 2
    pending = data[usable:]
    values = array.array("h", data[:usable])
    if max(values, default=0) > 800 or -min(values, default=0) > 800:
        if quiet >= rate // 2:
            onsets.append(samples + next(i for i, v in enumerate(values) if abs(v) > 800))
        quiet = 0
    else:
        quiet += len(values)
    samples += len(values)
    begun = now - samples / rate
    start = begun if start is None else min(start, begun)
rec.kill()
with open(sys.argv[1], "w") as out:
    out.writelines("%.4f\n" % (start + i / rate) for i in onsets)
PY
cat >"$work/maps.py" <<'PY'
import sys, time
with open(sys.argv[1], "w", buffering=1) as out:
    for line in sys.stdin:
        if line.startswith("MapNotify"):
            out.write("%.4f\n" % time.time())
PY

percentiles() { # <label> <file of seconds>
    sort -n "$2" | awk -v label="$1" '{v[NR] = $1 * 1000} END {
        if (NR == 0) { printf "%-22s none\n", label; exit }
        p95 = v[int(NR * 0.95 + 0.999)]; printf "%-22s n %d  median %.0f ms  p95 %.0f ms  max %.0f ms\n", label, NR, v[int((NR + 1) / 2)], p95, v[NR] }'
}

run() { # <label> [load]
    local label="$1" first today
    : >"$XDG_DATA_HOME/bellwick/my.dat"
    write_settings ALAEOnDCWSOfUISPOfISOMOf
    first=$(($(date +%s) + 30)) # start-up on a busy machine
    today=$(date +%Y/%m/%d)
    : >"$XDG_DATA_HOME/bellwick/future.dat"
    : >"$work/dues"
    for i in $(seq 0 $((count - 1))); do
        local due=$((first + i * spacing))
        echo "$due" >>"$work/dues"
        printf '"latency %d%sonce%s"\r\n' "$i" "$today" "$(date -d "@$due" +%H:%M:%S)" >>"$XDG_DATA_HOME/bellwick/future.dat"
    done
    python3 "$work/onsets.py" "$work/onsets" $((first + count * spacing + 2 - $(date +%s))) &
    local recorder=$!
    stdbuf -oL xev -root -event substructure 2>/dev/null | python3 "$work/maps.py" "$work/maps" &
    local watcher=$!
    pids+=($recorder $watcher)
    "$program" >"$work/program.log" 2>&1 &
    local pid=$!
    pids+=($pid)
    local stress=""
    if [ -n "${2:-}" ]; then
        stress-ng --cpu 2 --quiet &
        stress=$!
        pids+=($stress)
    fi
    wait "$recorder"
    sleep 2
    [ -n "$stress" ] && kill "$stress" 2>/dev/null
    kill "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
    kill "$watcher" 2>/dev/null
    # The first of each after its due second (within two or three seconds), less that second.
    : >"$work/sound" && : >"$work/window"
    while read -r due; do
        awk -v d="$due" '$1 >= d - 0.5 && $1 < d + 2 {printf "%.4f\n", $1 - d; exit}' "$work/onsets" >>"$work/sound"
        awk -v d="$due" '$1 >= d && $1 < d + 3 {printf "%.4f\n", $1 - d; exit}' "$work/maps" >>"$work/window"
    done <"$work/dues"
    [ -n "${KEEP:-}" ] && mkdir -p "$KEEP/$label" && cp "$work"/{dues,onsets,maps,sound,window,program.log,pulse.log} "$KEEP/$label/"
    percentiles "$label sound onset" "$work/sound"
    percentiles "$label window mapped" "$work/window"
}

run quiet
run "2 cores loaded" load
