#include "Export.h"

#include <algorithm>
#include <string>
#include <vector>

#include "Failure.h"
#include "Lists.h"
#include "Wide.h"

namespace {

// The keys of the domain's properties.
std::vector<std::wstring> PropertyKeys(RevitMappingEditorDll& editor, const std::wstring& domenId) {
  int count = 0;
  const wchar_t** keys = nullptr;
  int* sortIndexes = nullptr;
  editor.GetPropertiesSortIndex(domenId.c_str(), count, keys, sortIndexes);
  if (count != 0) delete[] sortIndexes;
  return TakeAll(count, keys);
}

bool IsLoaded(RevitMappingEditorDll& editor, const std::wstring& domenId) {
  int count = 0;
  const wchar_t** ids = editor.GetDomensIds(count);
  const std::vector<std::wstring> loaded = TakeAll(count, ids);
  return std::find(loaded.begin(), loaded.end(), domenId) != loaded.end();
}

bool Holds(const std::wstring& target, const std::vector<std::wstring>& keys) {
  RevitMappingEditorDll reader(L".", L"");
  if (reader.CreateDomen(target.c_str()) != 0) return false;
  return PropertyKeys(reader, Take(reader.GetActiveDomenId())) == keys;
}

}  // namespace

void ExportDomen(RevitMappingEditorDll& editor, const std::string& domenId,
                 const std::string& target) {
  const std::wstring id = ToWide(domenId);
  const std::wstring file = ToWide(target);
  if (!IsLoaded(editor, id))
    throw Failure{failedExport, "No domain \"" + domenId + "\" is loaded."};
  if (!target.ends_with(".json")) {
    throw Failure{failedExport,
                  "Target \"" + target + "\" has a name that doesn't end in \".json\"."};
  }
  editor.ExportJson(id.c_str(), file.c_str());
  if (Holds(file, PropertyKeys(editor, id))) return;
  throw Failure{failedExport, "Target \"" + target + "\" could not be written."};
}
