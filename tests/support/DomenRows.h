// Results of queries over domains, as rows that GoogleTest compares and prints.

#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/Output.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Ids, names and sort indexes of properties.
using PropertyRows = std::vector<std::tuple<std::wstring, std::wstring, int>>;

// Names, titles, types, flags and values of fields.
using FieldRow = std::tuple<std::wstring, std::wstring, int, bool, std::wstring>;
using FieldRows = std::vector<FieldRow>;

inline PropertyRows TakeProperties(int count, Output<const wchar_t*>& ids,
                                   Output<const wchar_t*>& names, Output<int>& indexes) {
  const std::vector<std::wstring> takenIds = ids.Take(count);
  const std::vector<std::wstring> takenNames = names.Take(count);
  const std::vector<int> takenIndexes = indexes.Take(count);
  PropertyRows rows;
  for (std::size_t i = 0; i < takenIds.size(); ++i) {
    rows.emplace_back(takenIds[i], takenNames[i], takenIndexes[i]);
  }
  return rows;
}

inline PropertyRows OfType(RevitMappingEditorDll& editor, const wchar_t* domenId,
                           const wchar_t* type) {
  int count = -1;
  Output<const wchar_t*> ids, names;
  Output<int> indexes;
  editor.GetDomenPropertysByObjType(domenId, type, count, ids.array, names.array, indexes.array);
  return TakeProperties(count, ids, names, indexes);
}

inline FieldRows Fields(RevitMappingEditorDll& editor, const wchar_t* domenId,
                        const wchar_t* propertyId) {
  int count = -1;
  Output<const wchar_t*> names, titles, values;
  Output<int> types;
  Output<bool> flags;
  editor.GetDomenPropertyFieldsValues(domenId, propertyId, count, names.array, titles.array,
                                      types.array, flags.array, values.array);
  const std::vector<std::wstring> takenNames = names.Take(count);
  const std::vector<std::wstring> takenTitles = titles.Take(count);
  const std::vector<std::wstring> takenValues = values.Take(count);
  const std::vector<int> takenTypes = types.Take(count);
  const std::vector<bool> takenFlags = flags.Take(count);
  FieldRows rows;
  for (std::size_t i = 0; i < takenNames.size(); ++i) {
    rows.emplace_back(takenNames[i], takenTitles[i], takenTypes[i], takenFlags[i], takenValues[i]);
  }
  return rows;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
