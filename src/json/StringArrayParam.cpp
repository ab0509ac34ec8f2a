#include "json/StringArrayParam.h"

#include <JSON5Section.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>

#include "base/Buffers.h"

namespace TolvenLibs::RevitMappingEditorDll {

const wchar_t** MakeWideArray(const std::vector<std::wstring>& texts) {
  if (texts.empty()) return nullptr;
  const wchar_t** array = nullptr;
  int count = 0;
  HandOut(texts, count, Into(array, std::identity()));
  return array;
}

bool ReadStringArrayParam(JSON5Section& section, const wchar_t* key,
                          std::vector<std::wstring>& values, const wchar_t* comment,
                          bool overriding) {
  const int defaultCount = static_cast<int>(values.size());
  std::unique_ptr<const wchar_t*[]> defaults(MakeWideArray(values));
  int count = 0;
  bool found = false;
  const wchar_t** result = section.ParamStringArray(key, count, defaults.get(), defaultCount, found,
                                                    comment, overriding);

  // The library keeps the defaults' array unless it is the result or the file's replaced it.
  if (result == defaults.get() || overriding || !found) defaults.release();
  const std::unique_ptr<const wchar_t*[]> owned(count >= 1 ? result : nullptr);
  values.resize(static_cast<std::size_t>(std::max(count, 0)));
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = result[i];
  return found;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
