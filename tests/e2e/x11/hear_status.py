"""Presses the button that clears list 1 as assistive technology does and writes what it then hears of notifications, as JSON."""
import json
import sys

from accessible_dialog import find_dialog, listen, nodes
from gi.repository import GLib

PATIENCE = 30  # seconds until something must have been heard

loop = GLib.MainLoop()
heard = []


def hear(event):
    if event.source.get_role_name() != "notification":
        return
    heard.append({"event": event.type, "name": event.source.get_name()})
    if event.type.startswith("object:state-changed:showing"):
        loop.quit()


dialog = find_dialog()
listener = listen(dialog, hear, "object:state-changed:showing", "object:property-change:accessible-name")
for node in nodes(dialog):
    if node.get_name() == "Clear" and node.get_description().startswith("Empties list 1"):
        node.get_action_iface().do_action(0)
        break
GLib.timeout_add_seconds(PATIENCE, loop.quit)
loop.run()
with open(sys.argv[1], "w", encoding="utf-8") as out:
    json.dump(heard, out, indent=1)
