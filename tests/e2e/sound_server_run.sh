#!/usr/bin/env bash
# The real program while its sound fails: no sound server at start, one that dies under a ringing alarm and comes
# back, a song whose header claims 4 GB, a wave cut after its header, a pipe for the wave.
# Usage: sound_server_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
start_desktop

# Our ding with RIFF and data sizes of 0xFFFFFFF0: what the file holds plays.
ding="$(dirname "$program")/share/ding.wav"
[ -f "$ding" ] || fail "no $ding"
cp "$ding" "$folder/ding.wav"
for offset in 4 40; do
    printf '\xf0\xff\xff\xff' | dd of="$folder/ding.wav" bs=1 seek=$offset conv=notrunc status=none
done

# Each alarm is set only once the state before it stands: the program up, the server there, gone or back. The
# add made at the second step, 90 s ahead, stays on today.
not_near_midnight 235600
: >"$folder/future.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
# No sound server and no device: SDL may pick any real driver, and none can open.
unset SDL_AUDIODRIVER
start_program
wait_for_icon 10 >/dev/null || fail "no tray icon"
# Whether the box's frame stands above every message window's. xwininfo lists the root's children, the window
# manager's frames, top first: the box's must come before the first message window's.
box_on_top() { # <box>
    xwininfo -root -tree | awk -v box="$(printf '0x%x' "$1")" \
        -v messages=" $(printf '0x%x ' $(xdotool search --onlyvisible --name '^Message  ' 2>/dev/null))" '
        /^     0x/ { frame++ }
        $1 == box { box_at = frame }
        index(messages, " " $1 " ") && !message_at { message_at = frame }
        END { exit !(box_at && (!message_at || box_at < message_at)) }'
}
box_then_ok() { # what, seconds
    local box
    box=$(wait_for_window '^Bellwick Alarm Clock sp$' "$2") || fail "no box $1"
    alive "$1"
    eventually 3 box_on_top "$box" || fail "the box $1 stands under a message window"
    # Return must reach the box, not a message window standing beside it.
    answer_box 1 "$1"
}

# 1. No sound server: the box, then the message window.
add_alarm --message "No sound at all"
box_then_ok "without a sound server at $due" 25
next_message 10 || fail "no message window after the box without a sound server"

# 2. With the server the same program rings; the server dies under the alarm: the box, and its window stands.
start_sound_server
add_alarm --plays repeat --message "Server check one"
next_message 15 || fail "no message window"
first=$(tail -1 <<<"${messages%$'\n'}")
expect_sound "the first alarm"
stop_sound_server
# While the box stands the command line is answered at once: list with what is armed, add with what it will arm.
wait_for_window '^Bellwick Alarm Clock sp$' 10 >/dev/null || fail "no box when the server died under the first alarm"
timeout 5 "$program" list >"$work/list.out" 2>&1 || fail "list while the box stands: $? $(cat "$work/list.out")"
today=$(date +%Y/%m/%d)
later=$(date -d "@$(($(date +%s) + 90))" +%H:%M:%S)
timeout 5 "$program" add --time "$later" --message "While the box stood" >"$work/add.out" 2>"$work/add.err" ||
    fail "add while the box stands: $? $(cat "$work/add.err")"
grep -qx 'bellwick: queued until the box is answered' "$work/add.err" ||
    fail "add while the box stands said $(cat "$work/add.err")"
grep -qx "$today $later once While the box stood" "$work/add.out" ||
    fail "add while the box stands printed $(cat "$work/add.out")"
box_then_ok "when the server died under the first alarm" 5
# The window manager may take a moment to show it again once the box has gone.
first_stands() { xdotool search --onlyvisible --name '^Message  ' 2>/dev/null | grep -qxF "$first"; }
eventually 3 first_stands || fail "the first message window went with the box"

# 3. The server comes back; the next alarm is heard.
start_sound_server
armed() { "$program" list | grep -qx "$today $later once While the box stood"; }
eventually 3 armed || fail "the add queued behind the box was not armed"
# A ding once lasts about a second: the recording starts before the alarm is set and spans its due second.
start_recording 8
add_alarm --message "Server check two"
next_message 15 || fail "no second message window"
expect_recorded "the second alarm, after the server came back"

# 4. A wave cut after its header and a midi file that is text: the box, then the message window.
{ printf 'RIFF\x2c\x00\x00\x00WAVEfmt \x10\x00\x00\x00\x01\x00\x01\x00\x44\xac\x00\x00\x88\x58\x01\x00\x02\x00\x10\x00'
  printf 'data\x10\x00\x00\x00'; head -c 16 /dev/zero; } >"$folder/ding.wav"
echo "not a midi file" >"$folder/air.mid"
add_alarm --message "Fault check"
box_then_ok "for a sound that cannot play at $due" 25
next_message 10 || fail "no message window after the box for a sound that cannot play"

# 5. A pipe for the wave: the same box, at once.
rm -f "$folder/ding.wav" && mkfifo "$folder/ding.wav"
add_alarm --message "Pipe check"
box_then_ok "for a pipe as the song at $due" 20
next_message 10 || fail "no message window after the box for a pipe"
