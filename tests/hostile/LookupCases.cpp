// Descriptions that are looked up among a few patterns.

#include "hostile/Case.h"

namespace {

// All numbers of eight bits, each word being "a" or "aa", so that a text of longer words fits all
// their beginnings.
std::string CrowdedPatterns() {
  return Join(256, [](std::size_t number) {
    std::string words;
    for (int bit = 0; bit < 8; ++bit) words += (number >> bit & 1) != 0 ? "aa " : "a ";
    return words + "end\n";
  });
}

HostileCase Lookup(const char* input, std::function<std::wstring(std::size_t)> text, int codeId) {
  return {"lookup",
          input,
          10'000'000,
          "scheme.txt",
          [](std::size_t) { return "==MAPTEXT\n" + CrowdedPatterns() + "wall\nb b b\n"; },
          [text, codeId](Subject& subject) {
            Require(CodeId(subject, text(subject.size)) == codeId, "the code id");
          }};
}

std::wstring WideTimes(std::size_t count, const wchar_t* piece) {
  std::wstring text;
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

}  // namespace

HostileCases LookupCases() {
  return {
      Lookup(
          "letters of a text's first word",
          [](std::size_t size) { return L"wall" + WideTimes(size, L"s"); }, 0),
      Lookup(
          "letters of a word that no pattern has",
          [](std::size_t size) { return WideTimes(size, L"s"); }, -1),
      Lookup(
          "blanks of a text", [](std::size_t size) { return WideTimes(size, L" "); }, -1),
      Lookup(
          "words of a text", [](std::size_t size) { return WideTimes(size / 2, L"b "); }, 1),
      Lookup(
          "words of a text that all patterns begin",
          [](std::size_t size) { return WideTimes(size / 4, L"aaa "); }, -1),
      {"lookup", "words of a pattern and of a text", 10'000'000, "scheme.txt",
       [](std::size_t size) { return "==MAPTEXT\n" + Times(size / 2, "b ") + "end"; },
       [](Subject& subject) {
         const std::wstring text = WideTimes(subject.size / 2, L"b ");
         Require(CodeId(subject, text + L"ends") == 0, "the pattern");
         Require(CodeId(subject, text + L"none") == -1, "none");
       }},
  };
}
