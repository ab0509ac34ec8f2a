// Cases for the lookup of descriptions among a few patterns.

#include "hostile/Case.h"

namespace {

// Returns patterns for all numbers of eight bits, with the words "a" and "aa" as digits, so that a
// text of longer words matches all their prefixes.
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

// Returns patterns each of which is a prefix of the next, and one as long as all of them together.
std::string NestedPatterns(std::size_t size) {
  std::string patterns = "==MAPTEXT\n" + Times(size / 2, "a") + "\n";
  for (std::size_t length = 1, left = size / 2; length <= left; left -= length++) {
    patterns += Times(length, "a") + "\n";
  }
  return patterns;
}

// Returns patterns of one letter each: code points beyond 16 bits, in UTF-8.
std::string PatternsOfALetter(std::size_t count) {
  return "==MAPTEXT\n" + Join(count, [](std::size_t number) {
           const std::size_t code = 0x10000 + number;
           std::string line;
           line += static_cast<char>(0xF0 | code >> 18);
           for (const int shift : {12, 6, 0})
             line += static_cast<char>(0x80 | (code >> shift & 0x3F));
           return line + "\n";
         });
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
      {"lookup", "letters of patterns that begin each other", 10'000'000, "scheme.txt",
       NestedPatterns,
       [](Subject& subject) {
         Require(CodeId(subject, L"aa") == 1, "the second line");
         Require(CodeId(subject, L"b") == -1, "none");
       }},
      {"lookup", "patterns of a letter each", 1'000'000, "scheme.txt", PatternsOfALetter,
       [](Subject& subject) {
         Require(CodeId(subject, std::wstring(1, L'\U00010001')) == 1, "the second pattern");
         Require(CodeId(subject, L"b") == -1, "none");
       }},
      {"lookup", "words of a pattern and of a text", 10'000'000, "scheme.txt",
       [](std::size_t size) { return "==MAPTEXT\n" + Times(size / 2, "b ") + "end"; },
       [](Subject& subject) {
         const std::wstring text = WideTimes(subject.size / 2, L"b ");
         Require(CodeId(subject, text + L"ends") == 0, "the pattern");
         Require(CodeId(subject, text + L"none") == -1, "none");
       }},
  };
}
