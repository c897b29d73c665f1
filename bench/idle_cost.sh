#!/usr/bin/env bash
# Measures what the idle program costs on a real display, with and without the desktop clock shown, with one alarm
# set for tomorrow: wake-ups (voluntary context switches of all its threads) per second and CPU %, the median of
# three windows of a given time each. STRACE=1 adds system calls per second over one more window.
# Usage: idle_cost.sh <path to bellwick> [seconds]   (default 60)
set -uo pipefail
program="$(realpath "$1")"
seconds="${2:-60}"
here="$(cd "$(dirname "$0")" && pwd)"
# shellcheck source=../tests/e2e/desktop_env.sh
source "$here/../tests/e2e/desktop_env.sh"
[ -n "${STRACE:-}" ] && need_tools strace
export SDL_AUDIODRIVER=dummy
start_desktop 96

# shellcheck source=idle_measure.sh
source "$here/idle_measure.sh"

for clock in none clock; do
    write_settings ALAEOnDCWSOfUISPOfISOMOf "$clock"
    : >"$XDG_DATA_HOME/bellwick/my.dat"
    printf '"tomorrow%sonce%s"\r\n' "$(date -d tomorrow +%Y/%m/%d)" "$(date +%H:%M:%S)" \
        >"$XDG_DATA_HOME/bellwick/future.dat"
    "$program" >/dev/null 2>&1 &
    pid=$!
    pids+=($pid)
    sleep 8 # start-up, the tray's grace period and the pace after it are not idle
    idle_windows "$pid" "$seconds" "$clock"
    if [ -n "${STRACE:-}" ]; then
        # Counted apart: tracing stops the threads and would count as wake-ups itself.
        timeout -s INT "$seconds" strace -f -c -q -o "$work/strace-$clock.txt" -p "$pid" >/dev/null 2>&1
        calls=$(awk '$NF == "total" {print $4}' "$work/strace-$clock.txt")
        printf '%-6s system calls/s %.2f\n' "$clock" "$(echo "${calls:-0} / $seconds" | bc -l)"
        sort -k4 -n -r "$work/strace-$clock.txt" | head -8
    fi
    kill "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
done
