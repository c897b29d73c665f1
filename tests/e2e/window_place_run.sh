#!/usr/bin/env bash
# Windows stand on the device pixel they are given, also where Qt's logical pixels cannot reach it.
# Usage: window_place_run.sh <path to bellwick> [dots per inch: 96, 120 or 144]
dpi="${2:-96}"
. "$(dirname "$0")/desktop_env.sh"
start_desktop "$dpi"
write_settings ALAEOnDCWSOfUISPOfISOMOf
# Stored places whose pixels a trip through Qt's logical pixels would miss by one.
case "$dpi" in
96) frame="" ;;
120) left=2424 top=1164 frame="202 97" ;;
144) left=2440 top=1210 frame="244 121" ;;
*) fail "no figures for $dpi dots per inch" ;;
esac
if [ -n "$frame" ]; then
    {
        printf '%-17s' '[TimeInputLoc]'
        printf "$(printf '\\x%02x\\x%02x\\x00\\x00' $((top & 255)) $((top >> 8)) $((left & 255)) $((left >> 8)))"
    } | dd of="$folder/tolm.ini" conv=notrunc status=none
fi
start_program
icon=$(wait_for_icon 10) || fail "no tray icon"

tray_menu() { # the keys that take the tray menu to a line, then Return; they wait for the menu to stand
    eval "$(xdotool getwindowgeometry --shell "$icon")"
    # A press within the double-click time of the last one is a double click, which opens no menu.
    sleep 0.5
    local before
    before=$(own_windows)
    xdotool mousemove $((X + 5)) $((Y + 5)) click 3
    eventually 5 more_windows_than "$before"
    xdotool key "$@" Return
}
open_alarm_set() { # the menu's third line: About, a separator, Alarm Set
    tray_menu Down Down
    wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 5
}
# The frame's outer corner in device pixels.
frame_corner() { xwininfo -id "$1" | awk '/Absolute upper-left [XY]/ {a[++n] = $4} /Relative upper-left [XY]/ {r[++m] = $4}
    END {print a[1] - r[1], a[2] - r[2]}'; }
corner_is() { corner=$(frame_corner "$1") && [ "$corner" = "$2" ]; } # window, frame corner; sets corner
wait_for_corner() { eventually 3 corner_is "$@"; echo "$corner"; } # window, frame corner: where it stands after 3 s

window=$(open_alarm_set) || fail "the tray menu opened no Alarm Set window"
sleep 0.5
if [ -n "$frame" ]; then
    corner=$(wait_for_corner "$window" "$frame")
    [ "$corner" = "$frame" ] || fail "stored at $left, $top twips, the frame's corner stands at $corner, not $frame"
    echo "stored place: frame at $corner"
fi

first=$(frame_corner "$window")
xdotool windowmove "$window" 136 125
moved() { moved=$(frame_corner "$window") && [ "$moved" != "$first" ]; }
eventually 3 moved || fail "the window did not move from $first"
focus_window "$window" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+F4
eventually 3 window_gone '^Bellwick Alarm Clock'
open_alarm_set >/dev/null || fail "the window did not come back"
again=$(wait_for_corner "$window" "$moved")
echo "frame first at $first, moved to $moved, shown again at $again"
[ "$again" = "$moved" ] || fail "shown again at $again, not where it was left ($moved)"

# The About box: its client area in device pixels, and the middle of the work area.
case "$dpi" in
96) about="319 208" ;;
120) about="399 260" ;;
144) about="479 312" ;;
esac
read -r aw ah <<<"$about"
read -r wx wy ww wh < <(xprop -root _NET_WORKAREA | sed 's/.*= //; s/,//g' | awk '{print $1, $2, $3, $4}')
centre="$((wx + (ww - aw) / 2)) $((wy + (wh - ah) / 2))"
tray_menu Down
box=$(window_of_width "$aw" 5) || fail "the tray menu opened no About box $aw pixels wide"
corner=$(wait_for_corner "$box" "$centre")
echo "About box: frame at $corner in the work area $wx,$wy ${ww}x$wh"
[ "$corner" = "$centre" ] || fail "the About box stands at $corner, not in the middle at $centre"
