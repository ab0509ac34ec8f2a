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

// The letters of escapes, and the characters that they stand for.
constexpr std::string_view escapeLetters = "bfnrtv";
constexpr std::string_view escapedCodes = "\b\f\n\r\t\v";

// The ASCII bytes that are plain in all strings, whatever the quotation mark.
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

// Reads a string after its opening quotation mark, up to and including the closing one.
class StringReader {
 public:
  StringReader(Json5Cursor& cursor, char quotationMark)
      : cursor_(cursor), quotationMark_(quotationMark) {}

  std::string_view Read(std::deque<std::string>& decoded) {
    const std::size_t start = cursor_.Position();
    SkipPlain();
    if (cursor_.Peek() == quotationMark_) {
      const std::string_view plain = cursor_.Since(start);
      cursor_.Skip();
      return plain;
    }
    text_ = cursor_.Since(start);
    while (!cursor_.SkipIf(quotationMark_)) {
      ReadEscape();
      const std::size_t plainStart = cursor_.Position();
      SkipPlain();
      const std::string_view plain = cursor_.Since(plainStart);
      if (!plain.empty()) escapedHigh_ = 0;
      text_ += plain;
    }
    return decoded.emplace_back(std::move(text_));
  }

 private:
  // Stops at the closing mark or the next backslash.
  void SkipPlain() {
    while (true) {
      cursor_.SkipWhile(IsPlain);
      const char byte = cursor_.Peek();
      if (cursor_.AtEnd() || byte == '\n' || byte == '\r') {
        cursor_.Fail("a string that is not closed on its line");
      }
      if (byte == quotationMark_ || byte == '\\') return;
      cursor_.TakeCode();
    }
  }

  void ReadEscape() {
    cursor_.Skip();
    if (cursor_.AtEnd()) cursor_.Fail("");
    if (cursor_.SkipIf('x')) return Append(ReadHexDigits(cursor_, 2));
    if (cursor_.SkipIf('u')) return Append(ReadHexDigits(cursor_, 4));
    if (IsDigit(cursor_.Peek())) return ReadNul();
    // An escaped line end isn't part of the string, nor does it separate a surrogate pair.
    if (cursor_.SkipIf("\r\n")) return;
    const std::uint32_t code = cursor_.TakeCode();
    if (IsLineTerminator(code)) return;
    const std::size_t letter =
        code < 0x80 ? escapeLetters.find(static_cast<char>(code)) : escapeLetters.npos;
    Append(letter == escapeLetters.npos ? code : static_cast<unsigned char>(escapedCodes[letter]));
  }

  void ReadNul() {
    if (cursor_.Peek() != '0' || IsDigit(cursor_.Peek(1))) cursor_.Fail("an escape of a digit");
    cursor_.Skip();
    Append(0);
  }

  // Appends a code point or a surrogate. The second of a pair is combined with the first.
  void Append(std::uint32_t code) {
    if (escapedHigh_ != 0 && IsLowSurrogate(code)) {
      constexpr std::size_t highSize = 3;
      text_.resize(text_.size() - highSize);
      code = ((escapedHigh_ - 0xD7C0) << 10) + (code - 0xDC00);
    }
    AppendJson5Code(text_, code);
    escapedHigh_ = IsHighSurrogate(code) ? code : 0;
  }

  Json5Cursor& cursor_;
  char quotationMark_;
  std::string text_;
  std::uint32_t escapedHigh_ = 0;  // the high surrogate that an escape has just appended, or 0
};

// Skips the unescaped characters of an identifier. `first` tells that its first character is next.
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
