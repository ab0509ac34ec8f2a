#include "Export.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "Failure.h"
#include "Lists.h"
#include "Results.h"
#include "Wide.h"
#include "base/Files.h"

namespace {

namespace fs = std::filesystem;
using namespace TolvenLibs::RevitMappingEditorDll;

bool IsLoaded(RevitMappingEditorDll& editor, const std::wstring& domenId) {
  int count = 0;
  const wchar_t** ids = editor.GetDomensIds(count);
  const std::vector<std::wstring> loaded = TakeAll(count, ids);
  return std::find(loaded.begin(), loaded.end(), domenId) != loaded.end();
}

// Creates a temporary folder and removes it at the end of its scope.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device number;
    do {
      path_ = fs::temp_directory_path() / ("classify-" + std::to_string(number()));
    } while (!fs::create_directory(path_));
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }

  std::wstring File() const {
    const std::u8string bytes = (path_ / "domen.json").u8string();
    return ToWide(std::string(bytes.begin(), bytes.end()));
  }

 private:
  fs::path path_;
};

// Returns the bytes that the target must have: an export has the same bytes wherever it is written.
std::string ExportedBytes(RevitMappingEditorDll& editor, const std::wstring& domenId) {
  const ScratchFolder folder;
  editor.ExportJson(domenId.c_str(), folder.File().c_str());
  return ReadWholeFile(folder.File());
}

bool Holds(const std::wstring& target, const std::string& bytes) {
  try {
    return ReadWholeFile(target) == bytes;
  } catch (const std::system_error&) {
    return false;
  }
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
  if (Holds(file, ExportedBytes(editor, id))) return;
  throw Failure{failedExport, "Target \"" + target + "\" could not be written."};
}
