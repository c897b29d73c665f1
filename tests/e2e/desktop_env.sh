# Sourced by the desktop runs, with their arguments: $program is the first. Gives a fresh per-user folder ($work,
# $folder), a real X display with a window manager and a tray, a sound server, the program, and waits for its
# windows. The README says what each run checks.

set -uo pipefail
program=${program:-${1:-}}
work=$(mktemp -d)
pids=()
cleanup() {
    local status=$?
    for p in "${pids[@]}"; do kill "$p" 2>/dev/null; done
    pulseaudio_pid=$(cat "$work/run/pulse/pid" 2>/dev/null) && kill "$pulseaudio_pid" 2>/dev/null
    sleep 0.3
    rm -rf "$work"
    [ "$status" -eq 0 ] && echo "$(basename "$0"): all checks passed"
}
trap cleanup EXIT
fail() { # what went wrong; then the last words of the program started by start_program
    echo "FAIL: $*"
    [ -s "$work/stderr.log" ] && { echo "--- the program said:"; tail -20 "$work/stderr.log"; }
    exit 1
}
eventually() { # seconds, command...: true once the command is, tried every tenth of a second
    local tries=$(($1 * 10))
    shift
    for _ in $(seq "$tries"); do "$@" && return 0; sleep 0.1; done
    return 1
}
not_near_midnight() { # HHMMSS: waits while the clock is past it, so that the run's today stays today
    while [ "$(date +%H%M%S)" -gt "$1" ]; do sleep 5; done
}
need_tools() { for tool in "$@"; do command -v "$tool" >/dev/null || fail "$tool is not installed"; done; }

export XDG_DATA_HOME="$work/data" XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work/run" HOME="$work/home"
folder=$XDG_DATA_HOME/bellwick
mkdir -p "$folder" "$XDG_CONFIG_HOME" "$HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"
# No sound device unless the run starts a sound server.
export QT_QPA_PLATFORM=xcb SDL_AUDIODRIVER=dummy

start_desktop() { # [dots per inch] [notray]
    local dpi="${1:-96}"
    need_tools Xvfb openbox trayer xdotool xdpyinfo xprop xwininfo
    # -noreset: a server resets when its last client leaves, and a client that comes just then is turned away.
    # The server picks a free display number itself: one picked at random may still be held by a server that is
    # going away, and the desktop would come up on that one and vanish with it.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -dpi "$dpi" -nolisten tcp -noreset 3>"$work/display" >"$work/xvfb.log" 2>&1 &
    pids+=($!)
    eventually 10 [ -s "$work/display" ] || { cat "$work/xvfb.log"; fail "Xvfb gave no display number"; }
    export DISPLAY=:$(cat "$work/display")
    # Qt takes its scale factor from the font density, as a desktop set to this density would give it.
    if [ "$dpi" != 96 ]; then export QT_FONT_DPI=$dpi; else unset QT_FONT_DPI; fi
    eventually 10 xdpyinfo >/dev/null 2>&1 || { cat "$work/xvfb.log"; fail "Xvfb did not start on $DISPLAY"; }
    openbox >"$work/openbox.log" 2>&1 &
    pids+=($!)
    # On a busy machine the window manager can come up seconds later; windows mapped before it stand unframed.
    managed() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }
    eventually 15 managed || { cat "$work/openbox.log"; fail "openbox did not start on $DISPLAY"; }
    [ "${2:-}" = notray ] || start_tray
}

start_tray() {
    # The tray must stand before the program asks for it; trayer now and then misses a display that just came up.
    for _ in 1 2 3; do
        trayer --edge top --align right --widthtype request --height 26 --transparent false >>"$work/trayer.log" 2>&1 &
        pids+=($!)
        eventually 5 xdotool search --class trayer >/dev/null 2>&1 && sleep 0.5 && return 0
        echo "trayer did not come up, starting it again"
    done
    cat "$work/trayer.log"
    fail "trayer did not start"
}

start_session_bus() { # a private one, for the accessibility bus or a StatusNotifier host
    need_tools dbus-daemon
    { read -r DBUS_SESSION_BUS_ADDRESS && read -r bus_pid; } < <(dbus-daemon --session --fork --print-address=1 --print-pid=1)
    [ -n "${bus_pid:-}" ] || fail "no session bus"
    export DBUS_SESSION_BUS_ADDRESS
    pids+=("$bus_pid")
}

# The settings file: the [Setting] record 4 with the given value, and record 13 when the clock shows at start.
# Settings that load my.dat at start (ALAEOn) get an empty one, unless one stands.
write_settings() { # <record 4 value> [clock]
    [[ "$1" != ALAEOn* ]] || [ -e "$folder/my.dat" ] || : >"$folder/my.dat"
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
    } >"$folder/tolm.ini"
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
    eventually 5 ended "$pid" || kill -9 "$pid" 2>/dev/null
}

# RMS of what the sink plays over some seconds.
record_rms() {
    timeout "$1" parec -d e2e.monitor --raw --format=s16le --rate=22050 --channels=1 >"$work/rec.raw" 2>/dev/null
    [ -s "$work/rec.raw" ] || { echo 0; return; }
    sox -t raw -r 22050 -e signed -b 16 -c 1 "$work/rec.raw" -n stat 2>&1 | awk '/RMS +amplitude/ {print $3}'
}
loud() { awk -v r="$1" 'BEGIN { exit !(r > 0.01) }'; }
silent() { awk -v r="$1" 'BEGIN { exit !(r < 0.001) }'; }
expect_sound() { # what [silence]: the sink plays it over the next 2 s, or stays silent
    local rms
    rms=$(record_rms 2)
    echo "$1 at $(date +%T): RMS $rms"
    if [ "${2:-}" = silence ]; then
        silent "$rms" || fail "$1: the sound goes on"
    else loud "$rms" || fail "$1: no sound was recorded"; fi
}
expect_silence() { expect_sound "$1" silence; } # what
# A recording over what comes next, such as an alarm's due second: started first, then expected loud.
start_recording() { # seconds
    record_rms "$1" >"$work/rms" &
    recording=$!
}
expect_recorded() { # what
    wait "$recording"
    echo "$1 at $(date +%T): RMS $(cat "$work/rms")"
    loud "$(cat "$work/rms")" || fail "$1: no sound was recorded"
}

# The program in the background, its output in $work/out.log and $work/stderr.log; sets pid.
start_program() { # [arguments]
    "$program" "$@" >"$work/out.log" 2>"$work/stderr.log" &
    pid=$!
    pids+=($pid)
}
# The copy that a command of the program started, from the lock; sets pid.
adopt_program() { # [runtime folder]
    pid=$(head -1 "${1:-$XDG_RUNTIME_DIR}/bellwick/bellwick.lock" 2>/dev/null)
    [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null || fail "no running program after the command"
    pids+=("$pid")
}
ended() { ! kill -0 "$1" 2>/dev/null; } # pid
alive() { kill -0 "$pid" 2>/dev/null || fail "the program ended $*"; }
# An alarm a few seconds ahead, set through the program once it stands: one planted ahead of a slow start would
# pass unrung. Sets due.
add_alarm() { # [add options]
    due=$("$program" add --in 3s "$@" | cut -d' ' -f2) && [ -n "$due" ] || fail "no alarm set by add $*"
}

first_window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 | grep .; }
wait_for_window() { eventually "$2" first_window "$1"; } # name pattern, seconds: its id
messages="" # the message windows seen so far, one id a line
new_message() { # a message window not seen before joins messages
    local w
    w=$(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -vxF -e "${messages:-none}" | head -1)
    [ -n "$w" ] && messages+="$w"$'\n'
}
next_message() { eventually "$1" new_message; } # seconds: true once a new message window stands
window_gone() { ! xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; } # name pattern
own_windows() { xdotool search --onlyvisible --class bellwick 2>/dev/null | wc -l; }
more_windows_than() { [ "$(own_windows)" -gt "$1" ]; } # count: a menu or window of ours has come

tray_icon() { # the id of the program's icon-sized window: its icon in the tray
    for w in $(xdotool search --onlyvisible --class bellwick 2>/dev/null); do
        read -r width height < <(xdotool getwindowgeometry "$w" 2>/dev/null |
            awk '/Geometry/ {split($2, g, "x"); print g[1], g[2]}')
        [ "${width:-0}" -gt 8 ] && [ "${width:-0}" -le 64 ] && [ "${height:-0}" -le 64 ] && echo "$w" && return 0
    done
    return 1
}
wait_for_icon() { eventually "$1" tray_icon; } # seconds: the tray icon's id once it stands

of_width() { # pixels: the id of one of the program's windows of that width
    for w in $(xdotool search --onlyvisible --class bellwick 2>/dev/null); do
        xwininfo -id "$w" | grep -q "Width: $1\$" && echo "$w" && return 0
    done
    return 1
}
window_of_width() { eventually "$2" of_width "$1"; } # pixels, seconds
expect_pill() { # clock window, where: its outline is the pill, pixel for pixel, whatever the density
    local extents
    extents=$(xwininfo -id "$1" -shape | awk '/Window shape extents/ {print $4}')
    [ "$extents" = "155x21+1+1" ] || fail "$2: the outline is $extents, not 155x21+1+1"
    echo "$2: outline $extents"
}

# Keys go where the X focus is, which the program takes a moment after the window manager calls it active.
focus_window() { # window id: true once it holds the keyboard
    focused() {
        timeout 1 xdotool windowactivate --sync "$1" 2>/dev/null
        # -f: the window that holds the X focus itself, not a managed window found above it.
        [ "$(timeout 1 xdotool getwindowfocus -f 2>/dev/null)" = "$1" ]
    }
    eventually 3 focused "$1"
}

answer_box() { # seconds, what: the program's box comes, takes the keyboard and is answered
    local box
    box=$(wait_for_window '^Bellwick Alarm Clock sp$' "$1") || fail "no box $2"
    echo "box at $(date +%T) $2"
    focus_window "$box" || fail "the box $2 would not take the keyboard"
    xdotool key Return
}
