"""How cost grows: each operation over the number of swatches, the wheel's size or the window's; one plot each."""
import os

from measure import plots, results

COUNTS = [10, 100, 1000, 4999]
WHEELS = [128, 256, 512, 1024, 2048]
WINDOWS = [(1200, 800), (1600, 1200), (2560, 1440)]
CHARTS = [128, 256, 512, 1024]


def over_counts(name, pattern):
    return name, [(count, pattern.format(count)) for count in COUNTS]


def over_wheels(name, pattern):
    return name, [(size, pattern.format(size)) for size in WHEELS]


def over_charts(name, pattern):
    return name, [(size, pattern.format(size)) for size in CHARTS]


def over_windows(name, pattern):
    return name, [(width * height, pattern.format(f"{width}/{height}")) for width, height in WINDOWS]


SWATCHES, PIXELS, WINDOW = "swatches in a list", "pixels across", "the window's size"

# Where an area stands for a size of the window.
SHOWN = {width * height: f"{width} x {height}" for width, height in WINDOWS}

# file, title, what runs along the bottom, series of (name, [(x, key)])
PLOTS = [
    ("start", "Start: exec to mapped window", SWATCHES + "; both lists hold as many", [
        over_counts("start", "start chromalog {}")]),
    ("drop", "A drop on a list, press to painted frame", SWATCHES, [over_counts("drop", "bench_dialog drop/{}")]),
    ("repaint", "A list of 200 x 400 points repainted", SWATCHES, [
        over_counts("this list", "bench_list_repaint repaintList/{}"),
        over_counts("QListView", "bench_list_repaint repaintListView/{}")]),
    ("scroll", "A list scrolled by a row", SWATCHES, [
        over_counts("this list", "bench_list_repaint scrollList/{}"),
        over_counts("QListView", "bench_list_repaint scrollListView/{}")]),
    ("search", "Search by name", SWATCHES, [
        over_counts("'Blue'", "bench_lists searchOurs/Blue/{}"),
        over_counts("'e'", "bench_lists searchOurs/e/{}"),
        over_counts("QStrings, 'Blue'", "bench_texts readyTexts/Blue/{}"),
        over_counts("proxy model, 'Blue'", "bench_texts proxyFilter/Blue/{}")]),
    ("sort", "Sorting a list", SWATCHES, [
        over_counts("by name", "bench_lists sortByNameOurs/{}"),
        over_counts("by hue", "bench_lists sortByHueOurs/{}"),
        over_counts("proxy model, name", "bench_texts proxySort/{}")]),
    ("nearest", "The nearest swatch", SWATCHES, [
        over_counts("nearest", "bench_lists nearestOurs/{}"),
        over_counts("one by one", "bench_lists nearestPlain/{}")]),
    ("undo", "A step of undo after one edit", SWATCHES + "; both lists hold as many", [
        over_counts("step", "bench_history stepAfterOneEdit/{}")]),
    ("aco", "Swatch files", SWATCHES, [
        over_counts("read", "bench_swatch_files readSwatchFile/{}"),
        over_counts("through stdio", "bench_swatch_files readThroughStdio/{}"),
        over_counts("open, read", "bench_swatch_files openReadClose/{}"),
        over_counts("written to disk", "bench_swatch_files writeSwatchFile/{}"),
        over_counts("write", "bench_swatch_files writeTheSameBytes/{}")]),
    ("preferences", "The preferences file written", SWATCHES + "; both lists hold as many", [
        ("write", [(count, f"bench_prefs preferencesWrite/{count}/{count}") for count in COUNTS])]),
    ("print", "A list printed to PDF", SWATCHES, [
        over_counts("this program", "bench_print printList/{}"),
        over_counts("drawn plainly", "bench_print plainDrawing/{}")]),
    ("wheel", "The wheel's picture", PIXELS, [
        over_wheels("rebuilt", "bench_views wheelRebuild/{}"),
        over_wheels("first built", "bench_views wheelFirstBuild/{}"),
        over_wheels("every pixel", "bench_views wheelPlain/{}"),
        over_wheels("memset", "bench_views memsetOfTheSameBytes/{}")]),
    ("charts", "Tone chart and gradient", PIXELS, [
        over_charts("tone chart", "bench_charts toneChart/{}"),
        over_charts("as many paths", "bench_charts plainPaths/{}"),
        over_charts("gradient", "bench_charts gradient/{}"),
        over_charts("as many rectangles", "bench_charts plainRectangles/{}")]),
    ("strip_wheel", "A strip event in the whole dialog, to the painted frame", "the wheel's pixels across", [
        over_wheels("strip event", "bench_dialog stripDrag/4999/{}")]),
    ("strip_swatches", "A strip event in the whole dialog, wheel 512", SWATCHES + "; both lists hold as many", [
        over_counts("strip event", "bench_dialog stripDrag/{}/512")]),
    ("windows", "A strip event by the window's size", WINDOW, [
        over_windows("with the gradient", "bench_dialog stripDragInWindow/{}"),
        over_windows("with the tone chart", "bench_dialog stripDragWithToneChart/{}")]),
]


def keys():
    return {key for _, _, _, series in PLOTS for _, points in series for _, key in points}


def draw(samples, folder, said):
    """Writes every plot whose samples are there; the names of the files."""
    os.makedirs(folder, exist_ok=True)
    written = []
    for file, title, under, series in PLOTS:
        lines = [(name, [(x, results.median(samples[key])) for x, key in sorted(points)]) for name, points in series
                 if all(samples.get(key) for _, key in points)]
        if not lines:
            continue
        written.append(os.path.join(folder, file + ".svg"))
        with open(written[-1], "w", encoding="utf-8") as out:
            out.write(plots.plot(title, under, lines, said, SHOWN if under == WINDOW else {}))
    return written
