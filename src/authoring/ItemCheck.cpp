#include "authoring/ItemCheck.h"

#include <cstddef>
#include <map>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Findings.h"
#include "authoring/NearNames.h"
#include "domen/PropertyType.h"
#include "mapping/CodeParams.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr const wchar_t* typeKeywords[] = {L"int", L"real", L"str", L"ilist", L"rlist", L"slist"};

std::vector<std::wstring_view> DomenIds(const DomenStore& domens) {
  std::vector<std::wstring_view> ids;
  for (const auto& [id, domen] : domens.domens) ids.push_back(id);
  return ids;
}

std::vector<std::wstring_view> PropertyIds(const DomenStore& domens) {
  std::vector<std::wstring_view> ids;
  for (const auto& [domenId, domen] : domens.domens) {
    for (const auto& [id, property] : domen.properties) ids.push_back(id);
  }
  return ids;
}

std::vector<std::wstring> Strings(const std::vector<std::wstring_view>& views) {
  return {views.begin(), views.end()};
}

class ItemChecker {
 public:
  ItemChecker(const LoadedFile& file, const DomenStore& domens, const Places& places,
              PropertyUses& uses, Report& report)
      : file_(file),
        section_(file.classificator->mapTextSection),
        domens_(domens),
        places_(places),
        domenIds_(DomenIds(domens)),
        propertyIds_(PropertyIds(domens)),
        properties_(domens.CollectProperties(section_.domenIds, Strings(PropertyIds(domens)))),
        uses_(uses),
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
  // The last list counts.
  void CheckDomainList() {
    const AccountEntry* list = nullptr;
    for (const AccountEntry& entry : file_.account.entries) {
      if (entry.outcome == Outcome::domainList) list = &entry;
    }
    if (!list) return;
    const Place place = places_.Of(list->piece);
    const std::set<std::wstring> ids(section_.domenIds.begin(), section_.domenIds.end());
    for (const std::wstring& id : ids) {
      if (domens_.domens.contains(id)) continue;
      AddFinding(report_, 308, place, Fate::used, {id});
      TellSimilar(place, id, domenIds_);
    }
    TellHidden(place);
  }

  // A property is filled out of the first listed domain that has it.
  void TellHidden(const Place& place) {
    for (const std::wstring& id : section_.domenIds) {
      const auto domen = domens_.domens.find(id);
      if (domen == domens_.domens.end()) continue;
      for (const auto& [key, property] : domen->second.properties) {
        const auto [first, added] = domenOfProperty_.try_emplace(key, id);
        if (added || first->second == id) continue;
        AddFinding(report_, 309, place, Fate::used, {key, first->second, id});
      }
    }
  }

  void TellSimilar(const Place& place, std::wstring_view unknown, const NearNames& names) {
    const std::optional<std::wstring_view> near = names.NearestName(unknown);
    if (near) AddFinding(report_, 801, place, Fate::used, {unknown, *near});
  }

  void CheckHeader(const CodeHeader& header, int codeId) {
    const ItemBlocks blocks = CutItemBlocks(header);
    if (!blocks.open.empty()) {
      AddFinding(report_, 208, places_.Of(blocks.open), Fate::used, {header.closeMark});
    }
    if (blocks.closed.empty()) return;
    TellLostValues(header, codeId);
    if (section_.domenIds.empty()) {
      if (!toldOfNoList_) {
        AddFinding(report_, 302, places_.Of(blocks.closed.front()), Fate::used);
      }
      toldOfNoList_ = true;
      return;
    }
    const CodeSections sections = SectionsOf(*file_.classificator);
    ItemAccount account;
    const CodeItems items =
        ComposeCodeItems(sections, codeId, sourceMapText, properties_, &account);
    // The account lacks what memory ran out for.
    if (!items.complete) throw std::bad_alloc();
    for (const ItemEntry& entry : account) {
      uses_.insert(entry.propertyId);
      Tell(entry, places_.Of(blocks.closed[entry.list]));
    }
  }

  void TellLostValues(const CodeHeader& header, int codeId) {
    std::vector<std::wstring> lost;
    ReadItemLists(section_.records[static_cast<std::size_t>(codeId)], &lost);
    for (const std::wstring& token : lost) {
      AddFinding(report_, 307, places_.Of(header.blocks), Fate::used, {token});
    }
  }

  void Tell(const ItemEntry& entry, const Place& block) {
    switch (entry.outcome) {
      case ItemOutcome::propertyUnknown:
        AddFinding(report_, 301, block, Fate::used, {entry.propertyId});
        return TellSimilar(block, entry.propertyId, propertyIds_);
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
      case ItemOutcome::namedByPosition:
        AddFinding(report_, 310, block, Fate::used, {entry.propertyId, entry.text});
        return;
      case ItemOutcome::nameWithoutField:
        AddFinding(report_, 305, block, Fate::used, {entry.propertyId, entry.text});
        return TellSimilar(block, entry.text, NearNames(FieldNames(entry.propertyId)));
      default:
        return;
    }
  }

  std::vector<std::wstring_view> FieldNames(const std::wstring& propertyId) const {
    std::vector<std::wstring_view> names;
    const DomenProperty* property =
        domens_.FindStoredProperty(domenOfProperty_.at(propertyId), propertyId);
    for (const auto& field : property->fields) names.push_back(field->name);
    return names;
  }

  const LoadedFile& file_;
  const MapTextSection& section_;
  const DomenStore& domens_;
  const Places& places_;
  NearNames domenIds_;
  NearNames propertyIds_;
  DomenProperties properties_;                            // all that items can fill
  std::map<std::wstring, std::wstring> domenOfProperty_;  // of those that are listed, the first
  PropertyUses& uses_;
  Report& report_;
  bool toldOfNoList_ = false;
};

}  // namespace

void CheckItems(const LoadedFile& file, const DomenStore& domens, const Places& places,
                PropertyUses& uses, Report& report) {
  ItemChecker(file, domens, places, uses, report).Check();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
