"""What people read."""
from mutants.trials import BROKEN, NOTICED, SURVIVED

HEAD = ["room", "faults", "run", "noticed", "equivalent", "survived"]


def rows(rooms, listed, found):
    made = []
    for room in rooms:
        of_room = [found[fault.key()] for fault in listed.get(room, []) if fault.key() in found]
        none = {fault.key() for fault in listed.get(room, []) if fault.none}
        survived = [one for one in of_room if one["outcome"] == SURVIVED]
        made.append([room, len(listed.get(room, [])), len(of_room), sum(one["outcome"] == NOTICED for one in of_room),
                     sum(one["key"] in none for one in survived), sum(one["key"] not in none for one in survived)])
    made.append(["all"] + [sum(row[column] for row in made) for column in range(1, len(HEAD))])
    return made


def share(found):
    """Of the faults that were run and could be tried: how many were noticed."""
    tried = [one for one in found if one["outcome"] != BROKEN]
    return sum(one["outcome"] == NOTICED for one in tried) / len(tried) if tried else 0


def text(rooms, listed, found):
    cells = [HEAD] + [[str(cell) for cell in row] for row in rows(rooms, listed, found)]
    widths = [max(len(row[column]) for row in cells) for column in range(len(HEAD))]
    lines = ["  ".join([row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])])
             for row in cells]
    lines.insert(1, "  ".join("-" * width for width in widths))
    for fault in (fault for faults in listed.values() for fault in faults):
        one = found.get(fault.key())
        if one and one["outcome"] == SURVIVED:
            lines.append(f"survived {one['ran']}: {fault.name()}" + (f" (equivalent: {fault.none})" if fault.none else ""))
        if one and one["outcome"] == BROKEN:
            lines.append(f"does not build: {fault.name()}: {one['by'].strip().splitlines()[-1]}")
        if one and one["outcome"] == NOTICED and fault.none:
            lines.append(f"noticed, though it is called equivalent: {fault.name()}: {one['by']}")
    run = [found[fault.key()] for faults in listed.values() for fault in faults if fault.key() in found]
    seconds = sum(one["seconds"] for one in run)
    lines.append(f"{len(run)} faults run, {100 * share(run):.1f} % noticed; {seconds / 60:.0f} min in all")
    return "\n".join(lines)
