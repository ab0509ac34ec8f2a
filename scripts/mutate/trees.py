"""Builds a mutant in a copy of the tree and runs the tests until one fails."""

import dataclasses
import os
import re
import resource
import shutil
import signal
import subprocess
import time

from mutants import mutate

# A slower test is run only after all others have passed.
SLOW_SECONDS = 0.03
MEMORY_LIMIT = 4 << 30
BUILD_SECONDS = 900
FIRST_RUN_SECONDS = 600

# The outcomes of mutants that no test kills.
LIVES = "lives"
NOT_BUILT = "doesn't build"
HANGS = "a test that hangs"

# Out-of-bounds accesses to containers and to arrays on the stack must be noticed.
FLAGS = "-O1 -w -D_GLIBCXX_ASSERTIONS -fstack-protector-strong"
LINKER_FLAGS = "-fuse-ld=mold"


def set_limits(seconds):
    """Limits the calling process. The limit is on processor time, so that a command on a busy
    machine doesn't count as a hang."""
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    if seconds:
        resource.setrlimit(resource.RLIMIT_CPU, (round(seconds), round(seconds) + 1))


def run(command, folder, seconds=None, environment=None):
    """Returns the exit status and the output of a command. The status is None after a timeout."""
    with subprocess.Popen(
            command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True,
            preexec_fn=lambda: set_limits(seconds)) as process:
        try:
            # A command that waits forever uses no processor time.
            output, _ = process.communicate(timeout=seconds and 20 * seconds)
            status = process.returncode
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            output, _ = process.communicate()
            status = None
    if status == -signal.SIGXCPU:
        status = None
    return status, output.decode("utf-8", "replace")


def failure_of(status, output):
    """Returns the test that failed, or how else the run ended, or None if all tests passed."""
    if status == 0:
        return None
    if status is None:
        return HANGS
    failed = re.search(r"^\[ +FAILED +\] (\S+?)(?:,| \()", output, re.MULTILINE)
    return failed.group(1) if failed else f"a crash (status {status})"


def slow_tests(output):
    """Returns the slow tests of a full run."""
    took = re.findall(r"^\[ +(?:OK|SKIPPED) \] (\S+) \((\d+) ms\)", output, re.MULTILINE)
    return [name for name, milliseconds in took if int(milliseconds) >= 1000 * SLOW_SECONDS]


def synchronise(root, folder):
    """Makes a folder a copy of the tree. Writes only files that differ, so that objects of the
    others stay up to date."""
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=root, check=True, capture_output=True).stdout
    names = {name for name in listed.decode().split("\0") if name and (root / name).is_file()}
    for name in names:
        source, target = root / name, folder / name
        if not target.exists() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
            shutil.copymode(source, target)
    for old in [path for path in folder.rglob("*") if path.is_file()]:
        if old.relative_to(folder).as_posix() not in names:
            old.unlink()


@dataclasses.dataclass
class Stage:
    """A run of some tests of a program."""
    program: str
    tests: str  # a filter of GoogleTest
    seconds: float = FIRST_RUN_SECONDS


class Tree:
    """A copy of the tree with its own build. `run` runs the commands."""

    def __init__(self, work, number, run=run):
        self.folder = work / f"tree{number}"
        self.build = work / f"build{number}"
        self.temporary = work / f"tmp{number}"
        self.run = run
        self.stages = []
        self.killers = {}  # the tests that killed mutants, by file

    def prepare(self, root):
        """Copies and builds the tree, and measures the time of its tests."""
        synchronise(root, self.folder)
        self.temporary.mkdir(exist_ok=True)
        self._must(["cmake", "-G", "Ninja", "-S", str(self.folder), "-B", str(self.build),
                    "-D", "CMAKE_BUILD_TYPE=", "-D", f"CMAKE_CXX_FLAGS={FLAGS}",
                    "-D", f"CMAKE_EXE_LINKER_FLAGS={LINKER_FLAGS}",
                    "-D", f"CMAKE_SHARED_LINKER_FLAGS={LINKER_FLAGS}",
                    # Programs needn't be linked again after a library.
                    "-D", "CMAKE_LINK_DEPENDS_NO_SHARED=ON",
                    "-D", "CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"])
        self._must(self._build_command())
        self._plan()

    def try_out_some(self, mutants, count):
        """Tries mutants until `count` of them have been built. Yields each with its outcome."""
        for mutant in mutants:
            if count == 0:
                return
            outcome = self.try_out(mutant)
            yield mutant, outcome
            count -= outcome != NOT_BUILT

    def try_out(self, mutant):
        """Returns the outcome of the mutant: the test that kills it, LIVES or NOT_BUILT."""
        path = self.folder / mutant.file
        original = path.read_text(encoding="utf-8")
        try:
            path.write_text(mutate(original, mutant), encoding="utf-8")
            status, _ = self.run(self._build_command(), self.folder, BUILD_SECONDS)
            return NOT_BUILT if status != 0 else self._test(mutant.file)
        finally:
            path.write_text(original, encoding="utf-8")

    def _must(self, command):
        status, output = self.run(command, self.folder, environment=self._environment())
        if status != 0:
            raise RuntimeError(f"{command}\n{output}")
        return output

    def _build_command(self):
        return ["ninja", "-C", str(self.build), "-j1", "tests", "request_tests"]

    def _environment(self):
        return dict(os.environ, TMPDIR=str(self.temporary))

    def _plan(self):
        """Orders the tests, and limits each run to a multiple of its time without mutants."""
        slow = slow_tests(self._must([str(self.build / "tests/tests")]))
        self.stages = [Stage("tests", "-" + ":".join(slow)), Stage("request_tests", "*")]
        self.stages += [Stage("tests", ":".join(slow))] if slow else []
        for stage in self.stages:
            start = time.monotonic()
            failure = self._failure(stage)
            if failure:
                raise RuntimeError(f"without any change fails {failure}")
            stage.seconds = 15 + 6 * (time.monotonic() - start)

    def _failure(self, stage):
        command = [str(self.build / "tests" / stage.program), "--gtest_brief=1",
                   "--gtest_fail_fast", f"--gtest_filter={stage.tests}"]
        failure = failure_of(
            *self.run(command, self.temporary, stage.seconds, self._environment()))
        if failure:
            self._clear_temporary()
        return failure

    def _clear_temporary(self):
        for left in self.temporary.iterdir():
            if left.is_dir() and not left.is_symlink():
                shutil.rmtree(left, ignore_errors=True)
            else:
                left.unlink()

    def _test(self, file):
        """Runs the tests of a mutant. Those that killed others of the same file are run first."""
        killers = self.killers.setdefault(file, [])
        first = [Stage("tests", ":".join(killers), self.stages[0].seconds)] if killers else []
        for stage in first + self.stages:
            failure = self._failure(stage)
            if failure:
                if stage.program == "tests" and "." in failure and failure not in killers:
                    killers.append(failure)
                return failure
        return LIVES
