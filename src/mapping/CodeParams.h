// Composes the items of a mapping string: the property values that a code brings with it.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "domen/Domen.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct DomenStore;
struct MapTextSection;
struct ParamSection;

// The two sections of a classificator that contain items. REQUIRES: they outlive this.
struct CodeSections {
  const MapTextSection& mapText;
  const ParamSection& param;
};

// Which section the items of a code come from. Any other number means none.
constexpr int sourceMapText = 1;
constexpr int sourceParam = 2;  // yields no items, since ==PARAM names no domains

// Returns the domains in which the items' properties are looked up.
std::vector<std::wstring> GetCodeDomenIds(const CodeSections& sections, int sourceKind);

// Returns the ids of the properties that the code fills in, sorted, each once. A code id of -1
// means the default code. One outside the records has no properties in ==MAPTEXT, and raises
// `out_of_range`, "invalid vector subscript", for ==PARAM.
std::vector<std::wstring> GetCodePropertyIds(const CodeSections& sections, int codeId,
                                             int sourceKind);

// The items of a code as a mapping string has them, without the suffix of their names.
struct CodeItems {
  std::wstring text;
  std::vector<std::size_t> suffixPlaces;  // in `text`, ascending

  // False if memory ran out for one of them: another time there may be more.
  bool complete = true;

  // Passes the text to `append` piece by piece, with the suffix in its places.
  template <class Append>
  void WriteTo(const Append& append, std::wstring_view nameSuffix) const {
    std::size_t start = 0;
    for (const std::size_t place : suffixPlaces) {
      append(std::wstring_view(text).substr(start, place - start));
      append(nameSuffix);
      start = place;
    }
    append(std::wstring_view(text).substr(start));
  }
};

// What becomes of an item, and of its values.
enum class ItemOutcome {
  composed,
  propertyUnknown,    // the item is left out
  wordWithoutValue,   // the item is left out: a word that names a field has no value
  valueRefused,       // the field keeps the value of the domain
  valueWithoutField,  // a word after the last field
  nameWithoutField,   // a named word that no field takes
  namedByPosition,    // a named word that goes by its position, as a value
};

struct ItemEntry {
  std::size_t list;  // among the item lists of the code
  std::size_t item;  // in its list
  ItemOutcome outcome;
  std::wstring propertyId;
  std::wstring text;       // the value or word, if it is about one
  std::wstring fieldName;  // of the field that refused the value
  int fieldType;
};

using ItemAccount = std::vector<ItemEntry>;

// Returns the items of the code, each as its property's id, `nameSuffix`, a blank, the texts of its
// value fields separated by blanks, and ";". Each item fills its own copy of the property. An item
// without a property in `properties`, or in which anything fails, is left out. A code id that is
// neither -1 nor a position of a record raises `out_of_range`, "invalid vector subscript". Adds
// what becomes of each item to `account`, if there is one.
CodeItems ComposeCodeItems(const CodeSections& sections, int codeId, int sourceKind,
                           const DomenProperties& properties, ItemAccount* account = nullptr);
std::wstring ComposeCodeParams(const CodeSections& sections, int codeId, int sourceKind,
                               std::wstring_view nameSuffix, const DomenProperties& properties);

// Returns the items of a code with the properties of the domains, memoized in the section. Items
// that can't be remembered are put into `composed`, which is then the result. The result is valid
// until the next call, or until the section changes.
const CodeItems& FindCodeItems(const CodeSections& sections, const DomenStore& store, int codeId,
                               int sourceKind, CodeItems& composed);

}  // namespace TolvenLibs::RevitMappingEditorDll
