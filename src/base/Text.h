// The text operations that all parsers share, so that all formats cut lines in the same way.
//
// They are stateless and independent of locales. White space is that of `iswspace` of Windows, on
// every platform.

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

// The following three change the text in place and return it.

// Removes all trailing white space.
std::wstring& TrimRight(std::wstring& text);

// Removes all trailing and all leading white space.
std::wstring& Trim(std::wstring& text);

// Removes all trailing and all leading units that are in `set`.
std::wstring& TrimChars(std::wstring& text, std::wstring_view set);

// Returns what `Trim` would leave, as a view into `text`.
inline std::wstring_view Trimmed(std::wstring_view text) {
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  return text;
}

// Returns whether `text` begins with `prefix`. False for an empty prefix: this is required.
bool StartsWith(std::wstring_view text, std::wstring_view prefix);

// Returns the position of the first occurrence of `what` in `text` at or after `from`, or `npos`.
// Takes time linear in the sum of their lengths. An empty text occurs everywhere.
std::size_t FindText(std::wstring_view text, std::wstring_view what, std::size_t from);

// Cuts a text at each occurrence of a literal separator, and returns the trimmed pieces one by one,
// as views into the text. Pieces that are empty after trimming are skipped unless `keepEmpty`. The
// text after the last separator is a piece too.
class PieceReader {
 public:
  PieceReader(std::wstring_view text, std::wstring_view separator, bool keepEmpty);

  // Sets `piece` to the next piece, or returns false after the last.
  bool Next(std::wstring_view& piece);

 private:
  std::wstring_view rest_;
  std::wstring_view separator_;
  bool keepEmpty_;
  bool atEnd_ = false;
};

// Like a `PieceReader` at blanks that skips empty pieces, but faster for short words.
class WordReader {
 public:
  explicit WordReader(std::wstring_view text) : at_(text.data()), end_(at_ + text.size()) {}

  // Sets `word` to the next word, or returns false after the last.
  bool Next(std::wstring_view& word) {
    while (true) {
      while (at_ != end_ && *at_ == L' ') ++at_;
      if (at_ == end_) return false;
      const wchar_t* const start = at_;
      while (at_ != end_ && *at_ != L' ') ++at_;
      word = {start, static_cast<std::size_t>(at_ - start)};
      if (!IsSpace(word.front()) && !IsSpace(word.back())) return true;
      word = Trimmed(word);
      if (!word.empty()) return true;
    }
  }

 private:
  const wchar_t* at_;
  const wchar_t* end_;
};

// Returns the number of pieces of a `PieceReader`.
std::size_t CountPieces(std::wstring_view text, std::wstring_view separator, bool keepEmpty);

// Returns the pieces of a `PieceReader` as strings. Unless `limit` is 0, there are at most `limit`:
// further pieces are appended to the last one, after one separator.
//
//   SplitTrimmed(L"a b  c d", L" ", false, 2)  returns  "a", "b c d"
std::vector<std::wstring> SplitTrimmed(std::wstring_view text, std::wstring_view separator,
                                       bool keepEmpty, int limit = 0);

}  // namespace TolvenLibs::RevitMappingEditorDll
