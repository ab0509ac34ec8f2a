#include "json5/Json5String.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "json5/IdentifierChars.h"
#include "json5/Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

std::uint32_t ReadHexDigits(Json5Cursor& cursor, int count) {
  std::uint32_t code = 0;
  for (int i = 0; i < count; ++i, cursor.Skip()) {
    const int digit = HexValue(cursor.Peek());
    if (digit < 0) cursor.Fail("an escape that lacks a hexadecimal digit");
    code = code * 16 + static_cast<std::uint32_t>(digit);
  }
  return code;
}

bool IsHighSurrogate(std::uint32_t code) {
  return code >= 0xD800 && code <= 0xDBFF;
}

bool IsLowSurrogate(std::uint32_t code) {
  return code >= 0xDC00 && code <= 0xDFFF;
}

// The characters that stand for another one behind a backslash, and these others.
constexpr std::string_view escapeLetters = "bfnrtv";
constexpr std::string_view escapedCodes = "\b\f\n\r\t\v";

// The bytes of ASCII that stand for themselves in a string whatever the quotation mark.
constexpr std::array<bool, 256> plainBytes = [] {
  std::array<bool, 256> plain = {};
  std::fill_n(plain.begin(), 0x80, true);
  for (const char byte : std::string_view("\"'\\\n\r")) {
    plain[static_cast<unsigned char>(byte)] = false;
  }
  return plain;
}();

bool IsPlain(char byte) {
  return plainBytes[static_cast<unsigned char>(byte)];
}

// Reads a string from behind its opening quotation mark, and the closing one with it.
class StringReader {
 public:
  StringReader(Json5Cursor& source, char mark) : cursor(source), quotationMark(mark) {}

  // The string, if it has no escapes a view into the text, otherwise one into a new entry of
  // `decoded`.
  std::string_view Read(std::deque<std::string>& decoded) {
    const std::size_t start = cursor.Position();
    SkipPlain();
    if (cursor.Peek() == quotationMark) {
      const std::string_view plain = cursor.Since(start);
      cursor.Skip();
      return plain;
    }
    text = cursor.Since(start);
    while (!cursor.SkipIf(quotationMark)) {
      ReadEscape();
      const std::size_t plainStart = cursor.Position();
      SkipPlain();
      const std::string_view plain = cursor.Since(plainStart);
      if (!plain.empty()) escapedHigh = 0;
      text += plain;
    }
    return decoded.emplace_back(std::move(text));
  }

 private:
  // Up to the closing mark or the next backslash.
  void SkipPlain() {
    while (true) {
      cursor.SkipWhile(IsPlain);
      const char byte = cursor.Peek();
      if (cursor.AtEnd() || byte == '\n' || byte == '\r') {
        cursor.Fail("a string that is not closed on its line");
      }
      if (byte == quotationMark || byte == '\\') return;
      cursor.TakeCode();
    }
  }

  void ReadEscape() {
    cursor.Skip();
    if (cursor.AtEnd()) cursor.Fail("");
    if (cursor.SkipIf('x')) return Append(ReadHexDigits(cursor, 2));
    if (cursor.SkipIf('u')) return Append(ReadHexDigits(cursor, 4));
    if (IsDigit(cursor.Peek())) return ReadNul();
    // A line end behind a backslash is no part of the string, nor does it part a pair.
    if (cursor.SkipIf("\r\n")) return;
    const std::uint32_t code = cursor.TakeCode();
    if (IsLineTerminator(code)) return;
    const std::size_t letter =
        code < 0x80 ? escapeLetters.find(static_cast<char>(code)) : escapeLetters.npos;
    Append(letter == escapeLetters.npos ? code : static_cast<unsigned char>(escapedCodes[letter]));
  }

  void ReadNul() {
    if (cursor.Peek() != '0' || IsDigit(cursor.Peek(1))) cursor.Fail("an escape of a digit");
    cursor.Skip();
    Append(0);
  }

  // Adds a code point, or a surrogate: the second of a pair makes a code point of both.
  void Append(std::uint32_t code) {
    if (escapedHigh != 0 && IsLowSurrogate(code)) {
      constexpr std::size_t highSize = 3;
      text.resize(text.size() - highSize);
      code = ((escapedHigh - 0xD7C0) << 10) + (code - 0xDC00);
    }
    AppendJson5Code(text, code);
    escapedHigh = IsHighSurrogate(code) ? code : 0;
  }

  Json5Cursor& cursor;
  char quotationMark;
  std::string text;
  std::uint32_t escapedHigh = 0;  // a surrogate that an escape has just put at the end, or 0
};

// Up to what is no plain part of an identifier. `first` says that its first character is still to
// come.
void SkipPlainIdentifier(Json5Cursor& cursor, bool first) {
  for (; !cursor.AtEnd(); first = false) {
    std::size_t size = 0;
    const std::uint32_t code = cursor.PeekCode(size);
    if (!(first ? IsIdentifierStart(code) : IsIdentifierPart(code))) return;
    cursor.Skip(size);
  }
}

std::uint32_t ReadIdentifierEscape(Json5Cursor& cursor, bool first) {
  if (!cursor.SkipIf("\\u")) cursor.Fail("a key with an escape other than \\u");
  const std::uint32_t code = ReadHexDigits(cursor, 4);
  if (!(first ? IsIdentifierStart(code) : IsIdentifierPart(code))) {
    cursor.Fail("an escape of what can't stand in a key");
  }
  return code;
}

}  // namespace

std::string_view ReadString(Json5Cursor& cursor, std::deque<std::string>& decoded) {
  const char mark = cursor.Peek();
  cursor.Skip();
  return StringReader(cursor, mark).Read(decoded);
}

std::string_view ReadIdentifier(Json5Cursor& cursor, std::deque<std::string>& decoded) {
  const std::size_t start = cursor.Position();
  SkipPlainIdentifier(cursor, true);
  const std::string_view plain = cursor.Since(start);
  if (cursor.Peek() != '\\') {
    if (plain.empty()) cursor.Fail("a key is expected");
    return plain;
  }
  std::string text(plain);
  while (cursor.Peek() == '\\') {
    AppendJson5Code(text, ReadIdentifierEscape(cursor, text.empty()));
    const std::size_t plainStart = cursor.Position();
    SkipPlainIdentifier(cursor, false);
    text += cursor.Since(plainStart);
  }
  return decoded.emplace_back(std::move(text));
}

}  // namespace TolvenLibs::RevitMappingEditorDll
