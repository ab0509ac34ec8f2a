"""Prints what `hostile_sizes` has measured as a table, and writes it as a page.

    report.py RESULTS [PAGE]

The exit status is 1 if an input costs more than it may.
"""

import sys
from dataclasses import dataclass
from pathlib import Path

COLUMNS = ["reader", "made of", "how many", "half of them", "all of them", "ratio", "file",
           "peak memory", "stack"]

PAGE = """# Measured hostile sizes

Written by `scripts/hostile.sh`, to be read with [reliability.md](../reliability.md), which says what
is promised.

Each input is measured at its full size and at half of it. A time is the processor time of one
editor's life, from its construction through load and queries to its destruction, the best of four
runs or more. An input that is beyond its bound may owe that to the machine, and is measured up to four
times as often. The ratio of times may be 2.2, or what a rule makes of it, which then follows the
ratio; the ratio of memories may be as much. The memory is the most that the editor held at once, the
text of the file included. The stack may be 16 kB, and not deeper at the full size than at half of it,
but for a step of what divides its input in two. A ratio in bold says that one of these is exceeded.

{verdict}

{table}
"""

MOST_STACK = 16 << 10
STEP_OF_STACK = 1 << 10  # a sort or a balanced tree is one level deeper


@dataclass
class Row:
    reader: str
    input: str
    size: int
    half: float
    full: float
    file: int
    half_peak: int
    peak: int
    half_stack: int
    stack: int
    most: float
    rule: str

    @staticmethod
    def of(line):
        reader, made_of, size, half, full, *costs, most, rule = line.split("\t")
        return Row(reader, made_of, int(size), float(half), float(full), *map(int, costs),
                   float(most), rule)

    def ratio(self):
        return self.full / self.half

    def faults(self):
        """Returns which bounds the row exceeds."""
        faults = []
        if self.ratio() > self.most:
            faults.append(f"{self.ratio():.2f} times as long")
        if self.peak > self.most * self.half_peak:
            faults.append(f"{self.peak / self.half_peak:.2f} times the memory")
        if self.stack > min(MOST_STACK, self.half_stack + STEP_OF_STACK):
            faults.append(f"{self.stack} bytes of stack, and {self.half_stack} at half the size")
        return faults

    def cells(self):
        ratio = f"{self.ratio():.2f}"
        if self.rule:
            ratio += f", may be {self.most:g}: {self.rule}"
        if self.faults():
            ratio = f"**{ratio}**"
        return [self.reader, self.input, f"{self.size:,}", time_text(self.half),
                time_text(self.full), ratio, bytes_text(self.file), bytes_text(self.peak),
                bytes_text(self.stack)]


def time_text(seconds):
    return f"{seconds:.3g} s" if seconds >= 1 else f"{seconds * 1e3:.3g} ms"


def bytes_text(count):
    for unit, size in (("GB", 1e9), ("MB", 1e6), ("kB", 1e3)):
        if count >= size:
            return f"{count / size:.3g} {unit}"
    return f"{count} B" if count else ""


def table(rows):
    lines = [COLUMNS, ["---"] * len(COLUMNS)] + [row.cells() for row in rows]
    return "\n".join("| " + " | ".join(cells) + " |" for cells in lines)


def main():
    lines = Path(sys.argv[1]).read_text(encoding="utf-8").splitlines()
    rows = [Row.of(line) for line in lines]
    text = table(rows)
    print(text)
    beyond = [row for row in rows if row.faults()]
    if len(sys.argv) > 2:
        verdict = f"{len(rows)} rows, {len(beyond)} of them beyond a bound."
        page = PAGE.format(verdict=verdict, table=text)
        Path(sys.argv[2]).write_text(page, encoding="utf-8")
    for row in beyond:
        print(f"{row.reader}, {row.input}: {', '.join(row.faults())}", file=sys.stderr)
    sys.exit(1 if beyond or not rows else 0)


main()
