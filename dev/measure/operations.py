"""What is measured, beside what, and how good it has to be. A key names a source of samples and what it takes:
"bench_views wheelRebuild/512" a benchmark of a program, "start ...", "memory ...", "pick ..." a program on a screen,
"pointer ..." a real pointer on it; "+writer" while another process writes and syncs."""
from dataclasses import dataclass, field

MS = 1e6


@dataclass
class Beside:
    kind: str
    what: str
    key: str
    bound: float = None
    goal: float = None


@dataclass
class Operation:
    name: str
    group: str
    key: str
    beside: list = field(default_factory=list)
    bound: float = None
    unit: str = "ns"


def limit(what, key, bound=None, goal=None):
    return Beside("limit", what, key, bound, goal)


def plain(what, key, bound=None):
    return Beside("plain", what, key, bound)


def peer(what, key, bound=None, goal=None):
    return Beside("peer", what, key, bound, goal)


def start(name, lists):
    return Operation(name, "start", f"start chromalog {lists}", [
        limit("label window", "start label_window", 2.2, 2.0),
        peer("QColorDialog", "start colour_dialog"),
        peer("gcolor3", "start gcolor3", 0.7, 0.6),
        peer("kcolorchooser", "start kcolorchooser", 0.55, 0.5),
        peer("gpick", "start gpick")])


def search(text, bound):
    return Operation(f"search of '{text}' in 4,999", "lists", f"bench_lists searchOurs/{text}/4999", [
        limit("ready QStrings", f"bench_texts readyTexts/{text}/4999", bound),
        plain("name by name", f"bench_lists searchPlain/{text}/4999", 1.1),
        peer("QSortFilterProxyModel", f"bench_texts proxyFilter/{text}/4999")])


PALETTES = ["aco", "acb", "ase", "gpl", "act", "jasc", "riff", "paintnet", "hex", "css", "json", "soc", "svg"]


def palettes(verb, done):
    """5,000 colours, or as many as the kind holds."""
    return [Operation(f"5,000 colours {done} as {kind}", "palettes", f"bench_palettes {verb}Palette/{kind}", bound=5 * MS)
            for kind in PALETTES if not (verb == "read" and kind == "svg")]


OPERATIONS = [
    start("start, no lists: exec to mapped window", "empty"),
    start("start, full lists: exec to mapped window", "full"),
    Operation("a further pick in one run", "start", "pick further",
              [limit("the first", "pick first", 0.35)]),
    Operation("resident memory after start", "start", "memory chromalog empty", [
        limit("label window", "memory label_window", 1.45),
        peer("QColorDialog", "memory colour_dialog"),
        peer("gcolor3", "memory gcolor3"),
        peer("kcolorchooser", "memory kcolorchooser"),
        peer("gpick", "memory gpick")], unit="kB"),

    Operation("drop, press to painted frame", "dialog", "bench_dialog drop/4999", bound=8 * MS),
    Operation("the same while another process syncs", "dialog", "bench_dialog drop/4999 +writer", bound=4 * MS),
    Operation("strip event, wheel 512", "dialog", "bench_dialog stripDrag/4999/512", bound=4 * MS),
    Operation("strip event, contrast, angle and gamut shown", "dialog", "bench_dialog stripDragJudged/512/1", [
        plain("with none of it", "bench_dialog stripDragJudged/512/0")], bound=4 * MS),
    Operation("wheel event, contrast, angle and gamut shown", "dialog", "bench_dialog wheelDragJudged/512/1", [
        plain("with none of it", "bench_dialog wheelDragJudged/512/0")], bound=4 * MS),
    Operation("strip event, nearest swatches shown", "dialog", "bench_dialog stripDragWithNearest/4999", bound=4 * MS),
    Operation("strip event, pointer at 250 Hz", "dialog", "pointer strip ns", bound=2 * MS),
    Operation("its frames an event", "dialog", "pointer strip frames", bound=1.02, unit="frames"),
    Operation("its events without a frame", "dialog", "pointer strip unshown", bound=0.02, unit="of all"),
    Operation("strip event, tone chart in 1600 x 1200", "dialog", "pointer tone ns", bound=4 * MS),

    Operation("wheel rebuild, 512", "views", "bench_views wheelRebuild/512", [
        limit("memset", "bench_views memsetOfTheSameBytes/512", 5),
        plain("every pixel", "bench_views wheelPlain/512", 1 / 15)]),
    Operation("wheel first build, 512", "views", "bench_views wheelFirstBuild/512", [
        plain("every pixel", "bench_views wheelPlain/512", 1.6)]),
    Operation("tone chart, 256", "views", "bench_charts toneChart/256", [
        plain("as many paths", "bench_charts plainPaths/256", 2)]),
    Operation("gradient, 256", "views", "bench_charts gradient/256", [
        plain("as many rectangles", "bench_charts plainRectangles/256", 2)]),

    Operation("list repaint, 4,999 swatches", "lists", "bench_list_repaint repaintList/4999", [
        limit("blit", "bench_list_repaint blit", 12),
        plain("with 50", "bench_list_repaint repaintList/50", 1.1),
        peer("QListView", "bench_list_repaint repaintListView/4999", 0.6)]),
    Operation("list scrolled by a row", "lists", "bench_list_repaint scrollList/4999", [
        peer("QListView", "bench_list_repaint scrollListView/4999", 0.85)]),
    search("Blue", 0.5),
    search("e", 1.0),
    Operation("sort by name, 4,999", "lists", "bench_lists sortByNameOurs/4999", [
        plain("indices, gather", "bench_lists sortByNamePlain/4999", 0.6),
        peer("QSortFilterProxyModel", "bench_texts proxySort/4999")]),
    Operation("sort by hue, 4,999", "lists", "bench_lists sortByHueOurs/4999", [
        plain("indices, gather", "bench_lists sortByHuePlain/4999", 0.6)]),
    Operation("nearest swatch of 4,999", "lists", "bench_lists nearestOurs/4999", [
        plain("one by one", "bench_lists nearestPlain/4999", 1.1)]),

    Operation("4,999 swatches beside 4,999", "lists", "bench_comparison compare/4999/2", bound=150 * MS),
    Operation("the same up to 20", "lists", "bench_comparison compare/4999/20", bound=150 * MS),
    Operation("near doubles among 4,999", "lists", "bench_comparison doubles/4999/2", bound=150 * MS),
    Operation("nearest swatches after a move", "lists", "bench_comparison followed/4999", bound=2 * MS),
    Operation("what they are found in, after an edit", "lists", "bench_comparison madeAnew/4999", bound=8 * MS),

    Operation("undo step after an edit", "history", "bench_history stepAfterOneEdit/4999", [
        limit("memcpy", "bench_history copyOfTheRecord", 1.3),
        peer("QUndoStack", "bench_undo_stack undoStackStep")]),
    Operation("undo step, whole list changed", "history", "bench_history stepAfterAWholeListChange", [
        limit("memcpy", "bench_history copyOfTheRecord", 1.3),
        peer("QUndoStack", "bench_undo_stack undoStackStep")]),
    Operation("undo, the record restored", "history", "bench_history restoring", [
        limit("memcpy", "bench_history copyOfTheRecord", 1.15),
        peer("QUndoStack", "bench_undo_stack undoStackRestoring")]),

    Operation(".aco of 4,999 read", "files", "bench_swatch_files readSwatchFile/4999", [
        limit("open, read", "bench_swatch_files openReadClose/4999", 14),
        peer("stdio", "bench_swatch_files readThroughStdio/4999", 1.0)]),
    Operation(".aco of 4,999 written to disk", "files", "bench_swatch_files writeSwatchFile/4999", [
        limit("write", "bench_swatch_files writeTheSameBytes/4999", 10),
        peer("QSaveFile", "bench_save_file saveSwatchFileBytes")]),
    Operation("4,999 colour book references", "files", "bench_swatch_files lookUp4999References", [
        limit("the book read once", "bench_swatch_files readTheBookOnce", 3)]),
    *palettes("read", "read"),
    *palettes("write", "written"),
    Operation("chromalog convert, exec to exit", "palettes", "bench_palettes convertAFile", [
        limit("exec of true", "bench_palettes execOfTrue"),
        peer("ase-utils by node", "bench_palettes convertByNode", 0.5),
        peer("node, which does nothing", "bench_palettes execOfNode", 0.5)], bound=30 * MS),
    Operation("preferences written", "files", "bench_prefs preferencesWrite/4999/4999", [
        limit("write, rename", "bench_prefs plainWriteAndRename", 1.25)]),
    Operation("preferences with short lists", "files", "bench_prefs preferencesWrite/550/0", [
        limit("write, rename", "bench_prefs plainWriteAndRename", 0.5)]),
    Operation("preferences written to disk", "files", "bench_prefs preferencesWriteToDisk/4999/4999", [
        peer("QSaveFile", "bench_save_file savePreferencesBytes")]),
    Operation("12 colours of a 24-megapixel photo", "pictures", "bench_pictures coloursOfPhoto/0", [
        limit("decoded", "bench_pictures decodePhoto/0")], bound=1000 * MS),
    Operation("the same, turned and in Display P3", "pictures", "bench_pictures coloursOfPhoto/1", [
        limit("decoded", "bench_pictures decodePhoto/1")], bound=1000 * MS),
    Operation("4,999 swatches printed", "print", "bench_print printList/4999", [
        plain("drawn plainly", "bench_print plainDrawing/4999", 2)]),
]


def chosen(names):
    """The operations whose name or group holds one of the names; all where none is given."""
    if not names:
        return OPERATIONS
    wanted = [name.lower() for name in names]
    return [operation for operation in OPERATIONS
            if any(name in operation.name.lower() or name == operation.group for name in wanted)]


def keys_of(operations):
    return {key for operation in operations for key in [operation.key, *(other.key for other in operation.beside)]}
