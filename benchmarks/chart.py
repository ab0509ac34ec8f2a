"""Draws the cost of a lookup by the number of patterns, as an SVG with two logarithmic axes."""

import math

SIZES = [100, 1_000, 10_000, 100_000]
WIDTH, HEIGHT = 800, 480
LEFT, RIGHT, TOP, BOTTOM = 70, 560, 50, 430
LABEL_HEIGHT = 15

# The case, its label, its colour, and whether the line is dashed.
SERIES = [
    ("lookup_warm/ours", "this library", "#0b62a4", False),
    ("lookup_first/ours", "this library, first pass", "#0b62a4", True),
    ("lookup_warm/re2", "RE2::Set", "#c2410c", False),
    ("lookup_first/re2", "RE2::Set, first pass", "#c2410c", True),
    ("lookup_warm/hyperscan", "Hyperscan", "#7e22ce", False),
    ("lookup_first/hyperscan", "Hyperscan, first pass", "#7e22ce", True),
    ("lookup_warm/walk", "the plain walk", "#6b7280", False),
    ("lookup_warm/floor", "capitals and cutting alone", "#15803d", False),
]


def x_of(size):
    share = math.log(size / SIZES[0]) / math.log(SIZES[-1] / SIZES[0])
    return LEFT + share * (RIGHT - LEFT)


class Scale:
    """Returns the bounds of the vertical axis: powers of ten around all costs."""

    def __init__(self, costs):
        self.low = math.floor(math.log10(min(costs)))
        self.high = math.ceil(math.log10(max(costs)))

    def y_of(self, cost):
        share = (math.log10(cost) - self.low) / (self.high - self.low)
        return BOTTOM - share * (BOTTOM - TOP)


def text(x, y, content, anchor="start", color="#222"):
    return f'<text x="{x:.0f}" y="{y:.0f}" text-anchor="{anchor}" fill="{color}">{content}</text>'


def line(x1, y1, x2, y2):
    return f'<line x1="{x1:.0f}" y1="{y1:.0f}" x2="{x2:.0f}" y2="{y2:.0f}" stroke="#ddd"/>'


def power_name(power):
    unit, name = max(step for step in [(-9, "ns"), (-6, "µs"), (-3, "ms")] if step[0] <= power)
    return f"{10 ** (power - unit)} {name}"


def grid(scale):
    for power in range(scale.low, scale.high + 1):
        y = scale.y_of(10 ** power)
        yield line(LEFT, y, RIGHT, y)
        yield text(LEFT - 8, y + 4, power_name(power), "end")
    for size in SIZES:
        yield line(x_of(size), TOP, x_of(size), BOTTOM)
        yield text(x_of(size), BOTTOM + 20, f"{size:,}", "middle")
    yield text((LEFT + RIGHT) / 2, BOTTOM + 40, "patterns", "middle")
    yield text(LEFT, TOP - 20, "Cost of a lookup")


def curve(points, color, dashed):
    path = " ".join(f"{x:.0f},{y:.1f}" for x, y in points)
    dash = ' stroke-dasharray="5 4"' if dashed else ""
    yield f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="2"{dash}/>'
    for x, y in points:
        yield f'<circle cx="{x:.0f}" cy="{y:.1f}" r="3" fill="{color}"/>'


def labels(ends):
    """Returns labels at the right, each as near to the end of its curve as the others allow."""
    lowest = -math.inf
    for y, label, color in sorted(ends):
        lowest = max(y + 4, lowest + LABEL_HEIGHT)
        yield text(RIGHT + 12, lowest, label, color=color)


def draw(times):
    """`times` maps the name of each case to its seconds."""
    costs = {case: [(size, times[f"{case}/{size}"]) for size in SIZES if f"{case}/{size}" in times]
             for case, *_ in SERIES}
    scale = Scale([cost for points in costs.values() for _, cost in points])
    parts = list(grid(scale))
    ends = []
    for case, label, color, dashed in SERIES:
        points = [(x_of(size), scale.y_of(cost)) for size, cost in costs[case]]
        parts += curve(points, color, dashed)
        note = "" if len(points) == len(SIZES) else f" (to {costs[case][-1][0]:,})"
        ends.append((points[-1][1], label + note, color))
    parts += labels(ends)
    body = "\n".join(parts)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
            f'font-family="sans-serif" font-size="12">\n'
            f'<rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>\n{body}\n</svg>\n')
