// Files that end at each of their bytes, and files of which one byte is another: whatever can still
// be read of them, the exports answer as the naive forms do.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "fuzz/Answers.h"
#include "naive/Editor.h"
#include "support/TempFolder.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
namespace Naive = TolvenLibs::RevitMappingEditorDll::Naive;

constexpr std::string_view schemeBytes =
    "left out\n"
    "==CLASS of a kind\r\n"
    "@@@ Пример (ABC Class)\n"
    "==MAPTEXT\n"
    "@@ (D E)\n"
    "$ Z99 rest\n"
    "! walls\n"
    "@W10 {P=7,red LIST:c1=1,c2=2} {TEXT один two;}\n"
    "basic wall\n"
    "Стена  😀\n"
    "@$ [[ ]]\n"
    "@D20 [[P=5]] rest\n"
    "door\n"
    "/ doors\n"
    "==PARAM\n"
    "W10 {P=60 Q=2}\n"
    "==COLORAT\n"
    "@main Main\n"
    "A100 255 -5 0x7 50\n"
    "A200 0 128 255 700\n"
    "@second Other\n"
    "B1 10 20 30 100\n"
    "==DOMEN\n"
    "@@@ D\n"
    "@@ Door Room\n"
    "@ P 1 10 Title  of P\n"
    "n int 1 3 Number\n"
    "s str 0 \"x\"\n"
    "@ LIST 0 -2\n"
    "c slist 1 y\n"
    "@@@ E\n"
    "@ TEXT 0 5\n"
    "t str 1 z\n"
    "r real 0 2.5e1\n"
    "==NOTES\n"
    "rest";

constexpr std::string_view domensBytes =
    "==DOMEN\n"
    "@@@ D;@@ Door;@ P 1 10 Имя;n int 1 3 Number;l ilist 0 12;\n"
    "@ Q 0 5;r real 0 .5;q rlist 1 1e2\n"
    "==DOMEN\n"
    "@@@ E rest\n"
    "@ Q 0 -7\n"
    "w slist 0 \"a\"\n"
    "! no more\n";

constexpr std::string_view jsonBytes =
    "\xEF\xBB\xBF// a domain\n"
    "{\n"
    "  Domen: {\"sName\": \"Зоны\\u0021\", 'asFuncsNames': ['P', \"Q\", 7]},\n"
    "  \"Properties\": {\n"
    "    P: {asObjectTypes: [\"Door\", 'Room',], sName: 'P\\x41\\\n', iUniq: 0x1, iSortId: -2.0,\n"
    "        asFuncsNames: [\"n\", \"s\", \"l\"]},\n"
    "    \"Q\": {iUniq: +1, asFuncsNames: ['r', 'none']}, /* last */\n"
    "  },\n"
    "  ArrayValueFields: {\n"
    "    n: {sType: 'i', iDefault: 5e0}, s: {sType: \"s\", sDefault: 'a \"b\"'},\n"
    "    l: {sType: \"as\", sDefault: \"c \\uD83D\\uDE00\"}, r: {rDefault: .25, sName: 'R', u: "
    "null},\n"
    "  },\n"
    "}\n";

struct Original {
  const char* fileName;
  std::string_view bytes;
};

constexpr Original originals[] = {
    {"scheme.txt", schemeBytes}, {"domens.txt", domensBytes}, {"domen.json", jsonBytes}};

const Questions questions = {{L"Basic walls 200", L"basic", L"Стена  😀1", L"DOORS", L"[[", L""},
                             {L"Door", L"Room", L"A200", L"B1"}};

// All that the editors answer about a file of these bytes.
template <class AnEditor>
int Load(AnEditor& editor, const std::string& fileName, const std::wstring& file) {
  if (fileName != "scheme.txt") return editor.CreateDomen(file.c_str());
  const int status = editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str());
  EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  return status;
}

bool SameAnswers(const TempFolder& folder, const std::string& fileName, const std::string& bytes) {
  const std::wstring file = folder.Write(fileName, bytes);
  Editor editor(L"", L"");
  Naive::Editor naive;
  if (Load(editor, fileName, file) != Load(naive, fileName, file)) return false;
  return AnswersOf(editor, naive, questions) == AnswersOf(naive, questions);
}

// What the byte at a place may have become: another in one bit or in all, and a sign that files are
// built of, each of which has its turn.
std::vector<char> OtherBytes(std::string_view bytes, std::size_t place) {
  constexpr std::string_view signs("\n;@= {}()[]\"'\\/,:$!-.0\0\xF0", 25);
  std::vector<char> others = {signs[place % signs.size()]};
  for (const int bits : {0xFF, 0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}) {
    if (SLOW_BUILD && others.size() == 2) break;
    others.push_back(static_cast<char>(bytes[place] ^ bits));
  }
  return others;
}

TEST(DamagedFiles, AgreeWithTheNaiveFormsWhereverTheyEnd) {
  const TempFolder folder;
  for (const auto& [fileName, bytes] : originals) {
    for (std::size_t end = 0; end <= bytes.size(); ++end) {
      ASSERT_TRUE(SameAnswers(folder, fileName, std::string(bytes.substr(0, end))))
          << fileName << " ends at byte " << end;
    }
  }
}

TEST(DamagedFiles, AgreeWithTheNaiveFormsWhicheverByteIsAnother) {
  const TempFolder folder;
  for (const auto& [fileName, bytes] : originals) {
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
  for (const auto& [fileName, bytes] : originals) {
    for (std::size_t place = 0; place < bytes.size(); ++place) {
      std::string damaged(bytes);
      damaged.erase(place, 1);
      ASSERT_TRUE(SameAnswers(folder, fileName, damaged)) << fileName << " lacks byte " << place;
    }
  }
}

// The originals say enough that an answer depends on nearly each of their bytes.
TEST(DamagedFiles, AreWholeAtFirst) {
  const TempFolder folder;
  Editor editor(L"", L"");
  ASSERT_EQ(Load(editor, "scheme.txt", folder.Write("scheme.txt", schemeBytes)), 0);
  const wchar_t* const mapping = editor.GetMappingStr(L"Basic walls", 1, L"=");
  EXPECT_EQ(std::wstring(mapping), L"Code W10;P= 7 red;LIST= 1 2;TEXT= один 25;");
  delete[] mapping;
  EXPECT_EQ(editor.GetColorNum(L"B1"), 1);
  for (const auto& [fileName, bytes] : originals) {
    EXPECT_TRUE(SameAnswers(folder, fileName, std::string(bytes))) << fileName;
  }
}

}  // namespace
