#include "mapping/CodeParams.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include "base/Checked.h"
#include "base/Text.h"
#include "domen/DomenStore.h"
#include "mapping/CodeLookup.h"
#include "mapping/MapTextSection.h"
#include "mapping/ParamSection.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Properties::PropertyParameter;

std::vector<ParamItemList> GetCodeItemLists(const CodeSections& sections, int codeId,
                                            int sourceKind) {
  const MapTextSection& mapText = sections.mapText;
  if (sourceKind == sourceMapText && codeId != noCodeId) {
    return ReadItemLists(CheckedAt(mapText.records, codeId));
  }
  if (sourceKind == sourceParam) {
    return FindItemLists(sections.param, CodeOf(mapText, codeId));
  }
  return {};
}

// The words of a value text in named form, each cut at its "=" into a name and a value.
using NamedWords = std::vector<std::vector<std::wstring>>;

NamedWords CutNamedWords(const std::vector<std::wstring>& words) {
  NamedWords named;
  for (const std::wstring& word : words) named.push_back(SplitTrimmed(word, L"=", true));
  return named;
}

// Returns the value of the first word with the field's name, or else those of all words whose names
// begin with it. Such a word without a value raises `out_of_range`.
std::wstring NamedValue(const std::wstring& fieldName, const NamedWords& words) {
  std::wstring collected;
  for (const std::vector<std::wstring>& parts : words) {
    if (parts[0] == fieldName) return CheckedAt(parts, 1);
    if (!StartsWith(parts[0], fieldName)) continue;
    const std::wstring& value = CheckedAt(parts, 1);
    if (!collected.empty()) collected += L' ';
    collected += value;
  }
  return collected;
}

// A field that refuses the value keeps that of the domain.
void SetField(PropertyParameter& field, std::wstring value) {
  field.SetValue(TrimChars(value, L";"));
}

void FillByName(DomenProperty& property, const std::vector<std::wstring>& words) {
  const NamedWords named = CutNamedWords(words);
  for (const auto& field : property.fields) SetField(*field, NamedValue(field->name, named));
}

// Fields without a word keep the value of the domain; words without a field are ignored.
void FillByPosition(DomenProperty& property, const std::vector<std::wstring>& words) {
  const std::size_t count = std::min(words.size(), property.fields.size());
  for (std::size_t i = 0; i < count; ++i) SetField(*property.fields[i], words[i]);
}

// The fields are named if the first word contains "=", and positional otherwise.
void FillFields(DomenProperty& property, const std::wstring& valueText) {
  const std::vector<std::wstring> words = SplitTrimmed(valueText, L" ", false);
  const bool named = !words.empty() && words.front().find(L'=') != std::wstring::npos;
  return named ? FillByName(property, words) : FillByPosition(property, words);
}

std::wstring FieldTexts(const DomenProperty& property) {
  std::wstring texts;
  for (const auto& field : property.fields) {
    if (!texts.empty()) texts += L' ';
    texts += field->GetValue();
  }
  return texts;
}

// Reserves capacity for `more` elements. Doubles it, so that appending is amortized constant time.
template <class Container>
void ReserveMore(Container& container, std::size_t more) {
  const std::size_t size = container.size() + more;
  if (size > container.capacity()) container.reserve(std::max(size, 2 * container.capacity()));
}

void AppendItem(CodeItems& items, const ParamItem& item, const DomenProperties& properties) {
  const auto found = properties.find(item.propertyId);
  if (found == properties.end()) return;
  DomenProperty property = found->second;
  FillFields(property, item.valueText);
  const std::wstring fieldTexts = FieldTexts(property);
  // All that can fail comes first, so that an item is added as a whole or not at all.
  ReserveMore(items.suffixPlaces, 1);
  ReserveMore(items.text, item.propertyId.size() + fieldTexts.size() + 2);
  items.text += item.propertyId;
  items.suffixPlaces.push_back(items.text.size());
  items.text.append(L" ").append(fieldTexts).append(L";");
}

}  // namespace

std::vector<std::wstring> GetCodeDomenIds(const CodeSections& sections, int sourceKind) {
  if (sourceKind == sourceMapText) return sections.mapText.domenIds;
  if (sourceKind == sourceParam) return sections.param.domenIds;
  return {};
}

std::vector<std::wstring> GetCodePropertyIds(const CodeSections& sections, int codeId,
                                             int sourceKind) {
  const MapTextSection& mapText = sections.mapText;
  if (sourceKind == sourceMapText) {
    if (codeId < 0 || static_cast<std::size_t>(codeId) >= mapText.records.size()) return {};
    return SortedPropertyIds(ReadItemLists(mapText.records[static_cast<std::size_t>(codeId)]));
  }
  if (sourceKind == sourceParam) {
    return GetPropertyIds(sections.param, CodeOf(mapText, codeId));
  }
  return {};
}

CodeItems ComposeCodeItems(const CodeSections& sections, int codeId, int sourceKind,
                           const DomenProperties& properties) {
  const std::vector<ParamItemList> itemLists = GetCodeItemLists(sections, codeId, sourceKind);
  CodeItems composed;
  if (properties.empty()) return composed;
  for (const ParamItemList& items : itemLists) {
    for (const ParamItem& item : items) {
      try {
        AppendItem(composed, item, properties);
      } catch (const std::out_of_range&) {
        // The item is left out; the others go on.
      } catch (...) {
        composed.complete = false;
      }
    }
  }
  return composed;
}

const CodeItems& FindCodeItems(const CodeSections& sections, const DomenStore& store, int codeId,
                               int sourceKind, CodeItems& composed) {
  const MapTextSection& section = sections.mapText;
  RememberedItems& remembered = section.records.Items();
  const bool keeps = sourceKind == sourceMapText && codeId != noCodeId;
  if (keeps) {
    if (const auto* found = remembered.Find(codeId, store, section.domenIds)) return *found;
  }
  composed =
      ComposeCodeItems(sections, codeId, sourceKind,
                       store.CollectProperties(GetCodeDomenIds(sections, sourceKind),
                                               GetCodePropertyIds(sections, codeId, sourceKind)));
  if (keeps && composed.complete) {
    if (const auto* kept = remembered.Keep(codeId, store, section.domenIds, composed)) return *kept;
  }
  return composed;
}

std::wstring ComposeCodeParams(const CodeSections& sections, int codeId, int sourceKind,
                               std::wstring_view nameSuffix, const DomenProperties& properties) {
  std::wstring text;
  ComposeCodeItems(sections, codeId, sourceKind, properties)
      .WriteTo([&text](std::wstring_view piece) { text += piece; }, nameSuffix);
  return text;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
