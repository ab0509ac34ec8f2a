#include "naive/ClassificatorFile.h"

#include <cstddef>

#include "naive/ColoratSection.h"
#include "naive/MapTextSection.h"
#include "naive/ParamSection.h"
#include "naive/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

bool EndsLine(wchar_t unit) {
  return unit == L'\n' || unit == L'\r' || unit == 0x2028 || unit == 0x2029;
}

// Returns whether the expression `\((.*)\)` matches at this place, and its capture. The dot is
// greedy and doesn't match line terminators.
bool MatchesAt(const std::wstring& entry, std::size_t start, std::wstring& capture) {
  if (entry[start] != L'(') return false;
  std::size_t end = start + 1;
  while (end < entry.size() && !EndsLine(entry[end])) ++end;
  for (; end > start + 1; --end) {
    if (entry[end - 1] != L')') continue;
    capture = entry.substr(start + 1, end - start - 2);
    return true;
  }
  return false;
}

bool Search(const std::wstring& entry, std::wstring& capture) {
  for (std::size_t start = 0; start < entry.size(); ++start) {
    if (MatchesAt(entry, start, capture)) return true;
  }
  return false;
}

}  // namespace

void ParseClassSection(ClassificatorFile& file, std::wstring text) {
  for (std::wstring entry : SplitStatements(text)) {
    entry = Trim(entry);
    if (entry.empty() || !StartsWith(entry, L"@@@")) continue;
    file.classTitle = Trim(entry.substr(3));
    std::wstring capture;
    if (!Search(entry, capture)) continue;
    const Texts words = SplitTrimmed(capture, L" ", true);
    file.classFirstWord = words[0];
    if (words.size() > 1) file.classSecondWord = words[1];
  }
}

ClassificatorFile ReadClassificator(std::string bytes) {
  ClassificatorFile file;
  for (const Section& section : ReadSections(bytes)) {
    if (StartsWith(section.heading, L"==CLASS")) {
      ParseClassSection(file, section.body);
    } else if (StartsWith(section.heading, L"==MAPTEXT")) {
      ParseMapTextSection(file.mapTextSection, section.body);
    } else if (StartsWith(section.heading, L"==COLORAT")) {
      ParseColoratSection({file.colorats, file.activeColoratId}, section.body);
    } else if (StartsWith(section.heading, L"==PARAM")) {
      ParseParamSection(file.paramSection, section.body);
    }
  }
  return file;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
