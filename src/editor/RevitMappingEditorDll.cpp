#include "RevitMappingEditorDll.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Buffers.h"
#include "base/Checked.h"
#include "base/Files.h"
#include "base/Status.h"
#include "mapping/CodeLookup.h"
#include "mapping/CodeParams.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Add-ins construct the object themselves, so that its size is part of the ABI: exactly that of its
// seven members.
struct SevenMembers {
  std::wstring configText;
  std::wstring dataFolder;
  int activeClassificator;
  std::deque<Classificator> classificators;
  DomenStore domenStore;
  std::wstring startMark;
  std::wstring endMark;
};
static_assert(sizeof(RevitMappingEditorDll) == sizeof(SevenMembers));

// Helpers are free functions: private members of the exported class would be exported too.

// Returns the colour of a key text in the active Colorat.
const ColorEntry& ActiveColor(const Classificator& classificator, const wchar_t* text) {
  return CheckedAt(CheckedAt(classificator.colorats, classificator.activeColoratId), text);
}

constexpr auto keyOf = [](const auto& entry) -> std::wstring_view { return entry.first; };

void HandOutProperties(const std::vector<const DomenProperty*>& properties, int& count,
                       const wchar_t**& ids, const wchar_t**& names, int*& sortIndexes) {
  HandOut(properties, count, Into(ids, &DomenProperty::id), Into(names, &DomenProperty::name),
          Into(sortIndexes, &DomenProperty::sortIndex));
}

// Unchecked. REQUIRES: activeClassificator >= 0.
std::size_t Index(int activeClassificator) {
  return static_cast<std::size_t>(activeClassificator);
}

}  // namespace

RevitMappingEditorDll::RevitMappingEditorDll(const wchar_t* folder, const wchar_t* config)
    : configText(config), dataFolder(folder) {}

RevitMappingEditorDll::RevitMappingEditorDll(const RevitMappingEditorDll& other) = default;

RevitMappingEditorDll& RevitMappingEditorDll::operator=(const RevitMappingEditorDll& other) {
  if (this == &other) return *this;
  // Whatever can fail comes first, so that a failure leaves this editor unchanged.
  RevitMappingEditorDll copy(other);
  configText = std::move(copy.configText);
  dataFolder = std::move(copy.dataFolder);
  activeClassificator = copy.activeClassificator;
  classificators = std::move(copy.classificators);
  domenStore = std::move(copy.domenStore);
  startMark = std::move(copy.startMark);
  endMark = std::move(copy.endMark);
  return *this;
}

RevitMappingEditorDll::~RevitMappingEditorDll() = default;

int RevitMappingEditorDll::CreateClassificator(const wchar_t* id, const wchar_t* name,
                                               const wchar_t* paramName, const wchar_t* file) {
  Classificator classificator(id);
  classificator.classificatorName = name;
  classificator.paramName = paramName;
  const std::optional<std::wstring> path = FindFile(dataFolder, file);
  if (!path) return statusAbsent;
  classificators.push_back(std::move(classificator));
  std::shared_ptr<const TextFile> read;
  const int status = classificators.back().Load(*path, &read);
  if (status != statusDone) return status;
  return domenStore.LoadDomen(*path, configText, read);
}

void RevitMappingEditorDll::GetClassificatorsNames(int& count, const wchar_t**& ids,
                                                   const wchar_t**& names) {
  HandOut(classificators, count, Into(ids, &Classificator::classificatorId),
          Into(names, &Classificator::classificatorName));
}

int RevitMappingEditorDll::SetActiveClassificator(const wchar_t* id) {
  if (classificators.empty()) return statusNothingToChoose;
  const auto found = std::find_if(
      classificators.begin(), classificators.end(),
      [id](const Classificator& classificator) { return classificator.classificatorId == id; });
  if (found == classificators.end()) return statusAbsent;
  activeClassificator = static_cast<int>(found - classificators.begin());
  return statusDone;
}

const wchar_t* RevitMappingEditorDll::GetActiveClassificatorParamName() {
  return NewString(classificators[Index(activeClassificator)].paramName);
}

int RevitMappingEditorDll::SetActiveColorat(const wchar_t* id) {
  Classificator& classificator = CheckedAt(classificators, activeClassificator);
  if (classificator.colorats.empty()) return statusNothingToChoose;
  if (!classificator.colorats.contains(id)) return statusAbsent;
  classificator.activeColoratId = id;
  return statusDone;
}

void RevitMappingEditorDll::GetColoratsIds(int& count, const wchar_t**& ids) {
  const Classificator& classificator = CheckedAt(classificators, activeClassificator);
  const auto active = classificator.colorats.find(classificator.activeColoratId);
  if (classificator.activeColoratId.empty() || active == classificator.colorats.end()) {
    count = 0;
    return;
  }
  HandOut(active->second, count, Into(ids, keyOf));
}

int RevitMappingEditorDll::GetColorNum(const wchar_t* text) {
  return ActiveColor(CheckedAt(classificators, activeClassificator), text).number;
}

void RevitMappingEditorDll::GetColor(const wchar_t* text, int& number, int& channel1, int& channel2,
                                     int& channel3, int& percent) {
  const ColorEntry& color = ActiveColor(CheckedAt(classificators, activeClassificator), text);
  number = color.number;
  channel1 = color.channel1;
  channel2 = color.channel2;
  channel3 = color.channel3;
  percent = color.percent;
}

int RevitMappingEditorDll::GetClaccificatorCodeId(const wchar_t* text) {
  return FindCodeId(classificators[Index(activeClassificator)].mapTextSection, text);
}

const wchar_t* RevitMappingEditorDll::GetClaccificatorCode(int codeId) {
  return NewString(CodeOf(classificators[Index(activeClassificator)].mapTextSection, codeId));
}

const wchar_t* RevitMappingEditorDll::GetDefaultClaccificatorCode() {
  return NewString(classificators[Index(activeClassificator)].mapTextSection.defaultCode);
}

const wchar_t* RevitMappingEditorDll::GetMappingStr(const wchar_t* text, int sourceKind,
                                                    const wchar_t* nameSuffix) {
  const Classificator& classificator = classificators[Index(activeClassificator)];
  const CodeSections sections = SectionsOf(classificator);
  const int codeId = FindCodeId(sections.mapText, text);
  const std::wstring_view code = CodeOf(sections.mapText, codeId);
  CodeItems composed;
  const CodeItems& items = FindCodeItems(sections, domenStore, codeId, sourceKind, composed);
  return NewJoined([&](const auto& append) {
    append(startMark);
    append(classificator.paramName);
    append(L" ");
    append(code);
    append(L";");
    items.WriteTo(append, nameSuffix);
    append(endMark);
  });
}

const wchar_t* RevitMappingEditorDll::GetClaccificatorCodeParams(int codeId, int sourceKind,
                                                                 const wchar_t* nameSuffix) {
  CodeItems composed;
  const CodeItems& items = FindCodeItems(SectionsOf(classificators[Index(activeClassificator)]),
                                         domenStore, codeId, sourceKind, composed);
  return NewJoined([&](const auto& append) { items.WriteTo(append, nameSuffix); });
}

const wchar_t* RevitMappingEditorDll::GetStartMark() {
  return NewString(L" " + startMark);
}

const wchar_t* RevitMappingEditorDll::GetEndMark() {
  return NewString(endMark + L" ");
}

void RevitMappingEditorDll::SetStartMark(const wchar_t* mark) {
  startMark = mark;
}

void RevitMappingEditorDll::SetEndMark(const wchar_t* mark) {
  endMark = mark;
}

int RevitMappingEditorDll::CreateDomen(const wchar_t* file) {
  const std::optional<std::wstring> path = FindFile(dataFolder, file);
  return path ? domenStore.LoadDomen(*path, configText) : statusAbsent;
}

const wchar_t** RevitMappingEditorDll::GetDomensIds(int& count) {
  const wchar_t** ids = nullptr;
  HandOut(domenStore.ListDomenIds(), count, Into(ids, std::identity()));
  return ids;
}

const wchar_t** RevitMappingEditorDll::GetDomensNames(int& count) {
  const wchar_t** names = nullptr;
  HandOut(domenStore.ListDomenNames(), count, Into(names, std::identity()));
  return names;
}

const wchar_t* RevitMappingEditorDll::GetActiveDomenId() {
  return NewString(domenStore.activeDomenId);
}

int RevitMappingEditorDll::SetActiveDomenId(const wchar_t* domenId) {
  return domenStore.SelectDomenById(domenId);
}

int RevitMappingEditorDll::SetActiveDomenByName(const wchar_t* domenName) {
  return domenStore.SelectDomenByName(domenName);
}

void RevitMappingEditorDll::GetPropertiesSortIndex(const wchar_t* domenId, int& count,
                                                   const wchar_t**& ids, int*& sortIndexes) {
  HandOut(domenStore.SortIndexes(domenId), count, Into(ids, keyOf),
          Into(sortIndexes, [](const auto& entry) { return entry.second; }));
}

void RevitMappingEditorDll::GetDomenPropertysByObjType(const wchar_t* domenId,
                                                       const wchar_t* objectType, int& count,
                                                       const wchar_t**& ids, const wchar_t**& names,
                                                       int*& sortIndexes) {
  HandOutProperties(domenStore.PropertiesOfType(domenId, objectType), count, ids, names,
                    sortIndexes);
}

void RevitMappingEditorDll::GetDomenPropertysByObjTypes(const wchar_t* domenId, int objectTypeCount,
                                                        const wchar_t** objectTypes, int& count,
                                                        const wchar_t**& ids,
                                                        const wchar_t**& names, int*& sortIndexes) {
  std::vector<std::wstring> types;
  for (int i = 0; i < objectTypeCount; ++i) types.emplace_back(objectTypes[i]);
  HandOutProperties(domenStore.PropertiesOfTypes(domenId, types), count, ids, names, sortIndexes);
}

void RevitMappingEditorDll::GetDomenPropertyFieldsValues(
    const wchar_t* domenId, const wchar_t* propertyId, int& count, const wchar_t**& fieldNames,
    const wchar_t**& fieldTitles, int*& valueTypes, bool*& fieldFlags, const wchar_t**& values) {
  const DomenProperty* property = domenStore.FindStoredProperty(domenId, propertyId);
  if (!property) {
    count = 0;
    return;
  }
  HandOut(property->fields, count,
          Into(fieldNames, [](const auto& field) -> std::wstring_view { return field->name; }),
          Into(fieldTitles, [](const auto& field) -> std::wstring_view { return field->title; }),
          Into(valueTypes, [](const auto& field) { return field->valueType; }),
          Into(fieldFlags, [](const auto& field) { return field->fieldFlag; }),
          Into(values, [](const auto& field) { return CopiedValue(*field); }));
}

void RevitMappingEditorDll::GetDomenPropertiesCheckInfo(const wchar_t* domenId, int& count,
                                                        const wchar_t**& ids, bool*& uniqueFlags,
                                                        int*& fieldCounts, bool*& listFlags) {
  count = 0;
  HandOut(domenStore.CheckInfos(domenId), count, Into(ids, &PropertyCheckInfo::id),
          Into(uniqueFlags, &PropertyCheckInfo::unique),
          Into(fieldCounts, &PropertyCheckInfo::fieldCount),
          Into(listFlags, &PropertyCheckInfo::isList));
}

void RevitMappingEditorDll::ExportJson(const wchar_t* domenId, const wchar_t* file) {
  domenStore.ExportDomenJson(domenId, file);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
