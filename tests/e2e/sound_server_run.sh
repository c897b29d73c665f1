#!/usr/bin/env bash
# The real program while its sound server goes away and comes back, with a song whose header claims 4 GB:
# a repeating alarm whose server dies while it rings ends in the box that says the sound cannot be played,
# with its message window standing and the box above it; while it stands the command line is answered at once
# (an add waits for the box and is armed after it); the server is started again and the next alarm is heard; the
# server goes away for good and the third alarm gives the box again.
# Usage: sound_server_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop
start_sound_server
folder="$XDG_DATA_HOME/bellwick"

# Our ding with RIFF and data sizes of 0xFFFFFFF0: what the file holds plays.
ding="$(dirname "$program")/share/ding.wav"
[ -f "$ding" ] || fail "no $ding"
cp "$ding" "$folder/ding.wav"
for offset in 4 40; do
    printf '\xf0\xff\xff\xff' | dd of="$folder/ding.wav" bs=1 seek=$offset conv=notrunc status=none
done

# Each alarm is set only once the state before it stands: the program up, the server back, the server gone.
while [ "$(date +%H%M%S)" -gt 235900 ]; do sleep 5; done
: >"$folder/future.dat"
: >"$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
"$program" >"$work/bellwick.log" 2>&1 &
pid=$!
pids+=($pid)
wait_for_icon 10 >/dev/null || { cat "$work/bellwick.log"; fail "no tray icon"; }
add_alarm() { # plays, message
    "$program" add --in 3s --plays "$1" --message "$2" >>"$work/add.log" 2>&1 || { cat "$work/add.log"; fail "add $2"; }
}
alive() { kill -0 "$pid" 2>/dev/null || { cat "$work/bellwick.log"; fail "the program ended $*"; }; }
# Whether the box stands above every message window as the X server stacks their frames, bottom to top.
# (openbox's _NET_CLIENT_LIST_STACKING lists a modal box at the bottom even where its frame stands on top.)
frame_of() { # <client window>: its top-level ancestor, the window manager's frame
    local w=$1 parent
    while parent=$(xwininfo -id "$w" -tree 2>/dev/null | awk '/Parent window id/ {print $4}') &&
        [ -n "$parent" ] && [ "$((parent))" != "$root" ]; do
        w=$((parent))
    done
    echo "$((w))"
}
box_on_top() { # <box>
    local order box_frame box_at=-1 message_at=-1 at=0 id w
    root=$(xwininfo -root | awk '/Window id/ {print $4}')
    root=$((root))
    box_frame=$(frame_of "$1")
    local message_frames=""
    for w in $(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null); do message_frames+="$(frame_of "$w")"$'\n'; done
    order=$(xwininfo -root -children | awk '/^ +0x/ {print $1}')
    for id in $order; do
        [ "$((id))" = "$box_frame" ] && box_at=$at
        grep -qxF "$((id))" <<<"$message_frames" && message_at=$at
        at=$((at + 1))
    done
    [ "$box_at" -gt "$message_at" ]
}
box_then_ok() { # what for, [seconds]
    local box
    box=$(wait_for_window '^Bellwick Alarm Clock sp$' "${2:-5}") || { cat "$work/bellwick.log"; fail "no box $1"; }
    echo "box at $(date +%T) $1"
    alive "$1"
    for _ in $(seq 30); do box_on_top "$box" && break; sleep 0.1; done
    box_on_top "$box" || fail "the box $1 stands under a message window"
    # Return must reach the box, not the message window standing beside it.
    focus_window "$box" || fail "the box $1 would not take the keyboard"
    xdotool key Return
}
messages=""
next_message() { # seconds; the id of a message window not seen before
    local w
    for _ in $(seq $(($1 * 10))); do
        w=$(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -vxF -e "${messages:-none}" | head -1)
        [ -n "$w" ] && messages+="$w"$'\n' && return 0
        sleep 0.1
    done
    return 1
}

# 1. The first alarm rings until its server dies: then the box, and its message window stands.
add_alarm repeat "Server check one"
next_message 15 || { cat "$work/bellwick.log"; fail "no message window"; }
rms=$(record_rms 2)
echo "first alarm at $(date +%T): RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r > 0.01) }' || fail "the first alarm was not heard"
stop_sound_server
# While the box stands the command line is answered at once: list with what is armed, add with what it will arm.
wait_for_window '^Bellwick Alarm Clock sp$' 10 >/dev/null || fail "no box when the server died under the first alarm"
timeout 5 "$program" list >"$work/list.out" 2>&1 || fail "list while the box stands: $? $(cat "$work/list.out")"
today=$(date +%Y/%m/%d)
later=$(date -d "@$(($(date +%s) + 90))" +%H:%M:%S)
timeout 5 "$program" add --time "$later" --message "While the box stood" >"$work/add.out" 2>"$work/add.err" ||
    fail "add while the box stands: $? $(cat "$work/add.err")"
grep -qx 'bellwick: queued until the box is answered' "$work/add.err" || fail "add while the box stands said $(cat "$work/add.err")"
grep -qx "$today $later once While the box stood" "$work/add.out" || fail "add while the box stands printed $(cat "$work/add.out")"
box_then_ok "when the server died under the first alarm"
# The window manager may take a moment to show it again once the box has gone.
for _ in $(seq 30); do
    xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -qxF "${messages%$'\n'}" && break
    sleep 0.1
done
xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -qxF "${messages%$'\n'}" ||
    fail "the first message window went with the box"

# 2. The server comes back; the next alarm is heard.
start_sound_server
for _ in $(seq 30); do "$program" list | grep -qx "$today $later once While the box stood" && break; sleep 0.1; done
"$program" list | grep -qx "$today $later once While the box stood" || fail "the add queued behind the box was not armed"
# A ding once lasts about a second: the recording starts before the alarm is set and spans its due second.
record_rms 8 >"$work/rms" &
recording=$!
add_alarm once "Server check two"
next_message 15 || { cat "$work/bellwick.log"; fail "no second message window"; }
wait "$recording"
rms=$(cat "$work/rms")
echo "second alarm at $(date +%T): RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r > 0.01) }' || fail "the second alarm was not heard after the server came back"

# 3. The server goes for good: the third alarm gives the box, then its message window.
stop_sound_server
add_alarm once "Server check three"
box_then_ok "for the third alarm with no server" 10
# The second alarm may still have been sounding when the server went: then its own box came first.
if ! next_message 3; then
    box_then_ok "for the third alarm with no server, after the second alarm's" 10
    next_message 5 || { cat "$work/bellwick.log"; fail "no third message window"; }
fi
alive "after the third alarm"
echo "1 passed, 0 failed"
