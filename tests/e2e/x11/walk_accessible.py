"""Walks the dialog as assistive technology does and writes what it was told, as JSON.

Then presses the button "Complement", sets the luminosity strip to 25, and writes both values again.
"""
import json
import sys

from accessible_dialog import Atspi, find_dialog, nodes


def describe(node):
    told = {"role": node.get_role_name(), "name": node.get_name(), "description": node.get_description()}
    value = node.get_value_iface()
    if value:
        told["value"] = value.get_current_value()
        told["range"] = [value.get_minimum_value(), value.get_maximum_value()]
    text = node.get_text_iface()
    if text:
        told["text"] = Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))
    action = node.get_action_iface()
    if action:
        told["actions"] = [action.get_action_name(i) for i in range(action.get_n_actions())]
    return told


found = [(node, describe(node)) for node in nodes(find_dialog())]
report = {"tree": [told for _, told in found]}


def named(role, name):
    for node, told in found:
        if told["role"] == role and told["name"].startswith(name):
            return node
    sys.exit("no %s named %s among %s" % (role, name, [(t["role"], t["name"]) for t in report["tree"]]))


strip = named("slider", "Luminosity")
named("check box", "Complement").get_action_iface().do_action(0)
strip.get_value_iface().set_current_value(25)
report["strip"] = describe(strip)
with open(sys.argv[1], "w", encoding="utf-8") as out:
    json.dump(report, out, indent=1)
