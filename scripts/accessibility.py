"""Walks the accessible tree of a running program, window by window. Started by scripts/accessibility."""
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

USABLE = {
    Atspi.Role.CHECK_BOX, Atspi.Role.CHECK_MENU_ITEM, Atspi.Role.COMBO_BOX, Atspi.Role.ENTRY, Atspi.Role.LINK,
    Atspi.Role.LIST, Atspi.Role.MENU, Atspi.Role.MENU_ITEM, Atspi.Role.PAGE_TAB, Atspi.Role.PASSWORD_TEXT,
    Atspi.Role.PUSH_BUTTON, Atspi.Role.RADIO_BUTTON, Atspi.Role.SLIDER, Atspi.Role.SPIN_BUTTON, Atspi.Role.TABLE,
    Atspi.Role.TEXT, Atspi.Role.TOGGLE_BUTTON, Atspi.Role.TREE, Atspi.Role.TREE_TABLE}

# What opens each window; a tab is turned to with the keys behind it.
WINDOWS = [("main window", None, []), ("editor", "alt+Return", ["ctrl+Tab"] * 3), ("settings", "ctrl+comma", []),
           ("log", "ctrl+l", []), ("search", "ctrl+f", [])]


def application(name):
    for _ in range(100):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child and child.get_name() == name:
                return child
        time.sleep(0.1)
    sys.exit(f"{name} does not show itself to assistive technologies")


def label_of(control):
    for relation in control.get_relation_set() or []:
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return relation.get_target(0).get_name()
    return ""


def walk(control, path, nameless, seen):
    try:
        role, name = control.get_role(), control.get_name()
        states = control.get_state_set()
        if role in USABLE and states.contains(Atspi.StateType.SHOWING):
            key = "/".join([*path, control.get_role_name(), name or label_of(control)])
            seen.add(key)
            if not (name or label_of(control)).strip():
                nameless.add(f"{' > '.join(path)} > {control.get_role_name()} at {control.get_index_in_parent()}")
        for index in range(min(control.get_child_count(), 200)):
            child = control.get_child_at_index(index)
            if child and child.get_role() not in (Atspi.Role.TABLE_CELL, Atspi.Role.TABLE_COLUMN_HEADER):
                walk(child, [*path, name or control.get_role_name()], nameless, seen)
    except gi.repository.GLib.Error:
        pass  # gone while it was looked at


def press(keys):
    subprocess.run(["xdotool", "key", keys], check=True)
    time.sleep(0.8)


def main():
    program = subprocess.Popen(sys.argv[1:])
    root = application("Kalvenor")
    time.sleep(2)
    press("Down")
    failed = False
    for window, opens, turns in WINDOWS:
        nameless, seen = set(), set()
        if opens:
            press(opens)
        before = root.get_child_count()
        walk(root, [], nameless, seen)
        for keys in turns:
            press(keys)
            walk(root, [], nameless, seen)
        if opens:
            press("Escape")
            if root.get_child_count() >= before:
                print(f"{window}: did not open")
                failed = True
        print(f"{window}: {len(seen)} controls, {len(nameless)} without a name")
        for control in sorted(nameless):
            print(f"    {control}")
        failed = failed or bool(nameless)
    program.terminate()
    program.wait()
    return 1 if failed else 0


sys.exit(main())
