#include "Json5.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <system_error>
#include <utility>

#include "IdentifierChars.h"
#include "Json5Text.h"
#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Kind = Json5Value::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();

// Where a text turned out to be malformed. Goes no further than `ParseJson5`.
struct Malformed {
  std::size_t position;
  const char* message;
};

bool IsLineTerminator(std::uint32_t code) {
  return code == '\n' || code == '\r' || code == 0x2028 || code == 0x2029;
}

bool IsAsciiSpace(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool IsSpaceOutsideAscii(std::uint32_t code) {
  return code == 0xA0 || code == 0x1680 || (code >= 0x2000 && code <= 0x200A) || code == 0x2028 ||
         code == 0x2029 || code == 0x202F || code == 0x205F || code == 0x3000 || code == 0xFEFF;
}

bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// The value of a hexadecimal digit, or -1.
int HexValue(char byte) {
  if (IsDigit(byte)) return byte - '0';
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  return -1;
}

// The text, with the place up to which it has been read.
class Cursor {
 public:
  explicit Cursor(std::string_view whole)
      : start(whole.data()), at(start), end(start + whole.size()) {}

  bool AtEnd() const { return at == end; }
  std::size_t Position() const { return static_cast<std::size_t>(at - start); }

  // The byte `ahead` of the place, or NUL behind the end. A NUL in the text fits no rule that looks
  // at single bytes, so the two need not be told apart.
  char Peek(std::size_t ahead = 0) const {
    return static_cast<std::size_t>(end - at) > ahead ? at[ahead] : '\0';
  }

  // All that follows.
  std::string_view Rest() const { return {at, static_cast<std::size_t>(end - at)}; }

  void Skip(std::size_t count = 1) { at += count; }

  template <class Fits>
  void SkipWhile(Fits fits) {
    while (at != end && fits(*at)) ++at;
  }

  bool SkipIf(char byte) {
    if (at == end || *at != byte) return false;
    ++at;
    return true;
  }

  bool SkipIf(std::string_view word) {
    if (!Rest().starts_with(word)) return false;
    at += word.size();
    return true;
  }

  // The text from `position` to the place.
  std::string_view Since(std::size_t position) const {
    return {start + position, static_cast<std::size_t>(at - start) - position};
  }

  // The code point at the place, where there is one, and how many bytes it has.
  std::uint32_t PeekCode(std::size_t& size) const {
    size = 1;
    if (IsAscii(*at)) return static_cast<unsigned char>(*at);
    std::string_view rest = Rest();
    const std::uint32_t code = TakeCodePoint(rest);
    if (code == noCodePoint) Fail("bytes that are no UTF-8");
    size = static_cast<std::size_t>(rest.data() - at);
    return code;
  }

  std::uint32_t TakeCode() {
    std::size_t size = 0;
    const std::uint32_t code = PeekCode(size);
    at += size;
    return code;
  }

  // Where nothing fits: "unexpected end" there, the message anywhere else.
  [[noreturn]] void Fail(const char* message) const {
    throw Malformed{Position(), AtEnd() ? "the text ends too early" : message};
  }

 private:
  const char* start;
  const char* at;
  const char* end;
};

// Eight bytes at once, each of them one of these two in turn.
constexpr std::uint64_t Alternating(unsigned char first, unsigned char second) {
  using Bytes = std::array<unsigned char, 8>;
  return std::bit_cast<std::uint64_t>(
      Bytes{first, second, first, second, first, second, first, second});
}

// How far a comment goes that has letters of two bytes, most of them side by side, as far as that
// can be told from eight bytes at once. Of the bytes that begin such letters only the upper half
// counts, in which those of Cyrillic are.
std::size_t FourLettersLength(std::string_view text) {
  std::size_t length = 0;
  std::uint64_t eight = 0;
  for (; text.size() - length >= sizeof eight; length += sizeof eight) {
    std::memcpy(&eight, text.data() + length, sizeof eight);
    if ((eight & Alternating(0xF0, 0xC0)) != Alternating(0xD0, 0x80)) break;
  }
  return length;
}

void SkipLineComment(Cursor& cursor) {
  while (!cursor.AtEnd()) {
    cursor.SkipWhile([](char byte) { return IsAscii(byte) && byte != '\n' && byte != '\r'; });
    if (cursor.AtEnd() || IsAscii(cursor.Peek())) return;
    cursor.Skip(FourLettersLength(cursor.Rest()));
    if (cursor.AtEnd() || IsAscii(cursor.Peek())) continue;
    std::size_t size = 0;
    if (IsLineTerminator(cursor.PeekCode(size))) return;
    cursor.Skip(size);
  }
}

void SkipComment(Cursor& cursor) {
  if (cursor.SkipIf("//")) return SkipLineComment(cursor);
  if (!cursor.SkipIf("/*")) cursor.Fail("a stroke that begins no comment");
  while (!cursor.SkipIf("*/")) {
    if (cursor.AtEnd()) cursor.Fail("");
    cursor.TakeCode();
  }
}

void SkipSomeSpace(Cursor& cursor) {
  while (true) {
    cursor.SkipWhile(IsAsciiSpace);
    if (cursor.AtEnd()) return;
    if (cursor.Peek() == '/') {
      SkipComment(cursor);
      continue;
    }
    if (IsAscii(cursor.Peek())) return;
    std::size_t size = 0;
    if (!IsSpaceOutsideAscii(cursor.PeekCode(size))) return;
    cursor.Skip(size);
  }
}

void SkipSpace(Cursor& cursor) {
  // In files without blanks there is none.
  const char byte = cursor.Peek();
  if (!IsAscii(byte) || byte <= ' ' || byte == '/') SkipSomeSpace(cursor);
}

// Numbers

// The exponent of a decimal number, or one far out of range in its place.
double ExponentOf(std::string_view chars) {
  const std::size_t mark = chars.find_first_of("eE");
  if (mark == chars.npos) return 0;
  std::string_view digits = chars.substr(mark + 1);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  long long exponent = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  if (result.ec == std::errc()) return static_cast<double>(exponent);
  return digits.starts_with('-') ? -1e18 : 1e18;
}

// The nearest double of a decimal number that `from_chars` found too great or too small.
double BeyondRange(std::string_view chars) {
  const std::string_view mantissa = chars.substr(0, chars.find_first_of("eE"));
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t firstDigit = mantissa.find_first_of("123456789");
  const double magnitude =
      static_cast<double>(point) - static_cast<double>(firstDigit) + ExponentOf(chars);
  return magnitude > 0 ? infinity : 0;
}

// Gives false for a number out of the range of a double.
bool ToDouble(std::string_view chars, std::chars_format format, double& number) {
  const auto result = std::from_chars(chars.data(), chars.data() + chars.size(), number, format);
  return result.ec != std::errc::result_out_of_range;
}

void SkipDigits(Cursor& cursor) {
  cursor.SkipWhile(IsDigit);
}

double ReadHexadecimal(Cursor& cursor) {
  const std::size_t start = cursor.Position();
  cursor.SkipWhile([](char byte) { return HexValue(byte) >= 0; });
  const std::string_view digits = cursor.Since(start);
  if (digits.empty()) cursor.Fail("a hexadecimal number without digits");
  double number = 0;
  return ToDouble(digits, std::chars_format::hex, number) ? number : infinity;
}

double ReadDecimal(Cursor& cursor) {
  const std::size_t start = cursor.Position();
  if (cursor.SkipIf('0')) {
    if (IsDigit(cursor.Peek())) cursor.Fail("a digit behind a leading 0");
  } else {
    SkipDigits(cursor);
  }
  const bool digitsAhead = cursor.Position() != start;
  if (cursor.SkipIf('.')) {
    if (!digitsAhead && !IsDigit(cursor.Peek())) cursor.Fail("a point without digits");
    SkipDigits(cursor);
  } else if (!digitsAhead) {
    cursor.Fail("a sign without a number");
  }
  if (cursor.SkipIf('e') || cursor.SkipIf('E')) {
    if (cursor.Peek() == '+' || cursor.Peek() == '-') cursor.Skip();
    if (!IsDigit(cursor.Peek())) cursor.Fail("an exponent without digits");
    SkipDigits(cursor);
  }
  const std::string_view chars = cursor.Since(start);
  double number = 0;
  return ToDouble(chars, std::chars_format::general, number) ? number : BeyondRange(chars);
}

double ReadUnsigned(Cursor& cursor) {
  if (cursor.SkipIf("Infinity")) return infinity;
  if (cursor.SkipIf("NaN")) return std::numeric_limits<double>::quiet_NaN();
  if (cursor.SkipIf("0x") || cursor.SkipIf("0X")) return ReadHexadecimal(cursor);
  return ReadDecimal(cursor);
}

double ReadNumber(Cursor& cursor) {
  if (cursor.SkipIf('-')) return -ReadUnsigned(cursor);
  cursor.SkipIf('+');
  return ReadUnsigned(cursor);
}

// Strings and keys

std::uint32_t ReadHexDigits(Cursor& cursor, int count) {
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
  StringReader(Cursor& source, char mark) : cursor(source), quotationMark(mark) {}

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

  Cursor& cursor;
  char quotationMark;
  std::string text;
  std::uint32_t escapedHigh = 0;  // a surrogate that an escape has just put at the end, or 0
};

// Up to what is no plain part of an identifier. `first` says that its first character is still to
// come.
void SkipPlainIdentifier(Cursor& cursor, bool first) {
  for (; !cursor.AtEnd(); first = false) {
    std::size_t size = 0;
    const std::uint32_t code = cursor.PeekCode(size);
    if (!(first ? IsIdentifierStart(code) : IsIdentifierPart(code))) return;
    cursor.Skip(size);
  }
}

std::uint32_t ReadIdentifierEscape(Cursor& cursor, bool first) {
  if (!cursor.SkipIf("\\u")) cursor.Fail("a key with an escape other than \\u");
  const std::uint32_t code = ReadHexDigits(cursor, 4);
  if (!(first ? IsIdentifierStart(code) : IsIdentifierPart(code))) {
    cursor.Fail("an escape of what can't stand in a key");
  }
  return code;
}

// Reads an identifier, which is given like a string.
std::string_view ReadIdentifier(Cursor& cursor, std::deque<std::string>& decoded) {
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

// The document

// The order of two keys. Most differ in one of their first bytes.
bool IsBefore(std::string_view left, std::string_view right) {
  const std::size_t shorter = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (left[i] != right[i]) {
      return static_cast<unsigned char>(left[i]) < static_cast<unsigned char>(right[i]);
    }
  }
  return left.size() < right.size();
}

// An array or object that is being read.
struct OpenValue {
  Kind kind;
  std::string_view key;     // of the member that is being read
  std::size_t firstMember;  // among the pending ones
};

class Json5Parser {
 public:
  Json5Parser(std::string_view text, Json5Tree& target) : cursor(text), tree(target) {}

  void ParseDocument() {
    // Few files have shorter members, and what isn't filled costs nothing.
    constexpr std::size_t bytesOfMember = 16;
    tree.members.reserve(cursor.Rest().size() / bytesOfMember);
    do {
      ReadValue();
    } while (ReadSeparator());
    if (!cursor.AtEnd()) cursor.Fail("something behind the value");
  }

 private:
  // Reads a whole scalar, or what opens an array or object, down to the first scalar or the first
  // empty array or object in it.
  void ReadValue() {
    while (true) {
      SkipSpace(cursor);
      if (cursor.SkipIf('[')) {
        Open(Kind::array);
      } else if (cursor.SkipIf('{')) {
        Open(Kind::object);
      } else {
        return Add(ReadScalar());
      }
      if (SkipClosing()) return Close();
      if (open.back().kind == Kind::object) ReadKey();
    }
  }

  // Reads what stands behind a value: the ends of arrays and objects, and then a comma that another
  // value follows. Gives false at the end of the outermost value.
  bool ReadSeparator() {
    while (!open.empty()) {
      SkipSpace(cursor);
      const bool comma = cursor.SkipIf(',');
      if (SkipClosing()) {
        Close();
        continue;
      }
      if (!comma) cursor.Fail("neither a comma nor the end of an array or object");
      if (open.back().kind == Kind::object) ReadKey();
      return true;
    }
    SkipSpace(cursor);
    return false;
  }

  void Open(Kind kind) {
    if (open.size() == maxJson5Depth) {
      throw Malformed{cursor.Position() - 1, "arrays and objects too deep in each other"};
    }
    open.push_back({kind, {}, pending.size()});
  }

  bool SkipClosing() {
    SkipSpace(cursor);
    return cursor.SkipIf(open.back().kind == Kind::array ? ']' : '}');
  }

  void Close() {
    const OpenValue closed = open.back();
    open.pop_back();
    if (closed.kind == Kind::object) SortByKey(closed.firstMember);
    const auto first = pending.begin() + static_cast<std::ptrdiff_t>(closed.firstMember);
    Json5Value value;
    value.kind = closed.kind;
    std::construct_at(&value.members,
                      Json5Members{tree.members.size(), pending.size() - closed.firstMember});
    tree.members.insert(tree.members.end(), first, pending.end());
    pending.resize(closed.firstMember);
    Add(value);
  }

  // Puts the pending members from this one on into the order of their keys, the last of each key
  // staying alone.
  void SortByKey(std::size_t firstMember) {
    const auto first = pending.begin() + static_cast<std::ptrdiff_t>(firstMember);
    const auto byKey = [](const Json5Member& left, const Json5Member& right) {
      return IsBefore(left.key, right.key);
    };
    const auto outOfOrder = [&byKey](const Json5Member& left, const Json5Member& right) {
      return !byKey(left, right);
    };
    if (std::adjacent_find(first, pending.end(), outOfOrder) == pending.end()) return;
    StableSort(first, pending.end(), byKey);
    const auto sameKey = [](const Json5Member& left, const Json5Member& right) {
      return left.key == right.key;
    };
    // From behind, the last of equals is the first, which `unique` keeps.
    const auto kept = std::unique(pending.rbegin(), std::make_reverse_iterator(first), sameKey);
    pending.erase(first, kept.base());
  }

  // Few members, and those that are nearly in order, are sooner sorted in their place.
  template <class Iterator, class Less>
  static void StableSort(Iterator first, Iterator end, Less less) {
    constexpr std::ptrdiff_t farthest = 16;
    for (Iterator next = first; next != end; ++next) {
      Iterator place = next;
      while (place != first && less(*next, *(place - 1))) {
        --place;
        if (next - place > farthest) return std::stable_sort(first, end, less);
      }
      std::rotate(place, next, next + 1);
    }
  }

  void Add(const Json5Value& value) {
    if (open.empty()) {
      tree.root = value;
    } else {
      pending.push_back({open.back().key, value});
    }
  }

  void ReadKey() {
    SkipSpace(cursor);
    open.back().key =
        IsQuotationMark(cursor.Peek()) ? ReadString() : ReadIdentifier(cursor, tree.decoded);
    SkipSpace(cursor);
    if (!cursor.SkipIf(':')) cursor.Fail("a colon is expected behind a key");
  }

  static bool IsQuotationMark(char byte) { return byte == '"' || byte == '\''; }

  std::string_view ReadString() {
    const char mark = cursor.Peek();
    cursor.Skip();
    return StringReader(cursor, mark).Read(tree.decoded);
  }

  Json5Value ReadScalar() {
    Json5Value value;
    const char byte = cursor.Peek();
    if (IsQuotationMark(byte)) {
      value.kind = Kind::string;
      std::construct_at(&value.text, ReadString());
    } else if (IsDigit(byte) || std::string_view("+-.IN").find(byte) != std::string_view::npos) {
      value.kind = Kind::number;
      value.number = ReadNumber(cursor);
    } else if (cursor.SkipIf("true")) {
      value.kind = Kind::boolean;
      value.boolean = true;
    } else if (cursor.SkipIf("false")) {
      value.kind = Kind::boolean;
    } else if (!cursor.SkipIf("null")) {
      cursor.Fail("a value is expected");
    }
    return value;
  }

  Cursor cursor;
  Json5Tree& tree;
  std::vector<OpenValue> open;
  std::vector<Json5Member> pending;  // of the open arrays and objects, those of the innermost last
};

// A line ends at each line terminator, and once at a carriage return and line feed. What stands in
// front of the error can be decoded.
Json5Error ErrorAt(std::string_view text, const Malformed& malformed) {
  Json5Error error{1, 1, malformed.message};
  Cursor cursor(text);
  while (cursor.Position() < malformed.position) {
    const std::uint32_t code = cursor.TakeCode();
    const bool ended = IsLineTerminator(code) && !(code == '\r' && cursor.Peek() == '\n');
    error.line += ended ? 1 : 0;
    wchar_t units[2];
    const auto width = static_cast<std::size_t>(PutUnits(code, units) - units);
    error.column = ended ? 1 : error.column + width;
  }
  return error;
}

bool IsKeyLess(const Json5Member& member, std::string_view key) {
  return IsBefore(member.key, key);
}

// The places among sorted members between which the first that isn't less than `key` is, found in
// growing steps from `place` on.
Json5Members Around(std::span<const Json5Member> all, std::string_view key, std::size_t place) {
  std::size_t first = std::min(place, all.size());
  std::size_t end = first;
  for (std::size_t step = 1; end < all.size() && IsKeyLess(all[end], key); step *= 2) {
    first = end + 1;
    end = std::min(end + step, all.size());
  }
  for (std::size_t step = 1; first > 0 && !IsKeyLess(all[first - 1], key); step *= 2) {
    end = first - 1;
    first -= std::min(step, first);
  }
  return {first, end - first};
}

}  // namespace

std::span<const Json5Member> Json5Tree::Members(const Json5Value& value) const {
  if (value.kind != Kind::array && value.kind != Kind::object) return {};
  return std::span(members).subspan(value.members.first, value.members.count);
}

const Json5Value* Json5Tree::Find(const Json5Value& object, std::string_view key) const {
  if (object.kind != Kind::object) return nullptr;
  constexpr std::size_t few = 8;
  std::size_t place = object.members.count / 2;
  if (object.members.count > few) return FindNear(object, key, place);
  for (const Json5Member& member : Members(object)) {
    if (member.key == key) return &member.value;
  }
  return nullptr;
}

const Json5Value* Json5Tree::FindNear(const Json5Value& object, std::string_view key,
                                      std::size_t& place) const {
  if (object.kind != Kind::object) return nullptr;
  const std::span<const Json5Member> all = Members(object);
  const Json5Members around = Around(all, key, place);
  const auto near = all.subspan(around.first, around.count);
  const auto found = std::lower_bound(near.begin(), near.end(), key, IsKeyLess);
  place = around.first + static_cast<std::size_t>(found - near.begin());
  return place < all.size() && all[place].key == key ? &all[place].value : nullptr;
}

std::optional<Json5Error> ParseJson5(std::string_view text, Json5Tree& tree) {
  try {
    Json5Parser(text, tree).ParseDocument();
    return std::nullopt;
  } catch (const Malformed& malformed) {
    return ErrorAt(text, malformed);
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
