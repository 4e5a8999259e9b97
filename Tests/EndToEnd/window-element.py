#!/usr/bin/python3
"""window-element.py [--text|--gone] NAME: waits until a window of kelvalr shows an element with this accessible name,
and prints the centre of the element on the screen as "X Y"; with --text what it holds, after "focused " when it has the
keyboard. With --gone it waits until none is shown any more. Its status is 1 when that has not come within 20 seconds."""
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def shown(element, name):
    """The first element below this one that is on the screen under a name; None when there is none."""
    for index in range(element.get_child_count()):
        child = element.get_child_at_index(index)
        if child is None:
            continue
        if child.get_name() == name and child.get_state_set().contains(Atspi.StateType.SHOWING):
            return child
        if found := shown(child, name):
            return found
    return None


def application():
    desktop = Atspi.get_desktop(0)
    programs = (desktop.get_child_at_index(index) for index in range(desktop.get_child_count()))
    return next((program for program in programs if program and program.get_name() == "KelvaLR"), None)


def held_text(element):
    text = Atspi.Text.get_text(element, 0, -1)
    return ("focused " if element.get_state_set().contains(Atspi.StateType.FOCUSED) else "") + text


option, name = [None, *sys.argv[1:]][-2:]
deadline = time.monotonic() + 20
while time.monotonic() < deadline:
    try:
        program = application()
        element = shown(program, name) if program else None
        if option == "--gone" and program and not element:
            sys.exit(0)
        if option == "--text" and element:
            print(held_text(element))
            sys.exit(0)
        if option is None and element:
            place = element.get_extents(Atspi.CoordType.SCREEN)
            print(place.x + place.width // 2, place.y + place.height // 2)
            sys.exit(0)
    except GLib.Error:
        pass  # what was being read has gone; the next look reads anew
    time.sleep(0.05)
    Atspi.get_desktop(0).clear_cache()
print(f'{"An" if option == "--gone" else "No"} element "{name}" is shown.', file=sys.stderr)
sys.exit(1)
