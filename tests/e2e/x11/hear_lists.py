"""Selects rows of list 1 as assistive technology does and by keys, deletes one, brings it back, and writes what was heard, as JSON."""
import json
import subprocess
import sys

from accessible_dialog import find_dialog, listen, nodes
from gi.repository import GLib

PATIENCE = 30  # seconds until all must have been heard

loop = GLib.MainLoop()
heard = []
told = {}


def hear(event):
    line = {"event": event.type, "role": event.source.get_role_name(), "name": event.source.get_name()}
    heard.append(line)
    if line["role"] == "notification" and line["name"].startswith("Undone"):
        GLib.timeout_add(500, loop.quit)


dialog = find_dialog()
listener = listen(dialog, hear, "object:state-changed:selected", "object:state-changed:showing", "object:state-changed:focused",
                  "object:children-changed", "object:model-changed", "object:property-change:accessible-description")
rows = next(node for node in nodes(dialog) if node.get_role_name() == "list" and node.get_name().startswith("Swatch list 1"))
told["interfaces"] = rows.get_interfaces()
table = rows.get_table_iface()
told["rows"] = table.get_n_rows()
table.add_row_selection(2)
told["selected"] = list(table.get_selected_rows())
rows.get_component_iface().grab_focus()


def strike():
    for key in ("Up", "Delete", "ctrl+z"):
        subprocess.run(["xdotool", "key", key], check=True)
    return False


GLib.timeout_add(300, strike)
GLib.timeout_add_seconds(PATIENCE, loop.quit)
loop.run()
told["heard"] = heard
with open(sys.argv[1], "w", encoding="utf-8") as out:
    json.dump(told, out, indent=1)
