// Tests of the memory that a loaded file keeps, by the heap statistics of the C library.

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// Returns whether the statistics are of this program's heap. A sanitizer has its own heap.
bool IsCounted() {
  const std::size_t before = HeapInUse();
  const std::vector<char> block(1'000'000);
  return HeapInUse() >= before + block.size();
}

// Returns the number of bytes that an editor keeps after loading the file.
std::size_t Kept(const std::string& bytes) {
  const TempFolder folder;
  const std::wstring path = folder.Write("scheme.txt", bytes);
  RevitMappingEditorDll editor(L"", L"");
  const std::size_t before = HeapInUse();
  EXPECT_EQ(editor.CreateClassificator(L"S", L"", L"Code", path.c_str()), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  return HeapInUse() - before;
}

TEST(Classificator, KeepsMemoryInProportionToWhatItHolds) {
  if (!IsCounted()) GTEST_SKIP() << "the heap isn't that of the C library";
  std::string remarks;
  while (remarks.size() < 10'000'000) remarks += "/ a remark that comes to nothing\n";
  const std::string files[] = {
      "==NOTES\n" + remarks + "==COLORAT\n@main Main\nA 1 2 3 4\n",
      "==NOTES\n" + remarks + "==MAPTEXT\n@A {P=1}\nwall\n",
      "==MAPTEXT\n@A {P=1}\nwall\n" + remarks,
      "==MAPTEXT\n@A {P=1}\nwall\n" + std::string(10'000'000, '\n'),
      "==MAPTEXT\n@A {P=1}\n" + std::string(10'000'000, ' ') + "wall\n",
      "==MAPTEXT\n" + remarks + "wall\n==COLORAT\n@main Main\nA 1 2 3 4\n",
      "==PARAM\nA P=1\n" + remarks,
      "==DOMEN\n@@@ D\n@ P 0 1\nV int 0 1\n" + remarks,
  };
  for (const std::string& file : files) {
    EXPECT_LT(Kept(file), 1'000'000u)
        << file.substr(0, 20) << "..." << file.substr(file.size() - 20);
  }
}

// If a file is nothing but patterns, the records keep all of it: a few times their contents.
TEST(Classificator, KeepsAFewTimesAFileThatIsNothingButPatterns) {
  if (!IsCounted()) GTEST_SKIP() << "the heap isn't that of the C library";
  std::string patterns = "==MAPTEXT\n";
  for (int i = 0; i < 100'000; ++i) patterns += "basic wall exterior " + std::to_string(i) + "\n";
  const std::size_t kept = Kept(patterns);
  EXPECT_GT(kept, patterns.size());
  EXPECT_LT(kept, 16 * patterns.size());
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
