#include "classificator/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "editor/Files.h"
#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Where the next line that begins with "==" starts, from the start of a line on; the end if there
// is none.
std::size_t FindHeading(std::wstring_view lines, std::size_t start) {
  while (start < lines.size()) {
    if (lines[start] == L'=' && lines.substr(start + 1, 1) == L"=") return start;
    start = std::min(lines.find(L'\n', start), lines.size() - 1) + 1;
  }
  return lines.size();
}

}  // namespace

std::wstring JoinTrimmedLines(std::wstring text) {
  // The kept lines move to the front of the same text. They never overtake the reader: what has
  // been kept is never longer than what has been read.
  std::size_t kept = 0;
  PieceReader lines(text, L"\n", false);
  for (std::wstring_view line; lines.Next(line);) {
    if (kept != 0) text[kept++] = L'\n';
    if (text.data() + kept != line.data()) {
      std::wstring::traits_type::move(text.data() + kept, line.data(), line.size());
    }
    kept += line.size();
  }
  text.resize(kept);
  return text;
}

SharedText ReadTextFile(const std::wstring& path) {
  std::optional<std::string> bytes = ReadFile(path);
  if (!bytes) return nullptr;
  std::wstring text = DecodeUtf8(*bytes);
  bytes.reset();
  return std::make_shared<const std::wstring>(JoinTrimmedLines(std::move(text)));
}

std::vector<TextSection> CutSections(std::wstring_view lines) {
  std::vector<TextSection> sections;
  for (std::size_t start = FindHeading(lines, 0); start < lines.size();) {
    const std::size_t headingEnd = std::min(lines.find(L'\n', start), lines.size());
    const std::size_t body = std::min(headingEnd + 1, lines.size());
    const std::size_t next = FindHeading(lines, body);
    // Without the line feed in front of the next heading.
    const std::size_t bodyEnd = next < lines.size() ? std::max(body, next - 1) : next;
    sections.push_back(
        {lines.substr(start, headingEnd - start), lines.substr(body, bodyEnd - body)});
    start = next;
  }
  return sections;
}

PieceReader CutEntries(std::wstring_view body, bool keepEmpty) {
  const std::size_t atLineFeeds = CountPieces(body, L"\n", keepEmpty);
  const std::size_t atSemicolons = CountPieces(body, L";", keepEmpty);
  return PieceReader(body, atLineFeeds > atSemicolons ? L"\n" : L";", keepEmpty);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
