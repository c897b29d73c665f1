#!/usr/bin/env bash
# The desktop clock's outline, snaps, rests, roll-up and close on a real display, to the device pixel: at 120
# and 144 dots per inch a trip through Qt's logical pixels lands one pixel off.
# Usage: clock_run.sh <path to bellwick> <dots per inch: 96, 120 or 144>
dpi="$2"
. "$(dirname "$0")/desktop_env.sh"
start_desktop "$dpi"
write_settings ALAEOfDCWSOfUISPOfISOMOf clock

start_program

# The window is 3000 x 1020 twips; its device pixels follow the density. It starts centred: (1024 x twips per
# pixel - 3000) / 2 twips. The bottom edge holds it short of flush (768 - height) by the step that reached it;
# the runs below step 5 pixels. A roll-up steps the pointer down by the twips-per-pixel figure used as pixels.
case "$dpi" in
96) size=200x68 rolled_top=-15 start_left=412 flush_right=824 bottom_rest=695 pointer_step=15 ;;
120) size=250x85 rolled_top=-20 start_left=387 flush_right=774 bottom_rest=678 pointer_step=12 ;;
144) size=300x102 rolled_top=-24 start_left=362 flush_right=724 bottom_rest=661 pointer_step=10 ;;
*) fail "no figures for $dpi dots per inch" ;;
esac

clock=$(window_of_width "${size%x*}" 10) || fail "no desktop clock of $size pixels"
place() { xdotool getwindowgeometry "$clock" | awk '/Position/ {split($2, p, ","); print p[1], p[2]}'; }
drag() { # grip x y inside the window, to screen x y [, last step], in steps as a hand would: 20 pixels, and the
    # given step (3 unless told) over the last 30 pixels of each axis
    local left top x y tx=$3 ty=$4 step=${5:-3}
    read -r left top < <(place)
    x=$((left + $1)) y=$((top + $2))
    xdotool mousemove "$x" "$y" mousedown 1
    sleep 0.1
    while [ "$x" -ne "$tx" ] || [ "$y" -ne "$ty" ]; do
        step_to x "$tx" "$step"
        step_to y "$ty" "$step"
        xdotool mousemove "$x" "$y"
        sleep 0.01
    done
    xdotool mouseup 1
}
step_to() { # variable to last-step: moves the variable one step towards to
    local d=$(($2 - ${!1})) s=$3
    [ "${d#-}" -gt 30 ] && s=20
    if [ "$d" -gt 0 ]; then printf -v "$1" %d $((${!1} + (d < s ? d : s))); else printf -v "$1" %d $((${!1} - (-d < s ? -d : s))); fi
}
at_place() { stands=$(place) && [ "$stands" = "$1 $2" ]; } # left top; sets stands
expect_place() { # left top, what: where the clock stands once the program has caught up, within 3 s
    eventually 3 at_place "$1" "$2" || fail "$3: the clock stands at $stands, not $1 $2"
    echo "$3: $stands"
}

# 1. It starts centred at the top; its outline is the pill, pixel for pixel, at every density.
expect_place "$start_left" 0 "centred at start"
extents=$(xwininfo -id "$clock" -shape | awk '/Window shape extents/ {print $4}')
[ "$extents" = "155x21+1+1" ] || fail "the outline is $extents, not 155x21+1+1"
echo "outline $extents in a window of $size"

# 2. Dropped 6 pixels from the left edge, it snaps to it; the other axis follows the pointer. The clock never
#    takes the keyboard: the window that had it keeps it through the press and the drag.
typing=$(xdotool search --onlyvisible --class trayer | head -1)
xdotool windowfocus --sync "$typing" 2>/dev/null
had=$(xdotool getwindowfocus)
drag 60 10 66 300
expect_place 0 290 "snapped to the left edge"
[ "$(xdotool getwindowfocus)" = "$had" ] || fail "the clock took the keyboard from window $had"

# 3. The right edge holds it flush; brought down to the bottom edge it rests short of flush by the last step.
drag 60 10 $((60 + flush_right)) 300 5
expect_place "$flush_right" 290 "snapped to the right edge"
drag 60 10 $((60 + flush_right)) $((bottom_rest + 15)) 5
expect_place "$flush_right" "$bottom_rest" "rests in the bottom right corner"

# 4. Dragged above the top edge and let go, it rolls up, leaving a strip to catch the pointer, and steps the
#    pointer off the strip.
drag 60 16 400 0
read -r left _ < <(place)
expect_place "$left" "$rolled_top" "rolled up"
pointer_y=$(xdotool getmouselocation | sed -n 's/.*y:\([-0-9]*\).*/\1/p')
[ "$pointer_y" = "$pointer_step" ] || fail "the roll-up put the pointer at y $pointer_y, not $pointer_step"
echo "pointer stepped off the strip to y $pointer_y"

# Above 120 dots per inch the fixed lift of 252 twips hides the whole pill: only the tray's Show brings it back.
[ "$dpi" -gt 120 ] && exit 0

# 5. The pointer on the strip brings it back.
xdotool mousemove 400 300
sleep 0.2
xdotool mousemove $((left + 60)) 0 sleep 0.1 mousemove $((left + 61)) 0
expect_place "$left" 0 "back under the pointer"

# 6. A left press on the right end closes it.
xdotool mousemove $((left + 146)) 10 click 1
closed() { ! xdotool search --onlyvisible --class bellwick 2>/dev/null | grep -qx "$clock"; }
eventually 3 closed || fail "the clock did not close"
