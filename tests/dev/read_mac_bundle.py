"""Reads Chromalog.plugin as a host on a Mac would, slice by slice: what is loaded, asked for, offered, signed and told.

Nothing of it runs here. read_mac_bundle.py ROOT [BUNDLE]: without a bundle the one that dev/mac_bundle has left in
ROOT/build/mac. Where there is none, or an older one than the sources, one line says so, and the exit code is 77.
"""

import collections
import hashlib
import pathlib
import plistlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(sys.argv[1])
TOOLS = ROOT / "build/mac"
BUNDLE = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else TOOLS / "Chromalog.plugin"

VERSION = re.search(r"project\(Chromalog VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
MINIMUM_SYSTEM = (11, 0)
RUN_PATHS = ["@loader_path/../Frameworks"]
ARCHITECTURES = {"x86_64": (0x01000007, 3), "arm64": (0x0100000C, 0)}
OF_SYSTEM = {"/usr/lib/libSystem.B.dylib", "/usr/lib/libc++.1.dylib"}


def framework(part):
    return f"@rpath/Qt{part}.framework/Versions/A/Qt{part}"


# What each file may load, and all that it exports.
CODE = {
    "Chromalog": (
        OF_SYSTEM
        | {"/usr/lib/libobjc.A.dylib", "/usr/lib/libexpat.1.dylib"}
        | {framework(part) for part in ("Core", "Gui", "Widgets", "PrintSupport")},
        ["_PluginMain"],
    ),
    "ChromalogDrive.so": (
        OF_SYSTEM | {framework(part) for part in ("Core", "Gui", "Widgets", "PrintSupport", "UiTools")},
        ["_chromalogDrive", "_chromalogReadForm"],
    ),
}

PLIST = {
    "CFBundleDevelopmentRegion": "English",
    "CFBundleExecutable": "Chromalog",
    "CFBundleIdentifier": "com.quorvex.chromalog",
    "CFBundleInfoDictionaryVersion": "6.0",
    "CFBundleName": "Chromalog",
    "CFBundlePackageType": "8BCM",
    "CFBundleShortVersionString": VERSION,
    "CFBundleSignature": "8BIM",
    "CFBundleVersion": VERSION,
    "LSMinimumSystemVersion": ".".join(map(str, MINIMUM_SYSTEM)),
}

# Texts that only the files for one of the systems hold.
TEXTS_OF_MAC = [b"NSApp", b"contentView", b"NSSound", b"NSPasteboard"]
TEXTS_OF_LINUX = [b"libxcb", b"org.freedesktop", b"paplay", b"/dev/dri", b"/.local/share/applications"]

# Key, length and bytes with their padding, as they lie in the resource.
PROPERTIES = [
    (b"kind", 4, b"8BCM"),
    (b"vers", 4, b"\x00\x01\x00\x00"),
    (b"prty", 4, b"\x00\x00\x00\x00"),
    (b"host", 4, b"8BIM"),
    (b"name", 10, b"\x09Chromalog\x00\x00"),
    (b"catg", 10, b"\x09Chromalog\x00\x00"),
    (b"pnme", 18, b"Quorvex Chromalog\x00\x00\x00"),
    (b"mi64", 11, b"\x0aPluginMain\x00"),
    (b"ma64", 11, b"\x0aPluginMain\x00"),
    (b"mode", 2, b"\xff\xc0\x00\x00"),
    (b"enbl", 5, b"true\x00\x00\x00\x00"),
]


def program(name, *arguments):
    return subprocess.run([f"/usr/bin/{name}-14", *map(str, arguments)], check=True, capture_output=True, text=True).stdout


def code_file(name):
    return BUNDLE / "Contents/MacOS" / name


class Slice:
    """One architecture of a file, by macholib: its header, its load commands by kind, its own bytes."""

    def __init__(self, header, data):
        self.header = header
        self.bytes = data[header.offset : header.offset + header.size]
        self.commands = collections.defaultdict(list)
        for load, command, rest in header.commands:
            self.commands[load.get_cmd_name()].append((command, rest))

    def texts(self, kind):
        return [rest.rstrip(b"\0").decode() for _, rest in self.commands[kind]]


def slices(name):
    path = code_file(name)
    data = path.read_bytes()
    found = {}
    for header in macholib.MachO.MachO(str(path)).headers:
        kind = (header.header.cputype, header.header.cpusubtype & 0xFFFFFF)
        found[kind] = Slice(header, data)
    return {name: found[kind] for name, kind in ARCHITECTURES.items() if kind in found} if len(found) == 2 else {}


def for_every_slice(test):
    def run(self):
        for name in CODE:
            of_file = slices(name)
            self.assertEqual(list(of_file), list(ARCHITECTURES), name)
            for architecture, found in of_file.items():
                with self.subTest(file=name, architecture=architecture):
                    test(self, name, architecture, found)

    return run


class Code(unittest.TestCase):
    @for_every_slice
    def test_is_a_bundle_of_both_architectures_without_undefined_symbols(self, name, architecture, found):
        no_undefined, two_level = 0x1, 0x80
        self.assertEqual(found.header.header.filetype, 8)
        self.assertEqual(found.header.header.flags & (no_undefined | two_level), no_undefined | two_level)

    @for_every_slice
    def test_states_the_oldest_system(self, name, architecture, found):
        ((version, _),) = found.commands["LC_BUILD_VERSION"]
        self.assertEqual(version.platform, 1)
        self.assertEqual((version.minos >> 16, version.minos >> 8 & 0xFF), MINIMUM_SYSTEM)

    @for_every_slice
    def test_loads_the_toolkit_from_the_bundle_and_the_rest_from_the_system(self, name, architecture, found):
        self.assertEqual(found.texts("LC_RPATH"), RUN_PATHS)
        self.assertEqual(sorted(found.texts("LC_LOAD_DYLIB")), sorted(CODE[name][0]))
        self.assertFalse(found.commands["LC_LOAD_WEAK_DYLIB"] or found.commands["LC_REEXPORT_DYLIB"])

    @for_every_slice
    def test_is_made_of_the_files_for_a_mac(self, name, architecture, found):
        for text in TEXTS_OF_LINUX + [bytes(ROOT)]:
            self.assertFalse(text in found.bytes, text)
        for text in TEXTS_OF_MAC if name == "Chromalog" else ():
            self.assertTrue(b"\0" + text + b"\0" in found.bytes, text)

    @for_every_slice
    def test_takes_every_symbol_from_a_named_library(self, name, architecture, found):
        ((table, _),) = found.commands["LC_SYMTAB"]
        undefined = 0
        for at in range(table.symoff, table.symoff + 16 * table.nsyms, 16):
            _, kind, _, description, _ = struct.unpack_from("<IBBHQ", found.bytes, at)
            if kind & 0xE0 or kind & 0x0E or not kind & 0x01:
                continue
            undefined += 1
            self.assertIn(description >> 8, range(1, len(CODE[name][0]) + 1))
        self.assertGreater(undefined, 100)

    @for_every_slice
    def test_exports_its_entries_and_nothing_else(self, name, architecture, found):
        only = ["--extern-only", "--defined-only", "--just-symbol-name"]
        listed = program("llvm-nm", *only, f"--arch={architecture}", code_file(name))
        self.assertEqual(sorted(line for line in listed.split("\n") if line.startswith("_")), CODE[name][1])
        trie = program("llvm-objdump", "--macho", "--exports-trie", f"--arch={architecture}", code_file(name))
        self.assertEqual(sorted(line.split()[1] for line in trie.split("\n") if line.startswith("0x")), CODE[name][1])

    @for_every_slice
    def test_is_signed_for_this_machine_alone_and_unchanged_since(self, name, architecture, found):
        ((place, _),) = found.commands["LC_CODE_SIGNATURE"]
        blob = found.bytes[place.dataoff : place.dataoff + place.datasize]
        magic, _, count = struct.unpack_from(">III", blob)
        self.assertEqual(magic, 0xFADE0CC0)
        parts = dict(struct.unpack_from(">II", blob, 12 + 8 * i) for i in range(count))
        directory = blob[parts[0] :]
        fields = struct.unpack_from(">9I4BI", directory)
        magic, _, _, flags, hashes, _, special, pages, limit, length, kind, _, page = fields[:13]
        self.assertEqual(magic, 0xFADE0C02)
        self.assertTrue(flags & 0x2, "ad hoc")
        self.assertEqual((special, length, kind, limit), (0, 32, 2, place.dataoff))
        self.assertEqual(pages, -(-limit // (1 << page)))
        for i in range(pages):
            data = found.bytes[i << page : min((i + 1) << page, limit)]
            kept = directory[hashes + 32 * i : hashes + 32 * (i + 1)]
            self.assertEqual(kept, hashlib.sha256(data).digest(), f"page {i}")


class Told(unittest.TestCase):
    """What the host reads before it loads anything."""

    def test_holds_these_files_alone(self):
        files = sorted(str(path.relative_to(BUNDLE)) for path in BUNDLE.rglob("*") if not path.is_dir())
        code = [f"Contents/MacOS/{name}" for name in CODE]
        self.assertEqual(files, ["Contents/Info.plist", *code, "Contents/PkgInfo", "Contents/Resources/Chromalog.rsrc"])

    def test_property_list_is_well_formed_and_says_each_thing_once(self):
        data = (BUNDLE / "Contents/Info.plist").read_bytes()
        self.assertEqual(plistlib.loads(data, fmt=plistlib.FMT_XML), PLIST)
        top = xml.etree.ElementTree.fromstring(data)
        self.assertEqual((top.tag, top.attrib, [child.tag for child in top]), ("plist", {"version": "1.0"}, ["dict"]))
        self.assertEqual([child.tag for child in top[0]], ["key", "string"] * len(PLIST))

    def test_package_information(self):
        self.assertEqual((BUNDLE / "Contents/PkgInfo").read_bytes(), b"8BCM8BIM")

    def resource(self):
        """The one resource of the file, by its map; every number of the map is checked on the way."""
        data = (BUNDLE / "Contents/Resources/Chromalog.rsrc").read_bytes()
        content, the_map, content_length, map_length = struct.unpack_from(">4I", data)
        self.assertEqual((content, content + content_length, the_map + map_length), (256, the_map, len(data)))
        self.assertEqual(data[the_map : the_map + 16], data[:16])
        types, names, count = struct.unpack_from(">HHH", data, the_map + 24)
        self.assertEqual((names, count), (map_length, 0))
        kind, more, references = struct.unpack_from(">4sHH", data, the_map + types + 2)
        self.assertEqual((kind, more), (b"PiPL", 0))
        number, name, place = struct.unpack_from(">hhI", data, the_map + types + references)
        self.assertEqual((number, name, place >> 24), (16000, -1, 0))
        self.assertEqual(the_map + types + references + 12, len(data))
        start = content + (place & 0xFFFFFF)
        (length,) = struct.unpack_from(">I", data, start)
        self.assertEqual(start + 4 + length, the_map)
        return data[start + 4 : the_map]

    def test_properties_byte_by_byte(self):
        data = self.resource()
        self.assertEqual(struct.unpack_from(">II", data), (0, len(PROPERTIES)))
        at = 8
        for key, length, padded in PROPERTIES:
            with self.subTest(property=key):
                self.assertEqual(struct.unpack_from(">4s4sII", data, at), (b"8BIM", key, 0, length))
                self.assertEqual(data[at + 16 : at + 16 + len(padded)], padded)
            at += 16 + len(padded)
        self.assertEqual(at, len(data))


NEWER_THAN_THE_OLDEST = """
#include <charconv>
char* write(char (&text)[32], NUMBER number) { return std::to_chars(text, text + 32, number).ptr; }
"""


@unittest.skipUnless((TOOLS / "bin/c++").exists(), "the compiler for macOS is not here")
class Compiler(unittest.TestCase):
    def compiles(self, number):
        options = ["-arch", "arm64", f"-mmacosx-version-min={PLIST['LSMinimumSystemVersion']}", "-std=c++20", f"-DNUMBER={number}"]
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "text.cpp")
            source.write_text(NEWER_THAN_THE_OLDEST)
            command = [TOOLS / "bin/c++", *options, "-c", source, "-o", source.with_suffix(".o")]
            return subprocess.run(command, capture_output=True).returncode == 0

    def test_takes_no_call_that_the_oldest_system_lacks(self):
        self.assertTrue(self.compiles("int"))
        self.assertFalse(self.compiles("double"), "of macOS 13.3")


def skip(why):
    print(f"skipped: {why}")
    sys.exit(77)


def is_older_than_sources():
    built = code_file("Chromalog").stat().st_mtime
    sources = (path for folder in ("src", "resources") for path in (ROOT / folder).rglob("*") if path.is_file())
    return any(path.stat().st_mtime > built for path in sources)


try:
    import macholib.MachO
except ImportError:
    skip("python3-macholib is not installed")
if not code_file("Chromalog").exists():
    skip("no bundle for macOS has been built here; dev/mac_bundle does it")
if len(sys.argv) <= 2 and is_older_than_sources():
    skip("the bundle for macOS is older than the sources; dev/mac_bundle builds and reads it")
unittest.main(argv=sys.argv[:1])
