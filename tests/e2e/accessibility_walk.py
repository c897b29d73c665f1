#!/usr/bin/python3
# Reads the running program's windows through the accessibility bus, as a screen reader does: every showing control
# must have a name, no top-level window may be a bare filler, the desktop clock's text must read as the present time.
# Prints one line per fault and exits 1 when there was any. Usage: accessibility_walk.py start|settings|ringing|
# <title pattern> (the program on DISPLAY and DBUS_SESSION_BUS_ADDRESS, its Alarm Set window standing in for the tray)
import contextlib
import re
import subprocess
import sys
import time

import pyatspi as R

CONTROLS = {getattr(R, "ROLE_" + role) for role in (
    "PUSH_BUTTON TOGGLE_BUTTON CHECK_BOX RADIO_BUTTON COMBO_BOX TEXT ENTRY PASSWORD_TEXT SPIN_BUTTON LIST TABLE TREE "
    "TREE_TABLE PAGE_TAB SLIDER MENU_ITEM MENU IMAGE CALENDAR LIST_BOX").split()}
# Their children are rows and cells, named by their own text.
ROWS = {R.ROLE_LIST, R.ROLE_TABLE, R.ROLE_TREE, R.ROLE_TREE_TABLE, R.ROLE_LIST_BOX}
faults, walked = [], []


def fresh(acc):
    # Nothing is kept between two looks: windows come and go while we read.
    with contextlib.suppress(Exception):
        acc.clear_cache()
    return acc


def showing(acc):
    return acc.getState().contains(R.STATE_SHOWING)


def wait_for(what, describe, seconds=5):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if found := what():
            return found
        time.sleep(0.1)
    print(f"FAIL: {describe}; showing: {[w.name for w in top_windows() if showing(w)]}")
    sys.exit(1)


def top_windows():
    apps = [app for app in fresh(R.Registry.getDesktop(0)) if app is not None and app.name == "bellwick"]
    return [fresh(w) for w in fresh(apps[0]) if w is not None] if apps else []


def window(pattern, seconds=5):
    return wait_for(lambda: next((w for w in top_windows() if re.search(pattern, w.name) and showing(w)), None),
                    f"no window '{pattern}'", seconds)


def find(root, role, pattern, must_show=True):
    """The first descendant of a role whose name matches, showing unless told."""
    with contextlib.suppress(Exception):
        fresh(root)
        if root.getRole() == role and re.search(pattern, root.name) and (not must_show or showing(root)):
            return root
        if root.getRole() not in ROWS:
            return next((hit for c in root if c is not None for hit in [find(c, role, pattern, must_show)] if hit),
                        None)


def shown(root, role, pattern, describe=None, must_show=True):
    return wait_for(lambda: find(root, role, pattern, must_show), describe or f"no {pattern} in '{root.name}'")


def press(root, pattern, role=R.ROLE_PUSH_BUTTON, must_show=True):
    action = shown(root, role, pattern, None, must_show).queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    action.doAction(next((i for i, n in enumerate(names) if n in ("Press", "press", "click", "Toggle")), 0))


def check(w):
    def walk(acc):
        fresh(acc)
        if showing(acc) and acc.getRole() in CONTROLS and not acc.name.strip():
            faults.append(f"{w.name}: a showing {acc.getRoleName()} without a name")
        for child in [] if acc.getRole() in ROWS else acc:
            if child is not None:
                walk(child)
    if not w.name.strip():
        faults.append(f"a top-level {w.getRoleName()} without a name")
    walk(fresh(w))
    walked.append(w.name)
    faults.extend(f"top-level window '{top.name}' has the role filler" for top in top_windows()
                  if showing(top) and top.getRole() == R.ROLE_FILLER)
    return w


def start():
    alarm_set = check(window(r"^Bellwick Alarm Clock", 20))
    clock, texts = check(window(r"^Desktop clock$", 10)), []
    for _ in range(2):  # a second apart
        texts.append(shown(clock, R.ROLE_LABEL, r"\d", "the clock has no text that reads").name)
        # Read as it shows in its first pattern, 12 hours with seconds, within two seconds.
        if texts[-1] not in [time.strftime("%I : %M : %S  %p", time.localtime(time.time() - d)) for d in range(3)]:
            faults.append(f"the clock reads '{texts[-1]}' at {time.strftime('%T')}")
        time.sleep(1.2)
    if texts[0] == texts[1]:
        faults.append(f"the clock's text stayed '{texts[0]}' over a second")

    # About, from the tray's menu in the menu bar; the event list over the window.
    press(alarm_set, r"About", R.ROLE_MENU_ITEM, False)
    press(check(window(r"About")), r"^OK$")
    press(alarm_set, r"^Coming$", R.ROLE_MENU_ITEM)
    shown(alarm_set, R.ROLE_LIST, r"Coming", "the event list did not show")
    check(alarm_set)
    press(alarm_set, r"^Coming$", R.ROLE_MENU_ITEM)

    # The Load chooser; the bad data file in it gives Error found.
    press(alarm_set, r"^Load alarms")
    chooser = check(window(r"Load Data From Files"))
    shown(chooser, R.ROLE_LIST, r"^Data files$", "no list of data files").queryTable().addRowSelection(0)
    press(chooser, r"^Load$")
    press(check(window(r"^Error found$", 10)), r"^OK$")

    # The Delete Alarm Event chooser: the row of today's alarm with two messages, cut.
    rows = shown(alarm_set, R.ROLE_LIST, r"^Play list$").queryTable()
    rows.addRowSelection(rows.nRows - 1)
    press(alarm_set, r"^Delete the selected alarm$")
    press(check(window(r"^Delete Alarm Event$")), r"^Cancel$")


def settings():
    settings = check(window(r"^Settings$"))
    press(settings, r"^Next page$")
    shown(settings, R.ROLE_PUSH_BUTTON, r"^Run Bellwick", "Next page showed no second page")
    check(settings)


def ringing():
    # The play count shows once a digit is typed in the minutes box (the window holds the keyboard).
    ringing = check(window(r"^Message  "))
    shown(ringing, R.ROLE_TEXT, r"^Remind me").queryComponent().grabFocus()
    subprocess.run(["xdotool", "key", "5"], check=False)
    shown(ringing, R.ROLE_COMBO_BOX, r"^Play Times$", "a digit typed in the minutes box did not show the play count")
    check(ringing)


if __name__ == "__main__":
    step = sys.argv[1]
    {"start": start, "settings": settings, "ringing": ringing}.get(step, lambda: check(window(step)))()
    print("".join(f"FAIL: {fault}\n" for fault in faults) + f"walked: {', '.join(walked)}")
    sys.exit(1 if faults else 0)
