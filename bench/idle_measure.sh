# What an idle process costs: wake-ups (voluntary context switches of all its threads) per second and CPU % (run
# time of all threads), the median of three windows. Sourced by idle_cost.sh and peer_idle.sh.
# Gives: switches <pid>, cpu_ns <pid>, median, idle_windows <pid> <seconds> <label>.

switches() { # all threads' voluntary context switches
    cat /proc/"$1"/task/*/status 2>/dev/null | awk '/^voluntary_ctxt_switches/ {s += $2} END {print s + 0}'
}
cpu_ns() { cat /proc/"$1"/task/*/schedstat 2>/dev/null | awk '{s += $1} END {printf "%d", s}'; } # run time, all threads
median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }

idle_windows() { # <pid> <seconds> <label>: prints the medians of three windows
    local pid=$1 seconds=$2 label=$3 s0 c0 s1 c1
    : >"$work/wakes" && : >"$work/cpu"
    for _ in 1 2 3; do
        s0=$(switches "$pid") c0=$(cpu_ns "$pid")
        sleep "$seconds"
        s1=$(switches "$pid") c1=$(cpu_ns "$pid")
        echo "($s1 - $s0) / $seconds" | bc -l >>"$work/wakes"
        echo "($c1 - $c0) / 10000000 / $seconds" | bc -l >>"$work/cpu"
    done
    printf '%-6s wake-ups/s %.3f  CPU %% %.4f  (windows: %s)\n' "$label" "$(median <"$work/wakes")" \
        "$(median <"$work/cpu")" "$(xargs printf '%.3f ' <"$work/wakes")"
}
