"""A desktop's portal that picks one colour: answers whoever asks, on the session bus, with that version and response.

usage: colour_portal.py VERSION RESPONSE RED GREEN BLUE
"""
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

VERSION, RESPONSE = int(sys.argv[1]), int(sys.argv[2])
COLOUR = tuple(float(word) for word in sys.argv[3:6])
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = """
<node><interface name="org.freedesktop.portal.Screenshot">
  <property name="version" type="u" access="read"/>
  <method name="PickColor">
    <arg type="s" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/>
  </method>
</interface></node>"""


def answer(bus, sender, _path, _interface, _method, arguments, invocation):
    token = arguments[1]["handle_token"]
    request = "%s/request/%s/%s" % (PATH, sender[1:].replace(".", "_"), token)
    invocation.return_value(GLib.Variant("(o)", (request,)))
    results = {"color": GLib.Variant("(ddd)", COLOUR)} if RESPONSE == 0 else {}
    bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                    GLib.Variant("(ua{sv})", (RESPONSE, results)))


def serve(bus, _name):
    interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
    bus.register_object(PATH, interface, answer, lambda *_: GLib.Variant("u", VERSION), None)


Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, serve,
                 lambda *_: print("ready", flush=True), None)
GLib.MainLoop().run()
