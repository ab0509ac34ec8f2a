#include "base/Files.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::optional<std::wstring> FindFile(const std::wstring& dataFolder, const std::wstring& file) {
  if (Exists(file)) return file;
  std::wstring inDataFolder = dataFolder + L"/" + file;
  if (Exists(inDataFolder)) return inDataFolder;
  return std::nullopt;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
