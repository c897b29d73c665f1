#!/usr/bin/env bash
# Runs the real program against a StatusNotifier tray, the D-Bus tray of KDE Plasma and AppIndicator desktops, on a
# real X display with no XEmbed tray: the icon shows in the host, its menu over D-Bus holds the eight entries in
# order, a left click on the icon in the host stops a repeating alarm, and Remove from that menu ends the program.
# Then a host that comes a moment after the program still gets the icon, with no stand-in window, and while an
# error box is up an entry picked in that menu does nothing. Last, the menu opens from the host's keyboard calls
# (ContextMenu, SecondaryActivate) and takes keys.
# Usage: notifier_tray_run.sh <path to bellwick>
set -uo pipefail
program="$1"
. "$(dirname "$0")/desktop_env.sh"
need_tools pulseaudio parec sox dbus-daemon dbus-monitor gdbus status-notifier-watcher gtk-sni-tray-standalone \
    import convert
start_desktop 96 notray

{ read -r DBUS_SESSION_BUS_ADDRESS && read -r bus_pid; } < <(dbus-daemon --session --fork --print-address=1 --print-pid=1)
[ -n "${bus_pid:-}" ] || fail "no session bus"
export DBUS_SESSION_BUS_ADDRESS
pids+=("$bus_pid")

pulseaudio --daemonize=yes -n --exit-idle-time=-1 --disallow-exit --use-pid-file=yes \
    --load="module-null-sink sink_name=e2e" --load="module-native-protocol-unix" \
    --log-target=file:"$work/pulse.log" || fail "pulseaudio did not start"
export PULSE_SINK=e2e
unset SDL_AUDIODRIVER

watcher_get() { # property of the StatusNotifierWatcher
    gdbus call --session --dest org.kde.StatusNotifierWatcher --object-path /StatusNotifierWatcher \
        --method org.freedesktop.DBus.Properties.Get org.kde.StatusNotifierWatcher "$1" 2>/dev/null
}
host_bar() { # the host's own window: the wide one
    for w in $(xdotool search --onlyvisible --class gtk-sni-tray-standalone 2>/dev/null); do
        xdotool getwindowgeometry "$w" 2>/dev/null | grep -q 'Geometry: 1024x' && echo "$w" && return 0
    done
    return 1
}
start_host() {
    status-notifier-watcher >>"$work/watcher.log" 2>&1 &
    watcher_pid=$!
    pids+=($watcher_pid)
    for _ in $(seq 50); do watcher_get ProtocolVersion >/dev/null && break; sleep 0.1; done
    gtk-sni-tray-standalone --top --end --size 26 --color white >>"$work/host.log" 2>&1 &
    host_pid=$!
    pids+=($host_pid)
    # The host registers first and maps its bar after.
    local registered="" deadline=$((SECONDS + 15))
    while [ $SECONDS -lt $deadline ]; do
        [ -n "$registered" ] || { watcher_get IsStatusNotifierHostRegistered | grep -q true && registered=1; }
        [ -n "$registered" ] && bar=$(host_bar) && return 0
        sleep 0.1
    done
    tail -5 "$work/host.log"
    [ -n "$registered" ] || fail "the StatusNotifier host did not register"
    fail "the StatusNotifier host showed no bar"
}
item_registered() { watcher_get RegisteredStatusNotifierItems | grep -q "'"; }
wait_for_item() { # seconds
    for _ in $(seq $(($1 * 10))); do item_registered && return 0; sleep 0.1; done
    return 1
}
# The icon as the host drew it in its white bar: "width height x y" of what is not white.
drawn_icon() {
    import -window "$bar" "$work/bar.png" 2>/dev/null
    convert "$work/bar.png" -bordercolor white -border 1 -fuzz 15% -trim \
        -format '%w %h %[fx:page.x-1] %[fx:page.y-1]' info: 2>/dev/null
}
menu_layout() { # "service path" of the first registered item's menu, then its layout
    local entry service path menu
    entry=$(watcher_get RegisteredStatusNotifierItems | grep -o "'[^']*'" | head -1 | tr -d "'")
    service=${entry%%/*}
    path=/StatusNotifierItem
    [ "$service" != "$entry" ] && path=/${entry#*/}
    menu=$(gdbus call --session --dest "$service" --object-path "$path" --method org.freedesktop.DBus.Properties.Get \
        org.kde.StatusNotifierItem Menu | grep -o "'/[^']*'" | tr -d "'")
    [ -n "$menu" ] || return 1
    echo "$service $menu"
    gdbus call --session --dest "$service" --object-path "$menu" --method com.canonical.dbusmenu.GetLayout -- 0 -1 '[]'
}
click_entry() { # label: picked as the host does when the user clicks it
    local layout service menu id
    layout=$(menu_layout) || return 1
    read -r service menu <<<"$layout"
    id=$(grep -oE "<\(([0-9]+), \{[^}]*'label': <'$1'>" <<<"$layout" | grep -oE '[0-9]+' | head -1)
    [ -n "$id" ] || return 1
    gdbus call --session --dest "$service" --object-path "$menu" --method com.canonical.dbusmenu.Event \
        -- "$id" clicked '<0>' 0 >/dev/null
}
record_rms() {
    timeout "$1" parec -d e2e.monitor --raw --format=s16le --rate=22050 --channels=1 >"$work/rec.raw" 2>/dev/null
    [ -s "$work/rec.raw" ] || { echo 0; return; }
    sox -t raw -r 22050 -e signed -b 16 -c 1 "$work/rec.raw" -n stat 2>&1 | awk '/RMS +amplitude/ {print $3}'
}

start_host
folder="$XDG_DATA_HOME/bellwick"
# Alarms are set through the program once it stands: one planted ahead of a slow start would pass unrung.
while [ "$(date +%H%M%S)" -gt 235900 ]; do sleep 5; done
: >"$folder/my.dat"
write_settings ALAEOnDCWSOfUISPOfISOMOf
"$program" >"$work/out.log" 2>"$work/stderr.log" &
main_pid=$!
pids+=($main_pid)

# 1. The icon: registered with the watcher and drawn by the host.
wait_for_item 10 || { cat "$work/stderr.log"; fail "the icon never registered with the watcher"; }
entry=$(watcher_get RegisteredStatusNotifierItems | grep -o "'[^']*'" | head -1 | tr -d "'")
service=${entry%%/*}
path=/StatusNotifierItem
[ "$service" != "$entry" ] && path=/${entry#*/}
[ "$(watcher_get RegisteredSNIEntries | grep -o "'/" | wc -l)" -eq 1 ] ||
    fail "not one item registered: $(watcher_get RegisteredSNIEntries)"
icon=""
for _ in $(seq 30); do
    read -r width height x y < <(drawn_icon)
    [ "${height:-0}" -ge 12 ] && [ "${height:-0}" -le 40 ] && [ "${width:-0}" -ge 12 ] && icon=1 && break
    sleep 0.1
done
[ -n "$icon" ] || fail "the host drew no icon (not white: ${width:-?}x${height:-?})"
# Now and then this host draws one item twice when the item's first updates cross its registration.
copies=$(((width + height / 2) / height))
[ "$copies" -le 2 ] || fail "the host drew $copies icons for one item"
echo "icon: $service $path, drawn ${width}x${height} at $x,$y ($copies copies)"
# Clicks go to the middle of the first copy.
width=$height

# 2. The menu over D-Bus, as the host shows it: the eight entries in order with their separators.
layout=$(menu_layout) || fail "the item has no menu"
entries=$(grep -oE "'label': <'[^']*'>|'type': <'separator'>" <<<"$layout" |
    sed -e "s/'type': <'separator'>/-/" -e "s/'label': <'\(.*\)'>/\1/" | paste -sd '|')
expected=' About  |-| Alarm Set  | Show| Settings  |-| Help  | Stop  |-| Disable  | Remove  '
[ "$entries" = "$expected" ] || fail "menu over D-Bus: [$entries], wanted [$expected]"
echo "menu: [$entries]"
# The host opens it on a right click: a popup window of its own.
before=$(xdotool search --onlyvisible --class gtk-sni-tray-standalone 2>/dev/null | wc -l)
xdotool mousemove --window "$bar" $((x + width / 2)) $((y + height / 2)) click 3
opened=""
for _ in $(seq 30); do
    [ "$(xdotool search --onlyvisible --class gtk-sni-tray-standalone 2>/dev/null | wc -l)" -gt "$before" ] &&
        opened=1 && break
    sleep 0.1
done
xdotool key Escape
[ -n "$opened" ] || { cat "$work/host.log"; fail "a right click on the icon opened no menu in the host"; }

# 3. The alarm rings; a left click on the icon in the host reaches the program as Activate and stops it.
due=$("$program" add --in 3s --plays repeat --message "Notifier check" | cut -d' ' -f2) && [ -n "$due" ] ||
    fail "no alarm set"
wait_for_window '^Message  ' 20 >/dev/null || { cat "$work/stderr.log"; fail "no message window for $due"; }
rms=$(record_rms 2)
echo "ringing at $(date +%T) for $due: RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r > 0.01) }' || fail "no sound was recorded"
dbus-monitor --session "type='method_call',interface='org.kde.StatusNotifierItem',member='Activate'" \
    >"$work/monitor.log" 2>&1 &
monitor_pid=$!
pids+=($monitor_pid)
sleep 0.3
xdotool mousemove --window "$bar" $((x + width / 2)) $((y + height / 2)) click 1
for _ in $(seq 20); do grep -q 'member=Activate' "$work/monitor.log" && break; sleep 0.1; done
kill "$monitor_pid" 2>/dev/null
grep -q 'member=Activate' "$work/monitor.log" || fail "the left click did not reach the item as Activate"
sleep 0.7
rms=$(record_rms 2)
echo "after the left click: RMS $rms"
awk -v r="$rms" 'BEGIN { exit !(r < 0.001) }' || fail "the alarm goes on after the left click"
[ -s "$work/stderr.log" ] && fail "something was said on standard error: $(cat "$work/stderr.log")"

# 4. Remove, picked in the exported menu, ends the program.
click_entry ' Remove  ' || fail "the menu took no click"
for _ in $(seq 30); do kill -0 "$main_pid" 2>/dev/null || break; sleep 0.1; done
kill -0 "$main_pid" 2>/dev/null && fail "Remove from the D-Bus menu left the program running"
echo "removed from the menu"

# 5. A host that comes after the program, within the grace period, still gets the icon and no stand-in opens.
kill "$host_pid" "$watcher_pid"
wait "$host_pid" "$watcher_pid" 2>/dev/null
# For step 6, a wave cut after its header and a midi that is text: an alarm ends in an error box.
: >"$folder/future.dat"
{ printf 'RIFF\x2c\x00\x00\x00WAVEfmt \x10\x00\x00\x00\x01\x00\x01\x00\x44\xac\x00\x00\x88\x58\x01\x00\x02\x00\x10\x00'
  printf 'data\x10\x00\x00\x00'; head -c 16 /dev/zero; } >"$folder/ding.wav"
echo "not a midi file" >"$folder/air.mid"
"$program" >"$work/out.log" 2>"$work/stderr.log" &
second_start=$SECONDS
pids+=($!)
sleep 1.5
start_host
wait_for_item 4 || { cat "$work/stderr.log"; fail "no icon in a host that came 1.5 s after the program"; }
while [ $((SECONDS - second_start)) -lt 6 ]; do sleep 0.2; done
[ -s "$work/stderr.log" ] && fail "the tray was reported missing: $(cat "$work/stderr.log")"
alarm_set='^Bellwick Alarm Clock( sp)?\.\.\.'
xdotool search --onlyvisible --name "$alarm_set" >/dev/null 2>&1 && fail "the Alarm Set window stood in for the tray"
echo "late host: icon registered, no stand-in"

# 6. While the error box is up the menu does nothing; once it is answered, the same entry works.
due=$("$program" add --in 3s --message "Box check" | cut -d' ' -f2) && [ -n "$due" ] || fail "no alarm set"
box=$(wait_for_window '^Bellwick Alarm Clock sp$' 15) || fail "no error box for the alarm at $due"
click_entry ' Alarm Set  ' || fail "the menu took no click"
sleep 1.5
xdotool search --onlyvisible --name "$alarm_set" >/dev/null 2>&1 && fail "the menu worked while the error box was up"
focus_window "$box" || fail "the box would not take the keyboard"
xdotool key Return
wait_for_window '^Message  ' 10 >/dev/null || fail "no message window after the box"
click_entry ' Alarm Set  ' || fail "the menu took no click"
wait_for_window "$alarm_set" 5 >/dev/null || fail "Alarm Set from the menu showed no window after the box"
echo "error box: the menu did nothing while it was up, and works after"

# 7. From the keyboard: a host asks the item for its menu with ContextMenu (or SecondaryActivate) where it draws
# none itself, as on a key press; the program's own menu opens, takes the keys and opens Settings.
entry=$(watcher_get RegisteredStatusNotifierItems | grep -o "'[^']*'" | head -1 | tr -d "'")
service=${entry%%/*}
path=/StatusNotifierItem
[ "$service" != "$entry" ] && path=/${entry#*/}
own_windows() { xdotool search --onlyvisible --class bellwick 2>/dev/null | wc -l; }
item_call() { # method: called as a host calls it, at a point of the screen
    gdbus call --session --dest "$service" --object-path "$path" --method "org.kde.StatusNotifierItem.$1" 900 10 \
        >/dev/null || fail "the item took no $1"
}
menu_opens() { # method: true when one more window of the program maps after it
    local before
    before=$(own_windows)
    item_call "$1"
    for _ in $(seq 30); do [ "$(own_windows)" -gt "$before" ] && return 0; sleep 0.1; done
    return 1
}
xdotool search --onlyvisible --name '^Settings$' >/dev/null 2>&1 && fail "Settings was open before the keys"
menu_opens ContextMenu || fail "ContextMenu opened no menu"
xdotool key Down Down Down Down Return # About, Alarm Set, Show, Settings
wait_for_window '^Settings$' 5 >/dev/null || fail "the keys in the menu from ContextMenu did not open Settings"
shown=$(own_windows)
menu_opens SecondaryActivate || fail "SecondaryActivate opened no menu"
xdotool key Escape
for _ in $(seq 30); do [ "$(own_windows)" -le "$shown" ] && break; sleep 0.1; done
[ "$(own_windows)" -le "$shown" ] || fail "Escape left the menu open"
echo "keyboard: ContextMenu and SecondaryActivate open the menu, its keys open Settings, Escape closes it"
echo "1 passed, 0 failed"
