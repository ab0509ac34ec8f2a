"""A C++ source as tokens, with matching brackets."""

import re
from typing import NamedTuple

TOKEN = re.compile(
    r"""(?P<space>\s+|\\\n)
      | (?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>\#(?:[^\n\\]|\\.|\\\n)*)
      | (?P<raw>(?:u8|u|U|L)?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")
      | (?P<string>(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*")
      | (?P<char>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')
      | (?P<number>\.?\d(?:[eEpP][+-]|'?[\w.])*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><=>|<<=|>>=|\.\.\.|->\*|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<|>>
          |[-+*/%&|^=!<>?:;,.(){}\[\]~])""",
    re.VERBOSE | re.DOTALL)

SKIPPED = {"space", "comment", "directive"}

OPENING = {"(", "{", "["}
CLOSING = {")", "}", "]"}


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


def tokenize(text):
    """Returns the tokens of a text, without comments and preprocessor directives."""
    tokens = []
    position = 0
    while position < len(text):
        match = TOKEN.match(text, position)
        if not match:
            raise ValueError(f"no token at {text[position:position + 40]!r}")
        if match.lastgroup not in SKIPPED:
            tokens.append(Token(match.lastgroup, match.group(), match.start(), match.end()))
        position = match.end()
    return tokens


def pair_brackets(tokens):
    """Maps the index of each opening bracket to that of its closing one."""
    partner = {}
    opened = []
    for index, token in enumerate(tokens):
        if token.kind == "sign" and token.text in OPENING:
            opened.append(index)
        elif token.kind == "sign" and token.text in CLOSING:
            partner[opened.pop()] = index
    return partner


class Source:
    def __init__(self, name, text):
        self.name = name
        self.text = text
        self.tokens = tokenize(text)
        self.partner = pair_brackets(self.tokens)

    def token_text(self, index):
        """Returns the text of a token, or "" after the last one."""
        return self.tokens[index].text if index < len(self.tokens) else ""

    def text_of(self, first, last):
        """Returns the text from one token to another, both included."""
        return self.text[self.tokens[first].start:self.tokens[last].end]

    def has_blanks_around(self, token):
        around = self.text[max(token.start - 1, 0):token.start] + self.text[token.end:token.end + 1]
        return around.isspace()

    def find(self, index, ends):
        """Returns the next token that is one of these signs, or the closing bracket around the
        token at `index`. Skips nested brackets."""
        while index < len(self.tokens):
            if self.tokens[index].text in ends | CLOSING:
                return index
            index = self.partner.get(index, index) + 1
        return index

    def line_of(self, position):
        return self.text.count("\n", 0, position) + 1


def find_sources(root, only):
    """Returns the sources that are built here and whose names contain a text of `only`, or all
    that are built here if `only` is empty."""
    names = [path.relative_to(root).as_posix() for path in sorted((root / "src").rglob("*"))]
    return [name for name in names
            if name.endswith((".cpp", ".h")) and not name.endswith("Windows.cpp")
            and (not only or any(part in name for part in only))]
