// Measures the peak memory of one load, compared with the size of the file.
//
//   bench_memory FILE
//
// Prints both in bytes. A file whose name begins with "classificator" is loaded as a classificator,
// any other as a domain.

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "RevitMappingEditorDll.h"
#include "support/MemoryUse.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

int Load(Editor& editor, const std::filesystem::path& path) {
  const std::wstring file = path.wstring();
  return path.filename().string().starts_with("classificator")
             ? editor.CreateClassificator(L"S", L"", L"", file.c_str())
             : editor.CreateDomen(file.c_str());
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::cerr << "bench_memory FILE\n";
    return EXIT_FAILURE;
  }
  const std::filesystem::path path = arguments[1];
  Editor editor(L"", L"");
  const std::size_t before = ReadMemoryUse().now;
  if (Load(editor, path) != 0) {
    std::cerr << path.string() << " can't be loaded\n";
    return EXIT_FAILURE;
  }
  std::cout << ReadMemoryUse().peak - before << " " << std::filesystem::file_size(path) << "\n";
}
