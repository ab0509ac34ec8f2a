"""Tests of the search for mutants."""

import unittest

from mutants import changed_lines, divide, find_mutants, mutate, shuffle
from source import Source


def mutants_of(text):
    return find_mutants(Source("a.cpp", text))


def changed(text):
    """The texts of all mutants, sorted."""
    return sorted(mutate(text, mutant) for mutant in mutants_of(text))


class FindMutants(unittest.TestCase):
    def expect(self, text, *expected):
        with self.subTest(text):
            self.assertEqual(changed(text), sorted(expected))

    def test_makes_a_number_its_neighbours(self):
        self.expect("int a{5};", "int a{6};", "int a{4};")
        self.expect("int a{0};", "int a{1};")
        self.expect("int a{0x0Fu};", "int a{0x10u};", "int a{0xEu};")
        self.expect("int a{010};", "int a{9};", "int a{7};")
        self.expect("double a{1.5};", "double a{(1.5 + 1)};")
        self.expect("int a{1'000};", "int a{(1'000 + 1)};")

    def test_makes_a_letter_its_neighbour(self):
        self.expect("char a{'x'};", "char a{'y'};")
        self.expect("wchar_t a{L'x'};", "wchar_t a{L'y'};")
        self.expect(r"char a{'\n'};", "char a{'~'};")
        self.expect("char a{'&'};", "char a{'~'};")
        self.expect("char a{'['};", "char a{'~'};")

    def test_makes_a_text_empty_and_an_empty_one_a_letter(self):
        self.expect('View a{L"b + 1"};', 'View a{L""};')
        self.expect('View a{""};', 'View a{"x"};')

    def test_negates_a_truth_value(self):
        self.expect("bool a{true};", "bool a{false};")
        self.expect("bool a{false};", "bool a{true};")

    def test_makes_an_operator_another(self):
        self.expect("auto a{b == c};", "auto a{b != c};")
        self.expect("auto a{b < c};", "auto a{b <= c};", "auto a{b > c};")
        self.expect("auto a{b && c};", "auto a{b || c};")
        self.expect("auto a{b + c};", "auto a{b - c};")
        self.expect("auto a{!b};", "auto a{b};")
        self.expect("auto a{-b};", "auto a{b};")
        self.expect("auto a{b++ * --c};",
                    "auto a{b-- * --c};", "auto a{b++ * ++c};", "auto a{b++ / --c};")

    def test_leaves_signs_of_types_alone(self):
        self.expect("std::vector<int>& a(B&& b, C* c, D& d);")

    def test_makes_a_condition_hold_never_always_and_the_other_way_round(self):
        self.expect("if (a) return;",
                    "if (!(a)) return;", "if (false && (a)) return;", "if (true || (a)) return;",
                    "if (a) ;")

    def test_lets_no_loop_run_for_ever_by_its_condition(self):
        self.expect("while (a) {}", "while (!(a)) {}", "while (false && (a)) {}")

    def test_leaves_a_condition_with_a_declaration_as_it_is(self):
        self.expect("if (A a; a) {}")

    def test_replaces_a_conditional_by_either_value(self):
        self.expect("auto a{b ? c : d};", "auto a{b ? c : c};", "auto a{b ? d : d};")

    def test_makes_a_result_empty_and_the_opposite(self):
        self.expect("A B() { return a; }", "A B() { return {}; }", "A B() { return !(a); }")

    def test_makes_no_empty_result_of_an_empty_one(self):
        for value in ["nullptr", "std::nullopt", "{}"]:
            self.expect(f"A B() {{ return {value}; }}", f"A B() {{ return !({value}); }}")

    def test_removes_calls_assignments_and_jumps(self):
        self.expect("A() { b(c); }", "A() { ; }")
        self.expect("A() { b.c->d(); }", "A() { ; }")
        self.expect("A() { b = c; }", "A() { ; }")
        self.expect("A() { b += c; }", "A() { ; }", "A() { b = c; }", "A() { b -= c; }")
        self.expect("A() { b++; }", "A() { ; }", "A() { b--; }")
        self.expect("A() { break; }", "A() { ; }")
        self.expect("A() { throw b; }", "A() { ; }")

    def test_removes_no_declaration(self):
        self.expect("A() { B b; using C = D; }")

    def test_changes_nothing_in_comments_directives_and_raw_strings(self):
        self.expect("// a = 1;\n/* if (b) return 2; */\n#define C 3 + \\\n  4\n#include \"d\"\n")
        self.expect('View a{R"(1 + 2)"};')

    def test_changes_nothing_that_is_compiled_for_other_systems_alone(self):
        self.expect("{ if constexpr (sizeof(wchar_t) == 2) { a = 1; } b(); }",
                    "{ if constexpr (sizeof(wchar_t) == 2) { a = 1; } ; }")

    def test_finds_no_mutant_twice(self):
        found = mutants_of("if (a == 1 && b[0]) { return c ? 1 : 2; }")
        self.assertEqual(len(found), len({(m.start, m.end, m.replacement) for m in found}))

    def test_reports_file_line_and_kind(self):
        mutants = mutants_of("// One line\nint a{0};\nbool b{true};")
        self.assertEqual([(m.file, m.line, m.kind) for m in mutants],
                         [("a.cpp", 2, "constant"), ("a.cpp", 3, "constant")])


class ChangedLines(unittest.TestCase):
    def test_are_those_of_the_mutant_before_and_after(self):
        text = "int a;\n  bool   b{true};\nint c;"
        self.assertEqual(changed_lines(text, mutants_of(text)[0]),
                         ("bool b{true};", "bool b{false};"))

    def test_are_run_together_if_they_are_several(self):
        text = "{\n  a(b,\n    c);\n}\n"
        self.assertEqual(changed_lines(text, mutants_of(text)[0]), ("a(b, c);", ";"))

    def test_may_be_the_last_one_without_an_end(self):
        text = "bool b{true};"
        self.assertEqual(changed_lines(text, mutants_of(text)[0]), (text, "bool b{false};"))


class Divide(unittest.TestCase):
    def test_shares_the_mutants_out_by_the_lines_that_have_any(self):
        three_lines = mutants_of("int a{0};\nint b{0};\nint c{0};")
        one_line = mutants_of("int a{5}; int b{5}; int c{5}; int d{5};")
        self.assertEqual(divide({"a": three_lines, "b": one_line}, 8), {"a": 6, "b": 2})

    def test_leaves_no_file_out_that_has_any(self):
        found = {"a": mutants_of("int a{0};\n" * 100), "b": mutants_of("int a{0};"), "c": []}
        self.assertEqual(divide(found, 2), {"a": 2, "b": 1})


class Shuffle(unittest.TestCase):
    found = mutants_of("int a{5};\n" * 50)

    def test_returns_all_in_an_order_that_the_seed_decides(self):
        once = shuffle(self.found, "a.cpp", 1)
        self.assertEqual(once, shuffle(self.found, "a.cpp", 1))
        self.assertNotEqual(once, self.found)
        self.assertEqual(sorted(once), sorted(self.found))

    def test_returns_another_order_for_another_seed_or_file(self):
        once = shuffle(self.found, "a.cpp", 1)
        self.assertNotEqual(once, shuffle(self.found, "a.cpp", 2))
        self.assertNotEqual(once, shuffle(self.found, "b.cpp", 1))


if __name__ == "__main__":
    unittest.main()
