"""A plot as plain SVG: both axes logarithmic, a line a series, its name and last value at its end."""
import html
import math

from measure.table import quantity

WIDTH, HEIGHT, LEFT, TOP, RIGHT, BOTTOM = 640, 360, 70, 44, 210, 46
COLOURS = ["#1f4e8c", "#c0392b", "#2e7d4f", "#b7791f", "#6b4fa0", "#5f6b76"]


def decades(low, high):
    return [10.0**i for i in range(math.floor(math.log10(low)), math.ceil(math.log10(high)) + 1)]


def spread(ends, least):
    """Heights of the labels, apart enough to be read, in the order of the lines' ends."""
    order = sorted(range(len(ends)), key=lambda i: ends[i])
    placed = list(ends)
    for before, i in zip([None, *order], order):
        if before is not None:
            placed[i] = max(placed[i], placed[before] + least)
    over = max(placed) - (HEIGHT - BOTTOM)
    return [place - max(0, over) for place in placed]


def plot(title, under, series, said, shown):
    """`series`: (name, [(x, nanoseconds)]); `said` stands below the title; `shown` has the words for an x."""
    xs = sorted({x for _, points in series for x, _ in points})
    ys = [y for _, points in series for _, y in points]
    steps = decades(min(ys), max(ys))
    low, high = math.log10(steps[0]), math.log10(steps[-1]) if len(steps) > 1 else math.log10(steps[0]) + 1

    def across(x):
        first, last = math.log10(xs[0]), math.log10(xs[-1])
        return LEFT + (WIDTH - LEFT - RIGHT) * (math.log10(x) - first) / ((last - first) or 1)

    def down(y):
        return HEIGHT - BOTTOM - (HEIGHT - BOTTOM - TOP) * (math.log10(y) - low) / (high - low)

    out = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" height="{HEIGHT}"'
           ' font-family="sans-serif" font-size="11">',
           f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#fff"/>',
           f'<text x="{LEFT}" y="18" font-size="14">{html.escape(title)}</text>',
           f'<text x="{LEFT}" y="34" fill="#5f6b76">{html.escape(said)}</text>']
    for y in steps:
        out.append(f'<line x1="{LEFT}" y1="{down(y):.1f}" x2="{WIDTH - RIGHT}" y2="{down(y):.1f}" stroke="#ddd"/>')
        out.append(f'<text x="{LEFT - 6}" y="{down(y) + 4:.1f}" text-anchor="end">{quantity(y, "ns")}</text>')
    for x in xs:
        out.append(f'<line x1="{across(x):.1f}" y1="{TOP}" x2="{across(x):.1f}" y2="{HEIGHT - BOTTOM}" stroke="#eee"/>')
        out.append(f'<text x="{across(x):.1f}" y="{HEIGHT - BOTTOM + 16}" text-anchor="middle">'
                   f'{html.escape(shown.get(x, f"{x:,}"))}</text>')
    out.append(f'<text x="{LEFT}" y="{HEIGHT - 10}" fill="#5f6b76">{html.escape(under)}</text>')
    labels = spread([down(points[-1][1]) for _, points in series], 14)
    for i, (name, points) in enumerate(series):
        colour = COLOURS[i % len(COLOURS)]
        way = " ".join(f"{across(x):.1f},{down(y):.1f}" for x, y in points)
        out.append(f'<polyline points="{way}" fill="none" stroke="{colour}" stroke-width="2"/>')
        out += [f'<circle cx="{across(x):.1f}" cy="{down(y):.1f}" r="2.5" fill="{colour}"/>' for x, y in points]
        out.append(f'<text x="{WIDTH - RIGHT + 8}" y="{labels[i] + 4:.1f}" fill="{colour}">'
                   f'{html.escape(name)}: {quantity(points[-1][1], "ns")}</text>')
    return "\n".join([*out, "</svg>", ""])
