"""Random operations on the dialog, as a person does them, beside the plain lists: all picks in one process."""
import os
import random
import statistics

from . import lists, swatch_files
from .program import Place, expect, finish, memory_of, wait_for

OF_A_PICK, BETWEEN_STATES = 500, 25
MOST_ROWS = 60
GROWTH, JUDGED = 1.05, 30  # of the memory: the last third of the states beside the second; so many of them at least
FILES = {"few.aco": 3, "some.aco": 17, "none.aco": 0}
NAMES = ["Blue", "red", "Light Blue", "a", "Wine 12", "grey-green", "Zinc"]


class Walk:
    """Writes the script and does the same to the plain lists."""

    def __init__(self, seed, place):
        self.random, self.place, self.plain, self.lines = random.Random(seed), place, lists.Lists(), []
        self.expected, self.saved = [], {}
        self.files = {name: [self.swatch() for _ in range(count)] for name, count in FILES.items()}
        for name, swatches in self.files.items():
            swatch_files.write_aco(os.path.join(place.work, name), swatches)

    def colour(self):
        """A few values only, so that colours come again."""
        return "#" + "".join(self.random.choice(("00", "33", "99", "c8", "ff")) for _ in range(3))

    def swatch(self):
        return self.random.choice(NAMES), lists.channels_of(self.colour())

    def say(self, *lines):
        self.lines += lines

    def run(self, operations):
        kinds, weights = zip(*WEIGHTS)
        for number in range(1, operations + 1):
            kind = self.random.choices(kinds, weights)[0]
            self.number = self.random.randrange(2)
            self.list, self.rows = f"swatch{self.number + 1}", self.plain.rows[self.number]
            kind(self)
            if number % BETWEEN_STATES == 0 or number == operations:
                self.tell()
            if number % OF_A_PICK == 0 and number < operations:
                self.say("ok")
                self.plain.new_pick()
        self.say("ok")

    def tell(self):
        self.say(f"state @/{len(self.expected)}.json")
        self.expected.append(([list(rows) for rows in self.plain.rows], list(self.plain.names),
                              (len(self.plain.undo), len(self.plain.redo), self.plain.steps)))

    # Each of these is one operation.

    def drop(self):
        row, colour, name = self.random.randint(0, len(self.rows)), self.colour(), self.random.choice(NAMES)
        if len(self.rows) >= MOST_ROWS:
            return self.clear()
        self.say(f"drop {self.list} 10 {22 * row + 10} '{colour}' '{name}'")
        self.plain.step()
        channels = lists.channels_of(colour)
        if self.plain.has(self.number, channels):
            self.say("answer")
        else:
            self.rows.insert(row, (name, channels))
        return None

    def some_row(self):
        """Pressed; nothing where there is none."""
        if not self.rows:
            self.drop()
            return None
        row = self.random.randrange(len(self.rows))
        self.say(f"click {self.list} 30 {22 * row + 15}")
        return row

    def some_rows(self):
        first = self.some_row()
        if first is None:
            return None
        last = self.random.randrange(len(self.rows))
        self.say(f"clickwith shift {self.list} 30 {22 * last + 15}")
        chosen = list(range(min(first, last), max(first, last) + 1))
        others = [row for row in range(len(self.rows)) if row not in chosen]
        if others and self.random.random() < 0.5:
            chosen = sorted([*chosen, self.random.choice(others)])
            added = (set(chosen) & set(others)).pop()
            self.say(f"clickwith ctrl {self.list} 30 {22 * added + 15}")
        return chosen if len(chosen) > 1 else None

    def move(self):
        row = self.some_row()
        if row is not None:
            to = self.random.randrange(len(self.rows))
            self.say(f"drag {self.list} 30 {22 * row + 15} {self.list} 30 {22 * to + 15}")
            self.plain.step()
            self.rows.insert(to, self.rows.pop(row))

    def delete(self):
        row = self.some_row()
        if row is not None:
            self.say(f"menu {self.list} deleteSwatch{self.number + 1}:")
            self.plain.step()
            self.rows.pop(row)

    def clear(self):
        self.say(f"press killSwatch{self.number + 1}:")
        self.plain.step()
        self.rows.clear()

    def load(self):
        self.read("loadSwatch", [])

    def append(self):
        if len(self.rows) < MOST_ROWS:
            self.read("appendSwatch", self.rows)

    def read(self, action, before):
        name = self.random.choice(list(self.files))
        self.say(f"choose $/{name}", f"press {action}{self.number + 1}:")
        self.plain.step()
        self.plain.step()
        self.rows[:] = before + self.files[name]
        self.plain.names[self.number] = name

    def cancelled_load(self):
        self.say(f"press loadSwatch{self.number + 1}:", "choose cancel")
        self.plain.step()
        self.plain.step()

    def drop_file(self):
        name = self.random.choice(list(self.files))
        self.say(f"dropfile {self.list} 30 30 $/{name}")
        self.plain.step()
        self.rows[:] = self.files[name]
        self.plain.names[self.number] = name

    def bring_in(self):
        """Import: in place of the list, behind it, or of it only what is new."""
        name = self.random.choice(["few.aco", "some.aco"])
        way = self.random.choice(["importReplace", "importAppend", "importNew", "closeImport"])
        if way == "importAppend" and len(self.rows) >= MOST_ROWS:
            return
        new, have = [], {channels for _, channels in self.rows}
        for swatch in self.files[name]:
            if swatch[1] not in have:
                new.append(swatch)
                have.add(swatch[1])
        if way == "importNew" and not new:
            way = "closeImport"
        self.say(f"dropfiles {self.list} 30 30 $/{name}", f"press {way}:")
        if way == "closeImport":
            return
        self.plain.step()
        self.rows[:] = {"importReplace": [], "importAppend": self.rows, "importNew": self.rows}[way] + (
            new if way == "importNew" else self.files[name])
        if way == "importReplace":
            self.plain.names[self.number] = name

    def save(self):
        name = f"saved{self.random.randrange(3)}.aco"
        self.say(f"choose $/{name}", f"press saveSwatch{self.number + 1}:")
        self.saved[name] = list(self.rows)

    def export(self):
        if self.rows:
            name = f"out{self.random.randrange(3)}.aco"
            self.say(f"menu {self.list} exportPalette{self.number + 1}:", "set exportKinds 0", f"choose $/{name}",
                     "press exportAll:")
            self.saved[name] = list(self.rows)

    def sort_names(self):
        self.sort("sortAlpha", lambda swatch: swatch[0])

    def sort_hues(self):
        self.sort("sortHue", lists.hue)

    def sort(self, action, key):
        self.say(f"press {action}{self.number + 1}:")
        self.plain.step()
        self.rows.sort(key=key)

    def reverse(self):
        if len(self.rows) > 1:
            self.say(f"menu {self.list} sortReversed:")
            self.plain.step()
            self.rows.reverse()

    def rename(self):
        row = self.some_row()
        if row is not None:
            name = self.random.choice(NAMES)
            self.say(f"key F2 {self.list}", f"type nameEditor '{name}'", "key Return nameEditor")
            if name != self.rows[row][0]:
                self.plain.step()
                self.rows[row] = name, self.rows[row][1]

    def delete_rows(self):
        chosen = self.some_rows()
        if chosen:
            self.say(f"key Delete {self.list}")
            self.plain.step()
            self.plain.remove(self.number, chosen)

    def rows_along(self):
        chosen = self.some_rows()
        down = self.random.random() < 0.5
        gap = chosen and (chosen[-1] + 2 if down else chosen[0] - 1)
        if chosen:
            self.say(f"key Alt+{'Down' if down else 'Up'} {self.list}")
            if 0 <= gap <= len(self.rows):
                self.plain.step()
                self.plain.move(self.number, chosen, gap)
            self.alone()

    def rows_across(self):
        """By a drag to the other list's end, or by the menu to below its selected row."""
        other = self.plain.rows[1 - self.number]
        beside, moves = f"swatch{2 - self.number}", self.random.random() < 0.5
        if len(self.rows) < 2 or len(other) >= MOST_ROWS:
            return
        below = self.random.randrange(len(other)) if other else -1
        if moves and other:
            self.say(f"click {beside} 30 {22 * below + 15}")
        chosen = self.some_rows()
        if chosen and moves:
            self.say(f"menu {self.list} moveAcross:")
            self.across(chosen, other, moves, below + 1)
        elif chosen:
            self.say(f"drag {self.list} 30 {22 * chosen[0] + 15} {beside} 30 {22 * len(other) + 15}")
            self.across(chosen, other, moves, len(other))

    def across(self, chosen, other, moves, gap):
        self.plain.step()
        other[gap:gap] = [self.rows[row] for row in chosen]
        if moves:
            self.plain.remove(self.number, chosen)
        self.alone()

    def sort_rows(self):
        chosen = self.some_rows()
        if chosen:
            self.say(f"menu {self.list} sortRowsByName:")
            ordered = sorted((self.rows[row] for row in chosen), key=lambda swatch: swatch[0])
            if ordered != [self.rows[row] for row in chosen]:
                self.plain.step()
                for row, swatch in zip(chosen, ordered):
                    self.rows[row] = swatch
            self.alone()

    def alone(self):
        """One row of each list is selected again."""
        for number, rows in enumerate(self.plain.rows, 1):
            if rows:
                self.say(f"click swatch{number} 30 15")

    def undo(self):
        if self.plain.undo:
            self.say("press doUndo:")
            self.plain.undo_step()

    def redo(self):
        if self.plain.redo:
            self.say("press doRedo:")
            self.plain.redo_step()

    def search(self):
        self.say(f"type findColor{self.number + 1} {self.random.choice(['Blue', 'e', 'nothing'])}", "wait 260",
                 f"key Return findColor{self.number + 1}")

    def add(self):
        """A colour that stands in the dialog, by the menu of its well."""
        if len(self.rows) < MOST_ROWS:
            colour = self.colour()
            self.say(f"type secondHex '{colour}'", f"menu origSecondColor addToList{self.number + 1}:")
            self.plain.step()
            self.rows.append((colour, lists.channels_of(colour)))

    def remove_doubles(self):
        doubles = self.plain.doubles(self.number)
        one = ["One", "Two"][self.number]
        self.say("press findNearDoubles:", "type compareDifference 0", f"press compareDoubles{one}", "wait 250")
        if doubles:
            self.say("press removeDoubles:")
            self.plain.step()
            self.plain.remove(self.number, doubles)
        self.say("key Escape compareRows")

    def wheel(self):
        x, y = self.random.randint(20, 120), self.random.randint(20, 120)
        self.say(self.random.choice([f"click chromaView {x} {y}", f"sweep chromaView {x} {y} 60 60 3",
                                     f"click lumiView 10 {x}", "press complementOn:", "press triComplementOn:",
                                     "press quadriOn:", "press harmoniquesOn:", f"type secondR {x}"]))

    def panels(self):
        self.say(self.random.choice(["press showProtocolWindow", "press showNearest:", "press compareLists:",
                                     "press showContrast:", "press showCustomAngle:", "press foldNearestUnder:"]))


WEIGHTS = [(Walk.drop, 20), (Walk.add, 8), (Walk.move, 7), (Walk.delete, 7), (Walk.clear, 0.5), (Walk.load, 2),
           (Walk.append, 2), (Walk.cancelled_load, 1), (Walk.drop_file, 2), (Walk.bring_in, 3), (Walk.save, 2),
           (Walk.export, 2), (Walk.sort_names, 2), (Walk.sort_hues, 2), (Walk.reverse, 2), (Walk.rename, 4),
           (Walk.delete_rows, 3), (Walk.rows_along, 3), (Walk.rows_across, 3), (Walk.sort_rows, 3), (Walk.undo, 10),
           (Walk.redo, 5), (Walk.search, 0.5), (Walk.remove_doubles, 0.5), (Walk.wheel, 8), (Walk.panels, 1)]


def told_lists(state):
    return [[(bytes.fromhex(row["name"]).decode("latin-1"), (row["SRed"], row["SGreen"], row["SBlue"]))
             for row in told["records"]] for told in state["lists"]]


def compare(place, walk):
    for number, (rows, names, steps) in enumerate(walk.expected):
        state = place.state(f"{number}.json")
        expect(state is not None, f"state {number} was not told")
        where = f"at state {number} (line {walk.lines.index(f'state @/{number}.json') + 1} of the script)"
        for told, plain, which in zip(told_lists(state), rows, ("1", "2")):
            expect(told == plain, f"{where} list {which} is {told}, not {plain}")
        told = len(state["undoNames"]), len(state["redoNames"]), state["undoCount"]
        expect(told == steps, f"{where} undo, redo and count are {told}, not {steps}")
        told = [bytes.fromhex(one["storedName"]).decode("latin-1") for one in state["lists"]]
        expect(told == names, f"{where} the lists' names are {told}, not {names}")
    for name, rows in walk.saved.items():
        expect(swatch_files.read_aco(os.path.join(place.work, name)) == rows, f"{name} holds something else")


def soak(programs, seed, operations):
    """Raises what went wrong; what else there is to say."""
    with Place(programs) as place:
        walk = Walk(seed, place)
        walk.run(operations)
        picks = 1 + (operations - 1) // OF_A_PICK
        process = place.play("\n".join(walk.lines) + "\n", options=["--picks", str(picks)])
        memory = []
        for number in range(len(walk.expected)):
            wait_for(os.path.join(place.said, f"{number}.json"), process, longest=600)
            memory.append(memory_of(process))
        code, _, err = finish(process)
        expect(code in (0, 1) and not err, f"it ended with {code}: {err[-500:]}")
        compare(place, walk)
        stored = swatch_files.read_preferences(place.preferences)
        expect(stored == [list(rows) for rows in walk.plain.rows], "other lists are stored than the dialog had")
        expect(not place.left_behind(), f"left behind: {place.left_behind()}")
        return flat([size for size in memory if size])


def flat(memory):
    """What is drawn and read for the first time comes in the first third; of a short walk nothing can be said."""
    third = len(memory) // 3
    middle, last = (statistics.median(part) / 1e6 for part in (memory[third:2 * third], memory[2 * third:]))
    expect(third < JUDGED or last <= middle * GROWTH, f"memory grew from {middle:.0f} to {last:.0f} MB")
    return f"{middle:.0f} MB in the second third, {last:.0f} in the last"
