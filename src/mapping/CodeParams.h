// From a code to the property values that it brings with it: the items of a mapping string.

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

// The two sections of a classificator that know items. They must outlive it.
struct CodeSections {
  const MapTextSection& mapText;
  const ParamSection& param;
};

// Which section the items of a code come from. Any other number takes none.
constexpr int sourceMapText = 1;
constexpr int sourceParam = 2;  // a section that names no domains, and so yields no items

// The domains in which the items' properties are looked up.
std::vector<std::wstring> GetCodeDomenIds(const CodeSections& sections, int sourceKind);

// The ids of the properties that the code fills in, sorted, each once. A code id of -1 stands for
// the default code. One outside the records has no properties in ==MAPTEXT, and raises
// `out_of_range`, "invalid vector subscript", when it is to choose a code in ==PARAM.
std::vector<std::wstring> GetCodePropertyIds(const CodeSections& sections, int codeId,
                                             int sourceKind);

// The items of a code, as they stand in a mapping string but for the suffix of their names.
struct CodeItems {
  std::wstring text;
  std::vector<std::size_t> suffixPlaces;  // in `text`, ascending

  // False if memory ran out for one of them: another time there may be more.
  bool complete = true;

  // Hands the pieces of the text to `put`, one after the other, with the suffix in its places.
  template <class Put>
  void GiveTo(const Put& put, std::wstring_view nameSuffix) const {
    std::size_t start = 0;
    for (const std::size_t place : suffixPlaces) {
      put(std::wstring_view(text).substr(start, place - start));
      put(nameSuffix);
      start = place;
    }
    put(std::wstring_view(text).substr(start));
  }
};

// The items of the code, each as its property's id, `nameSuffix`, a blank, the texts of its value
// fields with a blank between each two, and ";". Each item fills a copy of the property of its own;
// one that has no property in `properties`, or in which anything fails, is left out. A code id that
// is neither -1 nor in the records raises `out_of_range`, "invalid vector subscript".
CodeItems ComposeCodeItems(const CodeSections& sections, int codeId, int sourceKind,
                           const DomenProperties& properties);
std::wstring ComposeCodeParams(const CodeSections& sections, int codeId, int sourceKind,
                               std::wstring_view nameSuffix, const DomenProperties& properties);

// Returns the items of a code with the properties that the domains have, out of what the section
// remembers if they are there. What can't be remembered is put into `composed`, and is the result
// then. The result is good until the next call, and until the section changes.
const CodeItems& FindCodeItems(const CodeSections& sections, const DomenStore& store, int codeId,
                               int sourceKind, CodeItems& composed);

}  // namespace TolvenLibs::RevitMappingEditorDll
