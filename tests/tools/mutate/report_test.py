"""Tests of the report of a run."""

import contextlib
import io
import pathlib
import tempfile
import unittest

from mutants import find_mutants
from report import Results, summary
from source import Source
from trees import LIVES, NOT_BUILT


class Summary(unittest.TestCase):
    def test_counts_what_was_killed_of_all_that_were_built(self):
        rows = [("A.Test", "src/a.cpp:1"), ("A.Test", "src/a.cpp:9"),
                ("a crash (status -6)", "src/b.cpp:2"), (LIVES, "src/c.cpp:3"),
                (NOT_BUILT, "src/d.cpp:4"), (NOT_BUILT, "src/a.cpp:5")]
        self.assertEqual(summary(rows, 700, 5),
                         "4 mutants of 700 possible ones in 3 files, seed 5: 3 killed (75.0 %), "
                         "1 live; 2 more did not build")

    def test_has_no_share_of_nothing(self):
        self.assertEqual(summary([], 0, 1),
                         "0 mutants of 0 possible ones in 0 files, seed 1: 0 killed, 0 live; "
                         "0 more did not build")


class ResultsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        source = Source("src/a.cpp", "bool a{true};\n\nbool  b{false};\n")
        first, second = find_mutants(source)
        results = Results(self.folder, 2, 1)
        self.printed = io.StringIO()
        with contextlib.redirect_stdout(self.printed):
            results.add(source, second, LIVES)
            results.add(source, first, "A.Test")

    def read(self, name):
        return (self.folder / name).read_text(encoding="utf-8")

    def test_prints_each_as_it_comes(self):
        self.assertEqual(self.printed.getvalue(),
                         "lives\tsrc/a.cpp:3\tconstant\tbool b{false};\tbool b{true};\n"
                         "A.Test\tsrc/a.cpp:1\tconstant\tbool a{true};\tbool a{false};\n")

    def test_lists_all_by_their_places(self):
        self.assertEqual(self.read("mutants.tsv"),
                         "A.Test\tsrc/a.cpp:1\tconstant\tbool a{true};\tbool a{false};\n"
                         "lives\tsrc/a.cpp:3\tconstant\tbool b{false};\tbool b{true};\n")

    def test_lists_the_survivors_apart(self):
        self.assertEqual(self.read("survivors.tsv"),
                         "src/a.cpp:3\tconstant\tbool b{false};\tbool b{true};\n")

    def test_writes_the_summary(self):
        self.assertEqual(self.read("summary.txt"),
                         "2 mutants of 2 possible ones in 1 files, seed 1: 1 killed (50.0 %), "
                         "1 live; 0 more did not build\n")


if __name__ == "__main__":
    unittest.main()
