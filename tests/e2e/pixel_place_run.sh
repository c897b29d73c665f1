#!/usr/bin/env bash
# The desktop clock and the windows on a real display, to the device pixel: at 120 and 144 dots per inch a trip
# through Qt's logical pixels lands one pixel off, as it would for the Alarm Set window's stored places below.
# Usage: pixel_place_run.sh <path to bellwick> <dots per inch: 96, 120 or 144>
dpi="$2"
. "$(dirname "$0")/desktop_env.sh"

# The clock is 3000 x 1020 twips. It starts centred: (1024 x twips per pixel - 3000) / 2 twips. The bottom edge
# holds it short of flush (768 - height) by the step that reached it: 5 pixels below. A roll-up steps the pointer
# down by the twips-per-pixel figure used as pixels.
read -r size start_left flush_right bottom_rest rolled_top pointer_step about stored frame < <(
    awk -v dpi="$dpi" '$1 == dpi {$1 = ""; print}' <<'EOF'
#   clock   start flush bottom rolled pointer About    stored place    its frame
#   size    left  right rest   top    step    box      left,top twips  corner
96  200x68  412   824   695    -15    15      319x208  -               -
120 250x85  387   774   678    -20    12      399x260  2424,1164       202,97
144 300x102 362   724   661    -24    10      479x312  2440,1210       244,121
EOF
)
[ -n "${size:-}" ] || fail "no figures for $dpi dots per inch"

start_desktop "$dpi"
# The clock shown at start, and my.dat loaded, which loads the Alarm Set window hidden.
write_settings ALAEOnDCWSOfUISPOfISOMOf clock
# The stored place is the settings file's first record: top, then left, in 4 bytes each, low byte first.
le32() { printf '\\x%02x\\x%02x\\x00\\x00' $(($1 & 255)) $(($1 >> 8)); }
[ "$stored" = - ] || printf '%-17s%b%b' '[TimeInputLoc]' "$(le32 "${stored#*,}")" "$(le32 "${stored%,*}")" |
    dd of="$folder/tolm.ini" conv=notrunc status=none
start_program

clock=$(window_of_width "${size%x*}" 10) || fail "no desktop clock of $size pixels"
drag() { # grip x y inside the window, to screen x y [, last step], in steps as a hand would
    IFS=, read -r x y < <(frame_corner "$clock")
    x=$((x + $1)) y=$((y + $2))
    xdotool mousemove "$x" "$y" mousedown 1 sleep 0.1
    while [ "$x" -ne "$3" ] || [ "$y" -ne "$4" ]; do
        x=$(step "$x" "$3" "${5:-3}") y=$(step "$y" "$4" "${5:-3}")
        xdotool mousemove "$x" "$y" sleep 0.01
    done
    xdotool mouseup 1
}
step() { # from to last-step: the next point from towards to: 20 pixels on, last-step over the last 30
    local d=$(($2 - $1)) s
    s=$((${d#-} > 30 ? 20 : $3))
    echo $(($1 + (d < 0 ? -1 : 1) * (${d#-} < s ? ${d#-} : s)))
}
frame_corner() { # window: its frame's outer corner in device pixels; the clock's frame is the window itself
    xwininfo -id "$1" | awk '/Absolute upper-left [XY]/ {a[++n] = $4} /Relative upper-left [XY]/ {r[++m] = $4}
        END {print a[1] - r[1] "," a[2] - r[2]}'
}
corner_is() { corner=$(frame_corner "$1") && [ "$corner" = "$2" ]; } # window, frame corner; sets corner
expect_corner() { # window, frame corner, what: the frame's corner stands there within 3 s
    eventually 3 corner_is "$1" "$2" || fail "$3 stands at $corner, not $2"
    echo "$3 stands at $corner"
}

# 1. It starts centred at the top; its outline is the pill, pixel for pixel, at every density.
expect_corner "$clock" "$start_left,0" "the clock, centred at start,"
expect_pill "$clock" "in a window of $size"

# 2. Dropped 6 pixels from the left edge, it snaps to it; the other axis follows the pointer. The clock never
#    takes the keyboard: the window that had it keeps it through the press and the drag.
xdotool windowfocus --sync "$(xdotool search --onlyvisible --class trayer | head -1)" 2>/dev/null
had=$(xdotool getwindowfocus)
drag 60 10 66 300
expect_corner "$clock" 0,290 "the clock, snapped to the left edge,"
[ "$(xdotool getwindowfocus)" = "$had" ] || fail "the clock took the keyboard from window $had"

# 3. The right edge holds it flush; brought down to the bottom edge it rests short of flush by the last step.
drag 60 10 $((60 + flush_right)) 300 5
expect_corner "$clock" "$flush_right,290" "the clock, snapped to the right edge,"
drag 60 10 $((60 + flush_right)) $((bottom_rest + 15)) 5
expect_corner "$clock" "$flush_right,$bottom_rest" "the clock, resting in the bottom right corner,"

# 4. Dragged above the top edge and let go, it rolls up, leaving a strip to catch the pointer, and steps the
#    pointer off the strip.
drag 60 16 400 0
IFS=, read -r left _ < <(frame_corner "$clock")
expect_corner "$clock" "$left,$rolled_top" "the clock, rolled up,"
pointer_y=$(xdotool getmouselocation | sed -n 's/.*y:\([-0-9]*\).*/\1/p')
[ "$pointer_y" = "$pointer_step" ] || fail "the roll-up put the pointer at y $pointer_y, not $pointer_step"
echo "pointer stepped off the strip to y $pointer_y"

# 5. The pointer on the strip brings it back; a left press on its right end closes it. Above 120 dots per inch the
#    fixed lift of 252 twips hides the whole pill: only the tray's Show brings it back.
if [ "$dpi" -le 120 ]; then
    xdotool mousemove 400 300 sleep 0.2 mousemove $((left + 60)) 0 sleep 0.1 mousemove $((left + 61)) 0
    expect_corner "$clock" "$left,0" "the clock, back under the pointer,"
    xdotool mousemove $((left + 146)) 10 click 1
    closed() { ! xdotool search --onlyvisible --class bellwick 2>/dev/null | grep -qx "$clock"; }
    eventually 3 closed || fail "the clock did not close"
fi

icon=$(wait_for_icon 10) || fail "no tray icon"
tray_menu() { # the keys that take the tray menu to a line, then Return; they wait for the menu to stand
    eval "$(xdotool getwindowgeometry --shell "$icon")"
    # A press within the double-click time of the last one is a double click, which opens no menu.
    sleep 0.5
    local before=$(own_windows)
    xdotool mousemove $((X + 5)) $((Y + 5)) click 3
    eventually 5 more_windows_than "$before"
    xdotool key "$@" Return
}
open_alarm_set() { # the menu's third line: About, a separator, Alarm Set
    tray_menu Down Down
    wait_for_window '^Bellwick Alarm Clock( sp)?\.\.\.' 5
}

# 6. The Alarm Set window opens at its stored place, and shown again after a drag and a close, where it was left.
window=$(open_alarm_set) || fail "the tray menu opened no Alarm Set window"
sleep 0.5 # with no stored place the manager may place it once more as it maps it; no state says when it is done
[ "$frame" = - ] || expect_corner "$window" "$frame" "stored at $stored twips, the window"
first=$(frame_corner "$window")
xdotool windowmove "$window" 136 125
moved() { moved=$(frame_corner "$window") && [ "$moved" != "$first" ]; }
eventually 3 moved || fail "the window did not move from $first"
focus_window "$window" || fail "the Alarm Set window would not take the keyboard"
xdotool key alt+F4
eventually 3 window_gone '^Bellwick Alarm Clock'
open_alarm_set >/dev/null || fail "the window did not come back"
expect_corner "$window" "$moved" "moved from $first and shown again, the window"

# 7. The About box: its client area in device pixels, and the middle of the work area.
read -r aw ah <<<"${about/x/ }"
read -r wx wy ww wh _ < <(xprop -root _NET_WORKAREA | sed 's/.*= //; s/,//g')
centre="$((wx + (ww - aw) / 2)),$((wy + (wh - ah) / 2))"
tray_menu Down
box=$(window_of_width "$aw" 5) || fail "the tray menu opened no About box $aw pixels wide"
expect_corner "$box" "$centre" "in the middle of the work area $wx,$wy ${ww}x$wh, the About box"
