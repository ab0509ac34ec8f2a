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

// Whether the value of a word of this name goes to the field.
bool GoesTo(std::wstring_view wordName, const std::wstring& fieldName) {
  return wordName == fieldName || StartsWith(wordName, fieldName);
}

// Returns the value of the first word with the field's name, or else those of all words whose names
// begin with it. Such a word without a value raises `out_of_range`.
std::wstring NamedValue(const std::wstring& fieldName, const NamedWords& words) {
  std::wstring collected;
  for (const std::vector<std::wstring>& parts : words) {
    if (parts[0] == fieldName) return CheckedAt(parts, 1);
    if (!GoesTo(parts[0], fieldName)) continue;
    const std::wstring& value = CheckedAt(parts, 1);
    if (!collected.empty()) collected += L' ';
    collected += value;
  }
  return collected;
}

// Adds to the account of one item.
class ItemTeller {
 public:
  ItemTeller(ItemAccount* account, std::size_t list, std::size_t item, const ParamItem& of)
      : account_(account), list_(list), item_(item), of_(of) {}

  explicit operator bool() const { return account_ != nullptr; }

  void Tell(ItemOutcome outcome, std::wstring_view text = {},
            const PropertyParameter* field = nullptr) const {
    if (!account_) return;
    account_->push_back({list_, item_, outcome, of_.propertyId, std::wstring(text),
                         field ? field->name : std::wstring(), field ? field->valueType : 0});
  }

 private:
  ItemAccount* account_;
  std::size_t list_;
  std::size_t item_;
  const ParamItem& of_;
};

// A field that refuses the value keeps that of the domain. Without a value there is nothing to
// refuse.
void SetField(PropertyParameter& field, std::wstring value, const ItemTeller& teller) {
  TrimChars(value, L";");
  if (field.SetValue(value) || value.empty()) return;
  teller.Tell(ItemOutcome::valueRefused, value, &field);
}

void TellNamesWithoutField(const DomenProperty& property, const NamedWords& words,
                           const ItemTeller& teller) {
  for (const std::vector<std::wstring>& parts : words) {
    const bool goes = std::any_of(property.fields.begin(), property.fields.end(),
                                  [&](const auto& field) { return GoesTo(parts[0], field->name); });
    if (!goes) teller.Tell(ItemOutcome::nameWithoutField, parts[0]);
  }
}

void FillByName(DomenProperty& property, const std::vector<std::wstring>& words,
                const ItemTeller& teller) {
  const NamedWords named = CutNamedWords(words);
  for (const auto& field : property.fields) {
    SetField(*field, NamedValue(field->name, named), teller);
  }
  if (teller) TellNamesWithoutField(property, named, teller);
}

// Fields without a word keep the value of the domain; words without a field are ignored.
void FillByPosition(DomenProperty& property, const std::vector<std::wstring>& words,
                    const ItemTeller& teller) {
  const std::size_t count = std::min(words.size(), property.fields.size());
  for (std::size_t i = 0; i < count; ++i) {
    SetField(*property.fields[i], words[i], teller);
    if (words[i].find(L'=') == std::wstring::npos) continue;
    teller.Tell(ItemOutcome::namedByPosition, words[i]);
  }
  for (std::size_t i = count; i < words.size(); ++i) {
    teller.Tell(ItemOutcome::valueWithoutField, words[i]);
  }
}

// The fields are named if the first word contains "=", and positional otherwise.
void FillFields(DomenProperty& property, const std::wstring& valueText, const ItemTeller& teller) {
  const std::vector<std::wstring> words = SplitTrimmed(valueText, L" ", false);
  const bool named = !words.empty() && words.front().find(L'=') != std::wstring::npos;
  return named ? FillByName(property, words, teller) : FillByPosition(property, words, teller);
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

void AppendItem(CodeItems& items, const ParamItem& item, const DomenProperties& properties,
                const ItemTeller& teller) {
  const auto found = properties.find(item.propertyId);
  if (found == properties.end()) return teller.Tell(ItemOutcome::propertyUnknown);
  DomenProperty property = found->second;
  FillFields(property, item.valueText, teller);
  const std::wstring fieldTexts = FieldTexts(property);
  // All that can fail comes first, so that an item is added as a whole or not at all.
  ReserveMore(items.suffixPlaces, 1);
  ReserveMore(items.text, item.propertyId.size() + fieldTexts.size() + 2);
  items.text += item.propertyId;
  items.suffixPlaces.push_back(items.text.size());
  items.text.append(L" ").append(fieldTexts).append(L";");
  teller.Tell(ItemOutcome::composed);
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
                           const DomenProperties& properties, ItemAccount* account) {
  const std::vector<ParamItemList> itemLists = GetCodeItemLists(sections, codeId, sourceKind);
  CodeItems composed;
  if (properties.empty() && !account) return composed;
  for (std::size_t list = 0; list < itemLists.size(); ++list) {
    for (std::size_t i = 0; i < itemLists[list].size(); ++i) {
      const ParamItem& item = itemLists[list][i];
      const ItemTeller teller(account, list, i, item);
      try {
        AppendItem(composed, item, properties, teller);
      } catch (const std::out_of_range&) {
        // The item is left out; the others go on.
        teller.Tell(ItemOutcome::wordWithoutValue);
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
