#include "naive/Json5.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "json5/IdentifierChars.h"
#include "json5/Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

using Kind = Json5Value::Kind;

struct Malformed {};

bool IsOneOf(wchar_t unit, const std::wstring& units) {
  return units.find(unit) != units.npos;
}

bool EndsLine(wchar_t unit) {
  return IsOneOf(unit, L"\n\r\u2028\u2029");
}

bool IsBlank(wchar_t unit) {
  return EndsLine(unit) ||
         IsOneOf(unit,
                 L"\t\v\f \u00A0\uFEFF\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007"
                 L"\u2008\u2009\u200A\u202F\u205F\u3000");
}

class Reader {
 public:
  explicit Reader(std::wstring whole) : text(whole) {}

  Json5 Document() {
    Json5 value = Value(0);
    Space();
    if (at != text.size()) throw Malformed();
    return value;
  }

 private:
  bool Ends() const { return at == text.size(); }

  bool Comes(const std::wstring& word) const { return text.compare(at, word.size(), word) == 0; }

  bool Take(const std::wstring& word) {
    if (!Comes(word)) return false;
    at += word.size();
    return true;
  }

  void Expect(const std::wstring& word) {
    if (!Take(word)) throw Malformed();
  }

  wchar_t Any() {
    if (Ends()) throw Malformed();
    return text[at++];
  }

  bool ComesOneOf(const std::wstring& units) const { return !Ends() && IsOneOf(text[at], units); }

  bool ComesDigit() const { return ComesOneOf(L"0123456789"); }

  bool ComesHexDigit() const { return ComesOneOf(L"0123456789abcdefABCDEF"); }

  void Space() {
    for (;;) {
      if (Take(L"//")) {
        while (!Ends() && !EndsLine(text[at])) ++at;
      } else if (Take(L"/*")) {
        while (!Take(L"*/")) Any();
      } else if (!Ends() && IsBlank(text[at])) {
        ++at;
      } else {
        return;
      }
    }
  }

  // `depth` is the number of enclosing arrays and objects.
  Json5 Value(std::size_t depth) {
    Space();
    Json5 value;
    if (Comes(L"[") || Comes(L"{")) {
      if (depth == maxJson5Depth) throw Malformed();
      return Comes(L"[") ? Array(depth) : Object(depth);
    }
    if (Comes(L"\"") || Comes(L"'")) {
      value.kind = Kind::string;
      value.text = String();
    } else if (Comes(L"true") || Comes(L"false")) {
      value.kind = Kind::boolean;
      value.boolean = Take(L"true") || !Take(L"false");
    } else if (!Take(L"null")) {
      value.kind = Kind::number;
      value.number = Number();
    }
    return value;
  }

  Json5 Array(std::size_t depth) {
    Json5 value;
    value.kind = Kind::array;
    Expect(L"[");
    for (Space(); !Take(L"]"); Space()) {
      value.elements.push_back(Value(depth + 1));
      Space();
      if (!Take(L",") && !Comes(L"]")) throw Malformed();
    }
    return value;
  }

  Json5 Object(std::size_t depth) {
    Json5 value;
    value.kind = Kind::object;
    Expect(L"{");
    for (Space(); !Take(L"}"); Space()) {
      const std::wstring key = Comes(L"\"") || Comes(L"'") ? String() : Identifier();
      Space();
      Expect(L":");
      value.members[key] = Value(depth + 1);
      Space();
      if (!Take(L",") && !Comes(L"}")) throw Malformed();
    }
    return value;
  }

  std::uint32_t HexDigits(int count) {
    std::string digits;
    for (int i = 0; i < count; ++i) {
      if (!ComesHexDigit()) throw Malformed();
      digits.push_back(static_cast<char>(Any()));
    }
    return static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
  }

  std::wstring Identifier() {
    std::wstring identifier;
    for (;;) {
      const std::size_t start = at;
      std::uint32_t code = 0;
      if (Take(L"\\u")) {
        code = HexDigits(4);
      } else if (!Ends()) {
        code = CodePoint();
      }
      if (!(identifier.empty() ? IsIdentifierStart(code) : IsIdentifierPart(code))) {
        if (text.compare(start, 1, L"\\") == 0 || identifier.empty()) throw Malformed();
        at = start;
        return identifier;
      }
      identifier += text[start] == L'\\' ? std::wstring(1, static_cast<wchar_t>(code))
                                         : text.substr(start, at - start);
    }
  }

  std::uint32_t CodePoint() {
    const auto high = static_cast<std::uint32_t>(Any());
    if (high < 0xD800 || high > 0xDBFF || Ends()) return high;
    const auto low = static_cast<std::uint32_t>(text[at]);
    if (low < 0xDC00 || low > 0xDFFF) return high;
    ++at;
    return 0x10000 + (high - 0xD800) * 0x400 + (low - 0xDC00);
  }

  std::wstring String() {
    const std::wstring mark(1, Any());
    std::wstring string;
    afterHigh = false;
    while (!Take(mark)) {
      const wchar_t unit = Any();
      if (unit == L'\n' || unit == L'\r') throw Malformed();
      if (unit == L'\\') {
        Escape(string);
      } else {
        string.push_back(unit);
        afterHigh = false;
      }
    }
    return string;
  }

  void Escape(std::wstring& string) {
    if (Take(L"\r\n") || Take(L"\n") || Take(L"\r") || Take(L"\u2028") || Take(L"\u2029")) return;
    const std::wstring letters = L"bfnrtv";
    const wchar_t unit = Any();
    std::uint32_t code = static_cast<std::uint32_t>(unit);
    if (unit == L'x') code = HexDigits(2);
    if (unit == L'u') code = HexDigits(4);
    if (IsOneOf(unit, letters)) {
      code = static_cast<std::uint32_t>(std::wstring(L"\b\f\n\r\t\v")[letters.find(unit)]);
    }
    if (IsOneOf(unit, L"123456789") || (unit == L'0' && ComesDigit())) throw Malformed();
    if (unit == L'0') code = 0;
    AddUtf16(string, code);
  }

  // Joins two escapes to one unit if units are wide enough.
  void AddUtf16(std::wstring& string, std::uint32_t code) {
    if (sizeof(wchar_t) == 4 && afterHigh && code >= 0xDC00 && code <= 0xDFFF) {
      const auto high = static_cast<std::uint32_t>(string.back());
      string.back() = static_cast<wchar_t>(0x10000 + (high - 0xD800) * 0x400 + (code - 0xDC00));
      afterHigh = false;
      return;
    }
    string.push_back(static_cast<wchar_t>(code));
    afterHigh = code >= 0xD800 && code <= 0xDBFF;
  }

  double Number() {
    const bool negative = Take(L"-");
    if (!negative) Take(L"+");
    const double magnitude = Magnitude();
    return negative ? -magnitude : magnitude;
  }

  double Magnitude() {
    if (Take(L"Infinity")) return std::numeric_limits<double>::infinity();
    if (Take(L"NaN")) return std::numeric_limits<double>::quiet_NaN();
    const std::size_t start = at;
    if (Take(L"0x") || Take(L"0X")) {
      if (!ComesHexDigit()) throw Malformed();
      while (ComesHexDigit()) ++at;
    } else {
      Decimal();
    }
    const std::wstring wide = text.substr(start, at - start);
    return std::strtod(std::string(wide.begin(), wide.end()).c_str(), nullptr);
  }

  void Decimal() {
    const bool zero = Take(L"0");
    if (zero && ComesDigit()) throw Malformed();
    const bool digits = zero || ComesDigit();
    while (ComesDigit()) ++at;
    if (Take(L".")) {
      if (!digits && !ComesDigit()) throw Malformed();
      while (ComesDigit()) ++at;
    } else if (!digits) {
      throw Malformed();
    }
    if (!Take(L"e") && !Take(L"E")) return;
    if (!Take(L"+")) Take(L"-");
    if (!ComesDigit()) throw Malformed();
    while (ComesDigit()) ++at;
  }

  std::wstring text;
  std::size_t at = 0;
  bool afterHigh = false;  // whether the string ends with an escaped high surrogate
};

std::wstring Quoted(std::wstring_view text) {
  // The length prefix makes the encoding unambiguous.
  return std::to_wstring(text.size()) + L"'" + std::wstring(text) + L"'";
}

std::wstring DescribeScalar(Kind kind, bool boolean, double number, std::wstring_view text) {
  if (kind == Kind::string) return Quoted(text);
  if (kind == Kind::boolean) return boolean ? L"true" : L"false";
  if (kind == Kind::null) return L"null";
  char chars[64];
  std::snprintf(chars, sizeof chars, "%a", number);
  const std::string narrow = number != number ? "nan" : chars;
  return {narrow.begin(), narrow.end()};
}

}  // namespace

std::optional<Json5> ParseJson5(std::wstring text) {
  try {
    return Reader(text).Document();
  } catch (const Malformed&) {
    return std::nullopt;
  }
}

std::wstring Describe(const Json5& value) {
  std::wstring text;
  if (value.kind == Kind::array) {
    for (const Json5& element : value.elements) text += Describe(element) + L",";
    return L"[" + text + L"]";
  }
  if (value.kind == Kind::object) {
    for (const auto& [key, member] : value.members) {
      text += Quoted(key) + L":" + Describe(member) + L",";
    }
    return L"{" + text + L"}";
  }
  return DescribeScalar(value.kind, value.boolean, value.number, value.text);
}

std::wstring Describe(const Json5Tree& tree, const Json5Value& value) {
  std::wstring text;
  for (const Json5Member& member : tree.Members(value)) {
    if (value.kind == Kind::object) text += Quoted(ToWideText(member.key)) + L":";
    text += Describe(tree, member.value) + L",";
  }
  if (value.kind == Kind::array) return L"[" + text + L"]";
  if (value.kind == Kind::object) return L"{" + text + L"}";
  const bool isString = value.kind == Kind::string;
  return DescribeScalar(value.kind, value.boolean, isString ? 0 : value.number,
                        isString ? ToWideText(value.text) : L"");
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
