"""Tests of building and running a mutant."""

import os
import pathlib
import subprocess
import tempfile
import unittest

import trees
from mutants import find_mutants
from source import Source
from trees import LIVES, NOT_BUILT, Tree, failure_of, run, slow_tests, synchronise


class TemporaryFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)


class FailureOf(unittest.TestCase):
    def test_is_the_test_that_failed(self):
        output = "a.cpp:1: Failure\n[  FAILED  ] Group.Test (3 ms)\n 1 FAILED TEST\n"
        self.assertEqual(failure_of(1, output), "Group.Test")

    def test_names_the_parameter_of_the_test(self):
        output = "[  FAILED  ] All/Group.Test/2, where GetParam() = 5 (0 ms)\n"
        self.assertEqual(failure_of(1, output), "All/Group.Test/2")

    def test_is_none_if_all_passed(self):
        self.assertIsNone(failure_of(0, "[  PASSED  ] 9 tests.\n"))

    def test_is_a_crash_if_no_test_is_named(self):
        self.assertEqual(failure_of(-11, "Segmentation fault\n"), "a crash (status -11)")

    def test_is_a_hang_if_the_run_was_stopped(self):
        self.assertEqual(failure_of(None, "[  FAILED  ] Group.Test (3 ms)\n"), trees.HANGS)


class SlowTests(unittest.TestCase):
    def test_are_those_that_took_long_passed_or_skipped(self):
        output = ("[       OK ] A.Fast (29 ms)\n[       OK ] A.Slow (30 ms)\n"
                  "[  SKIPPED ] B.Skipped (2000 ms)\n[----------] 2 tests from A (60 ms total)\n")
        self.assertEqual(slow_tests(output), ["A.Slow", "B.Skipped"])


class Run(TemporaryFolder):
    def test_returns_status_and_all_output(self):
        self.assertEqual(run(["sh", "-c", "echo a; echo b >&2; exit 3"], self.folder),
                         (3, "a\nb\n"))

    def test_reports_the_signal_that_ended_a_command(self):
        self.assertEqual(run(["sh", "-c", "kill -ABRT $$"], self.folder)[0], -6)

    def test_stops_what_takes_the_processor_too_long(self):
        self.assertIsNone(run(["sh", "-c", "while :; do :; done"], self.folder, 1)[0])

    def test_stops_what_waits_too_long(self):
        self.assertIsNone(run(["sleep", "60"], self.folder, 0.05)[0])

    def test_runs_in_the_folder_with_the_environment(self):
        status, output = run(["sh", "-c", "echo $A; pwd -P"], self.folder,
                             environment=dict(os.environ, A="b"))
        self.assertEqual((status, output), (0, f"b\n{self.folder.resolve()}\n"))


class Synchronise(TemporaryFolder):
    def setUp(self):
        super().setUp()
        self.root, self.copy = self.folder / "root", self.folder / "copy"
        self.root.mkdir()
        subprocess.run(["git", "init", "--quiet"], cwd=self.root, check=True)
        self.write(".gitignore", "build/\n")
        self.write("src/a.cpp", "a")
        self.write("build/b", "b")

    def write(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text)

    def copied(self):
        return sorted(path.relative_to(self.copy).as_posix()
                      for path in self.copy.rglob("*") if path.is_file())

    def test_copies_what_git_does_not_ignore(self):
        synchronise(self.root, self.copy)
        self.assertEqual(self.copied(), [".gitignore", "src/a.cpp"])
        self.assertEqual((self.copy / "src/a.cpp").read_text(), "a")

    def test_writes_only_what_differs(self):
        self.write("src/b.cpp", "b")
        synchronise(self.root, self.copy)
        for name in ["src/a.cpp", "src/b.cpp"]:
            os.utime(self.copy / name, (1, 1))
        self.write("src/a.cpp", "c")
        synchronise(self.root, self.copy)
        self.assertEqual((self.copy / "src/a.cpp").read_text(), "c")
        self.assertNotEqual((self.copy / "src/a.cpp").stat().st_mtime, 1)
        self.assertEqual((self.copy / "src/b.cpp").stat().st_mtime, 1)

    def test_removes_what_the_tree_has_no_longer(self):
        synchronise(self.root, self.copy)
        (self.root / "src/a.cpp").unlink()
        synchronise(self.root, self.copy)
        self.assertEqual(self.copied(), [".gitignore"])


class FakeCommands:
    """A fake of the build and the test programs. `fails` returns the status and the output of a
    test program for a source."""

    def __init__(self, folder):
        self.source = folder / "tree0/src/a.cpp"
        self.fails = lambda text, program, tests: (0, "")
        self.build = lambda text: (0, "")
        self.runs = []  # program and filter of each run of tests

    def __call__(self, command, folder, seconds=None, environment=None):
        if command[0] == "cmake":
            return 0, ""
        text = self.source.read_text()
        if command[0] == "ninja":
            return self.build(text)
        program = pathlib.Path(command[0]).name
        if len(command) == 1:
            return 0, "[       OK ] A.Fast (1 ms)\n[       OK ] A.Slow (900 ms)\n"
        tests = command[-1].removeprefix("--gtest_filter=")
        self.runs.append((program, tests))
        return self.fails(text, program, tests)


class TryOut(TemporaryFolder):
    text = "bool a{true};\nbool b{true};\n"

    def setUp(self):
        super().setUp()
        root = self.folder / "root"
        (root / "src").mkdir(parents=True)
        (root / "src/a.cpp").write_text(self.text)
        subprocess.run(["git", "init", "--quiet"], cwd=root, check=True)
        self.root = root
        self.commands = FakeCommands(self.folder)
        self.tree = Tree(self.folder, 0, self.commands)
        self.mutants = find_mutants(Source("src/a.cpp", self.text))

    def prepare(self):
        self.tree.prepare(self.root)
        self.commands.runs.clear()

    def when_mutated(self, status, output, of_program="tests"):
        self.commands.fails = lambda text, program, tests: (
            (status, output) if "false" in text and program == of_program else (0, ""))

    def test_runs_the_slow_tests_after_all_others(self):
        self.prepare()
        self.assertEqual(self.tree.try_out(self.mutants[0]), LIVES)
        self.assertEqual(self.commands.runs, [
            ("tests", "-A.Slow"), ("request_tests", "*"), ("tests", "A.Slow")])

    def test_reports_the_test_that_kills_the_mutant(self):
        for program in ["tests", "request_tests"]:
            with self.subTest(program):
                self.prepare()
                self.when_mutated(1, "[  FAILED  ] A.Fast (1 ms)\n", program)
                self.assertEqual(self.tree.try_out(self.mutants[0]), "A.Fast")
                self.commands.fails = lambda text, program, tests: (0, "")

    def test_reports_a_crash_and_a_hang(self):
        self.prepare()
        for status, expected in [(-6, "a crash (status -6)"), (None, trees.HANGS)]:
            self.when_mutated(status, "")
            self.assertEqual(self.tree.try_out(self.mutants[0]), expected)

    def test_reports_that_a_mutant_does_not_build_and_runs_no_test(self):
        self.prepare()
        for status in [1, None]:
            self.commands.build = lambda text, status=status: (status, "")
            self.assertEqual(self.tree.try_out(self.mutants[0]), NOT_BUILT)
        self.assertEqual(self.commands.runs, [])

    def test_begins_with_the_tests_that_killed_others_of_the_file(self):
        self.prepare()
        self.when_mutated(1, "[  FAILED  ] A.Slow (1 ms)\n")
        self.tree.try_out(self.mutants[0])
        self.commands.runs.clear()
        self.tree.try_out(self.mutants[1])
        self.assertEqual(self.commands.runs, [("tests", "A.Slow")])

    def test_has_the_mutant_in_the_copy_while_it_is_built_and_the_source_after(self):
        self.prepare()
        built = []
        self.commands.build = lambda text: (built.append(text), (0, ""))[1]
        self.tree.try_out(self.mutants[1])
        self.assertEqual(built, ["bool a{true};\nbool b{false};\n"])
        self.assertEqual(self.commands.source.read_text(), self.text)
        self.assertEqual((self.root / "src/a.cpp").read_text(), self.text)

    def test_removes_what_a_failing_test_leaves(self):
        self.prepare()
        (self.tree.temporary / "folder").mkdir()
        (self.tree.temporary / "folder/file").touch()
        (self.tree.temporary / "file").touch()
        self.when_mutated(-11, "")
        self.tree.try_out(self.mutants[0])
        self.assertEqual(list(self.tree.temporary.iterdir()), [])

    def test_counts_only_what_has_been_built(self):
        self.prepare()
        self.commands.build = lambda text: (1 if text.startswith("bool a{false}") else 0, "")
        outcomes = [outcome for _, outcome in self.tree.try_out_some(self.mutants * 2, 2)]
        self.assertEqual(outcomes, [NOT_BUILT, LIVES, NOT_BUILT, LIVES])
        self.assertEqual([*self.tree.try_out_some(self.mutants, 0)], [])

    def test_refuses_a_tree_that_fails_without_any_change(self):
        self.commands.fails = lambda text, program, tests: (1, "[  FAILED  ] A.Fast (1 ms)\n")
        with self.assertRaisesRegex(RuntimeError, "without any change fails A.Fast"):
            self.prepare()

    def test_refuses_a_tree_that_does_not_build_without_any_change(self):
        self.commands.build = lambda text: (1, "an error")
        with self.assertRaisesRegex(RuntimeError, "an error"):
            self.prepare()


if __name__ == "__main__":
    unittest.main()
