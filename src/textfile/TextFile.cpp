#include "textfile/TextFile.h"

#include <cstddef>
#include <optional>

#include "base/Files.h"
#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// A file that is opened as text ends at this byte on Windows. It does so on every platform, for a
// file has to read the same wherever it is read.
constexpr char endOfText = '\x1A';

// Puts lines one behind the other and finds the sections on the way.
class SectionCutter {
 public:
  explicit SectionCutter(TextFile& target) : file(target), end(target.units.get()) {}

  // Adds the line of these bytes, as far as they can be decoded. False if they can't to the end.
  bool Add(std::string_view bytes) {
    wchar_t* const start = end == file.units.get() ? end : end + 1;
    wchar_t* const decodedEnd = TakeUtf8(bytes, start);
    const std::wstring_view line = Trimmed(std::wstring_view(start, decodedEnd));
    if (!line.empty()) Keep(line, start);
    return bytes.empty();
  }

 private:
  void Keep(std::wstring_view line, wchar_t* start) {
    if (start != end) *end = L'\n';
    if (line.data() != start) {
      std::wstring::traits_type::move(start, line.data(), line.size());
    }
    end = start + line.size();
    if (line.size() > 1 && start[0] == L'=' && start[1] == L'=') {
      file.sections.push_back({std::wstring_view(start, end), {}});
      body = nullptr;
    } else if (!file.sections.empty()) {
      if (!body) body = start;
      file.sections.back().body = std::wstring_view(body, end);
    }
  }

  TextFile& file;
  wchar_t* end;                   // of the lines
  const wchar_t* body = nullptr;  // of the last section; null until it has a line
};

}  // namespace

TextFile CutTextFile(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find(endOfText));
  TextFile file;
  // No line has more units than bytes, and the line feeds are among these.
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
  // Without a semicolon in it the text is one piece there, and line feeds give as many or more.
  if (body.find(L';') == body.npos) return PieceReader(body, L"\n", keepEmpty);
  const std::size_t atLineFeeds = CountPieces(body, L"\n", keepEmpty);
  const std::size_t atSemicolons = CountPieces(body, L";", keepEmpty);
  return PieceReader(body, atLineFeeds > atSemicolons ? L"\n" : L";", keepEmpty);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
