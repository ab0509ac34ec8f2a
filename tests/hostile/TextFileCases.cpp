// Cases for the structure of a text file: bytes, lines and sections.

#include "hostile/Case.h"

namespace {

constexpr const char* reader = "text file";

// A case with many small sections of one kind.
HostileCase Sections(const char* input, const std::string& section,
                     std::function<void(Subject&)> ask) {
  return {reader,
          input,
          1'000'000,
          "scheme.txt",
          [section](std::size_t size) { return Times(size, section); },
          std::move(ask)};
}

}  // namespace

HostileCases TextFileCases() {
  return {
      {reader, "bytes on one line", 100'000'000, "scheme.txt",
       [](std::size_t size) { return Times(size, "x"); }, AskNothing},
      {reader, "blanks before a word", 100'000'000, "scheme.txt",
       [](std::size_t size) { return Times(size, " ") + "x"; }, AskNothing},
      {reader, "line feeds", 10'000'000, "scheme.txt",
       [](std::size_t size) { return Times(size, "\n") + "==MAPTEXT"; },
       [](Subject& subject) { Require(Mapping(subject, L"x") == L"Code N00;", "the section"); }},
      {reader, "characters of four bytes", 10'000'000, "scheme.txt",
       [](std::size_t size) { return Times(size, "\xF0\x9F\x98\x80"); }, AskNothing},
      {reader, "bytes that can't be decoded", 100'000'000, "scheme.txt",
       [](std::size_t size) { return "==MAPTEXT\n$ Z\n" + Times(size, "\xFF"); },
       [](Subject& subject) { Require(Mapping(subject, L"x") == L"Code Z;", "the section"); }},
      Sections("sections of no known kind", "==X\nx\n", AskNothing),
      Sections("headings without a body", "==CLASS\n==MAPTEXT\n==COLORAT\n==PARAM\n==DOMEN\n",
               AskNothing),
      Sections("==CLASS sections", "==CLASS\n@@@ T (A B)\n", AskNothing),
      Sections("==COLORAT sections", "==COLORAT\n@c C\nk 1 2 3 4\n",
               [](Subject& subject) { Require(KeyTextCount(subject) == 1, "the key text"); }),
      Sections("==PARAM sections", "==PARAM\nA P=1\n", AskNothing),
      Sections("==MAPTEXT sections", "==MAPTEXT\n@A\nwall\n",
               [](Subject& subject) { Require(CodeId(subject, L"walls") == 0, "the pattern"); }),
      Sections("==DOMEN sections", "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 1\n",
               [](Subject& subject) { Require(FieldCount(subject, L"D", L"P") == 1, "F"); }),
  };
}
