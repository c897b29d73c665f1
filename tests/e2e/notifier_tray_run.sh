#!/usr/bin/env bash
# The real program against a StatusNotifier tray (the D-Bus tray of KDE Plasma and AppIndicator desktops), no XEmbed.
# Usage: notifier_tray_run.sh <path to bellwick>
. "$(dirname "$0")/desktop_env.sh"
need_tools gdbus status-notifier-watcher gtk-sni-tray-standalone import convert
start_desktop 96 notray
start_session_bus
start_sound_server

watcher_get() { # property of the StatusNotifierWatcher
    gdbus call --session --dest org.kde.StatusNotifierWatcher --object-path /StatusNotifierWatcher \
        --method org.freedesktop.DBus.Properties.Get org.kde.StatusNotifierWatcher "$1" 2>/dev/null
}
host_windows() { xdotool search --onlyvisible --class gtk-sni-tray-standalone 2>/dev/null; }
host_up() { # the watcher knows the host, and the host's own window, the wide one, is mapped: sets bar
    watcher_get IsStatusNotifierHostRegistered | grep -q true || return 1
    for bar in $(host_windows); do
        xdotool getwindowgeometry "$bar" 2>/dev/null | grep -q 'Geometry: 1024x' && return 0
    done
    return 1
}
start_host() {
    status-notifier-watcher >>"$work/watcher.log" 2>&1 &
    watcher_pid=$!
    eventually 5 watcher_get ProtocolVersion >/dev/null
    gtk-sni-tray-standalone --top --end --size 26 --color white >>"$work/host.log" 2>&1 &
    host_pid=$!
    pids+=("$watcher_pid" "$host_pid")
    eventually 15 host_up || { tail -5 "$work/host.log"; fail "the StatusNotifier host did not register and show"; }
}
item() { # sets service and path of the first registered item, given as "service" or "service/path"
    local entry
    entry=$(watcher_get RegisteredStatusNotifierItems | grep -o "'[^']*'" | head -1 | tr -d "'")
    service=${entry%%/*} path=/StatusNotifierItem
    [ "$service" = "$entry" ] || path=/${entry#*/}
    [ -n "$entry" ]
}
menu_call() { # method, arguments: called on the item's exported menu, as a host calls it
    local menu
    menu=$(gdbus call --session --dest "$service" --object-path "$path" --method org.freedesktop.DBus.Properties.Get \
        org.kde.StatusNotifierItem Menu | grep -o "'/[^']*'" | tr -d "'")
    [ -n "$menu" ] && gdbus call --session --dest "$service" --object-path "$menu" \
        --method "com.canonical.dbusmenu.$1" -- "${@:2}"
}
# The icon as the host drew it in its white bar: "width height x y" of what is not white.
drawn_icon() {
    import -window "$bar" "$work/bar.png" 2>/dev/null
    read -r width height x y < <(convert "$work/bar.png" -bordercolor white -border 1 -fuzz 15% -trim \
        -format '%w %h %[fx:page.x-1] %[fx:page.y-1]' info: 2>/dev/null)
    [ "${height:-0}" -ge 12 ] && [ "${height:-0}" -le 40 ] && [ "${width:-0}" -ge 12 ]
}

start_host
not_near_midnight 235900
write_settings ALAEOnDCWSOfUISPOfISOMOf
start_program

# 1. The icon: registered with the watcher and drawn by the host.
eventually 10 item || fail "the icon never registered with the watcher"
[ "$(watcher_get RegisteredSNIEntries | grep -o "'/" | wc -l)" -eq 1 ] ||
    fail "not one item registered: $(watcher_get RegisteredSNIEntries)"
eventually 3 drawn_icon || fail "the host drew no icon (not white: ${width:-?}x${height:-?})"
# Now and then this host draws one item twice when the item's first updates cross its registration.
copies=$(((width + height / 2) / height))
[ "$copies" -le 2 ] || fail "the host drew $copies icons for one item"
echo "icon: $service $path, drawn ${width}x${height} at $x,$y ($copies copies)"
# Clicks go to the middle of the first copy.
click_icon() { xdotool mousemove --window "$bar" $((x + height / 2)) $((y + height / 2)) click "$1"; }

# 2. The menu over D-Bus, as the host shows it: the eight entries in order with their separators.
layout=$(menu_call GetLayout 0 -1 '[]') || fail "the item has no menu"
entries=$(grep -oE "'label': <'[^']*'>|'type': <'separator'>" <<<"$layout" |
    sed -e "s/'type': <'separator'>/-/" -e "s/'label': <'\(.*\)'>/\1/" | paste -sd '|')
expected=' About  |-| Alarm Set  | Show| Settings  |-| Help  | Stop  |-| Disable  | Remove  '
[ "$entries" = "$expected" ] || fail "menu over D-Bus: [$entries], wanted [$expected]"
# The host opens it on a right click: a popup window of its own.
before=$(host_windows | wc -l)
click_icon 3
host_menu() { [ "$(host_windows | wc -l)" -gt "$before" ]; }
eventually 3 host_menu || fail "a right click on the icon opened no menu in the host"
xdotool key Escape

# 3. The alarm rings; a left click on the icon in the host stops it: silence comes, and holds.
add_alarm --plays repeat --message "Notifier check"
wait_for_window '^Message  ' 20 >/dev/null || fail "no message window for $due"
expect_sound "ringing for $due"
click_icon 1
quiet() { # half a second recorded, and silent
    local rms=$(record_rms 0.5)
    [ -s "$work/rec.raw" ] && silent "$rms"
}
eventually 1 quiet || fail "the sound went on after a left click on the icon"
expect_silence "after the left click"
[ -s "$work/stderr.log" ] && fail "something was said on standard error"

# 4. Remove, picked in the exported menu as the host does when the user clicks it, ends the program.
id=$(grep -oE "<\(([0-9]+), \{[^}]*'label': <' Remove  '>" <<<"$layout" | grep -oE '[0-9]+' | head -1)
menu_call Event "$id" clicked '<0>' 0 >/dev/null || fail "the menu took no click on Remove"
eventually 3 ended "$pid" || fail "Remove from the D-Bus menu left the program running"

# 5. A host that comes after the program, within the grace period, still gets the icon and no stand-in opens.
kill "$host_pid" "$watcher_pid" && wait "$host_pid" "$watcher_pid" 2>/dev/null
start_program
second_start=$SECONDS
sleep 1.5
start_host
eventually 4 item || fail "no icon in a host that came 1.5 s after the program"
while [ $((SECONDS - second_start)) -lt 6 ]; do sleep 0.2; done
[ -s "$work/stderr.log" ] && fail "the tray was reported missing"
window_gone '^Bellwick Alarm Clock( sp)?\.\.\.' || fail "the Alarm Set window stood in for the tray"

# 6. From the keyboard: a host asks the item for its menu with ContextMenu (or SecondaryActivate) where it draws
# none itself, as on a key press; the program's own menu opens, takes the keys and opens Settings.
menu_opens() { # method, called as a host calls it at a point of the screen: true when a window of ours maps
    local before=$(own_windows)
    gdbus call --session --dest "$service" --object-path "$path" --method "org.kde.StatusNotifierItem.$1" 900 10 \
        >/dev/null || fail "the item took no $1"
    eventually 3 more_windows_than "$before"
}
menu_opens ContextMenu || fail "ContextMenu opened no menu"
xdotool key Down Down Down Down Return # About, Alarm Set, Show, Settings
wait_for_window '^Settings$' 5 >/dev/null || fail "the keys in the menu from ContextMenu did not open Settings"
shown=$(own_windows)
menu_opens SecondaryActivate || fail "SecondaryActivate opened no menu"
xdotool key Escape
menu_closed() { [ "$(own_windows)" -le "$shown" ]; }
eventually 3 menu_closed || fail "Escape left the menu open"
