#!/usr/bin/env python3
"""Writes the table of the characters that ECMAScript 5.1 identifiers may have, as of Unicode 10.0.

    identifier_chars.py              prints the table
    identifier_chars.py --check FILE compares it with a file; the exit status is 1 if they differ

The data are those of Debian's package unicode-data. Without them the exit status is 77.
"""

import argparse
import sys
from pathlib import Path

DATA = Path("/usr/share/unicode")

# The Unicode version that the differences below refer to.
VERSION = "15.0.0"
NEWEST_AGE = (10, 0)

# The data have the categories of this version. These characters had others in Unicode 10.0. All
# other changes since then are among letters, or outside of letters and marks.
CATEGORIES_IN_10 = {0x111C9: "Po", 0x1CF2: "Mc", 0x1CF3: "Mc"}

LETTERS = ["Lu", "Ll", "Lt", "Lm", "Lo", "Nl"]
MARKS = ["Mn", "Mc", "Nd", "Pc"]

FIRST_ABOVE_ASCII = 0x80
RANGES_PER_LINE = 4

FILE = """\
// Written by scripts/identifier_chars.py from Debian's unicode-data. Edit the script instead.
#pragma once

#include <cstdint>

namespace TolvenLibs::RevitMappingEditorDll {{

struct CodeRange {{
  std::uint32_t first;
  std::uint32_t last;
}};

// The code points above ASCII of the categories {letter_names}, in ascending order.
inline constexpr CodeRange identifierLetters[] = {{
{letters}
}};

// Those of the categories {mark_names}.
inline constexpr CodeRange identifierMarks[] = {{
{marks}
}};

}}  // namespace TolvenLibs::RevitMappingEditorDll
"""


def parse_ages(text):
    """Returns the Unicode version that assigned each code point, as (major, minor)."""
    ages = {}
    for line in text.splitlines():
        line = line.partition("#")[0]
        if ";" not in line:
            continue
        codes, age = (field.strip() for field in line.split(";"))
        first, _, last = codes.partition("..")
        version = tuple(int(number) for number in age.split("."))
        ages.update(dict.fromkeys(range(int(first, 16), int(last or first, 16) + 1), version))
    return ages


def parse_categories(text):
    """Returns the general category of each assigned code point."""
    categories = {}
    first_of_range = None
    for line in text.splitlines():
        code, name, category = line.split(";")[:3]
        code = int(code, 16)
        if name.endswith(", First>"):
            first_of_range = code
            continue
        first = first_of_range if name.endswith(", Last>") else code
        categories.update(dict.fromkeys(range(first, code + 1), category))
    return categories


def ranges_of(categories, ages, wanted):
    """Returns the ranges of code points above ASCII with these categories in Unicode 10.0."""
    ranges = []
    for code in sorted(categories):
        if code < FIRST_ABOVE_ASCII or ages[code] > NEWEST_AGE:
            continue
        if CATEGORIES_IN_10.get(code, categories[code]) not in wanted:
            continue
        if ranges and ranges[-1][1] == code - 1:
            ranges[-1][1] = code
        else:
            ranges.append([code, code])
    return ranges


def format_ranges(ranges):
    """Returns the ranges in columns, as clang-format aligns them."""
    items = [f"{{0x{first:X}, 0x{last:X}}}," for first, last in ranges]
    width = max(map(len, items)) + 1
    rows = [items[i:i + RANGES_PER_LINE] for i in range(0, len(items), RANGES_PER_LINE)]
    return "\n".join("    " + "".join(item.ljust(width) for item in row).rstrip() for row in rows)


def table(categories, ages):
    return FILE.format(
        letter_names=", ".join(LETTERS),
        letters=format_ranges(ranges_of(categories, ages, LETTERS)),
        mark_names=", ".join(MARKS),
        marks=format_ranges(ranges_of(categories, ages, MARKS)))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--check", metavar="FILE", type=Path,
                        help="compare the table with this file")
    options = parser.parse_args()

    age_file, category_file = DATA / "DerivedAge.txt", DATA / "UnicodeData.txt"
    if not age_file.is_file() or not category_file.is_file():
        print(f"skipped: no Unicode data in {DATA}; Debian's package unicode-data has them")
        return 77
    ages = age_file.read_text(encoding="utf-8")
    if not ages.startswith(f"# DerivedAge-{VERSION}.txt"):
        print(f"skipped: the Unicode data in {DATA} are not those of version {VERSION}")
        return 77

    text = table(parse_categories(category_file.read_text(encoding="utf-8")), parse_ages(ages))
    if not options.check:
        sys.stdout.write(text)
        return 0
    if options.check.read_text(encoding="utf-8") != text:
        print(f"{options.check} is not what scripts/identifier_chars.py prints")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
