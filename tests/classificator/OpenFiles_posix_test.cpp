// Tests that no file is open while a classificator file is parsed.

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>

#include "classificator/Classificator.h"
#include "support/GlobalLocale.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

constexpr const char* openFiles = "/proc/self/fd";

// Returns the number of open files, including the folder that is read for it.
std::ptrdiff_t CountOpenFiles() {
  return std::distance(fs::directory_iterator(openFiles), fs::directory_iterator());
}

std::ptrdiff_t whileParsing = -1;

// Parsing a section converts its patterns to capitals. The capital of this letter is requested from
// the locale each time.
TEST(Load, HasClosedTheFileWhenItParsesTheFirstSection) {
  if (!fs::exists(openFiles)) GTEST_SKIP() << "the system doesn't tell which files are open";
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "==MAPTEXT\n標\n");
  const GlobalLocale counting([](wchar_t unit) {
    if (unit == L'標') whileParsing = CountOpenFiles();
    return unit;
  });
  Classificator record(L"id");
  const std::ptrdiff_t before = CountOpenFiles();
  EXPECT_EQ(record.Load(file), 0);
  EXPECT_EQ(whileParsing, before);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
