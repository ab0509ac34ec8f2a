#include "hostile/Case.h"

namespace {

HostileCase MapText(const char* input, std::size_t size,
                    std::function<std::string(std::size_t)> body,
                    std::function<void(Subject&)> ask) {
  return {"==MAPTEXT",
          input,
          size,
          "scheme.txt",
          [body](std::size_t count) { return "==MAPTEXT\n" + body(count); },
          std::move(ask)};
}

std::wstring Wide(const std::string& text) {
  return {text.begin(), text.end()};
}

// Looks up the first name, the last one and one that doesn't exist.
void AskForNames(Subject& subject) {
  const int last = static_cast<int>(subject.size) - 1;
  Require(CodeId(subject, Wide(LongName(0)) + L" more") == 0, "the first");
  Require(CodeId(subject, Wide(LongName(subject.size - 1)) + L" more") == last, "the last");
  Require(CodeId(subject, Wide(LongName(subject.size)) + L" more") == -1, "none");
}

// Returns a pattern with a word of one or two letters for each bit of a number, the highest first.
// A text that matches the longer word matches the shorter one, and only the last words distinguish
// neighbours.
std::string ByBits(std::size_t number) {
  std::string words;
  for (int bit = 19; bit >= 0; --bit) words += (number >> bit & 1) != 0 ? "aa " : "a ";
  return words + "end\n";
}

void RequireCode(Subject& subject) {
  Require(Mapping(subject, L"walls") == L"Code A;", "the code");
}

}  // namespace

HostileCases MapTextCases() {
  return {
      MapText(
          "bytes on one line", 100'000'000, [](std::size_t size) { return Times(size, "x"); },
          [](Subject& subject) { Require(CodeId(subject, L"x") == -1, "none"); }),
      MapText(
          "blanks in a pattern", 10'000'000,
          [](std::size_t size) { return "a" + Times(size, " ") + "b"; },
          [](Subject& subject) { Require(CodeId(subject, L"a b") == -1, "none"); }),
      MapText(
          "semicolons", 10'000'000, [](std::size_t size) { return Times(size, ";") + "wall"; },
          [](Subject& subject) { Require(CodeId(subject, L"walls") == 0, "the pattern"); }),
      MapText(
          "patterns of one text", 1'000'000, [](std::size_t size) { return Times(size, "wall\n"); },
          [](Subject& subject) { Require(CodeId(subject, L"walls") == 0, "the first"); }),
      MapText(
          "patterns that begin alike in their first word", 1'000'000,
          [](std::size_t size) {
            return Join(size, [](std::size_t i) { return LongName(i) + "\n"; });
          },
          AskForNames),
      MapText(
          "patterns that begin alike in 20 words", 100'000,
          [](std::size_t size) {
            return Join(size, [](std::size_t i) { return Times(20, "word ") + Seven(i) + "\n"; });
          },
          [](Subject& subject) {
            const std::wstring words = Wide(Times(20, "words "));
            const std::size_t last = subject.size - 1;
            Require(CodeId(subject, words + Wide(Seven(last))) == static_cast<int>(last),
                    "the last");
            Require(CodeId(subject, words + L"none") == -1, "none");
          }),
      MapText(
          "patterns that all begin one text", 400'000,
          [](std::size_t size) { return Join(size, ByBits); },
          [](Subject& subject) {
            const std::wstring words = Wide(Times(20, "aaa "));
            Require(CodeId(subject, words + L"end") == 0, "the first");
            Require(CodeId(subject, words + L"none") == -1, "none");
          }),
      MapText(
          "code headers", 1'000'000,
          [](std::size_t size) { return Times(size, "@A {P=1}\n") + "wall"; }, RequireCode),
      MapText(
          "opening braces of a header", 40'000'000,
          [](std::size_t size) { return "@A " + Times(size, "{") + "\nwall"; }, RequireCode),
      MapText(
          "braces of a header that open, and then close", 40'000'000,
          [](std::size_t size) {
            return "@A " + Times(size / 2, "{") + Times(size / 2, "}") + "\nwall";
          },
          RequireCode),
      MapText(
          "empty blocks of a header", 10'000'000,
          [](std::size_t size) { return "@A " + Times(size, "{}") + "\nwall"; }, RequireCode),
      MapText(
          "units of an opening mark that nearly occurs in a header", 4'000'000,
          [](std::size_t size) {
            return "@$ " + Times(size, "[") + "x ]\n@A " + Times(4 * size, "[") + "\nwall";
          },
          [](Subject& subject) { Require(CodeId(subject, L"walls") == 0, "the pattern"); }),
      MapText(
          "units of a closing mark that nearly occurs in a header", 4'000'000,
          [](std::size_t size) {
            return "@$ { " + Times(size, "]") + "x\n@A {P=1" + Times(4 * size, "]") + "\nwall";
          },
          RequireCode),
      MapText(
          "headers that are shorter than an opening mark", 1'000'000,
          [](std::size_t size) {
            return "@$ " + Times(size, "[") + " ]\n" + Times(size, "@A [\n") + "wall";
          },
          RequireCode),
      MapText(
          "domain ids", 1'000'000,
          [](std::size_t size) { return "@@ (" + Times(size, "D ") + ")\n@A {P=1}\nwall"; },
          RequireCode),
      MapText(
          "brackets of a domain list", 40'000'000,
          [](std::size_t size) { return "@@ " + Times(size, "(") + "\n@A {P=1}\nwall"; },
          RequireCode),
  };
}
