"""Finds the mutants of a source: the possible changes in one place."""

import random
import re
from typing import NamedTuple

# Compiled only for systems with wide characters of 16 bits, so no test here could notice a change.
NOT_BUILT_CONDITION = "if constexpr (sizeof(wchar_t) == 2) {"

# Binary operators with their blanks, and the replacements of each.
BINARY = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">"], ">": [">=", "<"], "<=": ["<", ">="],
    ">=": [">", "<="], "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"],
    "%": ["*"], "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"], "+=": ["-=", "="],
    "-=": ["+=", "="], "*=": ["/="], "|=": ["&=", "="], "&=": ["|=", "="],
}

# A statement that can be removed: a jump, or a name that is called, assigned or incremented.
STATEMENT = re.compile(
    r"""(break|continue)$
      | (throw|delete)\b
      | (?!return\b|using\b|if\b|for\b|while\b|switch\b|static_assert\b|operator\b|\.|->)
        (\+\+|--|\*|[\w.]|->|::|\[[^\]]*\])+ (\(|\s*[-+*/|&^]?=|\+\+|--)""", re.VERBOSE)

# Results that are equal to `{}`.
EMPTY_RESULTS = {"false", "0", "nullptr", "std::nullopt", "{}", "", "statusDone"}


class Mutant(NamedTuple):
    file: str
    line: int
    kind: str
    start: int
    end: int
    replacement: str


def find_mutants(source):
    """Returns all mutants of a source, in the order of their places."""
    return _Finder(source).mutants()


def mutate(text, mutant):
    return text[:mutant.start] + mutant.replacement + text[mutant.end:]


def changed_lines(text, mutant):
    """Returns the changed lines before and after, with blanks collapsed."""
    first = text.rfind("\n", 0, mutant.start) + 1
    last = text.find("\n", mutant.end)
    last = len(text) if last < 0 else last
    mutated = mutate(text, mutant)
    after = mutated[first:last + len(mutated) - len(text)]
    return tuple(" ".join(part.split()) for part in (text[first:last], after))


def divide(mutants, count):
    """Divides `count` mutants among the files, in proportion to their lines that have any."""
    lines = {name: len({m.line for m in found}) for name, found in mutants.items() if found}
    total = sum(lines.values())
    return {name: max(1, round(count * number / total)) for name, number in lines.items()}


def shuffle(mutants, name, seed):
    """Returns the mutants of a file in an order that depends only on the seed and the name."""
    return random.Random(f"{seed} {name}").sample(mutants, len(mutants))


class _Finder:
    def __init__(self, source):
        self.source = source
        self.tokens = source.tokens
        self.not_built = self._not_built()
        self.found = {}

    def mutants(self):
        for index, token in enumerate(self.tokens):
            if token.kind == "number":
                self._number(token)
            elif token.kind == "char":
                self._char(token)
            elif token.kind == "string":
                self._string(token)
            elif token.kind == "word":
                self._word(index, token)
            elif token.kind == "sign":
                self._sign(index, token)
            self._statement(index, token)
        return sorted(self.found.values(), key=lambda mutant: (mutant.start, mutant.replacement))

    def _not_built(self):
        """Returns the ranges of code that only other systems compile."""
        ranges = []
        for index, token in enumerate(self.tokens):
            if self.source.text.startswith(NOT_BUILT_CONDITION, token.start):
                condition = self.source.partner[index + 2]
                end = self.source.partner[condition + 1]
                ranges.append((token.start, self.tokens[end].end))
        return ranges

    def _add(self, kind, first, last, replacement):
        """Adds the mutant that replaces the tokens from `first` to `last` by a text."""
        if any(start <= first.start < end for start, end in self.not_built):
            return
        key = (first.start, last.end, replacement)
        line = self.source.line_of(first.start)
        self.found.setdefault(
            key, Mutant(self.source.name, line, kind, first.start, last.end, replacement))

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

    def _string(self, token):
        prefix = token.text[:token.text.index('"')]
        empty = token.text.endswith('""')
        self._add("text", token, token, prefix + ('"x"' if empty else '""'))

    def _word(self, index, token):
        if token.text in ("true", "false"):
            self._add("constant", token, token, "false" if token.text == "true" else "true")
        elif token.text in ("if", "while"):
            self._condition(index, token)
        elif token.text == "return":
            self._return(index)

    def _condition(self, index, token):
        if self.source.token_text(index + 1) != "(":
            return
        last = self.source.partner[index + 1]
        inner = self.source.text_of(index + 2, last - 1)
        if ";" in inner:
            return
        forms = ["!({})", "false && ({})"] + (["true || ({})"] if token.text == "if" else [])
        for form in forms:
            self._add("condition", self.tokens[index + 2], self.tokens[last - 1],
                      form.format(inner))

    def _return(self, index):
        end = self.source.find(index, {";"})
        if end == index + 1:
            self._add("statement", self.tokens[index], self.tokens[index], "")
            return
        value = self.source.text_of(index + 1, end - 1)
        for form in ([] if value in EMPTY_RESULTS else ["{}"]) + [f"!({value})"]:
            self._add("return", self.tokens[index + 1], self.tokens[end - 1], form)

    def _sign(self, index, token):
        if self.source.has_blanks_around(token):
            for other in BINARY.get(token.text, []):
                self._add("operator", token, token, other)
            if token.text == "?":
                self._choice(index)
        elif token.text in ("!", "-"):
            self._add("operator", token, token, "")
        elif token.text in ("++", "--"):
            self._add("operator", token, token, "--" if token.text == "++" else "++")

    def _choice(self, index):
        """Replaces `a ? b : c` by either value."""
        colon = self.source.find(index + 1, {":"})
        end = self.source.find(colon + 1, {";", ","})
        left = self.source.text_of(index + 1, colon - 1)
        right = self.source.text_of(colon + 1, end - 1)
        for value in (left, right):
            self._add("condition", self.tokens[index + 1], self.tokens[end - 1],
                      f"{value} : {value}")

    def _statement(self, index, token):
        """Removes a call, an assignment or a jump."""
        if index == 0 or token.kind not in ("word", "sign"):
            return
        if self.source.token_text(index - 1) not in (";", "{", "}", ")", "else"):
            return
        end = self.source.find(index, {";"})
        if end > index and self.source.token_text(end) == ";":
            if STATEMENT.match(self.source.text_of(index, end - 1)):
                self._add("statement", token, self.tokens[end - 1], "")
