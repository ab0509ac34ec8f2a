#include "classificator/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "editor/Files.h"
#include "editor/Text.h"
#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::wstring JoinTrimmedLines(std::wstring text) {
  // The kept lines move to the front of the same text. They never overtake the reader: what has
  // been kept is never longer than what has been read.
  std::size_t kept = 0;
  PieceReader lines(text, L"\n", false);
  for (std::wstring_view line; lines.Next(line);) {
    if (kept != 0) text[kept++] = L'\n';
    std::wstring::traits_type::move(text.data() + kept, line.data(), line.size());
    kept += line.size();
  }
  text.resize(kept);
  return text;
}

std::optional<std::wstring> ReadTextFile(const std::wstring& path) {
  std::optional<std::string> bytes = ReadFile(path);
  if (!bytes) return std::nullopt;
  std::wstring text = DecodeUtf8(*bytes);
  bytes.reset();
  return JoinTrimmedLines(std::move(text));
}

std::vector<TextSection> CutSections(std::wstring_view lines) {
  std::vector<TextSection> sections;
  for (std::size_t start = 0; start < lines.size();) {
    const std::size_t end = std::min(lines.find(L'\n', start), lines.size());
    const std::size_t next = std::min(end + 1, lines.size());
    if (StartsWith(lines.substr(start), L"==")) {
      sections.push_back({lines.substr(start, end - start), lines.substr(next, 0)});
    } else if (!sections.empty()) {
      std::wstring_view& body = sections.back().body;
      const auto bodyStart = static_cast<std::size_t>(body.data() - lines.data());
      body = lines.substr(bodyStart, end - bodyStart);
    }
    start = next;
  }
  return sections;
}

std::vector<std::wstring_view> CutEntries(std::wstring_view body, bool keepEmpty) {
  const std::size_t atLineFeeds = CountPieces(body, L"\n", keepEmpty);
  const std::size_t atSemicolons = CountPieces(body, L";", keepEmpty);
  return SplitViews(body, atLineFeeds > atSemicolons ? L"\n" : L";", keepEmpty);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
