"""Tests of the tokenizer."""

import pathlib
import tempfile
import unittest

from source import Source, find_sources, tokenize


def texts(text):
    return [token.text for token in tokenize(text)]


class Tokenize(unittest.TestCase):
    def test_splits_a_text_into_the_tokens_of_cpp(self):
        for text, expected in [
                ("a+=b;", ["a", "+=", "b", ";"]),
                ("a<<=b>>c", ["a", "<<=", "b", ">>", "c"]),
                ("x->*y", ["x", "->*", "y"]),
                ("1'000u+.5e-3", ["1'000u", "+", ".5e-3"]),
                ("0x1F", ["0x1F"]),
                (r"""L"a\"b" u8"" '\''""", [r'L"a\"b"', 'u8""', r"'\''"]),
                ('R"x(a)" b)x";', ['R"x(a)" b)x"', ";"]),
        ]:
            with self.subTest(text):
                self.assertEqual(texts(text), expected)

    def test_leaves_out_comments(self):
        self.assertEqual(texts("a // b = 1;\nc /* d\n = 2; */ e"), ["a", "c", "e"])

    def test_leaves_out_directives_with_their_continued_lines(self):
        self.assertEqual(texts("#define A 1 + \\\n  2\n  # include <b>\nc"), ["c"])

    def test_reports_what_kind_each_token_is(self):
        kinds = [token.kind for token in tokenize("""a 1 'b' "c" R"(d)" +""")]
        self.assertEqual(kinds, ["word", "number", "char", "string", "raw", "sign"])

    def test_reports_where_each_token_is(self):
        text = "/* a */ bc = 1;"
        for token in tokenize(text):
            self.assertEqual(text[token.start:token.end], token.text)

    def test_refuses_what_is_no_cpp(self):
        with self.assertRaisesRegex(ValueError, "no token at '`b'"):
            tokenize("a `b")


class Find(unittest.TestCase):
    def test_skips_what_is_in_brackets(self):
        source = Source("a.cpp", "f([] { return 1; }, 2); g();")
        self.assertEqual(source.text_of(0, source.find(0, {";"})), "f([] { return 1; }, 2);")

    def test_stops_at_the_bracket_that_closes_around(self):
        source = Source("a.cpp", "f(a + b)")
        self.assertEqual(source.token_text(source.find(2, {";"})), ")")

    def test_does_not_take_a_bracket_in_quotes_for_one(self):
        source = Source("a.cpp", "f(')', \")\"); g")
        self.assertEqual(source.token_text(source.find(0, {";"})), ";")


class FindSources(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name in ["src/b/B.h", "src/a/A.cpp", "src/a/FilesWindows.cpp", "src/a/list.txt",
                     "tests/A_test.cpp"]:
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            (self.root / name).touch()

    def test_returns_what_is_built_here_of_the_library(self):
        self.assertEqual(find_sources(self.root, []), ["src/a/A.cpp", "src/b/B.h"])

    def test_returns_only_names_that_have_one_of_the_texts(self):
        for only, expected in [(["a/A"], ["src/a/A.cpp"]), ([".h", "B"], ["src/b/B.h"]),
                               (["none"], [])]:
            with self.subTest(only):
                self.assertEqual(find_sources(self.root, only), expected)


if __name__ == "__main__":
    unittest.main()
