// Cases for the sections of a classificator file except ==MAPTEXT.

#include <string_view>

#include "hostile/Case.h"
#include "support/OutOfRange.h"

namespace {

constexpr const char* sorted = "key texts are listed in order";

// No answer of the library depends on ==CLASS.
HostileCase Class(const char* input, std::size_t size,
                  std::function<std::string(std::size_t)> body) {
  return {"==CLASS",
          input,
          size,
          "scheme.txt",
          [body](std::size_t count) { return "==CLASS\n" + body(count); },
          AskNothing};
}

HostileCase Colorat(const char* input, std::size_t size,
                    std::function<std::string(std::size_t)> body,
                    std::function<void(Subject&)> ask) {
  return {"==COLORAT",
          input,
          size,
          "scheme.txt",
          [body](std::size_t count) { return "==COLORAT\n" + body(count); },
          std::move(ask)};
}

// All key texts are different, so that the table has all of them.
HostileCase ColoratOfMany(const char* input,
                          std::function<std::size_t(std::size_t, std::size_t)> order) {
  return {"==COLORAT",
          input,
          1'000'000,
          "scheme.txt",
          [order](std::size_t size) {
            return "==COLORAT\n@c C\n" + Join(size, [&](std::size_t i) {
                     return LongName(order(i, size)) + " 1 2 3 4\n";
                   });
          },
          [](Subject& subject) {
            Require(KeyTextCount(subject) == static_cast<int>(subject.size), "the key texts");
          },
          sorted,
          2.7};
}

HostileCase Param(const char* input, std::size_t size,
                  std::function<std::string(std::size_t)> body) {
  // The default code is searched for in the records.
  return {"==PARAM",
          input,
          size,
          "scheme.txt",
          [body](std::size_t count) { return "==MAPTEXT\n$ Z\n==PARAM\n" + body(count); },
          [](Subject& subject) { Require(Mapping(subject, L"x", 2) == L"Code Z;", "no items"); }};
}

int NumberOf(Subject& subject, const std::wstring& key) {
  return subject.editor.GetColorNum(key.c_str());
}

}  // namespace

HostileCases ClassCases() {
  return {
      Class("bytes on one line", 100'000'000,
            [](std::size_t size) { return "@@@ " + Times(size, "x"); }),
      Class("semicolons", 10'000'000,
            [](std::size_t size) { return Times(size, ";") + "@@@ T (A B)"; }),
      Class("blanks between two words", 10'000'000,
            [](std::size_t size) { return "@@@ T (A" + Times(size, " ") + "B)"; }),
      Class("opening brackets", 10'000'000,
            [](std::size_t size) { return "@@@ T " + Times(size, "("); }),
      Class("lines of one entry that open a bracket", 1'000'000,
            [](std::size_t size) { return Times(size, ";") + "@@@ T" + Times(size, "\n("); }),
      Class("lines of one entry that close a bracket", 1'000'000,
            [](std::size_t size) { return Times(size, ";") + "@@@ T" + Times(size, "\n)("); }),
      Class("titles", 1'000'000, [](std::size_t size) { return Times(size, "@@@ T (A B)\n"); }),
  };
}

HostileCases ColoratCases() {
  const auto one = [](Subject& subject) { Require(KeyTextCount(subject) == 1, "one key text"); };
  const auto last = [](Subject& subject) {
    Require(NumberOf(subject, L"last") == static_cast<int>(subject.size) + 1, "each line counts");
  };
  const auto color = [](Subject& subject) { Require(NumberOf(subject, L"k") == 1, "the number"); };
  return {
      Colorat(
          "bytes on one line", 100'000'000,
          [](std::size_t size) { return "@c C\n" + Times(size, "k") + " 1 2 3 4\n"; }, one),
      Colorat(
          "at-signs", 10'000'000,
          [](std::size_t size) { return Times(size, "@") + "c C\nk 1 2 3 4\n"; }, one),
      Colorat(
          "semicolons", 10'000'000,
          [](std::size_t size) { return "c C" + Times(size, ";") + "k 1 2 3 4"; }, one),
      Colorat(
          "blanks in a line", 40'000'000,
          [](std::size_t size) { return "c C\nk" + Times(size, " ") + "1 2 3 4\n"; }, one),
      Colorat(
          "words in a line", 10'000'000,
          [](std::size_t size) { return "c C\nk 1 2 3 4\nx" + Times(size, " 1") + "\n"; }, one),
      Colorat(
          "digits of a value", 10'000'000,
          [](std::size_t size) { return "c C\nk " + Times(size, "9") + " 2 3 4\n"; }, color),
      Colorat(
          "blocks of one id", 1'000'000,
          [](std::size_t size) { return Times(size, "@c C\nk 1 2 3 4\n"); }, one),
      Colorat(
          "lines of one key text", 4'000'000,
          [](std::size_t size) { return "c C\n" + Times(size, "k 1 2 3 4\n") + "last 1 2 3 4\n"; },
          last),
      ColoratOfMany("key texts that begin alike", [](std::size_t i, std::size_t) { return i; }),
      ColoratOfMany("key texts that begin alike, out of order", Shuffled),
  };
}

HostileCases ParamCases() {
  return {
      Param("bytes on one line", 100'000'000, [](std::size_t size) { return Times(size, "x"); }),
      Param("semicolons", 10'000'000, [](std::size_t size) { return Times(size, ";") + "A P=1"; }),
      Param("blanks in a statement", 10'000'000,
            [](std::size_t size) { return "A" + Times(size, " ") + "P=1"; }),
      Param("opening braces", 10'000'000, [](std::size_t size) { return Times(size, "{") + "A"; }),
      Param("statements of one code", 4'000'000,
            [](std::size_t size) { return Times(size, "A P=1\n"); }),
      Param("codes that begin alike", 1'000'000,
            [](std::size_t size) {
              return Join(size, [](std::size_t i) { return LongName(i) + " P=1\n"; });
            }),
  };
}
