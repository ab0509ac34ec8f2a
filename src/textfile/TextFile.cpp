#include "textfile/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "base/Files.h"
#include "base/Utf8.h"
#include "textfile/Account.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// On Windows this byte ends a file that is opened as text. It ends files on all platforms, so that
// a file reads the same everywhere.
constexpr char endOfText = '\x1A';

std::size_t CountCodePoints(std::wstring_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) TakeUnits(text);
  return count;
}

// Packs the lines of a file into its `units`, and finds the sections on the way.
class SectionCutter {
 public:
  SectionCutter(TextFile& file, Account* account)
      : file_(file), account_(account), end_(file.units.get()) {}

  // Adds the line, as far as its bytes can be decoded. Returns whether all of them could.
  bool Add(std::string_view bytes) {
    wchar_t* const start = end_ == file_.units.get() ? end_ : end_ + 1;
    wchar_t* const decodedEnd = TakeUtf8(bytes, start);
    const std::wstring_view whole(start, decodedEnd);
    if (account_) NoteLine(whole);
    const std::wstring_view line = Trimmed(whole);
    if (!line.empty()) Keep(line, start);
    return bytes.empty();
  }

 private:
  // White space before the line has one unit for each code point.
  void NoteLine(std::wstring_view whole) {
    ++account_->lineCount;
    account_->endLine = account_->lineCount;
    account_->endColumn = CountCodePoints(whole) + 1;
    const std::wstring_view line = Trimmed(whole);
    if (line.empty()) return;
    const auto start = static_cast<std::size_t>(whole.data() - file_.units.get());
    const auto column = static_cast<std::size_t>(line.data() - whole.data()) + 1;
    account_->lines.push_back({start, line.size(), account_->lineCount, column});
  }

  void Keep(std::wstring_view line, wchar_t* start) {
    if (start != end_) *end_ = L'\n';
    if (line.data() != start) {
      std::wstring::traits_type::move(start, line.data(), line.size());
    }
    end_ = start + line.size();
    if (line.size() > 1 && start[0] == L'=' && start[1] == L'=') {
      file_.sections.push_back({std::wstring_view(start, end_), {}});
      body_ = nullptr;
    } else if (!file_.sections.empty()) {
      if (!body_) body_ = start;
      file_.sections.back().body = std::wstring_view(body_, end_);
    }
  }

  TextFile& file_;
  Account* account_;
  wchar_t* end_;                   // of the lines so far
  const wchar_t* body_ = nullptr;  // of the last section; null until it has a line
};

// `rest` is all of the file from the last line on that was read. What follows the last line feed of
// a file that is read to its end is no line.
void NoteEnd(Account& account, std::string_view rest, std::size_t readSize, bool decoded) {
  if (!decoded) {
    account.end = EndOfReading::notUtf8;
  } else if (readSize < rest.size()) {
    account.end = EndOfReading::byte1A;
  }
  account.lineCount += static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '\n'));
  if (rest.empty()) --account.lineCount;
}

}  // namespace

TextFile CutTextFile(std::string_view whole, Account* account) {
  std::string_view bytes = whole.substr(0, whole.find(endOfText));
  TextFile file;
  // A line has at most as many units as bytes, line feeds included.
  file.units = std::make_unique_for_overwrite<wchar_t[]>(bytes.size());
  file.size = bytes.size();
  SectionCutter cutter(file, account);
  for (;;) {
    const std::size_t end = bytes.find('\n');
    const bool decoded = cutter.Add(bytes.substr(0, end));
    if (!decoded || end == bytes.npos) {
      const auto read = static_cast<std::size_t>(bytes.data() - whole.data());
      if (account) NoteEnd(*account, whole.substr(read), bytes.size(), decoded);
      return file;
    }
    bytes.remove_prefix(end + 1);
  }
}

std::shared_ptr<const TextFile> ReadTextFile(const std::wstring& path, Account* account) {
  const std::optional<std::string> bytes = ReadFile(path);
  if (!bytes) return nullptr;
  return std::make_shared<const TextFile>(CutTextFile(*bytes, account));
}

PieceReader CutEntries(std::wstring_view body, bool keepEmpty, Account* account) {
  // A text without semicolons is at most one piece at semicolons, and no fewer at line feeds.
  if (body.find(L';') == body.npos) return PieceReader(body, L"\n", keepEmpty);
  const std::size_t atLineFeeds = CountPieces(body, L"\n", keepEmpty);
  const std::size_t atSemicolons = CountPieces(body, L";", keepEmpty);
  if (atLineFeeds > atSemicolons) return PieceReader(body, L"\n", keepEmpty);
  Note(account, Outcome::cutAtSemicolons, body);
  return PieceReader(body, L";", keepEmpty);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
