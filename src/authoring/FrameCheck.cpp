#include "authoring/FrameCheck.h"

#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "authoring/Findings.h"
#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr std::array<std::wstring_view, 5> knownHeadings = {L"==CLASS", L"==MAPTEXT", L"==COLORAT",
                                                            L"==PARAM", L"==DOMEN"};

// The heading as it would be in ASCII capitals and without blanks.
std::wstring PlainHeading(std::wstring_view heading) {
  std::wstring plain;
  for (const wchar_t unit : heading) {
    if (IsSpace(unit)) continue;
    plain += unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
  }
  return plain;
}

std::optional<std::wstring_view> HeadingMeant(std::wstring_view heading) {
  const std::wstring plain = PlainHeading(heading);
  for (const std::wstring_view known : knownHeadings) {
    if (plain.starts_with(known)) return known;
  }
  return std::nullopt;
}

// The headings of the sections that were read.
std::set<const wchar_t*> ReadHeadings(const Account& account) {
  std::set<const wchar_t*> headings;
  for (const AccountEntry& entry : account.entries) {
    if (IsHeading(entry.outcome)) headings.insert(entry.piece.data());
  }
  return headings;
}

class FrameChecker {
 public:
  FrameChecker(const LoadedFile& file, const Places& places, Report& report)
      : file_(file), places_(places), report_(report), read_(ReadHeadings(file.account)) {}

  void Check() {
    AddUnreadLines();
    TellMark();
    if (read_.empty()) AddFinding(report_, 109, {places_.Number(), 1, 1, 1, 1}, Fate::ignored);
    AddEnd();
  }

 private:
  // Lines outside all sections that are read, and blank lines.
  void AddUnreadLines() {
    const std::vector<TextSection>& sections = file_.text->sections;
    auto next = sections.begin();
    bool isRead = false;
    std::size_t section = 0;
    std::size_t number = 1;
    for (const AccountLine& line : file_.account.lines) {
      for (; number < line.number; ++number) AddBlankLine(number, section);
      ++number;
      const std::wstring_view text = places_.TextOf(line);
      if (next != sections.end() && next->heading.data() == text.data()) {
        isRead = read_.contains(text.data());
        section = isRead ? 0 : AddUnreadHeading(text);
        ++next;
      }
      if (!isRead) report_.statements.push_back({places_.Of(text), section, Fate::ignored});
    }
    // What follows the end of the reading is a statement of its own.
    const Account& account = file_.account;
    const bool isWhole = account.end == EndOfReading::endOfFile;
    const std::size_t end = isWhole ? account.lineCount + 1 : account.endLine;
    for (; number < end; ++number) AddBlankLine(number, section);
  }

  void AddBlankLine(std::size_t number, std::size_t section) {
    report_.statements.push_back({{places_.Number(), number, 1, number, 1}, section, Fate::blank});
  }

  // Returns the number of the section.
  std::size_t AddUnreadHeading(std::wstring_view heading) {
    report_.sections.push_back(Utf8Of(heading));
    const Place place = places_.Of(heading);
    const std::optional<std::wstring_view> meant = HeadingMeant(heading);
    if (!meant) {
      AddFinding(report_, 105, place, Fate::ignored);
    } else if (!heading.starts_with(*meant)) {
      AddFinding(report_, 104, place, Fate::ignored, {heading, *meant});
    } else {
      AddFinding(report_, file_.readForDomens ? 108 : 111, place, Fate::ignored);
    }
    return report_.sections.size() - 1;
  }

  // A mark at the beginning matters if a heading follows it.
  void TellMark() {
    const std::vector<AccountLine>& lines = file_.account.lines;
    if (lines.empty()) return;
    const std::wstring_view first = places_.TextOf(lines.front());
    if (!first.starts_with(L"\xFEFF==")) return;
    AddFinding(report_, 101, places_.Of(first), Fate::ignored);
  }

  // What follows the end of the reading is one statement.
  void AddEnd() {
    const Account& account = file_.account;
    if (account.end == EndOfReading::endOfFile) return;
    const Place rest{places_.Number(), account.endLine, account.endColumn, account.lineCount,
                     account.lineCount == account.endLine ? account.endColumn : 1};
    report_.statements.push_back({rest, 0, Fate::lost});
    const Place here{places_.Number(), account.endLine, account.endColumn, account.endLine,
                     account.endColumn};
    AddFinding(report_, account.end == EndOfReading::notUtf8 ? 102 : 103, here, Fate::lost);
  }

  const LoadedFile& file_;
  const Places& places_;
  Report& report_;
  std::set<const wchar_t*> read_;
};

}  // namespace

void CheckFrame(const LoadedFile& file, const Places& places, Report& report) {
  FrameChecker(file, places, report).Check();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
