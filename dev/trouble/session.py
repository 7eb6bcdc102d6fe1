"""A session with lists, files and undo, and what must hold after it, however it went."""
import os

from . import swatch_files
from .program import Place, Wrong, expect, finish
from .soak import told_lists

ONE = [(f"One {i}", (1000 * i, 60000 - 4000 * i, 257 * i)) for i in range(12)]
TWO = [(f"Two {i}", (257 * i, 257, 65535)) for i in range(5)]
NEW = [(f"New {i}", (65535, 257 * 27 * i, 257)) for i in range(7)]
SOME = [(f"Some {i}", (257 * 40 * i, 0, 257 * 3)) for i in range(4)]
OLD = [("Old", (257, 514, 771))]
DROPPED, AFTER = ("Dropped", (0x12 * 257, 0x34 * 257, 0x56 * 257)), ("After", (0xfe * 257, 0xdc * 257, 0xba * 257))
SCRIPT = """
state @/begin.json
choose $/new.aco
press loadSwatch1:
menu swatch1 deleteSwatch1:
drop swatch2 10 10 '#123456' 'Dropped'
choose $/saved.aco
press saveSwatch2:
dropfiles swatch2 30 30 $/some.gpl
press importAppend:
menu swatch1 exportPalette1:
set exportKinds 3
choose $/out.gpl
press exportAll:
press doUndo:
key F2 swatch1
type nameEditor Renamed
key Return nameEditor
wait 50
state @/end.json
ok
"""
NEXT = """
state @/next.json
drop swatch2 10 10 '#fedcba' 'After'
choose $/saved.aco
press saveSwatch2:
menu swatch2 exportPalette2:
set exportKinds 3
choose $/out.gpl
press exportAll:
state @/last.json
ok
"""


def steps_of(one, two, loads, brings):
    """Both lists after each step, from these on; a file that cannot be read changes nothing."""
    steps = [(one, two)]

    def next_step(first, second):
        steps.append((first, second))
        return first, second
    one, two = next_step(NEW if loads else one, two)
    one, two = next_step(one[1:], two)
    before = one, two
    one, two = next_step(one, [DROPPED, *two])
    if brings:
        next_step(one, two + SOME)
    else:
        one, two = before
    if one:
        next_step([("Renamed", one[0][1]), *one[1:]], two)
    return steps


POSSIBLE = [step for one, two in ((ONE, TWO), ([], [])) for loads in (True, False) for brings in (True, False)
            for step in steps_of(one, two, loads, brings)]
ENDS = steps_of(ONE, TWO, True, True)[-1]  # of a session in which nothing fails


def lay(place):
    """The lists and files that a session begins with."""
    swatch_files.write_preferences(place.preferences, (ONE, TWO))
    swatch_files.write_aco(os.path.join(place.work, "new.aco"), NEW)
    swatch_files.write_aco(os.path.join(place.work, "saved.aco"), OLD)
    for name, swatches in (("some.gpl", SOME), ("out.gpl", OLD)):
        with open(os.path.join(place.work, name), "w", encoding="utf-8") as out:
            out.write("GIMP Palette\n#\n")
            for title, channels in swatch_files.in_bytes(swatches):
                out.write("{:3} {:3} {:3}\t{}\n".format(*channels, title))


def stored(place):
    try:
        return tuple(swatch_files.read_preferences(place.preferences))
    except (OSError, ValueError) as failure:
        raise Wrong(f"the stored lists cannot be read: {failure}") from None


def kept(place):
    """Both lists of every copy beside the stored ones, by name; a copy that cannot be read is wrong."""
    folder, own = os.path.split(place.preferences)
    copies = {}
    for name in os.listdir(folder):
        if name.startswith(own + ".") and not name.endswith((".lock", ".open")):
            try:
                copies[name[len(own) + 1:]] = tuple(swatch_files.read_preferences(os.path.join(folder, name)))
            except ValueError as failure:
                raise Wrong(f"{name} is not whole: {failure}") from None
    return copies


def briefly(lists):
    return " and ".join(f"{len(rows)} ({rows[0][0] if rows else 'none'}...)" for rows in lists)


def whole(place, also=()):
    """Whatever happened: every file is whole, and one of those that it can be, or of some others."""
    now, copies = stored(place), kept(place)
    expect(now in POSSIBLE, f"lists are stored that never were: {briefly(now)}")
    for name, lists in copies.items():
        expect(lists in [*POSSIBLE, *also], f"{name} holds lists that never were: {briefly(lists)}")
    read = place.state("begin.json")
    if read is None or told_lists(read) == [[], []]:  # what nobody read is there or kept
        expect((ONE, TWO) in [now, *copies.values()], "the lists that nobody had read are lost")
    firsts, seconds = [one for one, _ in POSSIBLE], [two for _, two in POSSIBLE]
    saved = swatch_files.read_aco(os.path.join(place.work, "saved.aco"))
    expect(saved == OLD or saved in seconds, f"saved.aco holds what never was: {saved}")
    out = swatch_files.read_gpl(os.path.join(place.work, "out.gpl"))
    known = [swatch_files.in_bytes(rows) for rows in [OLD, *firsts]]
    expect(out in known, f"out.gpl holds what never was: {out}")
    return now


def next_session(place):
    """Another one, undisturbed: it finds the lists, writes everywhere, and leaves nothing behind."""
    before = stored(place)
    code, _, err = finish(place.play(NEXT, name="next"))
    expect(code in (0, 1) and not err, f"the next session ended with {code}: {err[-300:]}")
    expect(tuple(told_lists(place.state("next.json"))) == before, "the next session finds other lists")
    last = tuple(told_lists(place.state("last.json")))
    expect(last == (before[0], [AFTER, *before[1]]), f"the next session made {briefly(last)}")
    expect(stored(place) == last, "the next session stored other lists")
    expect(swatch_files.read_aco(os.path.join(place.work, "saved.aco")) == last[1], "saved.aco is not what was saved")
    expect(not place.left_behind(), f"left behind: {place.left_behind()}")


def storing_failed(calls):
    """Whether it failed to store lists the last time before the script's last state."""
    lines = calls.splitlines()
    lines = lines[:len(lines) - lines[::-1].index("state")] if "state" in lines else []
    began = [at for at, line in enumerate(lines) if "readlink" in line and line.endswith(".prf")]
    stored_at = [at for at, line in enumerate(lines)
                 if " rename " in line and " ! " not in line and line.endswith(".prf")]
    return bool(began) and any(" ! " in line for line in lines) and not (stored_at and stored_at[-1] > began[-1])


def calls_of(place):
    with open(place.path("said/calls"), encoding="utf-8", errors="replace") as text:
        return text.read()


def after_failures(place, code, err, traced=True):
    """A session whose calls failed: it lived, said so, and the files are whole."""
    expect(code in (0, 1) and not err or code == 2 and err.count("\n") == 1, f"it ended with {code}: {err[-300:]}")
    now, end = whole(place), place.state("end.json")
    if end and not end["status"]:
        silent = storing_failed(calls_of(place)) if traced else now != tuple(told_lists(end))
        expect(not silent, "lists were not stored, and nothing was said")


def played(programs, faults):
    """A laid place in which the session was played, and how that ended."""
    place = Place(programs)
    lay(place)
    return place, finish(place.play(SCRIPT, faults))
