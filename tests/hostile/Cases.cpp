#include "hostile/Cases.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "support/Results.h"

namespace Hostile {

namespace {

// Files

// The piece over and over, up to the size.
std::string Repeated(const std::string& piece, std::size_t size) {
  std::string text;
  text.reserve(size + piece.size());
  while (text.size() < size) text += piece;
  return text;
}

// The line with a number of seven digits in the place of each "#", over and over, numbered from 0.
std::string Numbered(const std::string& line, std::size_t size) {
  std::string text;
  text.reserve(size + line.size() + 100);
  for (unsigned number = 0; text.size() < size; ++number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%07u", number);
    for (const char unit : line) {
      if (unit == '#') {
        text += digits;
      } else {
        text += unit;
      }
    }
  }
  return text;
}

// How many lines `Numbered` makes.
std::size_t LinesOf(const std::string& line, std::size_t size) {
  const auto marks = static_cast<std::size_t>(std::count(line.begin(), line.end(), '#'));
  const std::size_t length = line.size() + 6 * marks;
  return (size + length - 1) / length;
}

// A domain with a property, whose fields are to follow.
const std::string property = "==DOMEN\n@@@ D\n@ P 1 1\n";

// Questions

std::wstring Mapping(Editor& editor, const std::wstring& text) {
  return Take(editor.GetMappingStr(text.c_str(), 1, L""));
}

std::wstring MappingOfX(Editor& editor, std::size_t /*size*/) {
  return Mapping(editor, L"x");
}

std::wstring None(std::size_t /*size*/) {
  return L"P N00;";
}

std::wstring NoSection(std::size_t /*size*/) {
  return L"P ;";
}

std::wstring NumberOf(std::size_t number) {
  return std::to_wstring(number);
}

std::wstring CountColors(Editor& editor, std::size_t /*size*/) {
  int count = 0;
  const wchar_t** keys = nullptr;
  editor.GetColoratsIds(count, keys);
  return NumberOf(TakeAll(count, keys).size());
}

std::wstring CountProperties(Editor& editor, std::size_t /*size*/) {
  int count = 0;
  const wchar_t** ids = nullptr;
  int* indexes = nullptr;
  editor.GetPropertiesSortIndex(Take(editor.GetActiveDomenId()).c_str(), count, ids, indexes);
  delete[] indexes;
  return NumberOf(TakeAll(count, ids).size());
}

std::wstring CountFields(Editor& editor, std::size_t /*size*/) {
  int count = 0;
  const wchar_t **names = nullptr, **titles = nullptr, **values = nullptr;
  int* types = nullptr;
  bool* flags = nullptr;
  editor.GetDomenPropertyFieldsValues(Take(editor.GetActiveDomenId()).c_str(), L"P", count, names,
                                      titles, types, flags, values);
  delete[] types;
  delete[] flags;
  TakeAll(count, titles);
  TakeAll(count, values);
  return NumberOf(TakeAll(count, names).size());
}

std::wstring CountDomens(Editor& editor, std::size_t /*size*/) {
  int count = 0;
  const wchar_t** ids = editor.GetDomensIds(count);
  return NumberOf(TakeAll(count, ids).size());
}

// Exports the active domain, and tells whether there is a file of it behind that.
std::wstring Export(Editor& editor, std::size_t /*size*/) {
  const std::filesystem::path target =
      std::filesystem::temp_directory_path() / "mapping-editor-hostile.json";
  editor.ExportJson(Take(editor.GetActiveDomenId()).c_str(), target.wstring().c_str());
  std::error_code ignored;
  return std::filesystem::remove(target, ignored) ? L"a file" : L"no file";
}

std::wstring AFile(std::size_t /*size*/) {
  return L"a file";
}

// How many properties may be set on objects of as many types as the file has bytes for.
std::wstring CountPropertiesOfTypes(Editor& editor, std::size_t size) {
  std::vector<const wchar_t*> array(size / 8, L"Other");
  int count = 0;
  const wchar_t **ids = nullptr, **names = nullptr;
  int* indexes = nullptr;
  editor.GetDomenPropertysByObjTypes(L"D", static_cast<int>(array.size()), array.data(), count, ids,
                                     names, indexes);
  delete[] indexes;
  TakeAll(count, names);
  return NumberOf(TakeAll(count, ids).size());
}

// The cases

std::wstring One(std::size_t /*size*/) {
  return L"1";
}

std::wstring Nothing(std::size_t /*size*/) {
  return L"0";
}

const Case schemes[] = {
    {"==CLASS, one line", "a.txt",
     [](std::size_t size) { return "==CLASS\n@@@ " + Repeated("x", size); }, MappingOfX, NoSection},
    {"==CLASS, semicolons", "a.txt",
     [](std::size_t size) { return "==CLASS\n@@@ " + Repeated(";", size); }, MappingOfX, NoSection},
    {"==CLASS, opening brackets", "a.txt",
     [](std::size_t size) { return "==CLASS\n@@@ " + Repeated("(", size); }, MappingOfX, NoSection},
    {"==CLASS, closing brackets, then opening ones", "a.txt",
     [](std::size_t size) {
       return "==CLASS\n@@@ " + Repeated(")", size / 2) + Repeated("(", size / 2);
     },
     MappingOfX, NoSection},
    {"==CLASS, titles", "a.txt",
     [](std::size_t size) { return "==CLASS\n" + Repeated("@@@ T (a b)\n", size); }, MappingOfX,
     NoSection},
    {"==CLASS, words in brackets", "a.txt",
     [](std::size_t size) { return "==CLASS\n@@@ (" + Repeated("a ", size) + ")"; }, MappingOfX,
     NoSection},
    {"headings of no section", "a.txt", [](std::size_t size) { return Repeated("==\n", size); },
     MappingOfX, NoSection},
    {"headings of ==MAPTEXT", "a.txt",
     [](std::size_t size) { return Repeated("==MAPTEXT\n@A\nx\n", size); }, MappingOfX,
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"lines ahead of all sections", "a.txt", [](std::size_t size) { return Repeated("x\n", size); },
     MappingOfX, NoSection},
    {"blank lines", "a.txt", [](std::size_t size) { return Repeated("\r\n", size); }, MappingOfX,
     NoSection},
    {"a line of blanks", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n" + Repeated(" ", size) + "\n"; }, MappingOfX, None},
    {"bytes that can't be decoded, at the end", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\nx\n" + Repeated("y\n", size) + "\xFF"; },
     MappingOfX, [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, one line", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\nx" + Repeated("x", size); }, MappingOfX, None},
    {"==MAPTEXT, one line of Cyrillic letters", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\n" + Repeated("\xD1\x8F", size); }, MappingOfX,
     None},
    {"==MAPTEXT, semicolons", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A" + Repeated(";", size) + "x"; }, MappingOfX,
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, blanks within a pattern", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\ny" + Repeated(" ", size) + "y"; }, MappingOfX,
     None},
    {"==MAPTEXT, patterns of one letter", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\n" + Repeated("x\n", size); }, MappingOfX,
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, patterns that share all words but the last", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\n" + Numbered("w w w w w#\n", size); },
     [](Editor& editor, std::size_t) { return Mapping(editor, L"w w w w w0000007 x"); },
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, patterns that share forty letters", "a.txt",
     [](std::size_t size) {
       return "==MAPTEXT\n@A\n" + Numbered(std::string(40, 'w') + "#\n", size);
     },
     [](Editor& editor, std::size_t) { return Mapping(editor, std::wstring(50, L'w')); }, None},
    {"==MAPTEXT, patterns of all lengths", "a.txt",
     [](std::size_t size) {
       std::string lines;
       for (std::size_t length = 1; length < 200; ++length) {
         lines += std::string(length, 'w') + " " + std::string(200 - length, 'w') + " #\n";
       }
       return "==MAPTEXT\n@A\n" + Numbered(lines, size);
     },
     [](Editor& editor, std::size_t) {
       return Mapping(editor, std::wstring(250, L'w') + L" " + std::wstring(250, L'w') + L" x");
     },
     None},
    {"==MAPTEXT, headers", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n" + Repeated("@A {B=1}\n", size) + "x"; },
     MappingOfX, [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, lists of domains", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n" + Repeated("@@ (a b)\n", size); }, MappingOfX,
     None},
    {"==MAPTEXT, a list of domains", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@@ (" + Repeated("a ", size) + ")\n@A {B=1}\nx"; },
     MappingOfX, [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, opening brackets", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@@ " + Repeated("(", size); }, MappingOfX, None},
    {"==MAPTEXT, blocks without an end", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A " + Repeated("{", size) + "\nx"; }, MappingOfX,
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, empty blocks", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A " + Repeated("{}", size) + "\nx"; }, MappingOfX,
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, marks", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n" + Repeated("@$ [ ]\n", size); }, MappingOfX, None},
    {"==MAPTEXT, an opening mark of thousands of units, begun over and over", "a.txt",
     [](std::size_t size) {
       const std::string most = Repeated("[", size / 8);
       return "==MAPTEXT\n@$ " + most + "[ ]\n@A " + Repeated(most + "x", size) + "\nx";
     },
     MappingOfX, [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==MAPTEXT, a closing mark of thousands of units, begun over and over", "a.txt",
     [](std::size_t size) {
       const std::string most = Repeated("]", size / 8);
       return property + "==MAPTEXT\n@@ (D)\n@$ [ " + most + "]\n@A [" +
              Repeated(most + "x", size) + "\nx";
     },
     MappingOfX, [](std::size_t) { return std::wstring(L"P A;"); }},
    {"==PARAM, statements of one code", "a.txt",
     [](std::size_t size) { return "==PARAM\n" + Repeated("A B=1\n", size); }, MappingOfX,
     NoSection},
    {"==PARAM, semicolons in a token", "a.txt",
     [](std::size_t size) {
       // More lines than semicolons, or they would cut the statements.
       return "==PARAM\nA " + Repeated("a;", size / 3) + Repeated("\nA", size * 2 / 3);
     },
     MappingOfX, NoSection},
    {"==PARAM, words", "a.txt",
     [](std::size_t size) { return "==PARAM\nA " + Repeated("a=1 ", size); }, MappingOfX,
     NoSection},
    {"==PARAM, braces", "a.txt",
     [](std::size_t size) { return "==PARAM\nA " + Repeated("{", size); }, MappingOfX, NoSection},
    {"==COLORAT, keys", "a.txt",
     [](std::size_t size) { return "==COLORAT\n@a b\n" + Numbered("k# 1 2 3 4\n", size); },
     CountColors, [](std::size_t size) { return NumberOf(LinesOf("k# 1 2 3 4\n", size)); }},
    {"==COLORAT, one key", "a.txt",
     [](std::size_t size) { return "==COLORAT\n@a b\n" + Repeated("k 1 2 3 4\n", size); },
     CountColors, One},
    {"==COLORAT, blocks of one id", "a.txt",
     [](std::size_t size) { return "==COLORAT\n" + Numbered("@a b\nk# 1 2 3 4\n", size); },
     CountColors, [](std::size_t size) { return NumberOf(LinesOf("@a b\nk# 1 2 3 4\n", size)); }},
    {"==COLORAT, blocks", "a.txt",
     [](std::size_t size) { return "==COLORAT\n" + Numbered("@a# b\nk 1 2 3 4\n", size); },
     CountColors, One},
    {"==COLORAT, at-signs", "a.txt",
     [](std::size_t size) { return "==COLORAT\n" + Repeated("@", size) + "a b\nk 1 2 3 4\n"; },
     CountColors, One},
    {"==COLORAT, digits", "a.txt",
     [](std::size_t size) { return "==COLORAT\n@a b\nk 1 2 3 " + Repeated("9", size); },
     CountColors, One},
    {"==COLORAT, words in a line", "a.txt",
     [](std::size_t size) { return "==COLORAT\n@a b\nk 1 2 3 4\n" + Repeated("9 ", size); },
     CountColors, One},
};

// Of a text with a scheme that is small, or that a lookup makes the most of.
const Case lookups[] = {
    {"lookup, a text of one word", "a.txt",
     [](std::size_t) { return std::string("==MAPTEXT\n@A\nx\nxx y\n"); },
     [](Editor& editor, std::size_t size) { return Mapping(editor, std::wstring(size, L'x')); },
     [](std::size_t) { return std::wstring(L"P A;"); }},
    {"lookup, a text of blanks", "a.txt",
     [](std::size_t) { return std::string("==MAPTEXT\n@A\nx\nxx y\n"); },
     [](Editor& editor, std::size_t size) { return Mapping(editor, std::wstring(size, L' ')); },
     None},
    {"lookup, a text that begins as a pattern of its size", "a.txt",
     [](std::size_t size) { return "==MAPTEXT\n@A\n" + Repeated("w ", size) + "v"; },
     [](Editor& editor, std::size_t size) {
       std::wstring text;
       while (text.size() < size) text += L"w ";
       return Mapping(editor, text + L"w");
     },
     None},
};

const Case compositions[] = {
    {"composition, items of one property", "a.txt",
     [](std::size_t size) {
       return property + "f int 0 1\n==MAPTEXT\n@@ (D)\n@A {" + Repeated("P=1 ", size) + "}\nx";
     },
     [](Editor& editor, std::size_t size) { return NumberOf(MappingOfX(editor, size).size()); },
     [](std::size_t size) { return NumberOf(4 + 4 * ((size + 3) / 4)); }},
    {"composition, blocks of items", "a.txt",
     [](std::size_t size) {
       return property + "f int 0 1\n==MAPTEXT\n@@ (D)\n@A " + Repeated("{P=1}", size) + "\nx";
     },
     [](Editor& editor, std::size_t size) { return NumberOf(MappingOfX(editor, size).size()); },
     [](std::size_t size) { return NumberOf(4 + 4 * ((size + 4) / 5)); }},
    {"composition, words by position", "a.txt",
     [](std::size_t size) {
       return property + Numbered("f# int 0 1\n", size) + "==MAPTEXT\n@@ (D)\n@A {P " +
              Repeated("2 ", size / 8) + "}\nx";
     },
     [](Editor& editor, std::size_t size) { return MappingOfX(editor, size).substr(0, 10); },
     [](std::size_t) { return std::wstring(L"P A;P 2 2 "); }},
    {"composition, named words of one field", "a.txt",
     [](std::size_t size) {
       return property + "a ilist 0 1\n==MAPTEXT\n@@ (D)\n@A {P " + Repeated("a1=2 ", size) +
              "}\nx";
     },
     [](Editor& editor, std::size_t size) { return MappingOfX(editor, size).substr(0, 10); },
     [](std::size_t) { return std::wstring(L"P A;P 2 2 "); }},
    {"composition, named words of as many fields", "a.txt",
     [](std::size_t size) {
       return property + Numbered("f# int 0 1\n", size / 2) + "==MAPTEXT\n@@ (D)\n@A {P " +
              Numbered("f#=2 ", size / 2) + "}\nx";
     },
     [](Editor& editor, std::size_t size) { return MappingOfX(editor, size).substr(0, 10); },
     [](std::size_t) { return std::wstring(L"P A;P 2 2 "); }, true},
    {"composition, items of as many properties in as many domains", "a.txt",
     [](std::size_t size) {
       return property + "f int 0 1\n==MAPTEXT\n@@ (" + Repeated("D ", size / 2) + ")\n@A {" +
              Numbered("p#=1 ", size / 2) + "P=1}\nx";
     },
     MappingOfX, [](std::size_t) { return std::wstring(L"P A;P 1;"); }, true},
};

const Case domens[] = {
    {"==DOMEN, one line", "a.txt",
     [](std::size_t size) { return property + "f str 0 " + Repeated("x", size); }, CountFields,
     One},
    {"==DOMEN, semicolons", "a.txt",
     [](std::size_t size) { return "==DOMEN\n@@@ D;@ P 1 1;f int 0 1" + Repeated(";", size); },
     CountFields, One},
    {"==DOMEN, blanks in a field", "a.txt",
     [](std::size_t size) { return property + "f str 0 x y" + Repeated(" ", size) + "z"; },
     CountFields, One},
    {"==DOMEN, words of a title", "a.txt",
     [](std::size_t size) { return property + "f str 0 x " + Repeated("y ", size); }, CountFields,
     One},
    {"==DOMEN, digits of a number", "a.txt",
     [](std::size_t size) { return property + "f real 0 " + Repeated("7", size); }, CountFields,
     One},
    {"==DOMEN, quotation marks", "a.txt",
     [](std::size_t size) { return property + "f str 0 " + Repeated("\"", size); }, CountFields,
     One},
    {"==DOMEN, fields of one name", "a.txt",
     [](std::size_t size) { return property + Repeated("f int 0 1\n", size); }, CountFields, One},
    {"==DOMEN, fields of one property", "a.txt",
     [](std::size_t size) { return property + Numbered("f# int 0 1\n", size); }, CountFields,
     [](std::size_t size) { return NumberOf(LinesOf("f# int 0 1\n", size)); }},
    {"==DOMEN, properties of one id", "a.txt",
     [](std::size_t size) { return property + Repeated("@ P 1 1\n", size); }, CountProperties, One},
    {"==DOMEN, properties of one id, each with a field", "a.txt",
     [](std::size_t size) { return property + Numbered("@ P 1 1\nf# int 0 1\n", size); },
     CountFields,
     [](std::size_t size) { return NumberOf(LinesOf("@ P 1 1\nf# int 0 1\n", size)); }},
    {"==DOMEN, properties", "a.txt",
     [](std::size_t size) { return "==DOMEN\n@@@ D\n" + Numbered("@ P# 1 1\n", size); },
     CountProperties, [](std::size_t size) { return NumberOf(LinesOf("@ P# 1 1\n", size)); }},
    {"==DOMEN, domains", "a.txt",
     [](std::size_t size) { return "==DOMEN\n" + Numbered("@@@ D#\n", size); }, CountDomens,
     [](std::size_t size) { return NumberOf(LinesOf("@@@ D#\n", size)); }},
    {"==DOMEN, one domain", "a.txt",
     [](std::size_t size) { return "==DOMEN\n" + Repeated("@@@ D\n", size); }, CountDomens, One},
    {"==DOMEN, object types of one property", "a.txt",
     [](std::size_t size) { return "==DOMEN\n@@@ D\n@@ " + Repeated("T ", size) + "\n@ P 1 1\n"; },
     CountProperties, One},
    {"==DOMEN, object types of properties", "a.txt",
     [](std::size_t size) { return "==DOMEN\n@@@ D\n" + Numbered("@@ a b c\n@ P# 1 1\n", size); },
     CountProperties,
     [](std::size_t size) { return NumberOf(LinesOf("@@ a b c\n@ P# 1 1\n", size)); }},
    {"query, object types of a property and as many asked for", "a.txt",
     [](std::size_t size) {
       return "==DOMEN\n@@@ D\n@@ " + Numbered("T# ", size) + "Other\n@ P 1 1\n";
     },
     CountPropertiesOfTypes, One, true},
    {"export, properties", "a.txt",
     [](std::size_t size) { return "==DOMEN\n@@@ D\n" + Numbered("@ P# 1 1\n", size); }, Export,
     AFile},
    {"export, fields of one property", "a.txt",
     [](std::size_t size) { return property + Numbered("f# real 0 1\n", size); }, Export, AFile},
    {"export, fields of one name", "a.txt",
     [](std::size_t size) { return "==DOMEN\n@@@ D\n" + Numbered("@ P# 1 1\nf int 0 1\n", size); },
     Export, AFile},
    {"export, a long text", "a.txt",
     [](std::size_t size) { return property + "f str 0 x " + Repeated("y ", size); }, Export,
     AFile},
};

const Case jsonFiles[] = {
    {"JSON5, arrays without an end", "d.json", [](std::size_t size) { return Repeated("[", size); },
     CountProperties, Nothing},
    {"JSON5, objects without an end", "d.json",
     [](std::size_t size) { return Repeated("{a:", size); }, CountProperties, Nothing},
    {"JSON5, nine hundred levels over and over", "d.json",
     [](std::size_t size) {
       return "[" + Repeated(std::string(900, '[') + std::string(900, ']') + ",", size) + "]";
     },
     CountProperties, Nothing},
    {"JSON5, numbers", "d.json", [](std::size_t size) { return "[" + Repeated("0,", size) + "]"; },
     CountProperties, Nothing},
    {"JSON5, digits", "d.json", [](std::size_t size) { return Repeated("7", size); },
     CountProperties, Nothing},
    {"JSON5, hexadecimal digits", "d.json",
     [](std::size_t size) { return "0x" + Repeated("f", size); }, CountProperties, Nothing},
    {"JSON5, digits behind a point", "d.json",
     [](std::size_t size) { return "0." + Repeated("0", size) + "1e" + std::to_string(size); },
     CountProperties, Nothing},
    {"JSON5, digits of an exponent", "d.json",
     [](std::size_t size) { return "1e-" + Repeated("7", size); }, CountProperties, Nothing},
    {"JSON5, a string", "d.json", [](std::size_t size) { return "'" + Repeated("x", size) + "'"; },
     CountProperties, Nothing},
    {"JSON5, a string without an end", "d.json",
     [](std::size_t size) { return "'" + Repeated("x", size); }, CountProperties, Nothing},
    {"JSON5, escapes", "d.json",
     [](std::size_t size) { return "'" + Repeated("\\u0041", size) + "'"; }, CountProperties,
     Nothing},
    {"JSON5, line continuations", "d.json",
     [](std::size_t size) { return "'" + Repeated("\\\n", size) + "'"; }, CountProperties, Nothing},
    {"JSON5, strings with escapes", "d.json",
     [](std::size_t size) { return "[" + Repeated("'\\n',", size) + "]"; }, CountProperties,
     Nothing},
    {"JSON5, comments", "d.json", [](std::size_t size) { return Repeated("//\n", size) + "0"; },
     CountProperties, Nothing},
    {"JSON5, a comment without an end", "d.json",
     [](std::size_t size) { return "/*" + Repeated("*", size); }, CountProperties, Nothing},
    {"JSON5, keys", "d.json", [](std::size_t size) { return "{" + Numbered("k#:0,", size) + "}"; },
     CountProperties, Nothing},
    {"JSON5, keys from behind", "d.json",
     [](std::size_t size) {
       std::string text = "{";
       for (std::size_t number = size / 11; number > 0; --number) {
         text += "k" + std::to_string(10'000'000 + number) + ":0,";
       }
       return text + "}";
     },
     CountProperties, Nothing},
    {"JSON5, one key", "d.json",
     [](std::size_t size) { return "{" + Repeated("k:0,", size) + "}"; }, CountProperties, Nothing},
    {"JSON5, a key with escapes", "d.json",
     [](std::size_t size) { return "{" + Repeated("\\u0041", size) + ":0}"; }, CountProperties,
     Nothing},
    {"JSON5, properties of one key", "d.json",
     [](std::size_t size) { return "{Domen:{asFuncsNames:[" + Repeated("'P',", size) + "]}}"; },
     CountProperties, One},
    {"JSON5, properties", "d.json",
     [](std::size_t size) { return "{Domen:{asFuncsNames:[" + Numbered("'P#',", size) + "]}}"; },
     CountProperties, [](std::size_t size) { return NumberOf(LinesOf("'P#',", size)); }},
    {"JSON5, elements that are no strings", "d.json",
     [](std::size_t size) { return "{Domen:{asFuncsNames:['P'" + Repeated(",0", size) + "]}}"; },
     CountProperties, One},
    {"JSON5, fields of one property", "d.json",
     [](std::size_t size) {
       return "{Domen:{asFuncsNames:['P']},Properties:{P:{asFuncsNames:[" +
              Numbered("'f#',", size) + "]}}}";
     },
     CountFields, [](std::size_t size) { return NumberOf(LinesOf("'f#',", size)); }},
    {"JSON5, fields of one name", "d.json",
     [](std::size_t size) {
       return "{Domen:{asFuncsNames:['P']},Properties:{P:{asFuncsNames:[" + Repeated("'f',", size) +
              "]}},ArrayValueFields:{f:{sType:'s',sDefault:'" + std::string(100, 'x') + "'}}}";
     },
     CountFields, One},
    {"JSON5, bytes that can't be decoded, at the end", "d.json",
     [](std::size_t size) { return "'" + Repeated("x", size) + "'\xFF"; }, CountProperties,
     Nothing},
};

template <std::size_t size>
void Append(std::vector<Case>& cases, const Case (&more)[size]) {
  cases.insert(cases.end(), more, more + size);
}

}  // namespace

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = [] {
    std::vector<Case> all;
    Append(all, schemes);
    Append(all, lookups);
    Append(all, compositions);
    Append(all, domens);
    Append(all, jsonFiles);
    return all;
  }();
  return cases;
}

Editor LoadedEditor(const std::wstring& file) {
  Editor editor(L"", L"");
  editor.CreateClassificator(L"S", L"Scheme", L"P", file.c_str());
  editor.SetActiveClassificator(L"S");
  return editor;
}

}  // namespace Hostile
