"""The two lists and their undo as the plainest program would keep them: Python lists and whole copies."""
import struct

CAPACITY, STEPS = 5000, 20


def channels_of(hexes):
    """Of "#rrggbb", as a list stores a colour that comes as fractions: truncated."""
    return tuple(int(int(hexes[i:i + 2], 16) / 255.0 * 65535.0) for i in (1, 3, 5))


def hue(swatch):
    """As the colour's own arithmetic has it: fractions of 65535 in single precision, the hue of them in single."""
    red, green, blue = (_single(channel) / 65535.0 for channel in swatch[1])
    most, least = max(red, green, blue), min(red, green, blue)
    if most == least:
        return 0.0
    span = most - least
    if red == most:
        sector = (green - blue) / span
    elif green == most:
        sector = 2 + (blue - red) / span
    else:
        sector = 4 + (red - green) / span
    turn = sector / 6
    return _single(turn + 1 if turn < 0 else turn)


def _single(number):
    return struct.unpack("f", struct.pack("f", number))[0]


class Lists:
    def __init__(self):
        self.rows = ([], [])
        self.names = ["", ""]
        self.undo, self.redo, self.steps = [], [], 0

    def new_pick(self):
        self.undo, self.redo, self.steps = [], [], 0

    def step(self):
        """What comes next can be undone."""
        self.undo = [*self.undo, self._copy()][-STEPS:]
        self.redo = []
        self.steps += 1

    def undo_step(self):
        self.redo = [*self.redo, self._copy()][-STEPS:]
        self._restore(self.undo.pop())
        self.steps -= 1

    def redo_step(self):
        self.undo = [*self.undo, self._copy()][-STEPS:]
        self._restore(self.redo.pop())
        self.steps += 1

    def _copy(self):
        return [list(rows) for rows in self.rows], list(self.names)

    def _restore(self, kept):
        for rows, was in zip(self.rows, kept[0]):
            rows[:] = was
        self.names = list(kept[1])

    def has(self, number, channels):
        """Whether a colour counts as there already: within 10 of 65535, as the straight distance."""
        return any(sum((a - b) ** 2 for a, b in zip(channels, row[1])) <= 100 for row in self.rows[number])

    def doubles(self, number):
        """The rows whose colour an earlier row has."""
        seen, found = set(), []
        for row, (_, channels) in enumerate(self.rows[number]):
            if channels in seen:
                found.append(row)
            seen.add(channels)
        return found

    def move(self, number, chosen, gap):
        """The chosen rows, in their order, into the gap before row `gap`."""
        rows = self.rows[number]
        moved = [rows[row] for row in chosen]
        before = [rows[row] for row in range(gap) if row not in chosen]
        after = [rows[row] for row in range(gap, len(rows)) if row not in chosen]
        rows[:] = before + moved + after

    def remove(self, number, chosen):
        rows = self.rows[number]
        rows[:] = [row for at, row in enumerate(rows) if at not in set(chosen)]
