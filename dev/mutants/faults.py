"""The list of deliberate faults: dev/mutants/rooms/ROOM.txt. A fault is a title and a few lines:

    == The last row is not drawn
    kind: comparison
    file: src/swatches/swatch_list_view.cpp
    - row <= last
    + row < last

`-` lines are found in the file, where they stand exactly once, and `+` lines replace them; both are parts of lines or
several whole ones. `first: PROGRAM` names the test program that is run before the room's others; `none: WHY` says
that nobody could notice, and why."""
import hashlib
import os
import re
from dataclasses import dataclass, field

KINDS = ("constant", "comparison", "order", "missing call", "wrong argument", "missing clamp", "missing flush", "leak",
         "byte order", "label", "redraw", "accessibility", "arithmetic", "missing check", "wrong default")
FAULTS, PER_ROOM, KINDS_USED = 150, 8, 12  # at least


class BadList(Exception):
    """With every complaint, a line each."""


@dataclass
class Fault:
    room: str
    title: str
    kind: str = ""
    file: str = ""
    first: str = ""
    none: str = ""
    find: list = field(default_factory=list)
    replace: list = field(default_factory=list)

    def name(self):
        return f"{self.room}: {self.title}"

    def key(self):
        """Another fault, another key."""
        text = "\0".join([self.room, self.title, self.file, *self.find, "\0", *self.replace])
        return hashlib.sha256(text.encode()).hexdigest()[:16]

    def applied(self, text):
        found, instead = "\n".join(self.find), "\n".join(self.replace)
        count = text.count(found) if found else 0
        if count != 1:
            times = "no longer" if count == 0 else f"{count} times"
            raise BadList(f"{self.name()}: its text stands {times} in {self.file}")
        if found == instead:
            raise BadList(f"{self.name()}: changes nothing")
        return text.replace(found, instead)


def rooms(root):
    """Of the map, in its order."""
    with open(os.path.join(root, "src/README.md"), encoding="utf-8") as page:
        table = re.split(r"\n\n", page.read().split("\n| room |", 1)[1])[0]
    return re.findall(r"^\| `(\w+)` \|", table, re.M)


def read(path):
    room, faults, current = os.path.splitext(os.path.basename(path))[0], [], None
    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines.read().split("\n"), 1):
            if line.startswith("== "):
                current = Fault(room, line[3:])
                faults.append(current)
            elif line[:2] in ("- ", "-") and current:
                current.find.append(line[2:])
            elif line[:2] in ("+ ", "+") and current:
                current.replace.append(line[2:])
            elif re.match(r"(kind|file|first|none): \S", line) and current:
                setattr(current, *line.split(": ", 1))
            elif line and not line.startswith("#"):
                raise BadList(f"{path}:{number}: not understood: {line}")
    return faults


def all_of(folder):
    """By room, in the order of the files' lines."""
    return {name[:-4]: read(os.path.join(folder, name)) for name in sorted(os.listdir(folder)) if name.endswith(".txt")}


def complaints(root, listed):
    """What is wrong with each fault: that it no longer applies, mostly."""
    said, texts, titles = [], {}, set()
    for fault in (fault for faults in listed.values() for fault in faults):
        if fault.kind not in KINDS:
            said.append(f"{fault.name()}: no kind is called '{fault.kind}'")
        if fault.name() in titles:
            said.append(f"{fault.name()}: stands twice")
        titles.add(fault.name())
        try:
            if fault.file not in texts:
                with open(os.path.join(root, fault.file), encoding="utf-8") as file:
                    texts[fault.file] = file.read()
            fault.applied(texts[fault.file])
        except OSError:
            said.append(f"{fault.name()}: there is no file '{fault.file}'")
        except BadList as why:
            said.append(str(why))
    return said


def shortages(root, listed):
    """What the whole list has too few of."""
    known, said = rooms(root), []
    said += [f"no room is called {room}" for room in listed if room not in known]
    said += [f"{room}: {len(listed.get(room, []))} faults, fewer than {PER_ROOM}" for room in known
             if len(listed.get(room, [])) < PER_ROOM]
    every = [fault for faults in listed.values() for fault in faults]
    if len(every) < FAULTS:
        said.append(f"{len(every)} faults, fewer than {FAULTS}")
    kinds = {fault.kind for fault in every}
    if len(kinds) < KINDS_USED:
        said.append(f"{len(kinds)} kinds, fewer than {KINDS_USED}")
    return said
