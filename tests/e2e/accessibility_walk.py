#!/usr/bin/python3
# Reads the running program through the accessibility bus, as a screen reader does, and opens its windows one by
# one: every showing control must have a name, no top-level window may be a bare filler, and the desktop clock's
# text must read as the present time. Prints one line per fault and exits 1 when there was any.
# Usage: accessibility_walk.py (DISPLAY and DBUS_SESSION_BUS_ADDRESS set; the program running, its Alarm Set
# window standing in for a missing tray, the desktop clock shown)
import re
import subprocess
import sys
import time

import pyatspi

R = pyatspi
CONTROLS = {R.ROLE_PUSH_BUTTON, R.ROLE_TOGGLE_BUTTON, R.ROLE_CHECK_BOX, R.ROLE_RADIO_BUTTON, R.ROLE_COMBO_BOX,
            R.ROLE_TEXT, R.ROLE_ENTRY, R.ROLE_PASSWORD_TEXT, R.ROLE_SPIN_BUTTON, R.ROLE_LIST, R.ROLE_TABLE,
            R.ROLE_TREE, R.ROLE_TREE_TABLE, R.ROLE_PAGE_TAB, R.ROLE_SLIDER, R.ROLE_MENU_ITEM, R.ROLE_MENU,
            R.ROLE_IMAGE, R.ROLE_CALENDAR, R.ROLE_LIST_BOX}
# Their children are rows and cells, named by their own text.
ROWS = {R.ROLE_LIST, R.ROLE_TABLE, R.ROLE_TREE, R.ROLE_TREE_TABLE, R.ROLE_LIST_BOX}
faults, walked = [], []


def fresh(acc):
    # Nothing is kept between two looks: windows come and go while we read.
    try:
        acc.clear_cache()
    except Exception:
        pass
    return acc


def showing(acc):
    return acc.getState().contains(R.STATE_SHOWING)


def wait_for(what, seconds, describe):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = what()
        if found:
            return found
        time.sleep(0.1)
    print(f"FAIL: {describe}; showing: {[w.name for w in top_windows() if showing(w)]}")
    sys.exit(1)


def top_windows():
    for app in fresh(R.Registry.getDesktop(0)):
        if app is not None and app.name == "bellwick":
            return [fresh(w) for w in fresh(app) if w is not None]
    return []


def window(pattern, seconds=5):
    def look():
        return next((w for w in top_windows() if re.search(pattern, w.name) and showing(w)), None)
    return wait_for(look, seconds, f"no window '{pattern}'") if seconds else look()


def find(root, role, pattern, must_show=True):
    """The first descendant of a role whose name matches, showing unless told."""
    try:
        fresh(root)
        if root.getRole() == role and re.search(pattern, root.name) and (not must_show or showing(root)):
            return root
        if root.getRole() not in ROWS:
            return next((hit for c in root if c is not None for hit in [find(c, role, pattern, must_show)] if hit),
                        None)
    except Exception:
        pass
    return None


def press(root, role, pattern, must_show=True):
    acc = wait_for(lambda: find(root, role, pattern, must_show), 5, f"no {pattern} in '{root.name}'")
    action = acc.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    action.doAction(next((i for i, n in enumerate(names) if n in ("Press", "press", "click", "Toggle")), 0))
    return acc


def button(root, pattern):
    return press(root, R.ROLE_PUSH_BUTTON, pattern)


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "80", *names], check=False)


def activate(pattern):
    # Typing goes to the active window; this run is about what is read, not about how a window is reached.
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", pattern, "windowactivate", "--sync"],
                   check=False, capture_output=True)


def check(w):
    def walk(acc):
        fresh(acc)
        if showing(acc) and acc.getRole() in CONTROLS and not acc.name.strip():
            faults.append(f"{w.name}: a showing {acc.getRoleName()} without a name")
        if acc.getRole() not in ROWS:
            for child in acc:
                if child is not None:
                    walk(child)
    if not w.name.strip():
        faults.append(f"a top-level {w.getRoleName()} without a name")
    walk(fresh(w))
    walked.append(w.name)
    for top in top_windows():
        if showing(top) and top.getRole() == R.ROLE_FILLER:
            faults.append(f"top-level window '{top.name}' has the role filler")
    return w


def check_clock():
    clock = check(window(r"^Desktop clock$", 10))
    texts = []
    for _ in range(2):
        text = wait_for(lambda: find(clock, R.ROLE_LABEL, r"\d"), 5, "the clock has no text that reads").name
        now = time.time()
        # Read as it shows in its first pattern, 12 hours with seconds, within two seconds.
        if text not in [time.strftime("%I : %M : %S  %p", time.localtime(now - d)) for d in range(3)]:
            faults.append(f"the clock reads '{text}' at {time.strftime('%T')}")
        texts.append(text)
        time.sleep(1.2)
    if texts[0] == texts[1]:
        faults.append(f"the clock's text stayed '{texts[0]}' over a second")
    print(f"clock reads: {' then '.join(texts)}")


def main():
    alarm_set = check(window(r"^Bellwick Alarm Clock", 20))
    check_clock()
    item = R.ROLE_MENU_ITEM

    # Settings, both pages; About, from the tray's menu in the menu bar; the event list over the window.
    press(alarm_set, item, r"^Settings$")
    settings = check(window(r"^Settings$"))
    button(settings, r"^Next page$")
    time.sleep(0.3)
    button(check(settings), r"^Close$")
    wait_for(lambda: not window(r"^Settings$", 0), 5, "Settings did not close")
    press(alarm_set, item, r"About", False)
    button(check(window(r"About")), r"^OK$")
    press(alarm_set, item, r"^Coming$")
    wait_for(lambda: find(alarm_set, R.ROLE_LIST, r"Coming"), 5, "the event list did not show")
    check(alarm_set)
    press(alarm_set, item, r"^Coming$")

    # The Load chooser; the bad data file in it gives Error found.
    button(alarm_set, r"^Load alarms")
    chooser = check(window(r"Load Data From Files"))
    wait_for(lambda: find(chooser, R.ROLE_LIST, r"^Data files$"), 5, "no list of data files").queryTable() \
        .addRowSelection(0)
    button(chooser, r"^Load$")
    button(check(window(r"^Error found$", 10)), r"^OK$")
    if window(r"Load Data From Files", 0):
        button(window(r"Load Data From Files"), r"^Cancel$")

    # Input Message: an alarm for tomorrow with a message, entered by keys. The Hour box's text field takes the
    # focus; the box itself has no action for it.
    activate("^Bellwick Alarm Clock")
    hour = wait_for(lambda: find(alarm_set, R.ROLE_COMBO_BOX, r"^Hour$"), 5, "no Hour box")
    wait_for(lambda: find(hour, R.ROLE_TEXT, r""), 5, "no text field in the Hour box").queryComponent().grabFocus()
    keys("1", "0", "Tab", "3", "0", "Tab", "0", "0", "Tab", "Tab", "space", "Right", "Return")
    button(alarm_set, r"^Add with a message$")
    message = check(window(r"^Input Message$"))
    keys("a", "l", "l", "y")
    button(message, r"^Save$")

    # The Edit window, from the event list's menu on the Menu key.
    if find(alarm_set, R.ROLE_LIST, r"^Coming"):
        press(alarm_set, item, r"^Coming$")
    press(alarm_set, item, r"^Coming$")
    activate("^Bellwick Alarm Clock")
    keys("Home", "Menu", "Down", "Return")
    button(check(window(r"^ Edit$")), r"^Cancel$")
    press(alarm_set, item, r"^Coming$")

    # The Delete Alarm Event chooser: the row of today's alarm with two messages, cut.
    rows = wait_for(lambda: find(alarm_set, R.ROLE_LIST, r"^Play list$"), 5, "no Play list").queryTable()
    rows.addRowSelection(rows.nRows - 1)
    button(alarm_set, r"^Delete the selected alarm$")
    button(check(window(r"^Delete Alarm Event$")), r"^Cancel$")

    # The message window of the alarm that rings now, its play count shown from the keyboard.
    ringing = check(window(r"^Message  ", 60))
    minutes = find(ringing, R.ROLE_TEXT, r"^Remind me")
    if minutes:
        activate("^Message  ")
        minutes.queryComponent().grabFocus()
        keys("5")
        wait_for(lambda: find(ringing, R.ROLE_COMBO_BOX, r"^Play Times$"), 5,
                 "a digit typed in the minutes box did not show the play count")
        check(ringing)

    for fault in faults:
        print(f"FAIL: {fault}")
    print(f"walked: {', '.join(walked)}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
