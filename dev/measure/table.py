"""The table that people read."""
from measure import results

UNMEASURED = "not measured"
HEAD = ["operation", "this program", "limit", "plain algorithm", "peer", "ratio", "bound", ""]
COLUMN = {"limit": 2, "plain": 3, "peer": 4}


def three_digits(value):
    if value == 0:
        return "0"
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def quantity(value, unit):
    if unit == "ns":
        for size, name in ((1e9, "s"), (1e6, "ms"), (1e3, "µs")):
            if value >= size:
                return f"{three_digits(value / size)} {name}"
        return f"{three_digits(value)} ns"
    if unit == "kB":
        return f"{value / 1024:.1f} MB"
    return f"{value:.2f} {unit}"


def ratio_text(value):
    return f"{value:.2f}" if value >= 0.1 else f"{value:.3f}"


def bound_text(line, unit):
    if line["bound"] is None:
        return ""
    number = quantity(line["bound"], unit) if line["beside"] is None else f"{line['bound']:.3g}"
    goal = f" (goal {line['goal']:.3g})" if line["goal"] is not None else ""
    return f"≤ {number}{goal}"


def rows(operation):
    unit, made = operation["unit"], []
    for line in results.verdicts(operation):
        row = [""] * len(HEAD)
        if not made:
            row[0] = operation["operation"]
            row[1] = quantity(results.median(operation["ours"]), unit) if operation["ours"] else UNMEASURED
        other = line["beside"]
        if other is not None:
            missing = line["verdict"] == results.MISSING
            row[COLUMN[other["kind"]]] = other["what"] + " " + (
                (results.MISSING if operation["ours"] else UNMEASURED) if missing else quantity(results.median(other["samples"]), unit))
            row[5] = ratio_text(line["value"]) if line["value"] is not None else ""
        row[6] = bound_text(line, unit)
        row[7] = "" if line["verdict"] == results.MISSING else line["verdict"]
        made.append(row)
    return made


def table(measured):
    lines = [HEAD]
    for operation in measured["operations"]:
        lines += rows(operation)
    widths = [max(len(line[column]) for line in lines) for column in range(len(HEAD))]
    text = ["  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip() for line in lines]
    text.insert(1, "  ".join("-" * width for width in widths).rstrip())
    return "\n".join(text)


def load_line(measured):
    before, after = measured["load"]
    return (f"load {before[0]:.2f} before, {after[0]:.2f} after, on {measured['processors']} processors; "
            f"medians of {measured['rounds']} rounds")


def names_of_short(measured):
    said = []
    for operation, line in results.short(measured):
        other = line["beside"]
        value = ratio_text(line["value"]) if other else quantity(line["value"], operation["unit"])
        beside = f" of {other['what']}" if other else ""
        said.append(f"short: {operation['operation']}: {value}{beside}, {bound_text(line, operation['unit'])}")
    return said


def comparison(measured, old):
    """What became slower, one line each."""
    said = [f"slower: {name}: {factor:.2f} times" for name, factor in results.slower(measured, old)]
    loads = results.busier(measured, old)
    if said and loads:
        said.append(f"the machine is busier than it was (load {loads[0]:.1f}, now {loads[1]:.1f}): measure both again")
    return said
