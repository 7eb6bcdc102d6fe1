#!/usr/bin/env python3
"""Writes a few good and bad files for each fuzz target to OUT/<target>/: the seeds that the corpus grew from.

Usage: fuzz/make_seeds.py OUT
"""
import pathlib
import struct
import sys


def name(text, length=None):
    units = text.encode("utf-16-be") + b"\0\0"
    return struct.pack(">I", len(text) + 1 if length is None else length) + units


def colour(space, *components):
    return struct.pack(">H4H", space, *(c & 0xFFFF for c in components))


def header(version, count):
    return struct.pack(">BBh", 0, version, count)


def reference(space, key):
    return struct.pack(">H", space) + key + b"\0\0"


def units(text):
    return struct.pack(">I", len(text)) + text.encode("utf-16-be")


def book(space, count, *colours):
    head = b"8BCB" + struct.pack(">HH", 1, 3000) + units("title") + units("") + units("C") + units("about")
    body = b"".join(units(n) + k + bytes(c) for n, k, c in colours)
    return head + struct.pack(">hHHH", count, 9, 4, space) + body + b"spflspot"


ALL = [(0, 65535, 0, 32768, 0), (1, 0, 65535, 65535, 0), (2, 65535, 0, 32768, 257), (7, 10000, -12800, 12700, 0),
       (8, 40000, 0, 0, 0), (9, 1, 2, 3, 4), (3014, 1, 2, 3, 4)]
BOOKS = [3, 4, 5, 6, 10, 11, 3000, 3022, 3032, *range(3060, 3069)]


def aco_seeds():
    version1 = header(1, len(ALL)) + b"".join(colour(*c) for c in ALL)
    records = b"".join(colour(*c) + name("c%d" % i) for i, c in enumerate(ALL))
    references = b"".join(reference(s, b"   1EP") + name("ref") for s in BOOKS)
    start = struct.pack(">h", 0)
    yield start
    yield start + b"\0\2\0"
    yield start + version1
    yield start + header(2, len(ALL)) + records
    yield start + version1 + header(2, len(ALL)) + records
    yield start + header(1, 0) + header(2, len(BOOKS)) + references
    yield start + header(2, len(BOOKS)) + references
    yield start + header(2, 2) + colour(0, 1, 2, 3, 0) + name("n" * 255) + colour(0, 1, 2, 3, 0) + name("")
    yield start + header(2, 1) + colour(0, 1, 2, 3, 0) + name("x", 0x80000000)
    for first, count in [(0, -1), (0, 5000), (0, 5001), (0, 32767), (4990, 20), (-3, 7), (30000, 5), (-32768, 32767)]:
        yield struct.pack(">h", first) + header(2, count) + records
        yield struct.pack(">h", first) + header(1, 0) + header(2, count) + records


def book_files():
    three = [("Red", b"RED   ", (255, 0, 0)), ("", b"      ", (0, 0, 0)), ("Blue", b"  BLUE", (0, 0, 255))]
    four = [("a", b"   1EP", (1, 2, 3, 4)), ("b", b"   1EP", (5, 6, 7, 8))]
    yield b""
    yield book(0, 3, *three)
    yield book(7, 3, *three)
    yield book(5, 3, *three)
    yield book(2, 2, *four)
    yield book(0, 8000, *three)
    yield book(0, -1, *three)
    yield book(0, 32767, *(three * 50))
    yield book(2, 2, *four)[:-12]
    yield b"8BCB\0\1\0\0\0\0\xff\xffshort"


def preferences_seeds():
    names, counts = 3040028 - 18, 3040024 - 18
    for length, position, data in [(0, 0, b""), (3040536, counts, struct.pack("<hh", 3, 5)), (3040536, 6, b"\5Abcde"),
                                   (3040536, counts, struct.pack("<hh", -3, 30000)), (100, 0, b"\xff" * 100),
                                   (3040536, 6, b"\xff" * 304), (3044000, 3040500, b"\xff" * 600),
                                   (3040536, counts, struct.pack("<hh", 1, 1) + b"\xff" * 532), (names + 5, names, b"\4List")]:
        yield struct.pack(">II", length, position) + data


def colour_texts():
    values = ["#36c", "#3366cc80", "36c", "RebeccaPurple", "transparent", "rgb(51, 102, 153)", "rgba(20% 40% 60% / .5)",
              "hsl(-.5turn, 50%, 40%)", "hsb(3.66rad 66 60)", "hwb(233grad 20% 40%)", "lab(46.3% -47.6 48.6)",
              "lch(50 1e99 none)", "oklab(.5 -40% 0.1)", "oklch(70% 0.35 150)", "rgb(1 2", "#12345", "hsl(10% 20% 30%)"]
    for value in values:
        yield value.encode()
        yield f"Sky blue: {value}\r\n- {value} \u2014 Gr\u00fcn\n".encode()
        yield f".a{{--b: {value}; \"c\": '{value}', [{value}, red]}}".encode()
    yield ", ".join(values).encode()
    yield "ffffff White\nfacade 87ceeb\n&#123; #deadbeefs | Sky | #87ceeb |".encode()


def ase_block(kind, body=b""):
    return struct.pack(">HI", kind, len(body)) + body


def ase_name(text):
    return struct.pack(">H", len(text) + 1) + text.encode("utf-16-be") + b"\0\0"


def ase():
    blocks = ase_block(0xC001, ase_name("G")) + ase_block(1, ase_name("R") + b"RGB " + struct.pack(">3fH", 1, 0.5, 0, 1))
    blocks += ase_block(1, ase_name("L") + b"LAB " + struct.pack(">3fH", 0.5, -20, 30, 2)) + ase_block(0xC002)
    blocks += ase_block(1, ase_name("") + b"CMYK" + struct.pack(">4fH", 0, 1, 0.5, 0, 0))
    return b"ASEF\0\1\0\0" + struct.pack(">I", 5) + blocks + ase_block(1, ase_name("W") + b"Gray" + struct.pack(">fH", 1, 0))


TOKENS = b'''{"$description": "T", "a": {"$type": "color", "b c": {"$value": "#f008"}, "d": {"$value": {"colorSpace": "lab",
"components": [50, 20, "none"], "alpha": 0.5}}, "e": {"$value": "{a.d}"}, "f": {"$value": {"colorSpace": "oklch",
"components": [0.7, 0.1, 150], "hex": "#123456"}}}, "g": ["#111", "#222222"], "h": "#333"}'''
SOC = b"""<?xml version="1.0"?><o:color-table xmlns:o="o" xmlns:draw="d"><draw:color draw:name="A &amp; &#233;"
draw:color="#0000ff"/><draw:color draw:color="red"/></o:color-table>"""


def palettes():
    """A file a reader, in the order of the formats' table, each written back as every format."""
    table = bytes(range(256)) * 3
    files = [[s[2:] for s in aco_seeds()], list(book_files())[:5], [ase()],
             [b"GIMP Palette\nName: N\nColumns: 0\n# c\n  1   2 255\t4 you\r\n0 0 0\n"],
             [table, table + b"\0\3\xff\xff"], [b"JASC-PAL\r\n0100\r\n2\r\n255 0 0\r\n0 0 9\r\n"],
             [b"RIFF\x18\0\0\0PAL data\x0c\0\0\0\0\3\2\0abc\0def\0"], [b"; c\nFF0080C0\n80ffffff ; d\n"],
             [b"#f00 Red\n0000ff\n// c\n#12345678 x"],
             [b":root { --a: #f00; --b-c: rgb(1 2 3 / .5); /* --d: red */ --e: hsl(9 9% 9%) !important }\n$f: 'x;' ; $g: lime"],
             [TOKENS], [SOC]]
    for reader, of_format in enumerate(files):
        for i, file in enumerate(of_format):
            yield bytes([reader, (reader + i) % 13]) + file
            yield bytes([reader, (3 * reader + 5 * i + 7) % 13]) + file


def main(out):
    seeds = {
        "aco": list(aco_seeds()),
        "book_load": list(book_files()),
        "book_lookup": [reference(s, k)[:8] + b for b in book_files() for s, k in [(3000, b"RED   "), (10, b"   1EP")]],
        "preferences": list(preferences_seeds()),
        "colour_texts": list(colour_texts()),
        "palettes": list(palettes()),
    }
    for target, files in seeds.items():
        folder = pathlib.Path(out, target)
        folder.mkdir(parents=True, exist_ok=True)
        for i, data in enumerate(files):
            (folder / f"seed{i:02}").write_bytes(data)


if __name__ == "__main__":
    main(sys.argv[1])
