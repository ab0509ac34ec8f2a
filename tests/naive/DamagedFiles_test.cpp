// Tests that the exports answer as the naive forms for files that are truncated at any byte, and
// for files with any byte replaced by another.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "fuzz/Answers.h"
#include "naive/Editor.h"
#include "support/RichFiles.h"
#include "support/TempFolder.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
namespace Naive = TolvenLibs::RevitMappingEditorDll::Naive;

bool SameAnswers(const TempFolder& folder, const std::string& fileName, const std::string& bytes) {
  const std::wstring file = folder.Write(fileName, bytes);
  Editor editor(L"", L"");
  Naive::Editor naive;
  if (LoadRich(editor, fileName, file) != LoadRich(naive, fileName, file)) return false;
  return AnswersOf(editor, naive, richQuestions) == AnswersOf(naive, richQuestions);
}

// Returns replacements for the byte at a place: with one or all bits flipped, and one of the
// format's signs in turn.
std::vector<char> OtherBytes(std::string_view bytes, std::size_t place) {
  constexpr std::string_view signs("\n;@= {}()[]\"'\\/,:$!-.0\0\x1A\xF0", 26);
  std::vector<char> others = {signs[place % signs.size()]};
  for (const int bits : {0xFF, 0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}) {
    if (SLOW_BUILD && others.size() == 2) break;
    others.push_back(static_cast<char>(bytes[place] ^ bits));
  }
  return others;
}

TEST(DamagedFiles, AgreeWithTheNaiveFormsWhereverTheyEnd) {
  const TempFolder folder;
  for (const auto& [fileName, bytes] : richFiles) {
    for (std::size_t end = 0; end <= bytes.size(); ++end) {
      ASSERT_TRUE(SameAnswers(folder, fileName, std::string(bytes.substr(0, end))))
          << fileName << " ends at byte " << end;
    }
  }
}

TEST(DamagedFiles, AgreeWithTheNaiveFormsWhicheverByteIsAnother) {
  const TempFolder folder;
  for (const auto& [fileName, bytes] : richFiles) {
    for (std::size_t place = 0; place < bytes.size(); ++place) {
      for (const char other : OtherBytes(bytes, place)) {
        std::string damaged(bytes);
        damaged[place] = other;
        ASSERT_TRUE(SameAnswers(folder, fileName, damaged))
            << fileName << " has " << static_cast<int>(other) << " at byte " << place;
      }
    }
  }
}

TEST(DamagedFiles, AgreeWithTheNaiveFormsWhicheverByteIsMissing) {
  const TempFolder folder;
  for (const auto& [fileName, bytes] : richFiles) {
    for (std::size_t place = 0; place < bytes.size(); ++place) {
      std::string damaged(bytes);
      damaged.erase(place, 1);
      ASSERT_TRUE(SameAnswers(folder, fileName, damaged)) << fileName << " lacks byte " << place;
    }
  }
}

// Nearly every byte of `richFiles` affects an answer.
TEST(DamagedFiles, AreWholeAtFirst) {
  const TempFolder folder;
  Editor editor(L"", L"");
  ASSERT_EQ(LoadRich(editor, "scheme.txt", folder.Write("scheme.txt", richScheme)), 0);
  const wchar_t* const mapping = editor.GetMappingStr(L"BASIC WALLS", 1, L"=");
  EXPECT_EQ(std::wstring(mapping), L"Code W10;P= 7 red;LIST= 1 2;TEXT= один 25;");
  delete[] mapping;
  EXPECT_EQ(editor.GetColorNum(L"B1"), 1);
  for (const auto& [fileName, bytes] : richFiles) {
    EXPECT_TRUE(SameAnswers(folder, fileName, std::string(bytes))) << fileName;
  }
}

}  // namespace
