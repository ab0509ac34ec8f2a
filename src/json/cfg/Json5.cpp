#include "Json5.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <system_error>
#include <utility>

#include "IdentifierChars.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Kind = Json5Value::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();

// Where a text turned out to be malformed. Goes no further than `ParseJson5`.
struct Malformed {
  std::size_t position;
  const char* message;
};

bool IsLineTerminator(wchar_t unit) {
  return unit == L'\n' || unit == L'\r' || unit == 0x2028 || unit == 0x2029;
}

bool IsJson5Space(wchar_t unit) {
  if (unit <= L' ') return unit == L' ' || (unit >= L'\t' && unit <= L'\r');
  if (unit < 0x1680) return unit == 0xA0;
  return unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || IsLineTerminator(unit) ||
         unit == 0x202F || unit == 0x205F || unit == 0x3000 || unit == 0xFEFF;
}

bool IsDigit(wchar_t unit) {
  return unit >= L'0' && unit <= L'9';
}

// The value of a hexadecimal digit, or -1.
int HexValue(wchar_t unit) {
  if (IsDigit(unit)) return unit - L'0';
  if (unit >= L'a' && unit <= L'f') return unit - L'a' + 10;
  if (unit >= L'A' && unit <= L'F') return unit - L'A' + 10;
  return -1;
}

// The text, with the place up to which it has been read.
class Cursor {
 public:
  explicit Cursor(std::wstring_view whole) : text(whole) {}

  bool AtEnd() const { return position == text.size(); }
  std::size_t Position() const { return position; }

  // The unit `ahead` of the place, or NUL behind the end. A NUL in the text fits no rule that looks
  // at single units, so the two need not be told apart.
  wchar_t Peek(std::size_t ahead = 0) const {
    return text.size() - position > ahead ? text[position + ahead] : L'\0';
  }

  void Skip(std::size_t count = 1) { position += count; }

  template <class Fits>
  void SkipWhile(Fits fits) {
    while (position < text.size() && fits(text[position])) ++position;
  }

  bool SkipIf(wchar_t unit) {
    if (AtEnd() || text[position] != unit) return false;
    ++position;
    return true;
  }

  bool SkipIf(std::wstring_view word) {
    if (!text.substr(position).starts_with(word)) return false;
    position += word.size();
    return true;
  }

  // The text from `start` to the place.
  std::wstring_view Since(std::size_t start) const { return text.substr(start, position - start); }

  // The code point at the place, and how many units it has.
  std::uint32_t PeekCodePoint(std::size_t& units) const {
    const auto high = static_cast<std::uint32_t>(Peek());
    const auto low = static_cast<std::uint32_t>(Peek(1));
    units = 1;
    if (high < 0xD800 || high > 0xDBFF || low < 0xDC00 || low > 0xDFFF) return high;
    units = 2;
    return ((high - 0xD7C0) << 10) + (low - 0xDC00);
  }

  // Where nothing fits: "unexpected end" there, the message anywhere else.
  [[noreturn]] void Fail(const char* message) const {
    throw Malformed{position, AtEnd() ? "the text ends too early" : message};
  }

 private:
  std::wstring_view text;
  std::size_t position = 0;
};

void SkipComment(Cursor& cursor) {
  if (cursor.SkipIf(L"//")) {
    return cursor.SkipWhile([](wchar_t unit) { return !IsLineTerminator(unit); });
  }
  if (!cursor.SkipIf(L"/*")) cursor.Fail("a stroke that begins no comment");
  while (!cursor.SkipIf(L"*/")) {
    if (cursor.AtEnd()) cursor.Fail("");
    cursor.Skip();
  }
}

void SkipSpace(Cursor& cursor) {
  while (!cursor.AtEnd()) {
    cursor.SkipWhile(IsJson5Space);
    if (cursor.Peek() != L'/') return;
    SkipComment(cursor);
  }
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
bool ToDouble(const std::string& chars, std::chars_format format, double& number) {
  const auto result = std::from_chars(chars.data(), chars.data() + chars.size(), number, format);
  return result.ec != std::errc::result_out_of_range;
}

void SkipDigits(Cursor& cursor) {
  while (IsDigit(cursor.Peek())) cursor.Skip();
}

double ReadHexadecimal(Cursor& cursor) {
  std::string digits;
  for (; HexValue(cursor.Peek()) >= 0; cursor.Skip()) {
    digits.push_back(static_cast<char>(cursor.Peek()));
  }
  if (digits.empty()) cursor.Fail("a hexadecimal number without digits");
  double number = 0;
  return ToDouble(digits, std::chars_format::hex, number) ? number : infinity;
}

double ReadDecimal(Cursor& cursor) {
  const std::size_t start = cursor.Position();
  if (cursor.SkipIf(L'0')) {
    if (IsDigit(cursor.Peek())) cursor.Fail("a digit behind a leading 0");
  } else {
    SkipDigits(cursor);
  }
  const bool digitsAhead = cursor.Position() != start;
  if (cursor.SkipIf(L'.')) {
    if (!digitsAhead && !IsDigit(cursor.Peek())) cursor.Fail("a point without digits");
    SkipDigits(cursor);
  } else if (!digitsAhead) {
    cursor.Fail("a sign without a number");
  }
  if (cursor.SkipIf(L'e') || cursor.SkipIf(L'E')) {
    if (cursor.Peek() == L'+' || cursor.Peek() == L'-') cursor.Skip();
    if (!IsDigit(cursor.Peek())) cursor.Fail("an exponent without digits");
    SkipDigits(cursor);
  }
  const std::wstring_view units = cursor.Since(start);
  std::string chars;
  for (const wchar_t unit : units) chars.push_back(static_cast<char>(unit));
  double number = 0;
  return ToDouble(chars, std::chars_format::general, number) ? number : BeyondRange(chars);
}

double ReadUnsigned(Cursor& cursor) {
  if (cursor.SkipIf(L"Infinity")) return infinity;
  if (cursor.SkipIf(L"NaN")) return std::numeric_limits<double>::quiet_NaN();
  if (cursor.SkipIf(L"0x") || cursor.SkipIf(L"0X")) return ReadHexadecimal(cursor);
  return ReadDecimal(cursor);
}

double ReadNumber(Cursor& cursor) {
  if (cursor.SkipIf(L'-')) return -ReadUnsigned(cursor);
  cursor.SkipIf(L'+');
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

[[maybe_unused]] bool IsLowSurrogate(std::uint32_t code) {
  return code >= 0xDC00 && code <= 0xDFFF;
}

// Adds a unit of UTF-16. Where units have 32 bits, the two of a pair become one.
void AppendUtf16(std::wstring& text, std::uint32_t unit, bool behindEscapedHigh) {
  if constexpr (sizeof(wchar_t) != 2) {
    if (behindEscapedHigh && IsLowSurrogate(unit)) {
      const auto high = static_cast<std::uint32_t>(text.back());
      text.back() = static_cast<wchar_t>(((high - 0xD7C0) << 10) + (unit - 0xDC00));
      return;
    }
  }
  text.push_back(static_cast<wchar_t>(unit));
}

// The characters that stand for another one behind a backslash, and these others.
constexpr std::wstring_view escapeLetters = L"bfnrtv";
constexpr std::wstring_view escapedUnits = L"\b\f\n\r\t\v";

// Reads a string from behind its opening quotation mark, and the closing one with it.
class StringReader {
 public:
  StringReader(Cursor& source, wchar_t mark) : cursor(source), quotationMark(mark) {}

  // The string, if it has no escapes a view into the text, otherwise one into a new entry of
  // `decoded`.
  std::wstring_view Read(std::deque<std::wstring>& decoded) {
    const std::size_t start = cursor.Position();
    SkipPlain();
    if (cursor.Peek() == quotationMark) {
      const std::wstring_view plain = cursor.Since(start);
      cursor.Skip();
      return plain;
    }
    text = cursor.Since(start);
    while (!cursor.SkipIf(quotationMark)) {
      ReadEscape();
      const std::size_t plainStart = cursor.Position();
      SkipPlain();
      const std::wstring_view plain = cursor.Since(plainStart);
      if (!plain.empty()) behindEscapedHigh = false;
      text += plain;
    }
    return decoded.emplace_back(std::move(text));
  }

 private:
  // Up to the closing mark or the next backslash.
  void SkipPlain() {
    cursor.SkipWhile([this](wchar_t unit) {
      return unit != quotationMark && unit != L'\\' && unit != L'\n' && unit != L'\r';
    });
    if (cursor.AtEnd() || cursor.Peek() == L'\n' || cursor.Peek() == L'\r') {
      cursor.Fail("a string that is not closed on its line");
    }
  }

  void ReadEscape() {
    cursor.Skip();
    if (cursor.AtEnd()) cursor.Fail("");
    const wchar_t unit = cursor.Peek();
    if (IsLineTerminator(unit)) return SkipLineEnd();
    if (cursor.SkipIf(L'x')) return Append(ReadHexDigits(cursor, 2));
    if (cursor.SkipIf(L'u')) return Append(ReadHexDigits(cursor, 4));
    if (IsDigit(unit)) return ReadNul();
    const std::size_t letter = escapeLetters.find(unit);
    cursor.Skip();
    Append(static_cast<std::uint32_t>(letter == escapeLetters.npos ? unit : escapedUnits[letter]));
  }

  // A line end behind a backslash is no part of the string, nor does it part a pair.
  void SkipLineEnd() {
    if (!cursor.SkipIf(L"\r\n")) cursor.Skip();
  }

  void ReadNul() {
    if (cursor.Peek() != L'0' || IsDigit(cursor.Peek(1))) cursor.Fail("an escape of a digit");
    cursor.Skip();
    Append(0);
  }

  void Append(std::uint32_t unit) {
    AppendUtf16(text, unit, behindEscapedHigh);
    behindEscapedHigh = IsHighSurrogate(unit);
  }

  Cursor& cursor;
  wchar_t quotationMark;
  std::wstring text;
  bool behindEscapedHigh = false;
};

// Up to what is no plain part of an identifier. `first` says that its first character is still to
// come.
void SkipPlainIdentifier(Cursor& cursor, bool first) {
  for (; !cursor.AtEnd(); first = false) {
    std::size_t units = 0;
    const std::uint32_t code = cursor.PeekCodePoint(units);
    if (!(first ? IsIdentifierStart(code) : IsIdentifierPart(code))) return;
    cursor.Skip(units);
  }
}

wchar_t ReadIdentifierEscape(Cursor& cursor, bool first) {
  if (!cursor.SkipIf(L"\\u")) cursor.Fail("a key with an escape other than \\u");
  const std::uint32_t code = ReadHexDigits(cursor, 4);
  if (!(first ? IsIdentifierStart(code) : IsIdentifierPart(code))) {
    cursor.Fail("an escape of what can't stand in a key");
  }
  return static_cast<wchar_t>(code);
}

// Reads an identifier, which is given like a string.
std::wstring_view ReadIdentifier(Cursor& cursor, std::deque<std::wstring>& decoded) {
  const std::size_t start = cursor.Position();
  SkipPlainIdentifier(cursor, true);
  const std::wstring_view plain = cursor.Since(start);
  if (cursor.Peek() != L'\\') {
    if (plain.empty()) cursor.Fail("a key is expected");
    return plain;
  }
  std::wstring text(plain);
  while (cursor.Peek() == L'\\') {
    text.push_back(ReadIdentifierEscape(cursor, text.empty()));
    const std::size_t plainStart = cursor.Position();
    SkipPlainIdentifier(cursor, false);
    text += cursor.Since(plainStart);
  }
  return decoded.emplace_back(std::move(text));
}

// The document

// An array or object that is being read.
struct OpenValue {
  Kind kind;
  std::wstring_view key;    // of the member that is being read
  std::size_t firstMember;  // among the pending ones
};

class Json5Parser {
 public:
  Json5Parser(std::wstring_view text, Json5Tree& target) : cursor(text), tree(target) {}

  void ParseDocument() {
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
      if (cursor.SkipIf(L'[')) {
        Open(Kind::array);
      } else if (cursor.SkipIf(L'{')) {
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
      const bool comma = cursor.SkipIf(L',');
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
    return cursor.SkipIf(open.back().kind == Kind::array ? L']' : L'}');
  }

  void Close() {
    const OpenValue closed = open.back();
    open.pop_back();
    if (closed.kind == Kind::object) SortByKey(closed.firstMember);
    const auto first = pending.begin() + static_cast<std::ptrdiff_t>(closed.firstMember);
    Json5Value value;
    value.kind = closed.kind;
    value.firstMember = tree.members.size();
    value.memberCount = pending.size() - closed.firstMember;
    tree.members.insert(tree.members.end(), first, pending.end());
    pending.resize(closed.firstMember);
    Add(value);
  }

  // Puts the pending members from this one on into the order of their keys, the last of each key
  // staying alone.
  void SortByKey(std::size_t firstMember) {
    const auto first = pending.begin() + static_cast<std::ptrdiff_t>(firstMember);
    const auto byKey = [](const Json5Member& left, const Json5Member& right) {
      return left.key < right.key;
    };
    const auto outOfOrder = [&byKey](const Json5Member& left, const Json5Member& right) {
      return !byKey(left, right);
    };
    if (std::adjacent_find(first, pending.end(), outOfOrder) == pending.end()) return;
    std::stable_sort(first, pending.end(), byKey);
    const auto sameKey = [](const Json5Member& left, const Json5Member& right) {
      return left.key == right.key;
    };
    // From behind, the last of equals is the first, which `unique` keeps.
    const auto kept = std::unique(pending.rbegin(), std::make_reverse_iterator(first), sameKey);
    pending.erase(first, kept.base());
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
    if (!cursor.SkipIf(L':')) cursor.Fail("a colon is expected behind a key");
  }

  static bool IsQuotationMark(wchar_t unit) { return unit == L'"' || unit == L'\''; }

  std::wstring_view ReadString() {
    const wchar_t mark = cursor.Peek();
    cursor.Skip();
    return StringReader(cursor, mark).Read(tree.decoded);
  }

  Json5Value ReadScalar() {
    Json5Value value;
    const wchar_t unit = cursor.Peek();
    if (IsQuotationMark(unit)) {
      value.kind = Kind::string;
      value.text = ReadString();
    } else if (IsDigit(unit) || std::wstring_view(L"+-.IN").find(unit) != std::wstring_view::npos) {
      value.kind = Kind::number;
      value.number = ReadNumber(cursor);
    } else if (cursor.SkipIf(L"true")) {
      value.kind = Kind::boolean;
      value.boolean = true;
    } else if (cursor.SkipIf(L"false")) {
      value.kind = Kind::boolean;
    } else if (!cursor.SkipIf(L"null")) {
      cursor.Fail("a value is expected");
    }
    return value;
  }

  Cursor cursor;
  Json5Tree& tree;
  std::vector<OpenValue> open;
  std::vector<Json5Member> pending;  // of the open arrays and objects, those of the innermost last
};

// A line ends at each line terminator, and once at a carriage return and line feed.
Json5Error ErrorAt(std::wstring_view text, const Malformed& malformed) {
  Json5Error error{1, 1, malformed.message};
  for (std::size_t i = 0; i < malformed.position; ++i) {
    const bool ended = IsLineTerminator(text[i]) &&
                       !(text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n');
    error.line += ended ? 1 : 0;
    error.column = ended ? 1 : error.column + 1;
  }
  return error;
}

}  // namespace

std::span<const Json5Member> Json5Tree::Members(const Json5Value& value) const {
  return std::span(members).subspan(value.firstMember, value.memberCount);
}

const Json5Value* Json5Tree::Find(const Json5Value& object, std::wstring_view key) const {
  if (object.kind != Kind::object) return nullptr;
  const std::span<const Json5Member> all = Members(object);
  const auto found = std::lower_bound(
      all.begin(), all.end(), key,
      [](const Json5Member& member, std::wstring_view wanted) { return member.key < wanted; });
  return found != all.end() && found->key == key ? &found->value : nullptr;
}

std::optional<Json5Error> ParseJson5(std::wstring_view text, Json5Tree& tree) {
  try {
    Json5Parser(text, tree).ParseDocument();
    return std::nullopt;
  } catch (const Malformed& malformed) {
    return ErrorAt(text, malformed);
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
