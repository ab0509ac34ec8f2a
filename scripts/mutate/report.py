"""Reports the outcomes of the mutants."""

import threading

from mutants import changed_lines
from trees import LIVES, NOT_BUILT


def columns(source, mutant):
    """Returns a mutant as a row of a table."""
    return (f"{mutant.file}:{mutant.line}", mutant.kind, *changed_lines(source.text, mutant))


def table(rows):
    return "".join("\t".join(row) + "\n" for row in rows)


def summary(rows, possible, seed):
    """Returns a sentence on rows that begin with an outcome and a place."""
    built = [row for row in rows if row[0] != NOT_BUILT]
    living = sum(row[0] == LIVES for row in built)
    killed = len(built) - living
    share = f" ({100 * killed / len(built):.1f} %)" if built else ""
    files = len({row[1].rpartition(":")[0] for row in built})
    return (f"{len(built)} mutants of {possible} possible ones in {files} files, seed {seed}: "
            f"{killed} killed{share}, {living} live; {len(rows) - len(built)} more did not build")


class Results:
    """The outcomes so far. The files are written after each one, so that a stopped run keeps its
    results. Thread-safe."""

    def __init__(self, folder, possible, seed):
        self.folder = folder
        self.possible = possible
        self.seed = seed
        self.rows = []
        self.lock = threading.Lock()

    def add(self, source, mutant, outcome):
        row = (outcome, *columns(source, mutant))
        with self.lock:
            self.rows.append(row)
            print("\t".join(row), flush=True)
            self._write("mutants.tsv", table(sorted(self.rows, key=lambda row: row[1:])))
            self._write("survivors.tsv", table(sorted(r[1:] for r in self.rows if r[0] == LIVES)))
            self._write("summary.txt", self.summary() + "\n")

    def summary(self):
        return summary(self.rows, self.possible, self.seed)

    def _write(self, name, text):
        (self.folder / name).write_text(text, encoding="utf-8")
