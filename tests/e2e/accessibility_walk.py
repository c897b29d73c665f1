#!/usr/bin/python3
# Reads the running program through the accessibility bus, as a screen reader does, and opens its windows one by
# one: every showing control must have a name, no top-level window may be a bare filler, and the desktop clock's
# text must read as the present time. Prints one line per fault and exits 1 when there was any.
# Usage: accessibility_walk.py (DISPLAY and DBUS_SESSION_BUS_ADDRESS set; the program running, its Alarm Set
# window standing in for a missing tray, the desktop clock shown)
import datetime
import os
import re
import subprocess
import sys
import time

import pyatspi
from gi.repository import Atspi

CONTROLS = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_PASSWORD_TEXT,
    pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_LIST, pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE, pyatspi.ROLE_TREE_TABLE,
    pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_SLIDER, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_MENU, pyatspi.ROLE_IMAGE,
    pyatspi.ROLE_CALENDAR, pyatspi.ROLE_LIST_BOX,
}
# Their children are rows and cells, named by their own text.
CONTAINERS_OF_ROWS = {pyatspi.ROLE_LIST, pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE, pyatspi.ROLE_TREE_TABLE,
                      pyatspi.ROLE_LIST_BOX}

faults = []
walked = []


def fresh(acc):
    # Nothing is kept between two looks: windows come and go while we read.
    try:
        acc.clear_cache()
    except Exception:
        pass
    return acc


def wait_for(what, seconds, describe):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = what()
        if found:
            return found
        time.sleep(0.1)
    print(f"FAIL: {describe}")
    for w in top_windows():
        try:
            if w.getState().contains(pyatspi.STATE_SHOWING):
                print(f"  showing: {w.getRoleName()} '{w.name}'")
        except Exception:
            pass
    if os.environ.get("A11Y_SHOT"):
        subprocess.run(["import", "-window", "root", os.environ["A11Y_SHOT"]], check=False)
    sys.exit(1)


def program():
    desktop = fresh(pyatspi.Registry.getDesktop(0))
    for app in desktop:
        if app is not None and app.name == "bellwick":
            return fresh(app)
    return None


def top_windows():
    app = program()
    return [fresh(w) for w in app if w is not None] if app else []


def window(pattern):
    for w in top_windows():
        try:
            if re.search(pattern, w.name) and w.getState().contains(pyatspi.STATE_SHOWING):
                return w
        except Exception:
            continue
    return None


def find(root, role, pattern, showing=True):
    """The first descendant of a role whose name matches, showing unless told."""
    try:
        fresh(root)
        if root.getRole() == role and re.search(pattern, root.name) and \
                (not showing or root.getState().contains(pyatspi.STATE_SHOWING)):
            return root
        if root.getRole() in CONTAINERS_OF_ROWS:
            return None
        for child in root:
            if child is not None:
                hit = find(child, role, pattern, showing)
                if hit:
                    return hit
    except Exception:
        return None
    return None


def press(acc):
    action = acc.queryAction()
    for i in range(action.nActions):
        if action.getName(i) in ("Press", "press", "click", "Toggle"):
            action.doAction(i)
            return
    action.doAction(0)


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "80", *names], check=False)


def activate(pattern):
    # Typing goes to the active window; this run is about what is read, not about how a window is reached.
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", pattern, "windowactivate", "--sync"],
                   check=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def walk(acc, where):
    fresh(acc)
    role = acc.getRole()
    state = acc.getState()
    if state.contains(pyatspi.STATE_SHOWING) and role in CONTROLS and not acc.name.strip():
        faults.append(f"{where}: a showing {acc.getRoleName()} without a name")
    if role in CONTAINERS_OF_ROWS:
        return
    for child in acc:
        if child is not None:
            walk(child, where)


def check_window(w):
    fresh(w)
    label = w.name or "(untitled)"
    if not w.name.strip():
        faults.append(f"a top-level {w.getRoleName()} without a name")
    walk(w, label)
    walked.append(label)


def check_roles():
    for w in top_windows():
        if w.getState().contains(pyatspi.STATE_SHOWING) and w.getRole() == pyatspi.ROLE_FILLER:
            faults.append(f"top-level window '{w.name}' has the role filler")


def check_clock():
    clock = wait_for(lambda: window(r"^Desktop clock$"), 10, "no desktop clock on the accessibility bus")
    check_window(clock)
    texts = []
    for _ in range(2):
        label = wait_for(lambda: find(clock, pyatspi.ROLE_LABEL, r"\d"), 5, "the clock has no text that reads")
        now = datetime.datetime.now()
        texts.append(label.name)
        m = re.fullmatch(r"\s*(\d{1,2})\s*:\s*(\d\d)(?:\s*:\s*(\d\d))?\s*([AP]M)?\s*", label.name)
        if not m:
            faults.append(f"the clock reads '{label.name}', not a time")
            return
        hour, minute = int(m.group(1)), int(m.group(2))
        if m.group(4):
            hour = hour % 12 + (12 if m.group(4) == "PM" else 0)
        shown = now.replace(hour=hour, minute=minute, second=int(m.group(3) or now.second), microsecond=0)
        if abs((now - shown).total_seconds()) > 2 and abs((now - shown).total_seconds()) < 86398:
            faults.append(f"the clock reads '{label.name}' at {now:%H:%M:%S}")
        time.sleep(1.2)
    if texts[0] == texts[1] and ":" in texts[0] and texts[0].count(":") == 2:
        faults.append(f"the clock's text stayed '{texts[0]}' over a second")
    print(f"clock reads: {' then '.join(texts)}")


def main():
    alarm_set = wait_for(lambda: window(r"^Bellwick Alarm Clock"), 20, "no Alarm Set window on the bus")
    check_window(alarm_set)
    check_clock()

    # Settings, both pages.
    press(wait_for(lambda: find(alarm_set, pyatspi.ROLE_MENU_ITEM, r"^Settings$"), 5, "no Settings menu entry"))
    settings = wait_for(lambda: window(r"^Settings$"), 5, "Settings did not open")
    check_window(settings)
    press(wait_for(lambda: find(settings, pyatspi.ROLE_PUSH_BUTTON, r"^Next page$"), 5, "no next page button"))
    time.sleep(0.3)
    check_window(settings)
    check_roles()
    press(find(settings, pyatspi.ROLE_PUSH_BUTTON, r"^Close$"))
    wait_for(lambda: not window(r"^Settings$"), 5, "Settings did not close")

    # About, from the tray's menu in the menu bar.
    press(wait_for(lambda: find(alarm_set, pyatspi.ROLE_MENU_ITEM, r"About", False), 5, "no About entry"))
    about = wait_for(lambda: window(r"About"), 5, "About did not open with a name")
    check_window(about)
    press(find(about, pyatspi.ROLE_PUSH_BUTTON, r"^OK$"))

    # The event list, over the window.
    press(find(alarm_set, pyatspi.ROLE_MENU_ITEM, r"^Coming$"))
    wait_for(lambda: find(alarm_set, pyatspi.ROLE_LIST, r"Coming"), 5, "the event list did not show")
    check_window(alarm_set)
    press(find(alarm_set, pyatspi.ROLE_MENU_ITEM, r"^Coming$"))

    # The Load chooser; the bad data file in it gives Error found.
    press(wait_for(lambda: find(alarm_set, pyatspi.ROLE_PUSH_BUTTON, r"^Load alarms"), 5, "no Load button"))
    chooser = wait_for(lambda: window(r"Load Data From Files"), 5, "the Load chooser did not open")
    check_window(chooser)
    files = wait_for(lambda: find(chooser, pyatspi.ROLE_LIST, r"^Data files$"), 5, "no list of data files")
    files.queryTable().addRowSelection(0)
    press(find(chooser, pyatspi.ROLE_PUSH_BUTTON, r"^Load$"))
    errors = wait_for(lambda: window(r"^Error found$"), 10, "no Error found for the bad data file")
    check_window(errors)
    press(find(errors, pyatspi.ROLE_PUSH_BUTTON, r"^OK$"))
    if window(r"Load Data From Files"):
        press(find(window(r"Load Data From Files"), pyatspi.ROLE_PUSH_BUTTON, r"^Cancel$"))

    # Input Message: an alarm for tomorrow with a message, entered by keys.
    activate("^Bellwick Alarm Clock")
    hour = wait_for(lambda: find(alarm_set, pyatspi.ROLE_COMBO_BOX, r"^Hour$"), 5, "no Hour box")
    # The box's text field takes the focus; the box itself has no action for it.
    wait_for(lambda: find(hour, pyatspi.ROLE_TEXT, r""), 5, "no text field in the Hour box").queryComponent().grabFocus()
    keys("1", "0", "Tab", "3", "0", "Tab", "0", "0", "Tab", "Tab", "space", "Right", "Return")
    press(find(alarm_set, pyatspi.ROLE_PUSH_BUTTON, r"^Add with a message$"))
    message = wait_for(lambda: window(r"^Input Message$"), 5, "Input Message did not open")
    check_window(message)
    check_roles()
    keys("a", "l", "l", "y")
    press(find(message, pyatspi.ROLE_PUSH_BUTTON, r"^Save$"))

    # The Edit window, from the event list's menu on the Menu key.
    coming = find(alarm_set, pyatspi.ROLE_MENU_ITEM, r"^Coming$")
    if find(alarm_set, pyatspi.ROLE_LIST, r"^Coming"):
        press(coming)
    press(coming)
    activate("^Bellwick Alarm Clock")
    keys("Home", "Menu", "Down", "Return")
    edit = wait_for(lambda: window(r"^ Edit$"), 5, "the Edit window did not open from the Menu key")
    check_window(edit)
    check_roles()
    press(find(edit, pyatspi.ROLE_PUSH_BUTTON, r"^Cancel$"))
    press(coming)

    # The Delete Alarm Event chooser: the row of today's alarm with two messages, cut.
    play_list = wait_for(lambda: find(alarm_set, pyatspi.ROLE_LIST, r"^Play list$"), 5, "no Play list")
    rows = play_list.queryTable()
    rows.addRowSelection(rows.nRows - 1)
    press(find(alarm_set, pyatspi.ROLE_PUSH_BUTTON, r"^Delete the selected alarm$"))
    chooser = wait_for(lambda: window(r"^Delete Alarm Event$"), 5, "Delete Alarm Event did not open")
    check_window(chooser)
    check_roles()
    press(find(chooser, pyatspi.ROLE_PUSH_BUTTON, r"^Cancel$"))

    # The message window of the alarm that rings now, its play count shown from the keyboard.
    ringing = wait_for(lambda: window(r"^Message  "), 60, "no message window for the alarm")
    check_window(ringing)
    minutes = find(ringing, pyatspi.ROLE_TEXT, r"^Remind me")
    if minutes:
        activate("^Message  ")
        minutes.queryComponent().grabFocus()
        keys("5")
        wait_for(lambda: find(ringing, pyatspi.ROLE_COMBO_BOX, r"^Play Times$"), 5,
                 "a digit typed in the minutes box did not show the play count")
        check_window(ringing)
    check_roles()

    for fault in faults:
        print(f"FAIL: {fault}")
    print(f"walked: {', '.join(walked)}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
