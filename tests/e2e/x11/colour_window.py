"""Another program with colours to drag: its upper half gives one away, its lower half takes them.

Every colour that arrives is written to the file as a line: the words, the format, and the text beside it.
"""
import struct
import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

COLOUR = Gtk.TargetEntry.new("application/x-color", 0, 0)
TEXT = Gtk.TargetEntry.new("text/plain", 0, 1)
WORDS = (0x1234, 0xABCD, 0xFFFE, 0xFFFF)
pending = {}


def give(_widget, _context, data, info, _time):
    if info == 0:
        data.set(data.get_target(), 16, struct.pack("=4H", *WORDS))
    else:
        data.set_text("From outside", -1)


def ask(widget, context, _x, _y, time):
    names = [target.name() for target in context.list_targets()]
    pending["text"] = "text/plain" in names
    widget.drag_get_data(context, Gdk.Atom.intern("application/x-color", False), time)
    return True


def take(widget, context, _x, _y, data, info, time):
    if info == 0:
        raw = data.get_data()
        pending["words"] = " ".join("%04x" % word for word in struct.unpack("=%dH" % (len(raw) // 2), raw))
        pending["words"] += " format %d" % data.get_format()
        if pending["text"]:
            widget.drag_get_data(context, Gdk.Atom.intern("text/plain", False), time)
            return
    text = data.get_text() if info == 1 else None
    with open(sys.argv[1], "a", encoding="utf-8") as out:
        out.write(pending["words"] + (" text " + text if text else "") + "\n")
    Gtk.drag_finish(context, True, False, time)


def accept(_widget, context, _x, _y, time):
    Gdk.drag_status(context, Gdk.DragAction.COPY, time)
    return True


window = Gtk.Window(title="Other program")
window.set_default_size(200, 200)
window.move(1400, 100)
box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL, homogeneous=True)
source, target = Gtk.EventBox(), Gtk.EventBox()
source.add(Gtk.Label(label="take"))
target.add(Gtk.Label(label="drop"))
box.add(source)
box.add(target)
window.add(box)
source.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [COLOUR, TEXT], Gdk.DragAction.COPY)
source.connect("drag-data-get", give)
target.drag_dest_set(Gtk.DestDefaults(0), [COLOUR, TEXT], Gdk.DragAction.COPY)
target.connect("drag-motion", accept)
target.connect("drag-drop", ask)
target.connect("drag-data-received", take)
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
