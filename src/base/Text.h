// The text operations that every parser shares, so that every format breaks a line in the same way.
//
// None of them looks at a locale and none keeps state. White space is what `iswspace` of Windows
// takes for it, on every platform.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

bool IsSpaceOutsideAscii(wchar_t unit);

inline bool IsSpace(wchar_t unit) {
  if (unit <= L' ') return unit == L' ' || (unit >= L'\t' && unit <= L'\r');
  return unit >= 0x85 && IsSpaceOutsideAscii(unit);
}

// The following three change the text in place and give it back.

// Removes all trailing white space.
std::wstring& TrimRight(std::wstring& text);

// Removes all trailing and all leading white space.
std::wstring& Trim(std::wstring& text);

// Removes every trailing and every leading unit that belongs to `set`.
std::wstring& TrimChars(std::wstring& text, std::wstring_view set);

// The part of `text` that `Trim` would leave, as a view into it.
inline std::wstring_view Trimmed(std::wstring_view text) {
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  return text;
}

// Whether `text` begins with `prefix`, unit by unit. An empty prefix begins nothing, on purpose.
bool StartsWith(std::wstring_view text, std::wstring_view prefix);

// Where `what` stands in `text` at `from` or behind it, in a time that doesn't grow with the
// product of their lengths, whatever they are. An empty text stands everywhere.
std::size_t FindText(std::wstring_view text, std::wstring_view what, std::size_t from);

// Cuts a text at each occurrence of a literal separator and gives the pieces one by one, trimmed,
// as views into the text. Pieces that are empty after trimming are passed over unless `keepEmpty`
// is set; what stands behind the last separator is always a piece. The text must outlive the views.
class PieceReader {
 public:
  PieceReader(std::wstring_view text, std::wstring_view separator, bool keepEmpty);

  // Puts the next piece into `piece` and gives true, or gives false when there are no more.
  bool Next(std::wstring_view& piece);

 private:
  std::wstring_view rest;
  std::wstring_view separator;
  bool keepEmpty;
  bool atEnd = false;
};

// Gives what a `PieceReader` gives at a blank when it passes over what is empty, sooner: words are
// short.
class WordReader {
 public:
  explicit WordReader(std::wstring_view text) : at(text.data()), end(at + text.size()) {}

  // Puts the next word into `word` and gives true, or gives false when there are no more.
  bool Next(std::wstring_view& word) {
    while (true) {
      while (at != end && *at == L' ') ++at;
      if (at == end) return false;
      const wchar_t* const start = at;
      while (at != end && *at != L' ') ++at;
      word = {start, static_cast<std::size_t>(at - start)};
      if (!IsSpace(word.front()) && !IsSpace(word.back())) return true;
      word = Trimmed(word);
      if (!word.empty()) return true;
    }
  }

 private:
  const wchar_t* at;
  const wchar_t* end;
};

// How many pieces a `PieceReader` gives.
std::size_t CountPieces(std::wstring_view text, std::wstring_view separator, bool keepEmpty);

// All pieces of a `PieceReader`, as strings of their own. With a `limit` other than 0 there are
// never more than `limit` of them: every further piece is added to the last one, with one separator
// in between.
//
//   SplitTrimmed(L"a b  c d", L" ", false, 2)  gives  "a", "b c d"
std::vector<std::wstring> SplitTrimmed(std::wstring_view text, std::wstring_view separator,
                                       bool keepEmpty, int limit = 0);

}  // namespace TolvenLibs::RevitMappingEditorDll
