#!/usr/bin/env bash
# Measures what the idle program costs on a real display, with and without the desktop clock shown: wake-ups
# (voluntary context switches of all its threads) and system calls per second, over a given time
# each.
# Usage: idle_cost.sh <path to bellwick> [seconds]   (default 60)
set -uo pipefail
program="$(realpath "$1")"
seconds="${2:-60}"
here="$(cd "$(dirname "$0")" && pwd)"
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
need_tools strace
export SDL_AUDIODRIVER=dummy
start_desktop 96

switches() { # all threads' voluntary context switches
    cat /proc/"$1"/task/*/status 2>/dev/null | awk '/^voluntary_ctxt_switches/ {s += $2} END {print s + 0}'
}

for clock in none clock; do
    write_settings ALAEOnDCWSOfUISPOfISOMOf "$clock"
    : >"$XDG_DATA_HOME/bellwick/my.dat"
    "$program" >/dev/null 2>&1 &
    pid=$!
    pids+=($pid)
    sleep 6 # start-up and the tray's grace period are not idle
    # Counted apart: tracing stops the threads and would count as wake-ups itself.
    before=$(switches "$pid")
    sleep "$seconds"
    after=$(switches "$pid")
    timeout -s INT "$seconds" strace -f -c -q -o "$work/strace-$clock.txt" -p "$pid" >/dev/null 2>&1
    calls=$(awk '$NF == "total" {print $4}' "$work/strace-$clock.txt")
    printf '%-6s wake-ups/s %.2f  system calls/s %.2f\n' "$clock" "$(echo "($after - $before) / $seconds" | bc -l)" \
        "$(echo "${calls:-0} / $seconds" | bc -l)"
    [ -n "${VERBOSE:-}" ] && sort -k4 -n -r "$work/strace-$clock.txt" | head -8
    kill "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
done
