#!/usr/bin/env bash
# The real program while its sound server goes away and comes back, with a song whose header claims 4 GB.
# Usage: sound_server_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
start_desktop
start_sound_server

# Our ding with RIFF and data sizes of 0xFFFFFFF0: what the file holds plays.
ding="$(dirname "$program")/share/ding.wav"
[ -f "$ding" ] || fail "no $ding"
cp "$ding" "$folder/ding.wav"
for offset in 4 40; do
    printf '\xf0\xff\xff\xff' | dd of="$folder/ding.wav" bs=1 seek=$offset conv=notrunc status=none
done

# Each alarm is set only once the state before it stands: the program up, the server back, the server gone.
not_near_midnight 235900
: >"$folder/future.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
start_program
wait_for_icon 10 >/dev/null || fail "no tray icon"
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
    box=$(wait_for_window '^Bellwick Alarm Clock sp$' "${2:-5}") || fail "no box $1"
    alive "$1"
    eventually 3 box_on_top "$box" || fail "the box $1 stands under a message window"
    # Return must reach the box, not the message window standing beside it.
    answer_box 1 "$1"
}

# 1. The first alarm rings until its server dies: then the box, and its message window stands.
add_alarm --plays repeat --message "Server check one"
next_message 15 || fail "no message window"
expect_sound "the first alarm"
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
first_stands() { xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -qxF "${messages%$'\n'}"; }
eventually 3 first_stands || fail "the first message window went with the box"

# 2. The server comes back; the next alarm is heard.
start_sound_server
armed() { "$program" list | grep -qx "$today $later once While the box stood"; }
eventually 3 armed || fail "the add queued behind the box was not armed"
# A ding once lasts about a second: the recording starts before the alarm is set and spans its due second.
record_rms 8 >"$work/rms" &
recording=$!
add_alarm --message "Server check two"
next_message 15 || fail "no second message window"
wait "$recording"
echo "second alarm at $(date +%T): RMS $(cat "$work/rms")"
loud "$(cat "$work/rms")" || fail "the second alarm was not heard after the server came back"

# 3. The server goes for good: the third alarm gives the box, then its message window.
stop_sound_server
add_alarm --message "Server check three"
box_then_ok "for the third alarm with no server" 10
# The second alarm may still have been sounding when the server went: then its own box came first.
if ! next_message 3; then
    box_then_ok "for the third alarm with no server, after the second alarm's" 10
    next_message 5 || fail "no third message window"
fi
alive "after the third alarm"
