#include "authoring/TextFileCheck.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "authoring/Findings.h"
#include "authoring/FrameCheck.h"
#include "authoring/PatternCheck.h"
#include "authoring/Places.h"
#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr int noFinding = 0;

// What an outcome means for its statement by itself.
struct Meaning {
  Fate fate;
  int number;  // of the check that it fails, or `noFinding`
};

// A line of ==COLORAT that is meant as a remark, though the section knows none.
bool IsRemarkOfColorat(std::wstring_view line) {
  return line.starts_with(L'/') || line.starts_with(L'!');
}

Meaning MeaningOf(const AccountEntry& entry) {
  switch (entry.outcome) {
    case Outcome::comment:
      return {Fate::comment, noFinding};
    case Outcome::blank:
      return {Fate::blank, noFinding};
    case Outcome::classTitle:
      return {Fate::used, 701};
    case Outcome::domainListWithoutBrackets:
      return {Fate::lost, 201};
    case Outcome::blockMarksMissing:
      return {Fate::lost, 203};
    case Outcome::coloratWithoutLines:
      return {Fate::lost, 601};
    case Outcome::coloratTitleWithoutBlank:
      return {Fate::lost, 602};
    case Outcome::notFiveWords:
      if (IsRemarkOfColorat(entry.piece)) return {Fate::comment, noFinding};
      return {Fate::lost, 603};
    case Outcome::domenWithoutId:
      return {Fate::used, 401};
    case Outcome::propertyOutsideDomen:
      return {Fate::lost, 402};
    case Outcome::propertyEndedOutsideDomen:
      return {Fate::used, 402};
    case Outcome::propertyIncomplete:
      return {Fate::used, 403};
    case Outcome::propertyNumberRefused:
      return {Fate::used, 404};
    case Outcome::propertyAgain:
      return {Fate::used, 405};
    case Outcome::fieldOutsideProperty:
      return {Fate::lost, 406};
    case Outcome::fieldIncomplete:
      return {Fate::lost, 407};
    case Outcome::fieldTypeUnknown:
      return {Fate::lost, 408};
    case Outcome::fieldFlagRefused:
      return {Fate::lost, 409};
    case Outcome::fieldAgain:
      return {Fate::shadowed, 410};
    default:
      return {Fate::used, noFinding};
  }
}

// Entries that are about a statement that has an entry of its own.
bool IsRemark(Outcome outcome) {
  return outcome == Outcome::cutAtSemicolons || outcome == Outcome::defaultRefused ||
         outcome == Outcome::colorValueClamped || outcome == Outcome::colorValueRefused;
}

bool RunsOverLines(const AccountEntry& entry) {
  return entry.piece.find(L'\n') != entry.piece.npos;
}

// Whether a semicolon separates parts of the text.
bool HasSemicolonWithin(std::wstring_view text) {
  const std::size_t semicolon = text.find(L';');
  return semicolon != text.npos && semicolon + 1 < text.size();
}

class TextFileChecker {
 public:
  TextFileChecker(const LoadedFile& file, std::size_t number, Definitions& definitions,
                  Report& report)
      : file_(file), places_(file, number), definitions_(definitions), report_(report) {}

  void Check() {
    ReadEntries();
    EndSection();
  }

 private:
  // A section that is being read.
  struct Section {
    const AccountEntry* heading = nullptr;
    std::size_t number = 0;          // in the report
    std::size_t firstStatement = 0;  // in the report
    std::size_t overLines = 0;       // statements that run over several lines
    std::size_t severalInLine = 0;   // lines with several statements
    bool hasHeader = false;
    std::optional<std::size_t> emptyHeader;  // the statement of a header that no pattern follows
    std::wstring emptyHeaderCode;
  };

  // A statement that a later one of its kind takes the place of.
  struct Replaceable {
    std::size_t statement;
    Place place;
  };

  void ReadEntries() {
    for (const AccountEntry& entry : file_.account.entries) {
      if (IsHeading(entry.outcome)) {
        EndSection();
        BeginSection(entry);
      } else if (IsRemark(entry.outcome)) {
        AddRemark(entry);
      } else if (entry.piece.data()) {  // an empty section has an entry without a place
        AddStatement(entry);
      }
    }
  }

  void BeginSection(const AccountEntry& heading) {
    report_.sections.push_back(Utf8Of(heading.piece));
    section_ = {};
    section_.heading = &heading;
    section_.number = report_.sections.size() - 1;
    section_.firstStatement = report_.statements.size();
    Add(heading.piece, Fate::used);
    defaultCode_.reset();
    cutAtSemicolons_ = {};
    colorats_.clear();
    typesAreSet_ = false;
    if (heading.outcome == Outcome::paramHeading) {
      AddFinding(report_, 702, places_.Of(heading.piece), Fate::used);
    }
    ReplaceEarlier(heading);
  }

  // A section of these kinds takes the place of an earlier one, but for its domain list.
  void ReplaceEarlier(const AccountEntry& heading) {
    if (heading.outcome == Outcome::classHeading || heading.outcome == Outcome::domenHeading)
      return;
    const auto [earlier, first] = sections_.try_emplace(heading.outcome, section_.firstStatement);
    if (first) return;
    Finding& finding = AddFinding(report_, 110, report_.statements[earlier->second].place,
                                  Fate::used, {heading.piece.substr(0, heading.piece.find(L' '))});
    finding.related.push_back({places_.Of(heading.piece), RelatedKind::later});
    // The heading still ends the section above it.
    for (std::size_t i = earlier->second + 1; i < lastOfKind_[heading.outcome]; ++i) {
      Fate& fate = report_.statements[i].fate;
      const bool isList = domainList_ && domainList_->statement == i;
      if (fate == Fate::used && !isList) fate = Fate::lost;
    }
    earlier->second = section_.firstStatement;
  }

  void EndSection() {
    if (!section_.heading) return;
    lastOfKind_[section_.heading->outcome] = report_.statements.size();
    TellEmptyHeader();
    EndBlock();
    const Place heading = places_.Of(section_.heading->piece);
    if (section_.overLines > 1) {
      AddFinding(report_, 106, heading, Fate::used, {std::to_wstring(section_.overLines)});
    }
    if (section_.severalInLine > 1) {
      AddFinding(report_, 107, heading, Fate::used, {std::to_wstring(section_.severalInLine)});
    }
    section_ = {};
  }

  void Add(std::wstring_view piece, Fate fate) {
    report_.statements.push_back({places_.Of(piece), section_.number, fate});
  }

  void AddStatement(const AccountEntry& entry) {
    const Meaning meaning = MeaningOf(entry);
    Add(entry.piece, meaning.fate);
    CountSlipsOfTheCut(entry);
    if (meaning.number != noFinding) AddFindingOf(entry, meaning);
    switch (entry.outcome) {
      case Outcome::domainList:
        return Replace(domainList_, 202);
      case Outcome::defaultCode:
        CheckCode(entry);
        return Replace(defaultCode_, 204);
      case Outcome::blockMarks:
        if (entry.names[0].size() > 1) {
          AddFinding(report_, 214, LastPlace(), Fate::used, {entry.names[0]});
        }
        return;
      case Outcome::codeHeader:
        return BeginHeader(entry);
      case Outcome::pattern:
        return AddPattern(entry);
      case Outcome::domen:
      case Outcome::domenAgain:
        return BeginDomen(entry);
      case Outcome::objectTypes:
        typesAreSet_ = !entry.names[0].empty();
        typesCarryOn_ = false;
        return;
      case Outcome::property:
        TellTypesThatCarryOn();
        [[fallthrough]];
      case Outcome::field:
        definitions_.try_emplace(entry.names, LastPlace());
        return;
      case Outcome::notFiveWords:
        return AddLineOfBlock();
      case Outcome::coloratTitle:
        colors_ = &colorats_[entry.names[0]];
        [[fallthrough]];
      case Outcome::coloratWithoutLines:
      case Outcome::coloratTitleWithoutBlank:
        EndBlock();
        if (entry.outcome == Outcome::coloratTitle && RunsOverLines(entry)) {
          AddFinding(report_, 613, LastPlace(), Fate::used);
        }
        if (IsWithinLine(entry.piece)) AddFinding(report_, 608, LastPlace(), Fate::used);
        return;
      case Outcome::colorLine:
        return AddColor(entry);
      default:
        return;
    }
  }

  void BeginDomen(const AccountEntry& entry) {
    if (entry.outcome == Outcome::domen) definitions_.try_emplace(entry.names, LastPlace());
    typesCarryOn_ = typesAreSet_;
    if (IsCutAtSemicolons(entry) || !entry.names[0].ends_with(L';')) return;
    AddFinding(report_, 415, LastPlace(), Fate::used, {entry.names[0]});
  }

  // Once for each domain.
  void TellTypesThatCarryOn() {
    if (typesCarryOn_) AddFinding(report_, 417, LastPlace(), Fate::used);
    typesCarryOn_ = false;
  }

  void AddFindingOf(const AccountEntry& entry, const Meaning& meaning) {
    Finding& finding = AddFinding(report_, meaning.number, LastPlace(), meaning.fate);
    for (const std::wstring& name : entry.names) finding.arguments.push_back(Utf8Of(name));
    const auto earlier = definitions_.find(entry.names);
    if (earlier == definitions_.end()) return;
    finding.related.push_back({earlier->second, RelatedKind::earlier});
  }

  void AddRemark(const AccountEntry& entry) {
    switch (entry.outcome) {
      case Outcome::cutAtSemicolons:
        cutAtSemicolons_ = entry.piece;
        return;
      case Outcome::defaultRefused:
        return AddFindingOf(entry, {Fate::used, 411});
      default:
        if (remarkIsColor_) return;
        AddFinding(report_, entry.outcome == Outcome::colorValueClamped ? 605 : 606,
                   places_.Of(entry.piece), Fate::used, {entry.piece});
    }
  }

  bool IsCutAtSemicolons(const AccountEntry& entry) const {
    const wchar_t* const begin = cutAtSemicolons_.data();
    return begin && entry.piece.data() >= begin &&
           entry.piece.data() <= begin + cutAtSemicolons_.size();
  }

  // A header may run over lines, since its blocks need not be on one.
  void CountSlipsOfTheCut(const AccountEntry& entry) {
    if (IsCutAtSemicolons(entry)) {
      if (!RunsOverLines(entry)) return;
      if (entry.outcome == Outcome::codeHeader &&
          entry.names[0].find(L'\n') == std::wstring::npos) {
        return;
      }
      ++section_.overLines;
      if (entry.outcome == Outcome::comment) AddFinding(report_, 112, LastPlace(), Fate::comment);
      return;
    }
    if (entry.outcome == Outcome::comment || entry.outcome == Outcome::codeHeader) return;
    if (HasSemicolonWithin(entry.piece)) ++section_.severalInLine;
  }

  // The last statement takes the place of the one that is remembered.
  void Replace(std::optional<Replaceable>& earlier, int number) {
    if (earlier) {
      report_.statements[earlier->statement].fate = Fate::lost;
      Finding& finding = AddFinding(report_, number, earlier->place, Fate::lost);
      finding.related.push_back({LastPlace(), RelatedKind::later});
    }
    earlier = {report_.statements.size() - 1, LastPlace()};
  }

  void CheckCode(const AccountEntry& entry) {
    if (IsCutAtSemicolons(entry) || !entry.names[0].ends_with(L';')) return;
    AddFinding(report_, 215, LastPlace(), Fate::used, {entry.names[0]});
  }

  void BeginHeader(const AccountEntry& entry) {
    TellEmptyHeader();
    CheckCode(entry);
    section_.hasHeader = true;
    section_.emptyHeader = report_.statements.size() - 1;
    section_.emptyHeaderCode = entry.names[0];
    if (entry.names[0].empty()) AddFinding(report_, 206, LastPlace(), Fate::used);
  }

  void TellEmptyHeader() {
    if (!section_.emptyHeader) return;
    Statement& statement = report_.statements[*section_.emptyHeader];
    statement.fate = Fate::lost;
    AddFinding(report_, 207, statement.place, Fate::lost, {section_.emptyHeaderCode});
    section_.emptyHeader.reset();
  }

  void AddPattern(const AccountEntry& entry) {
    section_.emptyHeader.reset();
    if (!section_.hasHeader) AddFinding(report_, 205, LastPlace(), Fate::used);
    CheckPatternText(entry.piece, places_, report_);
  }

  // Whether something other than an at-sign comes before the block on its first line.
  static bool IsWithinLine(std::wstring_view block) {
    const wchar_t* before = block.data() - 1;
    while (IsSpace(*before) && *before != L'\n') --before;
    if (*before != L'@') return false;
    return before[-1] != L'\n';
  }

  void AddLineOfBlock() {
    ++linesOfBlock_;
    lineOfBlock_ = report_.statements.size() - 1;
  }

  // A block without a line below its title is left out, and so its only line has an effect whatever
  // it is.
  void EndBlock() {
    if (linesOfBlock_ == 1) {
      Statement& statement = report_.statements[lineOfBlock_];
      statement.fate = Fate::used;
      const auto finding =
          std::find_if(report_.findings.rbegin(), report_.findings.rend(),
                       [&statement](const Finding& told) { return told.place <= statement.place; });
      if (finding != report_.findings.rend() && finding->place == statement.place) {
        finding->fate = Fate::used;
      }
    }
    linesOfBlock_ = 0;
  }

  void AddColor(const AccountEntry& entry) {
    AddLineOfBlock();
    const std::wstring& key = entry.names[0];
    remarkIsColor_ = IsRemarkOfColorat(entry.piece);
    if (remarkIsColor_) AddFinding(report_, 607, LastPlace(), Fate::used, {key});
    const auto [earlier, added] = colors_->try_emplace(key, LastPlace());
    if (added) return;
    Finding& finding = AddFinding(report_, 604, LastPlace(), Fate::used, {key});
    finding.related.push_back({earlier->second, RelatedKind::earlier});
  }

  const Place& LastPlace() const { return report_.statements.back().place; }

  const LoadedFile& file_;
  Places places_;
  Definitions& definitions_;
  Report& report_;
  Section section_;
  std::map<Outcome, std::size_t> sections_;    // the first statement of the last of each kind
  std::map<Outcome, std::size_t> lastOfKind_;  // the end of its statements
  std::wstring_view cutAtSemicolons_;          // the last text that was cut so
  std::optional<Replaceable> domainList_;
  std::optional<Replaceable> defaultCode_;
  std::map<std::wstring, std::map<std::wstring, Place>> colorats_;  // the key texts of each
  std::map<std::wstring, Place>* colors_ = nullptr;                 // of the current one
  std::size_t linesOfBlock_ = 0;                                    // of the current Colorat
  std::size_t lineOfBlock_ = 0;                                     // the last of these statements
  bool typesAreSet_ = false;                                        // by the last @@ of the section
  bool typesCarryOn_ = false;   // to the current domain, from one above
  bool remarkIsColor_ = false;  // the last colour line
};

}  // namespace

void CheckTextFile(const LoadedFile& file, std::size_t number, Definitions& definitions,
                   Report& report) {
  TextFileChecker(file, number, definitions, report).Check();
  CheckFrame(file, Places(file, number), report);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
