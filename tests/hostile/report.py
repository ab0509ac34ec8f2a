"""Prints what `hostile_sizes` has measured as a table, and writes it into a document.

    report.py RESULTS [DOCUMENT]

The exit status is 1 if an input costs more than it may.
"""

import re
import sys
from dataclasses import dataclass
from pathlib import Path

COLUMNS = ["reader", "made of", "how many", "half of them", "all of them", "ratio", "file",
           "peak memory", "stack"]

MOST_STACK = 16 << 10
STEP_OF_STACK = 1 << 10  # what divides a sort or a tree in two goes a step deeper


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
        """What of the row is beyond its bound, in words."""
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


def write(document, text):
    path = Path(document)
    before = path.read_text(encoding="utf-8")
    marks = re.compile(r"(<!-- begin hostile -->\n).*?(<!-- end hostile -->)", re.DOTALL)
    after, count = marks.subn(lambda found: f"{found[1]}\n{text}\n\n{found[2]}", before)
    if count != 1:
        sys.exit(f"{document} has no place for the table")
    path.write_text(after, encoding="utf-8")


def main():
    lines = Path(sys.argv[1]).read_text(encoding="utf-8").splitlines()
    rows = [Row.of(line) for line in lines]
    text = table(rows)
    print(text)
    if len(sys.argv) > 2:
        write(sys.argv[2], text)
    beyond = [row for row in rows if row.faults()]
    for row in beyond:
        print(f"{row.reader}, {row.input}: {', '.join(row.faults())}", file=sys.stderr)
    sys.exit(1 if beyond or not rows else 0)


main()
