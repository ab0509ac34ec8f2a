"""A C++ source as tokens, with the brackets that belong together."""

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
    """The tokens of a text. Comments and directives of the preprocessor are none."""
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
    """The index of the closing bracket for the index of each opening one."""
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
        """The text of a token, empty after the last one."""
        return self.tokens[index].text if index < len(self.tokens) else ""

    def text_of(self, first, last):
        """The text from one token to another, both included."""
        return self.text[self.tokens[first].start:self.tokens[last].end]

    def has_blanks_around(self, token):
        around = self.text[max(token.start - 1, 0):token.start] + self.text[token.end:token.end + 1]
        return around.isspace()

    def find(self, index, ends):
        """The next token that is one of these signs, or the bracket that closes around the token
        at `index`. What is in brackets of its own is passed over."""
        while index < len(self.tokens):
            if self.tokens[index].text in ends | CLOSING:
                return index
            index = self.partner.get(index, index) + 1
        return index

    def line_of(self, position):
        return self.text.count("\n", 0, position) + 1


def find_sources(root, only):
    """The sources that are built here and have one of the texts of `only` in their names. Without
    such texts all that are built here."""
    names = [path.relative_to(root).as_posix() for path in sorted((root / "src").rglob("*"))]
    return [name for name in names
            if name.endswith((".cpp", ".h")) and not name.endswith("Windows.cpp")
            and (not only or any(part in name for part in only))]
