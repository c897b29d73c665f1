#!/usr/bin/env bash
# The desktop clock on a real X display at a given density: its outline is the 155 x 21 pixel pill, it snaps
# to the left edge, rolls up behind the top edge when dropped above it, comes back under the pointer and
# closes on a left press at its right end.
# Usage: clock_run.sh <path to bellwick> <dots per inch: 96, 120 or 144>
set -uo pipefail
program="$1"
dpi="$2"
. "$(dirname "$0")/desktop_env.sh"
need_tools xwininfo
start_desktop "$dpi"
export SDL_AUDIODRIVER=dummy
write_settings ALAEOfDCWSOfUISPOfISOMOf clock

"$program" >"$work/bellwick.log" 2>&1 &
pids+=($!)

# The window is 3000 x 1020 twips; its device pixels follow the density.
case "$dpi" in
96) size=200x68 rolled_top=-15 ;;
120) size=250x85 rolled_top=-20 ;;
144) size=300x102 rolled_top=-24 ;;
*) fail "no figures for $dpi dots per inch" ;;
esac

clock=""
for _ in $(seq 100); do
    for w in $(xdotool search --onlyvisible --class bellwick 2>/dev/null); do
        xwininfo -id "$w" | grep -q "Width: ${size%x*}\$" && clock=$w
    done
    [ -n "$clock" ] && break
    sleep 0.1
done
[ -n "$clock" ] || { cat "$work/bellwick.log"; fail "no desktop clock of $size pixels"; }
place() { xdotool getwindowgeometry "$clock" | awk '/Position/ {split($2, p, ","); print p[1], p[2]}'; }
drag() { # grip x y inside the window, to screen x y, in small steps as a hand would
    local left top x y tx=$3 ty=$4
    read -r left top < <(place)
    x=$((left + $1)) y=$((top + $2))
    xdotool mousemove "$x" "$y" mousedown 1
    sleep 0.1
    while [ "$x" -ne "$tx" ] || [ "$y" -ne "$ty" ]; do
        [ "$x" -lt "$tx" ] && x=$((x + 3 > tx ? tx : x + 3))
        [ "$x" -gt "$tx" ] && x=$((x - 3 < tx ? tx : x - 3))
        [ "$y" -lt "$ty" ] && y=$((y + 3 > ty ? ty : y + 3))
        [ "$y" -gt "$ty" ] && y=$((y - 3 < ty ? ty : y - 3))
        xdotool mousemove "$x" "$y"
        sleep 0.02
    done
    xdotool mouseup 1
    sleep 0.4
}
expect_place() { # left top, what
    local left top
    read -r left top < <(place)
    [ "$left $top" = "$1 $2" ] || fail "$3: the clock stands at $left,$top, not $1,$2"
    echo "$3: $left,$top"
}

# 1. The outline is the pill, pixel for pixel, at every density.
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

# 3. Dragged above the top edge and let go, it rolls up, leaving a strip to catch the pointer.
drag 60 16 400 0
read -r left _ < <(place)
expect_place "$left" "$rolled_top" "rolled up"

# Above 120 dots per inch the fixed lift of 252 twips hides the whole pill: only the tray's Show brings it back.
if [ "$dpi" -gt 120 ]; then
    echo "1 passed, 0 failed"
    exit 0
fi

# 4. The pointer on the strip brings it back.
xdotool mousemove 400 300
sleep 0.2
xdotool mousemove $((left + 60)) 0
sleep 0.1
xdotool mousemove $((left + 61)) 0
sleep 0.5
expect_place "$left" 0 "back under the pointer"

# 5. A left press on the right end closes it.
xdotool mousemove $((left + 146)) 10 click 1
sleep 0.5
xdotool search --onlyvisible --class bellwick 2>/dev/null | grep -qx "$clock" && fail "the clock did not close"
echo "1 passed, 0 failed"
