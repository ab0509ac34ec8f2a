#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

bool IsSpaceOutsideAscii(wchar_t unit) {
  if (unit < 0x1680) return unit == 0x85 || unit == 0xA0;
  if (unit >= 0x2000 && unit <= 0x200A) return true;
  return unit == 0x1680 || unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F ||
         unit == 0x3000;
}

namespace {

std::wstring_view TrimmedRight(std::wstring_view text) {
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

std::wstring& TrimRight(std::wstring& text) {
  text.resize(TrimmedRight(text).size());
  return text;
}

std::wstring& Trim(std::wstring& text) {
  TrimRight(text);
  return text.erase(0, text.size() - Trimmed(text).size());
}

std::wstring& TrimChars(std::wstring& text, std::wstring_view set) {
  text.erase(text.find_last_not_of(set) + 1);
  return text.erase(0, text.find_first_not_of(set));
}

bool StartsWith(std::wstring_view text, std::wstring_view prefix) {
  return !prefix.empty() && text.starts_with(prefix);
}

namespace {

// An empty separator occurs nowhere: no search would advance. Searching for one unit is faster.
std::size_t FindSeparator(std::wstring_view text, std::wstring_view separator) {
  if (separator.empty()) return text.npos;
  return separator.size() == 1 ? text.find(separator.front()) : text.find(separator);
}

// The failure function of Knuth-Morris-Pratt: for each prefix of the text, the length of its
// longest proper prefix that is also its suffix.
std::vector<std::size_t> Borders(std::wstring_view text) {
  std::vector<std::size_t> borders(text.size());
  std::size_t border = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    while (border > 0 && text[i] != text[border]) border = borders[border - 1];
    if (text[i] == text[border]) ++border;
    borders[i] = border;
  }
  return borders;
}

}  // namespace

std::size_t FindText(std::wstring_view text, std::wstring_view what, std::size_t from) {
  // For short texts the plain search is as fast.
  if (what.size() <= 4) return text.find(what, from);
  if (from > text.size() || text.size() - from < what.size()) return text.npos;
  const std::vector<std::size_t> borders = Borders(what);
  std::size_t matched = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    while (matched > 0 && text[i] != what[matched]) matched = borders[matched - 1];
    if (text[i] == what[matched]) ++matched;
    if (matched == what.size()) return i + 1 - matched;
  }
  return text.npos;
}

PieceReader::PieceReader(std::wstring_view text, std::wstring_view separator, bool keepEmpty)
    : rest_(text), separator_(separator), keepEmpty_(keepEmpty) {}

bool PieceReader::Next(std::wstring_view& piece) {
  while (!atEnd_) {
    const std::size_t end = FindSeparator(rest_, separator_);
    piece = Trimmed(rest_.substr(0, end));
    atEnd_ = end == rest_.npos;
    if (!atEnd_) rest_.remove_prefix(end + separator_.size());
    if (keepEmpty_ || !piece.empty()) return true;
  }
  return false;
}

std::size_t CountPieces(std::wstring_view text, std::wstring_view separator, bool keepEmpty) {
  std::size_t count = 0;
  if (keepEmpty) {
    // Each piece but the last ends at a separator.
    for (std::size_t end = FindSeparator(text, separator); end != text.npos; ++count) {
      text.remove_prefix(end + separator.size());
      end = FindSeparator(text, separator);
    }
    return count + 1;
  }
  PieceReader reader(text, separator, keepEmpty);
  for (std::wstring_view piece; reader.Next(piece);) ++count;
  return count;
}

std::vector<std::wstring> SplitTrimmed(std::wstring_view text, std::wstring_view separator,
                                       bool keepEmpty, int limit) {
  PieceReader reader(text, separator, keepEmpty);
  std::vector<std::wstring> pieces;
  for (std::wstring_view piece; reader.Next(piece);) {
    if (limit == 0 || pieces.size() < static_cast<std::size_t>(limit)) {
      pieces.emplace_back(piece);
    } else {
      pieces.back().append(separator).append(piece);
    }
  }
  return pieces;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
