"""Swatch files and the preferences file, written and read in the plainest way. A list is a list of swatches, a swatch
is a name in ASCII and three 16-bit numbers."""
import os
import struct

SLOTS = 5000
RECORD = 304  # bytes of a swatch in the preferences file
LISTS, COUNTS, NAMES, SIZE = (6, 1_520_006), (3_040_006, 3_040_008), (3_040_010, 3_040_266), 3_040_536


def write_aco(file, swatches):
    """Both versions, as hosts write them."""
    first, second = bytearray(), bytearray()
    for name, channels in swatches:
        colour = struct.pack(">H3HH", 0, *channels, 0)
        first += colour
        second += colour + struct.pack(">I", len(name) + 1) + name.encode("utf-16-be") + b"\0\0"
    count = len(swatches)
    with open(file, "wb") as out:
        out.write(struct.pack(">HH", 1, count) + first + struct.pack(">HH", 2, count) + second)


def read_aco(file):
    with open(file, "rb") as text:
        data = text.read()
    count = struct.unpack_from(">H", data, 2)[0]
    at = 4 + 10 * count
    if at < len(data) and struct.unpack_from(">HH", data, at) == (2, count):
        at += 4
    elif data[:2] == b"\0\2":
        at = 4
    else:
        raise ValueError("no second version")
    swatches = []
    for _ in range(count):
        channels = struct.unpack_from(">H3HH", data, at)[1:4]
        length = struct.unpack_from(">I", data, at + 10)[0]
        swatches.append((data[at + 14:at + 14 + 2 * length].decode("utf-16-be").rstrip("\0"), channels))
        at += 14 + 2 * length
    return swatches


def read_preferences(file):
    """Both lists; a file of another length, or counts that cannot be, are a ValueError."""
    with open(file, "rb") as stored:
        data = stored.read()
    if len(data) != SIZE:
        raise ValueError(f"{len(data)} bytes")
    return [_stored_list(data, i) for i in range(2)]


def _stored_list(data, number):
    count = struct.unpack_from("<h", data, COUNTS[number])[0]
    if not 0 <= count <= SLOTS:
        raise ValueError(f"{count} swatches")
    swatches = []
    for at in range(LISTS[number], LISTS[number] + RECORD * count, RECORD):
        red, blue, green = struct.unpack_from("<3q", data, at + 256)
        swatches.append((data[at + 1:at + 1 + data[at]].decode("latin-1"), (red, green, blue)))
    return swatches


def write_preferences(file, lists):
    """As a pick leaves them: what holds nothing is a hole."""
    os.makedirs(os.path.dirname(file), exist_ok=True)
    with open(file, "wb") as out:
        out.truncate(SIZE)
        for number, swatches in enumerate(lists):
            out.seek(COUNTS[number])
            out.write(struct.pack("<h", len(swatches)))
            for row, (name, (red, green, blue)) in enumerate(swatches):
                out.seek(LISTS[number] + RECORD * row)
                out.write(bytes([len(name)]) + name.encode("latin-1").ljust(255, b"\0"))
                out.write(struct.pack("<3q", red, blue, green))


def in_bytes(swatches):
    """The names and the nearest bytes, as formats of bytes keep them."""
    return [(name, tuple(int(channel / 257 + 0.5) for channel in channels)) for name, channels in swatches]


def read_gpl(file):
    with open(file, encoding="utf-8") as text:
        lines = text.read().splitlines()
    if not lines or lines[0] != "GIMP Palette":
        raise ValueError("no palette")
    rows = [line.split(None, 3) for line in lines if line[:1].isdigit() or line[:1] == " "]
    return [(row[3], tuple(int(number) for number in row[:3])) for row in rows]
