# Sourced by the desktop runs: a fresh per-user folder and a real X display with a window manager and a tray.
# Gives: $work, pids, fail, start_desktop [dots per inch] [notray], start_tray, write_settings <record 4 value>
# [clock at start], start_sound_server, stop_sound_server, record_rms <seconds>, wait_for_window <name pattern>
# <seconds>, tray_icon, wait_for_icon <seconds>, window_of_width <pixels> <seconds>, focus_window <id>,
# second_start_refused <program>.

work=$(mktemp -d)
pids=()
cleanup() {
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null; done
    pulseaudio_pid=$(cat "$work/run/pulse/pid" 2>/dev/null) && kill "$pulseaudio_pid" 2>/dev/null
    sleep 0.3
    rm -rf "$work"
}
trap cleanup EXIT
fail() {
    echo "FAIL: $*"
    exit 1
}
need_tools() {
    for tool in "$@"; do
        command -v "$tool" >/dev/null || fail "$tool is not installed"
    done
}

export XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/run" HOME="$work/home"
mkdir -p "$XDG_DATA_HOME/bellwick" "$XDG_CONFIG_HOME" "$HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"
export QT_QPA_PLATFORM=xcb

start_desktop() { # [dots per inch] [notray]
    local dpi="${1:-96}"
    need_tools Xvfb openbox trayer xdotool xdpyinfo xprop
    # -noreset: a server resets when its last client leaves, and a client that comes just then is turned away.
    # The server picks a free display number itself: one picked at random may still be held by a server that is
    # going away, and the desktop would come up on that one and vanish with it.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -dpi "$dpi" -nolisten tcp -noreset 3>"$work/display" >"$work/xvfb.log" 2>&1 &
    pids+=($!)
    local number=""
    for _ in $(seq 100); do number=$(cat "$work/display" 2>/dev/null) && [ -n "$number" ] && break; sleep 0.1; done
    [ -n "$number" ] || { cat "$work/xvfb.log"; fail "Xvfb gave no display number"; }
    display=:$number
    export DISPLAY=$display
    # Qt takes its scale factor from the font density, as a desktop set to this density would give it.
    if [ "$dpi" != 96 ]; then export QT_FONT_DPI=$dpi; else unset QT_FONT_DPI; fi
    local up=""
    for _ in $(seq 100); do xdpyinfo >/dev/null 2>&1 && up=1 && break; sleep 0.1; done
    [ -n "$up" ] || { cat "$work/xvfb.log"; fail "Xvfb did not start on $display"; }
    openbox >"$work/openbox.log" 2>&1 &
    pids+=($!)
    # On a busy machine the window manager can come up seconds later; windows mapped before it stand unframed.
    local managed=""
    for _ in $(seq 150); do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && managed=1 && break
        sleep 0.1
    done
    [ -n "$managed" ] || { cat "$work/openbox.log"; fail "openbox did not start on $display"; }
    [ "${2:-}" = notray ] && return 0
    start_tray
}

start_tray() {
    # The tray must stand before the program asks for it; trayer now and then misses a display that just came up.
    local tray_up=""
    for _ in 1 2 3; do
        trayer --edge top --align right --widthtype request --height 26 --transparent false >>"$work/trayer.log" 2>&1 &
        pids+=($!)
        for _ in $(seq 50); do xdotool search --class trayer >/dev/null 2>&1 && tray_up=1 && break; sleep 0.1; done
        [ -n "$tray_up" ] && break
        echo "trayer did not come up, starting it again"
    done
    [ -n "$tray_up" ] || { cat "$work/trayer.log"; fail "trayer did not start"; }
    sleep 0.5
}

# The settings file: the [Setting] record 4 with the given value, and record 13 when the clock shows at start.
write_settings() { # <record 4 value> [clock]
    {
        head -c 165 /dev/zero
        printf '%-17s' '[Setting]'
        printf '\x01\x00\x00\x00\x01\x00\x00\x00'
        printf '%-30s' "$1"
        if [ "${2:-}" = clock ]; then
            head -c 440 /dev/zero
            printf '%-17s' '[ShowSmallClock]'
            printf '\x01\x00\x00\x00\x00\x00\x00\x00'
            printf '%-30s' ''
        fi
    } >"$XDG_DATA_HOME/bellwick/tolm.ini"
}

# A sound server whose only output is the null sink "e2e", which record_rms listens to.
start_sound_server() {
    need_tools pulseaudio parec sox
    pulseaudio --daemonize=yes -n --exit-idle-time=-1 --disallow-exit --use-pid-file=yes \
        --load="module-null-sink sink_name=e2e" --load="module-native-protocol-unix" \
        --log-target=file:"$work/pulse.log" || fail "pulseaudio did not start"
    export PULSE_SINK=e2e
    unset SDL_AUDIODRIVER
}
stop_sound_server() {
    local pid
    pid=$(cat "$XDG_RUNTIME_DIR/pulse/pid" 2>/dev/null) || return 0
    kill "$pid" 2>/dev/null
    for _ in $(seq 50); do kill -0 "$pid" 2>/dev/null || return 0; sleep 0.1; done
    kill -9 "$pid" 2>/dev/null
}

# RMS of what the sink plays over some seconds.
record_rms() {
    timeout "$1" parec -d e2e.monitor --raw --format=s16le --rate=22050 --channels=1 >"$work/rec.raw" 2>/dev/null
    [ -s "$work/rec.raw" ] || { echo 0; return; }
    sox -t raw -r 22050 -e signed -b 16 -c 1 "$work/rec.raw" -n stat 2>&1 | awk '/RMS +amplitude/ {print $3}'
}

wait_for_window() { # name pattern, seconds
    for _ in $(seq $(($2 * 10))); do
        xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 | grep . && return 0
        sleep 0.1
    done
    return 1
}

tray_icon() { # the id of the program's icon-sized window: its icon in the tray
    for w in $(xdotool search --onlyvisible --class bellwick 2>/dev/null); do
        read -r width height < <(xdotool getwindowgeometry "$w" 2>/dev/null |
            awk '/Geometry/ {split($2, g, "x"); print g[1], g[2]}')
        [ "${width:-0}" -gt 8 ] && [ "${width:-0}" -le 64 ] && [ "${height:-0}" -le 64 ] && echo "$w" && return 0
    done
    return 1
}
wait_for_icon() { # seconds: the tray icon's id once it stands
    for _ in $(seq $(($1 * 10))); do tray_icon && return 0; sleep 0.1; done
    return 1
}

window_of_width() { # pixels, seconds: the id of one of the program's windows of that width
    local w
    for _ in $(seq $(($2 * 10))); do
        for w in $(xdotool search --onlyvisible --class bellwick 2>/dev/null); do
            xwininfo -id "$w" | grep -q "Width: $1\$" && echo "$w" && return 0
        done
        sleep 0.1
    done
    return 1
}

# Keys go where the X focus is, which the program takes a moment after the window manager calls it active.
focus_window() { # window id: true once it holds the keyboard
    for _ in $(seq 30); do
        timeout 1 xdotool windowactivate --sync "$1" 2>/dev/null
        # -f: the window that holds the X focus itself, not a managed window found above it.
        [ "$(timeout 1 xdotool getwindowfocus -f 2>/dev/null)" = "$1" ] && return 0
        sleep 0.1
    done
    return 1
}

second_start_refused() { # <program>: a second start says so, is answered and ends
    "$1" >"$work/second.log" 2>&1 &
    local second_pid=$! refusal
    refusal=$(wait_for_window '^Bellwick Alarm Clock sp$' 10) || fail "second start not refused"
    focus_window "$refusal" || fail "the refusal would not take the keyboard"
    xdotool key Return
    for _ in $(seq 50); do kill -0 "$second_pid" 2>/dev/null || break; sleep 0.1; done
    kill -0 "$second_pid" 2>/dev/null && fail "second copy still runs"
    return 0
}
