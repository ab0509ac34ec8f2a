#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Json5Record.h"
#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsLineTerminator(wchar_t unit) {
  return unit == L'\n' || unit == L'\r' || unit == 0x2028 || unit == 0x2029;
}

void AppendEscape(std::string& bytes, wchar_t unit) {
  constexpr const char* digits = "0123456789abcdef";
  bytes += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) {
    bytes += digits[(static_cast<std::uint32_t>(unit) >> shift) & 0xF];
  }
}

// The length of the plain text at the head of `text`: of units that each stand for themselves.
std::size_t PlainLength(std::wstring_view text) {
  std::size_t length = 0;
  for (const wchar_t unit : text) {
    const auto code = static_cast<std::uint32_t>(unit);
    const bool noCodePoint = (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF;
    if (code < L' ' || unit == L'"' || unit == L'\\' || IsLineTerminator(unit) || noCodePoint)
      break;
    ++length;
  }
  return length;
}

// Whether two units at the head of `text` make one code point. Where units have 32 bits none do,
// and surrogates are written as escapes.
bool IsPair(std::wstring_view text) {
  if constexpr (sizeof(wchar_t) == 2) {
    return text.size() >= 2 && text[0] >= 0xD800 && text[0] <= 0xDBFF && text[1] >= 0xDC00 &&
           text[1] <= 0xDFFF;
  } else {
    return false;
  }
}

// The characters of a string that can't stand for themselves.
void AppendSpecial(std::string& bytes, wchar_t unit) {
  constexpr std::wstring_view named = L"\"\\\b\f\n\r\t";
  constexpr std::string_view names = "\"\\bfnrt";
  const std::size_t found = named.find(unit);
  if (found == named.npos) return AppendEscape(bytes, unit);
  bytes += '\\';
  bytes += names[found];
}

void AppendString(std::string& bytes, std::wstring_view text) {
  bytes += '"';
  while (!text.empty()) {
    const std::size_t plain = IsPair(text) ? 2 : PlainLength(text);
    if (plain == 0) {
      AppendSpecial(bytes, text.front());
      text.remove_prefix(1);
      continue;
    }
    // What is plain stands for code points, and so has a form in UTF-8.
    AppendUtf8(bytes, text.substr(0, plain));
    text.remove_prefix(plain);
  }
  bytes += '"';
}

// With a point or an exponent, so that it reads as a real. What JSON has no number for is null.
void AppendReal(std::string& bytes, double number) {
  if (!std::isfinite(number)) {
    bytes += "null";
    return;
  }
  char chars[32];
  const char* end = std::to_chars(std::begin(chars), std::end(chars), number).ptr;
  const std::string_view text(chars, static_cast<std::size_t>(end - chars));
  bytes += text;
  if (text.find_first_of(".e") == text.npos) bytes += ".0";
}

struct AppendValue {
  void operator()(std::wstring_view text) const { AppendString(bytes, text); }
  void operator()(int number) const { bytes += std::to_string(number); }
  void operator()(double number) const { AppendReal(bytes, number); }
  void operator()(const std::vector<std::wstring_view>& texts) const {
    bytes += '[';
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i != 0) bytes += ", ";
      AppendString(bytes, texts[i]);
    }
    bytes += ']';
  }

  std::string& bytes;
};

// A comment with what stands in front of it. It ends with its line, and so has no line end of its
// own.
std::string FormatComment(std::wstring_view comment) {
  if (comment.empty()) return {};
  std::wstring line(comment);
  std::replace_if(line.begin(), line.end(), IsLineTerminator, L' ');
  std::string bytes = " // ";
  return AppendUtf8(bytes, line) ? bytes : " // ";
}

std::string FormatKey(std::wstring_view key) {
  std::string bytes;
  AppendString(bytes, key);
  return bytes;
}

// The lines between the braces of an object, each an entry with a comma behind it but for the last,
// and then a comment.
class Lines {
 public:
  Lines(std::string& target, std::size_t linesDepth) : bytes(target), depth(linesDepth) {}

  // Opens an entry. The key is one as `FormatKey` gives it.
  void Begin(std::string_view key) {
    if (any) bytes += ',';
    bytes += pendingComment;
    bytes.append(1, '\n').append(2 * depth, ' ').append(key).append(": ");
    any = true;
    pendingComment = {};
  }

  // What stands behind the entry: a comment as `FormatComment` gives it, which outlives the lines.
  void Comment(std::string_view comment) { pendingComment = comment; }

  void End() {
    bytes += pendingComment;
    if (any) bytes.append(1, '\n').append(2 * (depth - 1), ' ');
  }

 private:
  std::string& bytes;
  std::size_t depth;
  std::string_view pendingComment;
  bool any = false;
};

// Keys and comments are put into bytes once, however often they stand in the file.
class RecordWriter {
 public:
  explicit RecordWriter(const Json5Record& requests) : record(requests) {
    for (const std::wstring_view text : record.Repeated()) {
      keys.push_back(FormatKey(text));
      comments.push_back(FormatComment(text));
    }
  }

  std::string Write() {
    bytes = "{";
    Lines lines(bytes, 1);
    for (const Json5RecordSection& section : record.Sections()) {
      lines.Begin(FormatKey(section.name));
      WriteSection(section);
    }
    lines.End();
    bytes += "}\n";
    return std::move(bytes);
  }

 private:
  void WriteSection(const Json5RecordSection& section) {
    bytes += '{';
    Lines lines(bytes, 2);
    for (const Json5RecordItem& item : section.items) {
      if (item.name.empty() && section.items.size() == 1) {
        WriteParams(lines, item);
        continue;
      }
      lines.Begin(FormatKey(item.name));
      WriteItem(item);
    }
    lines.End();
    bytes += '}';
  }

  void WriteItem(const Json5RecordItem& item) {
    bytes += '{';
    Lines lines(bytes, 3);
    WriteParams(lines, item);
    lines.End();
    bytes += '}';
  }

  void WriteParams(Lines& lines, const Json5RecordItem& item) {
    for (const Json5RecordParam& param : item.params) {
      lines.Begin(keys[param.key]);
      std::visit(AppendValue{bytes}, param.value);
      lines.Comment(comments[param.comment]);
    }
  }

  const Json5Record& record;
  std::vector<std::string> keys;
  std::vector<std::string> comments;
  std::string bytes;
};

}  // namespace

std::string FormatJson5(const Json5Record& record) {
  return RecordWriter(record).Write();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
