"""Finds the dialog and what is in it on the bus of assistive technology."""
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

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


def listen(dialog, hear, *kinds):
    """Calls `hear` with each event of these kinds from here on. A program learns some time later who listens, and tells
    of nothing until then: the focus goes to and fro until a move of it is heard. Kinds may name a move of the focus
    themselves."""
    focus = "object:state-changed:focused"
    lists = [node for node in nodes(dialog) if node.get_role_name() == "list" and node.get_name().startswith("Swatch list")]
    loop, heard = GLib.MainLoop(), []

    def told(event):
        if not heard and event.type.startswith(focus):
            heard.append(event)
            GLib.timeout_add(200, loop.quit)  # what the moves themselves still bring
        elif not loop.is_running() and (focus in kinds or not event.type.startswith(focus)):
            hear(event)

    def move():
        lists.append(lists.pop(0))
        lists[0].get_component_iface().grab_focus()
        return not heard

    listener = Atspi.EventListener.new(told)
    for kind in dict.fromkeys((*kinds, focus)):
        listener.register(kind)
    GLib.timeout_add(100, move)
    deadline = GLib.timeout_add_seconds(PATIENCE, loop.quit)
    loop.run()
    if not heard:
        sys.exit("the dialog tells of no event")
    GLib.source_remove(deadline)
    return listener
