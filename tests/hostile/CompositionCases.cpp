// Cases for the composition of mapping strings from the items of a code.

#include "hostile/Case.h"

namespace {

// A case with one header, and a property that its items may fill.
HostileCase Composition(const char* input, std::size_t size,
                        std::function<std::string(std::size_t)> items,
                        std::function<std::wstring(std::size_t)> expected) {
  return {"composition",
          input,
          size,
          "scheme.txt",
          [items](std::size_t count) {
            return "==DOMEN\n@@@ D\n@ P 0 1\na int 0 1\nb str 0 x\nc slist 0 y\n"
                   "==MAPTEXT\n@@ (D)\n@A {" +
                   items(count) + "}\nwall\n";
          },
          [expected](Subject& subject) {
            Require(Mapping(subject, L"walls") == L"Code A;" + expected(subject.size),
                    "the mapping string");
          }};
}

std::wstring WideTimes(std::size_t count, const std::wstring& piece) {
  std::wstring text;
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

// Returns a function with a constant result.
std::function<std::wstring(std::size_t)> Always(const wchar_t* items) {
  return [items](std::size_t) { return std::wstring(items); };
}

// Each field of a property scans all words.
std::string FieldsAndWords(std::size_t size) {
  return "==DOMEN\n@@@ D\n@ P 0 1\n" +
         Join(size, [](std::size_t i) { return "f" + Seven(i) + " int 0 1\n"; }) +
         "==MAPTEXT\n@@ (D)\n@A {P " + Times(size, "g=2 ") + "}\nwall\n";
}

// Each domain is searched for each property, and only the last domain has one.
std::string DomainsAndItems(std::size_t size) {
  return "==DOMEN\n" +
         Join(size, [](std::size_t i) { return "@@@ D" + Seven(i) + "\n@ Z 0 1\n"; }) +
         "@ P 0 1\na int 0 1\n==MAPTEXT\n@@ (" +
         Join(size, [](std::size_t i) { return "D" + Seven(i) + " "; }) + ")\n@A {" +
         Join(size, [](std::size_t i) { return "Q" + Seven(i) + "=1 "; }) + "P=2}\nwall\n";
}

}  // namespace

HostileCases CompositionCases() {
  return {
      Composition(
          "items", 1'000'000, [](std::size_t size) { return Times(size, "P=2 "); },
          [](std::size_t size) { return WideTimes(size, L"P= 2 x y;"); }),
      Composition(
          "items without a property", 1'000'000,
          [](std::size_t size) { return Times(size, "Q=2 "); }, Always(L"")),
      Composition(
          "items that can't be composed", 1'000'000,
          [](std::size_t size) { return Times(size, "P:z=1,a "); }, Always(L"")),
      Composition(
          "blocks of one item", 1'000'000, [](std::size_t size) { return Times(size, "P=2}{"); },
          [](std::size_t size) { return WideTimes(size, L"P= 2 x y;"); }),
      Composition(
          "field words by position", 1'000'000,
          [](std::size_t size) { return "P" + Times(size, " 2"); }, Always(L"P= 2 2 2;")),
      Composition(
          "field words of one name", 1'000'000,
          [](std::size_t size) { return "P" + Times(size, " a=2"); }, Always(L"P= 2 x y;")),
      Composition(
          "field words that gather in a list", 1'000'000,
          [](std::size_t size) { return "P" + Times(size, " cc=2"); },
          [](std::size_t size) { return L"P= 1 x" + WideTimes(size, L" 2") + L";"; }),
      Composition(
          "commas of a value", 10'000'000,
          [](std::size_t size) { return "P=2" + Times(size, ",") + "z"; }, Always(L"P= 2 z y;")),
      Composition(
          "equals signs of a token", 10'000'000,
          [](std::size_t size) { return "P" + Times(size, "="); }, Always(L"P= 1 x y;")),
      Composition(
          "colons of a token", 10'000'000,
          [](std::size_t size) { return "P" + Times(size, ":") + "="; }, Always(L"P= 1 x y;")),
      // Enough comments that the section is not split at its semicolons.
      {"composition", "semicolons of a token", 10'000'000, "scheme.txt",
       [](std::size_t size) {
         return "==DOMEN\n@@@ D\n@ P 0 1\na int 0 1\n==MAPTEXT\n@@ (D)\n" + Times(size + 2, "!\n") +
                "@A {P 2" + Times(size, ";") + "}\nwall\n";
       },
       [](Subject& subject) {
         Require(Mapping(subject, L"walls") == L"Code A;P= 2;", "the mapping string");
       }},
      {"composition", "fields of a property, and words of an item", 10'000, "scheme.txt",
       FieldsAndWords,
       [](Subject& subject) {
         const std::wstring ones = WideTimes(subject.size, L" 1");
         Require(Mapping(subject, L"walls") == L"Code A;P=" + ones + L";", "the mapping string");
       },
       "each field goes through all words of its item", 4.4},
      {"composition", "domains, and items of a code", 5'000, "scheme.txt", DomainsAndItems,
       [](Subject& subject) {
         Require(Mapping(subject, L"walls") == L"Code A;P= 2;", "the mapping string");
       },
       "each domain of the list is asked for each property", 4.4},
  };
}
