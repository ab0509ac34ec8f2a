#include "base/Utf8.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

constexpr bool wideIs16Bits = sizeof(wchar_t) == 2;

// The table of well-formed byte sequences of the Unicode standard: a range for each byte.
struct Form {
  std::size_t length;
  std::array<std::array<unsigned, 2>, 4> bytes;
};

constexpr Form wellFormed[] = {
    {1, {{{0x00, 0x7F}}}},
    {2, {{{0xC2, 0xDF}, {0x80, 0xBF}}}},
    {3, {{{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}}}},
    {3, {{{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}}}},
    {3, {{{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}}}},
    {3, {{{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}}}},
    {4, {{{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}}},
    {4, {{{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}}},
    {4, {{{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}}}},
};

unsigned ByteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

bool HasForm(std::string_view bytes, const Form& form) {
  if (bytes.size() < form.length) return false;
  for (std::size_t i = 0; i < form.length; ++i) {
    const unsigned byte = ByteAt(bytes, i);
    if (byte < form.bytes[i][0] || byte > form.bytes[i][1]) return false;
  }
  return true;
}

// Returns the code point of a sequence: the bits after the marker of each byte.
std::uint32_t CodePoint(std::string_view bytes, std::size_t length) {
  constexpr unsigned leadMasks[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  std::uint32_t code = ByteAt(bytes, 0) & leadMasks[length];
  for (std::size_t i = 1; i < length; ++i) code = code * 64 + ByteAt(bytes, i) % 64;
  return code;
}

std::wstring WideOf(std::uint32_t code) {
  if (!wideIs16Bits || code < 0x10000) return std::wstring(1, static_cast<wchar_t>(code));
  const std::uint32_t offset = code - 0x10000;
  return {static_cast<wchar_t>(0xD800 + offset / 0x400),
          static_cast<wchar_t>(0xDC00 + offset % 0x400)};
}

// Decodes the bytes by the table.
std::wstring DecodeByTable(std::string_view bytes) {
  std::wstring text;
  while (true) {
    const Form* found = nullptr;
    for (const Form& form : wellFormed) {
      if (HasForm(bytes, form)) found = &form;
    }
    if (!found) return text;
    text += WideOf(CodePoint(bytes, found->length));
    bytes.remove_prefix(found->length);
  }
}

std::string Bytes(std::initializer_list<unsigned> values) {
  std::string bytes;
  for (const unsigned value : values) bytes.push_back(static_cast<char>(value));
  return bytes;
}

TEST(Utf8, EveryCodePointRoundTrips) {
  std::wstring all;
  std::string bytes;
  for (std::uint32_t code = 0; code <= 0x10FFFF; ++code) {
    if (code == 0xD800) code = 0xE000;
    const std::wstring text = WideOf(code);
    const std::optional<std::string> encoded = EncodeUtf8(text);
    ASSERT_TRUE(encoded.has_value()) << code;
    ASSERT_EQ(CodePoint(*encoded, encoded->size()), code);
    ASSERT_TRUE(DecodeUtf8(*encoded) == text) << code;
    all += text;
    bytes += *encoded;
  }
  EXPECT_TRUE(DecodeUtf8(bytes) == all);
  EXPECT_TRUE(EncodeUtf8(all) == bytes);
}

TEST(DecodeUtf8, DecodesKnownBytes) {
  struct Case {
    std::string bytes;
    std::wstring text;
  };
  const Case cases[] = {
      {"", L""},
      {"==CLASS\r\n\t\x7F", L"==CLASS\r\n\t\x7F"},
      {"a\0b"s, L"a\0b"s},
      {"\xC2\x80\xDF\xBF", L"\x0080\x07FF"},
      {"\xD0\xA1\xD1\x82\xD0\xB5\xD0\xBD\xD0\xB0", L"Стена"},
      {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", L"\x0800\xD7FF\xE000\xFFFF"},
      {"\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0001F600\U0010FFFF"},
  };
  for (const Case& one : cases) EXPECT_EQ(DecodeUtf8(one.bytes), one.text);
}

TEST(DecodeUtf8, KeepsAByteOrderMarkLikeAnyCharacter) {
  EXPECT_EQ(DecodeUtf8("\xEF\xBB\xBF==\xEF\xBB\xBF"), L"\xFEFF==\xFEFF");
}

TEST(DecodeUtf8, TakesPairsOfBytesAsTheTableOfWellFormedSequences) {
  for (unsigned first = 0; first < 256; ++first) {
    for (unsigned second = 0; second < 256; ++second) {
      const std::string bytes = Bytes({first, second});
      ASSERT_TRUE(DecodeUtf8(bytes) == DecodeByTable(bytes)) << first << ' ' << second;
    }
  }
}

// Bytes on both sides of each bound of a range, and one inside each range.
constexpr unsigned notable[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xAA, 0xBF,
                                0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xED, 0xF0, 0xF4, 0xFF};

TEST(DecodeUtf8, TakesThreeBytesAsTheTableOfWellFormedSequences) {
  for (unsigned first = 0xC0; first < 256; ++first) {
    for (unsigned second = 0; second < 256; ++second) {
      for (const unsigned third : notable) {
        const std::string bytes = Bytes({first, second, third});
        ASSERT_TRUE(DecodeUtf8(bytes) == DecodeByTable(bytes))
            << first << ' ' << second << ' ' << third;
      }
    }
  }
}

TEST(DecodeUtf8, TakesFourBytesAsTheTableOfWellFormedSequences) {
  for (unsigned first = 0xE0; first < 256; ++first) {
    for (const unsigned second : notable) {
      for (const unsigned third : notable) {
        for (const unsigned fourth : notable) {
          const std::string bytes = Bytes({first, second, third, fourth});
          ASSERT_TRUE(DecodeUtf8(bytes) == DecodeByTable(bytes))
              << first << ' ' << second << ' ' << third << ' ' << fourth;
        }
      }
    }
  }
}

TEST(DecodeUtf8, EndsAtTheFirstByteThatCannotBeDecoded) {
  const char* const bad[] = {
      "\x80",                      // a continuation with nothing to continue
      "\xC0\x80",                  // NUL in two bytes
      "\xC1\xBF",                  // U+007F in two bytes
      "\xE0\x9F\xBF",              // U+07FF in three bytes
      "\xF0\x8F\xBF\xBF",          // U+FFFF in four bytes
      "\xED\xA0\x80",              // a high surrogate
      "\xED\xBF\xBF",              // a low surrogate
      "\xED\xA0\xBD\xED\xB8\x80",  // a pair of them
      "\xF4\x90\x80\x80",          // above U+10FFFF
      "\xF8\x88\x80\x80\x80",      // five bytes
      "\xFE",
      "\xFF",
      "\xD1",          // the first half of a letter, followed by a letter
      "\xD1\xD1\x82",  // the same, followed by a Cyrillic letter
  };
  for (const char* bytes : bad) {
    EXPECT_EQ(DecodeUtf8(std::string("Ст\n") + bytes + "abc"), L"Ст\n") << bytes;
  }
}

// In memory there are more bytes after the view, which must not be read.
TEST(DecodeUtf8, DropsASequenceThatTheEndCutsShort) {
  for (const std::string_view whole : {"ab\xD1\x82", "ab\xE2\x82\xAC", "ab\xF0\x9F\x98\x80"}) {
    for (std::size_t length = 2; length < whole.size(); ++length) {
      EXPECT_EQ(DecodeUtf8(whole.substr(0, length)), L"ab") << length;
    }
  }
}

TEST(DecodeUtf8, ReturnsAllWholeCharactersOfATextCutAnywhere) {
  const std::string_view bytes = "aСт€\U0001F600б\xEF\xBB\xBF.";
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    const std::string_view cut = bytes.substr(0, length);
    EXPECT_EQ(DecodeUtf8(cut), DecodeByTable(cut)) << length;
  }
}

TEST(DecodeUtf8, DecodesFiveMegabytesToTheEnd) {
  std::string bytes;
  std::wstring text;
  while (bytes.size() < 5'000'000) {
    bytes += "Стена 200";
    text += L"Стена 200";
  }
  EXPECT_TRUE(DecodeUtf8(bytes) == text);
}

TEST(EncodeUtf8, ReturnsTheShortestForm) {
  struct Case {
    std::wstring text;
    std::string bytes;
  };
  const Case cases[] = {
      {L"", ""},
      {L"a\0b"s, "a\0b"s},
      {L"\x7F\x0080\x07FF\x0800", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80"},
      {L"\xD7FF\xE000\xFFFF", "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
      {L"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
      {L"C:/Схемы/\U0001F600.txt",
       "C:/\xD0\xA1\xD1\x85\xD0\xB5\xD0\xBC\xD1\x8B/\xF0\x9F\x98\x80.txt"},
  };
  for (const Case& one : cases) EXPECT_EQ(EncodeUtf8(one.text), one.bytes);
}

TEST(EncodeUtf8, RefusesATextWithASurrogateThatHasNoPartner) {
  const std::wstring high(1, wchar_t{0xD83D});
  const std::wstring low(1, wchar_t{0xDE00});
  for (const std::wstring& text : {high, low, low + high, high + high, high + L"a", L"a" + low,
                                   L"ab" + high, high + L"\xE000", high + L"\xD7FF"}) {
    EXPECT_EQ(EncodeUtf8(text), std::nullopt);
  }
}

TEST(EncodeUtf8, TakesAPairOfSurrogatesOnlyWhereAUnitHas16Bits) {
  const std::wstring pair = {wchar_t{0xD83D}, wchar_t{0xDE00}};
  EXPECT_EQ(EncodeUtf8(pair),
            wideIs16Bits ? std::optional<std::string>("\xF0\x9F\x98\x80") : std::nullopt);
}

TEST(EncodeUtf8, RefusesAUnitAboveTheLastCodePoint) {
  if (wideIs16Bits) GTEST_SKIP() << "no unit is that great here";
  for (const std::uint32_t code : {0x110000u, 0x7FFFFFFFu, 0x80000041u, 0xFFFFFFFFu}) {
    EXPECT_EQ(EncodeUtf8(L"a" + std::wstring(1, static_cast<wchar_t>(code))), std::nullopt) << code;
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
