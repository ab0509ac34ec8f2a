#include "textfile/TextFile.h"

#include <cstddef>
#include <optional>

#include "base/Files.h"
#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// On Windows this byte ends a file that is opened as text. It ends files on all platforms, so that
// a file reads the same everywhere.
constexpr char endOfText = '\x1A';

// Packs the lines of a file into its `units`, and finds the sections on the way.
class SectionCutter {
 public:
  explicit SectionCutter(TextFile& file) : file_(file), end_(file.units.get()) {}

  // Adds the line, as far as its bytes can be decoded. Returns whether all of them could.
  bool Add(std::string_view bytes) {
    wchar_t* const start = end_ == file_.units.get() ? end_ : end_ + 1;
    wchar_t* const decodedEnd = TakeUtf8(bytes, start);
    const std::wstring_view line = Trimmed(std::wstring_view(start, decodedEnd));
    if (!line.empty()) Keep(line, start);
    return bytes.empty();
  }

 private:
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
  wchar_t* end_;                   // of the lines so far
  const wchar_t* body_ = nullptr;  // of the last section; null until it has a line
};

}  // namespace

TextFile CutTextFile(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find(endOfText));
  TextFile file;
  // A line has at most as many units as bytes, line feeds included.
  file.units = std::make_unique_for_overwrite<wchar_t[]>(bytes.size());
  file.size = bytes.size();
  SectionCutter cutter(file);
  for (;;) {
    const std::size_t end = bytes.find('\n');
    if (!cutter.Add(bytes.substr(0, end)) || end == bytes.npos) return file;
    bytes.remove_prefix(end + 1);
  }
}

std::shared_ptr<const TextFile> ReadTextFile(const std::wstring& path) {
  const std::optional<std::string> bytes = ReadFile(path);
  if (!bytes) return nullptr;
  return std::make_shared<const TextFile>(CutTextFile(*bytes));
}

PieceReader CutEntries(std::wstring_view body, bool keepEmpty) {
  // A text without semicolons is at most one piece at semicolons, and no fewer at line feeds.
  if (body.find(L';') == body.npos) return PieceReader(body, L"\n", keepEmpty);
  const std::size_t atLineFeeds = CountPieces(body, L"\n", keepEmpty);
  const std::size_t atSemicolons = CountPieces(body, L";", keepEmpty);
  return PieceReader(body, atLineFeeds > atSemicolons ? L"\n" : L";", keepEmpty);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
