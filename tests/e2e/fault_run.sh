#!/usr/bin/env bash
# The faults that used to freeze the program or leave an alarm silent: pipes for files, sounds that cannot play.
# Usage: fault_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
start_desktop
stop() { kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null; }

# 1. Pipes under the names of the schedule and of the day file loaded at start: the program starts all the same.
mkfifo "$folder/future.dat" "$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
start_program
wait_for_icon 10 >/dev/null || fail "no tray icon within 10 s with pipes for files"
alive "with pipes for files"
stop
rm -f "$folder/future.dat" "$folder/my.dat"

# 2. A wave cut after its header and a midi file that is text: the box, and the message window.
not_near_midnight 235900
: >"$folder/future.dat"
: >"$folder/my.dat"
{ printf 'RIFF\x2c\x00\x00\x00WAVEfmt \x10\x00\x00\x00\x01\x00\x01\x00\x44\xac\x00\x00\x88\x58\x01\x00\x02\x00\x10\x00'
  printf 'data\x10\x00\x00\x00'; head -c 16 /dev/zero; } >"$folder/ding.wav"
echo "not a midi file" >"$folder/air.mid"
start_program
wait_for_icon 10 >/dev/null || fail "no tray icon"
add_alarm --message "Fault check"
answer_box 25 "for a sound that cannot play at $due"
wait_for_window '^Message  ' 10 >/dev/null || fail "no message window after the box"
alive "after the box"

# 3. A pipe as the wave file at the next alarm: the same box, at once.
rm -f "$folder/ding.wav" && mkfifo "$folder/ding.wav"
add_alarm --message "Pipe check"
answer_box 20 "for a pipe as the song at $due"
alive "after the box for a pipe"
stop

# 4. Our own wave and midi, but no sound server and no device: the box, and the message window.
share="$(dirname "$program")/share"
rm -f "$folder/ding.wav"
cp "$share/ding.wav" "$share/air.mid" "$folder/" || fail "no ding.wav or air.mid in $share"
unset SDL_AUDIODRIVER
start_program
wait_for_icon 10 >/dev/null || fail "no tray icon"
add_alarm --message "No sound at all"
answer_box 25 "without a sound server at $due"
wait_for_window '^Message  ' 10 >/dev/null || fail "no message window after the box without a sound server"
alive "without a sound server"
