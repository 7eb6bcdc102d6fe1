"""Finds the dialog and what is in it on the bus of assistive technology."""
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE = 60  # seconds until the dialog must have appeared on the bus


def find_dialog():
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            for j in range(application.get_child_count() if application else 0):
                window = application.get_child_at_index(j)
                if window and window.get_name() == "Chromalog":
                    return window
        time.sleep(0.1)
    sys.exit("the dialog does not appear")


def nodes(node):
    """The node and everything below it; of long lists the first rows."""
    yield node
    for i in range(min(node.get_child_count(), 200)):
        child = node.get_child_at_index(i)
        if child:
            yield from nodes(child)
