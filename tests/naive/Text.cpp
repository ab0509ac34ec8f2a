#include "naive/Text.h"

#include <cstddef>
#include <locale>

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

bool Contains(const std::wstring& set, wchar_t unit) {
  for (const wchar_t member : set) {
    if (member == unit) return true;
  }
  return false;
}

void AddPiece(Texts& pieces, std::wstring piece, std::wstring separator, bool keepEmpty,
              int limit) {
  piece = Trim(piece);
  if (piece.empty() && !keepEmpty) return;
  if (limit == 0 || static_cast<int>(pieces.size()) < limit) {
    pieces.push_back(piece);
  } else {
    pieces.back() = pieces.back() + separator + piece;
  }
}

}  // namespace

bool IsSpace(wchar_t unit) {
  const std::wstring spaces =
      L" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
      L"\u200A\u2028\u2029\u202F\u205F\u3000";
  return Contains(spaces, unit);
}

std::wstring Trim(std::wstring text) {
  while (!text.empty() && IsSpace(text.back())) text.pop_back();
  while (!text.empty() && IsSpace(text.front())) text.erase(0, 1);
  return text;
}

std::wstring TrimChars(std::wstring text, std::wstring set) {
  while (!text.empty() && Contains(set, text.back())) text.pop_back();
  while (!text.empty() && Contains(set, text.front())) text.erase(0, 1);
  return text;
}

bool StartsWith(std::wstring text, std::wstring prefix) {
  if (text.empty() || prefix.empty() || prefix.size() > text.size()) return false;
  return text.substr(0, prefix.size()) == prefix;
}

Texts SplitTrimmed(std::wstring text, std::wstring separator, bool keepEmpty, int limit) {
  Texts pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    if (end == text.npos) break;
    AddPiece(pieces, text.substr(0, end), separator, keepEmpty, limit);
    text = text.substr(end + separator.size());
  }
  AddPiece(pieces, text, separator, keepEmpty, limit);
  return pieces;
}

std::wstring ToUpper(std::wstring text) {
  const std::locale global;
  const auto& facet = std::use_facet<std::ctype<wchar_t>>(global);
  for (wchar_t& unit : text) unit = facet.toupper(unit);
  return text;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
