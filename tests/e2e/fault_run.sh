#!/usr/bin/env bash
# The real program on a real display under the faults that used to freeze it or leave an alarm silent:
# named pipes planted under the schedule's and the day file's names at start, then an alarm whose wave file
# is cut after its header and whose midi file is no midi at all, which must end in the box that says the
# sound cannot be played, with the message window standing; then an alarm whose wave file is a named pipe,
# which must end in the same box instead of a frozen program; and an alarm on a machine with no sound server
# and no sound device at all, which ends the same way.
# Usage: fault_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
start_desktop
export SDL_AUDIODRIVER=dummy
folder="$XDG_DATA_HOME/bellwick"

stop() {
    kill "$1" 2>/dev/null
    wait "$1" 2>/dev/null
}

# 1. Pipes under the names of the schedule and of the day file loaded at start: the program starts all
#    the same and answers the tray.
mkfifo "$folder/future.dat" "$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
"$program" >"$work/bellwick.log" 2>&1 &
pid=$!
pids+=($pid)
wait_for_icon 10 >/dev/null || { cat "$work/bellwick.log"; fail "no tray icon within 10 s with pipes for files"; }
kill -0 "$pid" 2>/dev/null || fail "the program ended"
echo "started with pipes for future.dat and my.dat"
stop "$pid"
rm -f "$folder/future.dat" "$folder/my.dat"

# 2. A wave cut after its header and a midi file that is text: the box, and the message window. Each alarm is
#    set through the program once it stands: one due while a box holds the tick would pass unrung.
while [ "$(date +%H%M%S)" -gt 235900 ]; do sleep 5; done
: >"$folder/future.dat"
: >"$folder/my.dat"
add_alarm() { due=$("$program" add --in 3s --message "$1" | cut -d' ' -f2) && [ -n "$due" ] || fail "no alarm set"; }
{ printf 'RIFF\x2c\x00\x00\x00WAVEfmt \x10\x00\x00\x00\x01\x00\x01\x00\x44\xac\x00\x00\x88\x58\x01\x00\x02\x00\x10\x00'
  printf 'data\x10\x00\x00\x00'; head -c 16 /dev/zero; } >"$folder/ding.wav"
echo "not a midi file" >"$folder/air.mid"
"$program" >"$work/bellwick.log" 2>&1 &
pid=$!
pids+=($pid)
wait_for_icon 10 >/dev/null || fail "no tray icon"
add_alarm "Fault check"
box=$(wait_for_window '^Bellwick Alarm Clock sp$' 25) || { cat "$work/bellwick.log"; fail "no box for a sound that cannot play"; }
echo "box at $(date +%T) for $due: $(xdotool getwindowname "$box")"
focus_window "$box" || fail "the box would not take the keyboard"
xdotool key Return
wait_for_window '^Message  ' 10 >/dev/null || fail "no message window after the box"
kill -0 "$pid" 2>/dev/null || fail "the program ended"

# 3. A pipe as the wave file at the next alarm: the same box, at once.
rm -f "$folder/ding.wav" && mkfifo "$folder/ding.wav"
add_alarm "Pipe check"
box=$(wait_for_window '^Bellwick Alarm Clock sp$' 20) || { cat "$work/bellwick.log"; fail "no box for a pipe as the song"; }
echo "box at $(date +%T) for $due: $(xdotool getwindowname "$box")"
focus_window "$box" || fail "the box would not take the keyboard"
xdotool key Return
kill -0 "$pid" 2>/dev/null || fail "the program ended"
stop "$pid"

# 4. Our own wave and midi, but no sound server and no device: the box, and the message window.
ding="$(dirname "$program")/share/ding.wav"
rm -f "$folder/ding.wav" "$folder/air.mid"
cp "$ding" "$folder/ding.wav" && cp "$(dirname "$ding")/air.mid" "$folder/air.mid" || fail "no $ding or air.mid"
env -u SDL_AUDIODRIVER "$program" >"$work/bellwick.log" 2>&1 &
pid=$!
pids+=($pid)
wait_for_icon 10 >/dev/null || fail "no tray icon"
add_alarm "No sound at all"
box=$(wait_for_window '^Bellwick Alarm Clock sp$' 25) || { cat "$work/bellwick.log"; fail "no box without a sound server"; }
echo "box at $(date +%T) for $due without a sound server"
focus_window "$box" || fail "the box would not take the keyboard"
xdotool key Return
wait_for_window '^Message  ' 10 >/dev/null || fail "no message window after the box without a sound server"
kill -0 "$pid" 2>/dev/null || fail "the program ended"
echo "3 passed, 0 failed"
