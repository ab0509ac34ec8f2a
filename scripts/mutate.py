#!/usr/bin/env python3
"""Asks the tests whether they would notice: changes the sources in one place at a time, builds, and
runs the tests until one fails.

A change (a mutant) that no test fails for has survived. A change that doesn't build doesn't count,
one that hangs or crashes is noticed. The work goes on in copies of the tree, so that the tree itself
stays as it is. Prints a line for each mutant and a summary, and leaves three files in build/mutate:
all mutants, the survivors, and the summary.
"""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutate"

# Built for other systems alone, so that no test here could notice.
NOT_BUILT = {"src/editor/FilesWindows.cpp"}
NOT_BUILT_CONDITION = "if constexpr (sizeof(wchar_t) == 2) {"

# A test that takes longer is left for those mutants that all others let live.
SLOW_SECONDS = 0.03
MEMORY_LIMIT = 4 << 30

# ---- Tokens ----

Token = collections.namedtuple("Token", "kind text start end")

TOKEN = re.compile(
    r"""(?P<space>\s+|\\\n)
      | (?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*)
      | (?P<raw>(?:u8|u|U|L)?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")
      | (?P<string>(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*")
      | (?P<char>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')
      | (?P<number>\.?\d(?:[eEpP][+-]|'?[\w.])*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><=>|<<=|>>=|\.\.\.|->\*|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<|>>
          |[-+*/%&|^=!<>?:;,.(){}\[\]~])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

SKIPPED = {"space", "comment", "directive"}


def tokenize(text):
  tokens = []
  position = 0
  while position < len(text):
    match = TOKEN.match(text, position)
    if not match:
      raise ValueError(f"no token at {text[position:position + 40]!r}")
    if match.lastgroup == "mark" or match.group("raw"):
      kind = "raw"
    else:
      kind = match.lastgroup
    if kind not in SKIPPED:
      tokens.append(Token(kind, match.group(), match.start(), match.end()))
    position = match.end()
  return tokens


# ---- Mutants ----

Mutant = collections.namedtuple("Mutant", "file line kind start end replacement")

# Binary operators, which stand between blanks, and what each becomes.
BINARY = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">"], ">": [">=", "<"], "<=": ["<", ">="],
    ">=": [">", "<="], "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"],
    "%": ["*"], "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"], "+=": ["-=", "="],
    "-=": ["+=", "="], "*=": ["/="], "|=": ["&=", "="], "&=": ["|=", "="],
}

OPENING = {"(": ")", "{": "}", "[": "]"}
CLOSING = set(OPENING.values())

# A statement that can be taken out: a jump, or a name with what calls, sets or counts it.
STATEMENT = re.compile(
    r"""(break|continue)$
      | (throw|delete)\b
      | (?!return\b|using\b|if\b|for\b|while\b|switch\b|static_assert\b|operator\b|\.|->)
        (\+\+|--|\*|[\w.]|->|::|\[[^\]]*\])+ (\(|\s*[-+*/|&^]?=|\+\+|--)""", re.VERBOSE)

# Results that `{}` stands for as well.
EMPTY_RESULTS = {"false", "0", "nullptr", "std::nullopt", "{}", "", "statusDone"}


class File:
  """The tokens of one source, and the changes that can be made to it."""

  def __init__(self, name):
    self.name = name
    self.text = (ROOT / name).read_text(encoding="utf-8")
    self.tokens = tokenize(self.text)
    self.partner = self._partners()
    self.not_built = self._not_built()
    self.found = {}

  def _partners(self):
    partner = {}
    open_tokens = []
    for index, token in enumerate(self.tokens):
      if token.kind != "sign":
        continue
      if token.text in OPENING:
        open_tokens.append(index)
      elif token.text in CLOSING:
        partner[open_tokens.pop()] = index
    return partner

  def _not_built(self):
    """Where the code begins and ends that only other systems have."""
    ranges = []
    for index, token in enumerate(self.tokens):
      if self.text.startswith(NOT_BUILT_CONDITION, token.start):
        block = next(i for i in range(index, len(self.tokens)) if self.tokens[i].text == "{")
        ranges.append((token.start, self.tokens[self.partner[block]].end))
    return ranges

  def mutants(self):
    for index, token in enumerate(self.tokens):
      if token.kind == "number":
        self._number(token)
      elif token.kind == "char":
        self._char(token)
      elif token.kind == "string":
        prefix = token.text[:token.text.index('"')]
        empty = token.text.endswith('""')
        self._add("text", token, token, prefix + ('"x"' if empty else '""'))
      elif token.kind == "word":
        self._word(index, token)
      elif token.kind == "sign":
        self._sign(index, token)
      self._statement(index)
    return sorted(self.found.values(), key=lambda mutant: (mutant.start, mutant.replacement))

  def _add(self, kind, first, last, replacement):
    if any(start <= first.start < end for start, end in self.not_built):
      return
    line = self.text.count("\n", 0, first.start) + 1
    key = (first.start, last.end, replacement)
    self.found.setdefault(key, Mutant(self.name, line, kind, first.start, last.end, replacement))

  def _number(self, token):
    match = re.fullmatch(r"(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)", token.text)
    if not match:
      self._add("constant", token, token, f"({token.text} + 1)")
      return
    digits, suffix = match.groups()
    hexadecimal = digits[:2] in ("0x", "0X")
    octal = not hexadecimal and len(digits) > 1 and digits[0] == "0"
    value = int(digits, 16 if hexadecimal else 8 if octal else 10)
    for other in {value + 1, max(value - 1, 0)} - {value}:
      form = f"0x{other:X}" if hexadecimal else str(other)
      self._add("constant", token, token, form + suffix)

  def _char(self, token):
    prefix, body = re.fullmatch(r"(\w*)'(.*)'", token.text, re.DOTALL).groups()
    other = "~" if body[0] == "\\" or chr(ord(body) + 1) in "'\\" else chr(ord(body) + 1)
    self._add("constant", token, token, f"{prefix}'{other}'")

  def _word(self, index, token):
    if token.text in ("true", "false"):
      self._add("constant", token, token, "false" if token.text == "true" else "true")
    elif token.text in ("if", "while"):
      self._condition(index, token)
    elif token.text == "return":
      self._return(index)

  def _condition(self, index, token):
    if self._text_at(index + 1) != "(":
      return
    last = self.partner[index + 1]
    inner = self._source(index + 2, last - 1)
    if ";" in inner:
      return
    forms = ["!({})", "false && ({})"] + (["true || ({})"] if token.text == "if" else [])
    for form in forms:
      self._add("condition", self.tokens[index + 2], self.tokens[last - 1], form.format(inner))

  def _return(self, index):
    end = self._statement_end(index)
    value = self._source(index + 1, end - 1) if end > index + 1 else ""
    if not value:
      self._add("statement", self.tokens[index], self.tokens[index], "")
      return
    for form in ([] if value in EMPTY_RESULTS else ["{}"]) + [f"!({value})"]:
      self._add("return", self.tokens[index + 1], self.tokens[end - 1], form)

  def _sign(self, index, token):
    before = self.text[token.start - 1]
    behind = self.text[token.end]
    if before in " \n" and behind in " \n":
      for other in BINARY.get(token.text, []):
        self._add("operator", token, token, other)
      if token.text == "?":
        self._choice(index)
    elif token.text in ("!", "-") and behind not in " \n":
      self._add("operator", token, token, "")
    elif token.text in ("++", "--"):
      self._add("operator", token, token, "--" if token.text == "++" else "++")

  def _choice(self, index):
    """`a ? b : c`, with one of the two whatever `a` is."""
    colon = self._end_of(index + 1, {":"})
    end = self._end_of(colon + 1, {";", ","})
    left = self._source(index + 1, colon - 1)
    right = self._source(colon + 1, end - 1)
    for value in (left, right):
      self._add("condition", self.tokens[index + 1], self.tokens[end - 1], f"{value} : {value}")

  def _statement(self, index):
    """Takes out a call, an assignment, a jump."""
    token = self.tokens[index]
    if index == 0 or token.kind not in ("word", "sign"):
      return
    if self._text_at(index - 1) not in (";", "{", "}", ")", "else"):
      return
    end = self._statement_end(index)
    if end > index and self._text_at(end) == ";":
      if STATEMENT.match(self._source(index, end - 1)):
        self._add("statement", token, self.tokens[end - 1], "")

  def _text_at(self, index):
    return self.tokens[index].text if index < len(self.tokens) else ""

  def _source(self, first, last):
    return self.text[self.tokens[first].start:self.tokens[last].end]

  def _statement_end(self, index):
    return self._end_of(index, {";"})

  def _end_of(self, index, ends):
    """The next of these signs, or the bracket that closes around."""
    while index < len(self.tokens):
      text = self.tokens[index].text
      if text in ends or text in CLOSING:
        return index
      index = self.partner.get(index, index) + 1
    return index


def quotas(mutants, count):
  """How many mutants each file gets of `count`, in proportion to its lines that have any."""
  lines = {name: len({m.line for m in found}) for name, found in mutants.items() if found}
  total = sum(lines.values())
  return {name: max(1, round(count * number / total)) for name, number in lines.items()}


# ---- Building and running ----


def limits(seconds):
  """Sets the limits of a command. Its time is the processor's: what else a machine does, or that it
  holds the command up, must not pass for a hang."""
  def set_limits():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    if seconds:
      resource.setrlimit(resource.RLIMIT_CPU, (round(seconds), round(seconds) + 1))
  return set_limits


def run(command, folder, seconds=None, environment=None):
  """Status and output of a command, None for one that had to be stopped. Nothing of it is left."""
  with subprocess.Popen(
      command, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
      stderr=subprocess.STDOUT, start_new_session=True, preexec_fn=limits(seconds)) as process:
    try:
      # Whoever waits for ever takes no processor's time.
      output, _ = process.communicate(timeout=seconds and 20 * seconds)
      status = process.returncode
    except subprocess.TimeoutExpired:
      os.killpg(process.pid, signal.SIGKILL)
      output, _ = process.communicate()
      status = None
  return None if status == -signal.SIGXCPU else status, output.decode("utf-8", "replace")


class Stage:
  """A run of one test program over some of its tests."""

  def __init__(self, program, tests):
    self.program = program
    self.tests = tests
    self.seconds = 600


class Tree:
  """A copy of the tree with a build of its own."""

  def __init__(self, number):
    self.folder = WORK / f"tree{number}"
    self.build = WORK / f"build{number}"
    self.temporary = WORK / f"tmp{number}"
    self.environment = dict(os.environ, TMPDIR=str(self.temporary))
    self.stages = []
    self.killers = {}  # the tests that killed mutants of a file

  def prepare(self):
    self._copy()
    # What leaves a container, or writes beyond an array on the stack, is to be noticed.
    flags = "-O1 -w -D_GLIBCXX_ASSERTIONS -fstack-protector-strong"
    linker = "-fuse-ld=mold"
    self._must(["cmake", "-G", "Ninja", "-S", str(self.folder), "-B", str(self.build),
                "-D", "CMAKE_BUILD_TYPE=", "-D", f"CMAKE_CXX_FLAGS={flags}",
                "-D", f"CMAKE_EXE_LINKER_FLAGS={linker}",
                "-D", f"CMAKE_SHARED_LINKER_FLAGS={linker}",
                # The programs need no new link for every library.
                "-D", "CMAKE_LINK_DEPENDS_NO_SHARED=ON",
                "-D", "CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"])
    self._must(self._ninja())
    self._plan()

  def _copy(self):
    """Only files that differ are written, so that what has been built stays good."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, check=True, capture_output=True).stdout
    for name in filter(None, listed.decode().split("\0")):
      source, target = ROOT / name, self.folder / name
      if not source.is_file():
        continue
      if not target.exists() or source.read_bytes() != target.read_bytes():
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(source, target)
        os.utime(target)
    for old in [p for p in self.folder.rglob("*") if p.is_file()]:
      if not (ROOT / old.relative_to(self.folder)).exists():
        old.unlink()
    self.temporary.mkdir(exist_ok=True)

  def _must(self, command):
    status, output = run(command, self.folder)
    if status != 0:
      raise RuntimeError(f"{command}\n{output}")
    return output

  def _ninja(self):
    return ["ninja", "-C", str(self.build), "-j1", "tests", "request_tests"]

  def _plan(self):
    """Which tests are run in which order, and how long each run takes when nothing is changed."""
    output = self._must(["env", f"TMPDIR={self.temporary}", str(self.build / "tests/tests")])
    took = re.findall(r"^\[ +(?:OK|SKIPPED) \] (\S+) \((\d+) ms\)", output, re.MULTILINE)
    slow = [name for name, ms in took if int(ms) >= 1000 * SLOW_SECONDS]
    self.stages = [Stage("tests", "-" + ":".join(slow)), Stage("request_tests", "*")]
    self.stages += [Stage("tests", ":".join(slow))] if slow else []
    for stage in self.stages:
      start = time.monotonic()
      killer = self._killer(stage)
      if killer:
        raise RuntimeError(f"without any change fails {killer}")
      stage.seconds = 15 + 6 * (time.monotonic() - start)

  def _killer(self, stage):
    """The test that fails, or nothing if all pass."""
    command = [str(self.build / "tests" / stage.program), "--gtest_brief=1", "--gtest_fail_fast",
               f"--gtest_filter={stage.tests}"]
    status, output = run(command, self.temporary, stage.seconds, self.environment)
    if status == 0:
      return None
    for left in self.temporary.iterdir():
      shutil.rmtree(left, ignore_errors=True) if left.is_dir() else left.unlink()
    if status is None:
      return "a test that hangs"
    failed = re.search(r"^\[ +FAILED +\] (\S+?)(?:,| \()", output, re.MULTILINE)
    if failed:
      return failed.group(1)
    return f"a crash (status {status})"

  def _test(self, file):
    """The same of a mutant of this file. What killed another of the file comes first."""
    killers = self.killers.setdefault(file, [])
    first = Stage("tests", ":".join(killers))
    first.seconds = self.stages[0].seconds
    for stage in ([first] if killers else []) + self.stages:
      killer = self._killer(stage)
      if killer:
        if stage.program == "tests" and "." in killer and killer not in killers:
          killers.append(killer)
        return killer
    return "lives"

  def try_out(self, mutant):
    """What becomes of the mutant: the test that kills it, "lives" or "doesn't build"."""
    path = self.folder / mutant.file
    original = path.read_text(encoding="utf-8")
    try:
      path.write_text(mutated(original, mutant), encoding="utf-8")
      status, _ = run(self._ninja(), self.folder, 900)
      if status != 0:
        return "doesn't build"
      return self._test(mutant.file)
    finally:
      path.write_text(original, encoding="utf-8")


def mutated(text, mutant):
  return text[:mutant.start] + mutant.replacement + text[mutant.end:]


def shown(text, mutant):
  """The lines that the mutant changes, as they were and as they are."""
  first = text.rfind("\n", 0, mutant.start) + 1
  last = text.find("\n", mutant.end)
  changed = mutated(text, mutant)
  after = changed[first:last + len(changed) - len(text)]
  return tuple(" ".join(part.split()) for part in (text[first:last], after))


def columns(source, mutant):
  """How a mutant stands in the tables, behind what became of it."""
  return (f"{mutant.file}:{mutant.line}", mutant.kind, *shown(source.text, mutant))


# ---- The whole run ----


def parse_arguments():
  parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
  parser.add_argument("--count", type=int, default=500, help="how many mutants to build (500)")
  parser.add_argument("--seed", type=int, default=1, help="chooses among all that are possible (1)")
  parser.add_argument("--jobs", type=int, default=2, help="copies of the tree to work in (2)")
  parser.add_argument("--only", nargs="+", default=[], metavar="TEXT",
                      help="only sources with one of these in their names")
  parser.add_argument("--again", action="store_true",
                      help="only what lived the last time, to see whether new tests kill it")
  parser.add_argument("--list", action="store_true", help="list what is possible and stop")
  return parser.parse_args()


def find_sources(only):
  names = [p.relative_to(ROOT).as_posix() for p in sorted((ROOT / "src").rglob("*"))]
  return [
      name for name in names if name.endswith((".cpp", ".h")) and name not in NOT_BUILT and
      (not only or any(part in name for part in only))
  ]


def try_file(trees, source, candidates, quota, report):
  """Tries mutants of one file until as many as it has to give have been built."""
  tree = trees.pop()
  try:
    for mutant in candidates:
      if quota == 0:
        break
      outcome = tree.try_out(mutant)
      report(source, mutant, outcome)
      quota -= outcome != "doesn't build"
  finally:
    trees.append(tree)


class Results:
  """What became of the mutants so far. The files are written with each, so that a run that is
  stopped leaves what it has found."""

  def __init__(self, seed, possible):
    self.seed = seed
    self.possible = possible
    self.rows = []
    self.lock = threading.Lock()

  def add(self, source, mutant, outcome):
    row = (outcome, *columns(source, mutant))
    with self.lock:
      self.rows.append(row)
      print("\t".join(row), flush=True)
      write_table(WORK / "mutants.tsv", sorted(self.rows, key=lambda row: row[1:]))
      write_table(WORK / "survivors.tsv", sorted(row[1:] for row in self._living()))
      (WORK / "summary.txt").write_text(self.summary(), encoding="utf-8")

  def _living(self):
    return [row for row in self.rows if row[0] == "lives"]

  def summary(self):
    built = [row for row in self.rows if row[0] != "doesn't build"]
    living = len(self._living())
    files = len({row[1].partition(":")[0] for row in built})
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (f"{len(built)} mutants of {self.possible} possible ones in {files} files, seed "
            f"{self.seed}: {len(built) - living} killed "
            f"({100 * (1 - living / max(1, len(built))):.1f} %), {living} live; "
            f"{len(self.rows) - len(built)} more did not build; "
            f"{(usage.ru_utime + usage.ru_stime) / 60:.0f} minutes of processor time\n")


def write_table(path, rows):
  text = "".join("\t".join(row) + "\n" for row in rows)
  path.write_text(text, encoding="utf-8")


def main():
  options = parse_arguments()
  sources = {name: File(name) for name in find_sources(options.only)}
  mutants = {name: source.mutants() for name, source in sources.items()}
  if options.list:
    for name, found in mutants.items():
      for mutant in found:
        print("\t".join(columns(sources[name], mutant)))
    return 0

  WORK.mkdir(parents=True, exist_ok=True)
  trees = [Tree(number) for number in range(options.jobs)]
  with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
    list(pool.map(Tree.prepare, trees))

  if options.again:
    lived = set((WORK / "survivors.tsv").read_text(encoding="utf-8").splitlines())
    for name, found in mutants.items():
      mutants[name] = [m for m in found if "\t".join(columns(sources[name], m)) in lived]
    share = {name: len(found) for name, found in mutants.items() if found}
  else:
    share = quotas(mutants, options.count)

  results = Results(options.seed, sum(map(len, mutants.values())))
  with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
    futures = []
    # A change to a header builds most of the tree anew: these come last.
    for name in sorted(share, key=lambda name: (name.endswith(".h"), -share[name])):
      candidates = random.Random(f"{options.seed} {name}").sample(mutants[name], len(mutants[name]))
      futures.append(
          pool.submit(try_file, trees, sources[name], candidates, share[name], results.add))
    for future in futures:
      future.result()
  sys.stdout.write(results.summary())
  return 0


if __name__ == "__main__":
  sys.exit(main())
