#include "authoring/ItemCheck.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "authoring/Findings.h"
#include "domen/PropertyType.h"
#include "mapping/CodeParams.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr const wchar_t* typeKeywords[] = {L"int", L"real", L"str", L"ilist", L"rlist", L"slist"};

class ItemChecker {
 public:
  ItemChecker(const LoadedFile& file, const DomenStore& domens, const Places& places,
              Report& report)
      : file_(file),
        section_(file.classificator->mapTextSection),
        domens_(domens),
        places_(places),
        report_(report) {}

  void Check() {
    CheckDomainList();
    std::set<const CodeHeader*> done;
    for (std::size_t i = 0; i < section_.records.size(); ++i) {
      const CodeHeader& header = *section_.records[i].header;
      if (!header.blocks.empty() && done.insert(&header).second) {
        CheckHeader(header, static_cast<int>(i));
      }
    }
  }

 private:
  void CheckDomainList() {
    const AccountEntry* list = nullptr;
    for (const AccountEntry& entry : file_.account.entries) {
      if (entry.outcome == Outcome::domainList) list = &entry;
    }
    if (!list) return;
    for (const std::wstring& id : section_.domenIds) {
      if (domens_.domens.contains(id)) continue;
      AddFinding(report_, 308, places_.Of(list->piece), Fate::used, {id});
    }
  }

  void CheckHeader(const CodeHeader& header, int codeId) {
    const ItemBlocks blocks = CutItemBlocks(header);
    if (!blocks.open.empty()) {
      AddFinding(report_, 208, places_.Of(blocks.open), Fate::used, {header.closeMark});
    }
    if (blocks.closed.empty()) return;
    if (section_.domenIds.empty()) {
      if (!toldOfNoList_) {
        AddFinding(report_, 302, places_.Of(blocks.closed.front()), Fate::used);
      }
      toldOfNoList_ = true;
      return;
    }
    const CodeSections sections = SectionsOf(*file_.classificator);
    ItemAccount account;
    ComposeCodeItems(sections, codeId, sourceMapText,
                     domens_.CollectProperties(section_.domenIds,
                                               GetCodePropertyIds(sections, codeId, sourceMapText)),
                     &account);
    for (const ItemEntry& entry : account) Tell(entry, places_.Of(blocks.closed[entry.list]));
  }

  void Tell(const ItemEntry& entry, const Place& block) {
    switch (entry.outcome) {
      case ItemOutcome::composed:
        return;
      case ItemOutcome::propertyUnknown:
        AddFinding(report_, 301, block, Fate::used, {entry.propertyId});
        return;
      case ItemOutcome::wordWithoutValue:
        AddFinding(report_, 306, block, Fate::used, {entry.propertyId});
        return;
      case ItemOutcome::valueRefused:
        AddFinding(report_, 303, block, Fate::used,
                   {entry.propertyId, entry.fieldName, entry.text, typeKeywords[entry.fieldType]});
        return;
      case ItemOutcome::valueWithoutField:
        AddFinding(report_, 304, block, Fate::used, {entry.propertyId, entry.text});
        return;
      case ItemOutcome::nameWithoutField:
        AddFinding(report_, 305, block, Fate::used, {entry.propertyId, entry.text});
    }
  }

  const LoadedFile& file_;
  const MapTextSection& section_;
  const DomenStore& domens_;
  const Places& places_;
  Report& report_;
  bool toldOfNoList_ = false;
};

}  // namespace

void CheckItems(const LoadedFile& file, const DomenStore& domens, const Places& places,
                Report& report) {
  ItemChecker(file, domens, places, report).Check();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
