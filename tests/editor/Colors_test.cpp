// Tests of the colours of the active Classificator.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/LoadedScheme.h"
#include "support/OrderOfUnits.h"
#include "support/OutOfRange.h"
#include "support/Output.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_view_literals;

using Editor = RevitMappingEditorDll;
using Texts = std::vector<std::wstring>;

// Number, three channels, percentage.
using Color = std::array<int, 5>;
using Colors = std::map<std::wstring, Color>;

Texts KeyTexts(Editor& editor) {
  int count = -1;
  Output<const wchar_t*> ids;
  editor.GetColoratsIds(count, ids.array);
  return ids.Take(count);
}

Color ColorOf(Editor& editor, const wchar_t* text) {
  Color color = {};
  editor.GetColor(text, color[0], color[1], color[2], color[3], color[4]);
  EXPECT_EQ(editor.GetColorNum(text), color[0]);
  return color;
}

// Returns the active Colorat.
Colors ActiveColors(Editor& editor) {
  Colors colors;
  for (const std::wstring& text : KeyTexts(editor)) colors[text] = ColorOf(editor, text.c_str());
  return colors;
}

// Expects each of the four calls to throw and to leave its arguments unchanged.
void ExpectNoColor(Editor& editor, const wchar_t* text, const char* failure) {
  EXPECT_EQ(OutOfRangeOf([&] { editor.GetColorNum(text); }), failure) << text;
  Color color = {-1, -2, -3, -4, -5};
  const auto getColor = [&] {
    editor.GetColor(text, color[0], color[1], color[2], color[3], color[4]);
  };
  EXPECT_EQ(OutOfRangeOf(getColor), failure) << text;
  EXPECT_EQ(color, (Color{-1, -2, -3, -4, -5}));
}

constexpr const char* twoColorats =
    "==COLORAT\n"
    "@main Main colouring\n"
    "A100 255 0 0 50\n"
    "A200 0 128 255 0\n"
    "@second Other colouring\n"
    "B1 10 20 30 100\n";

const Colors mainColors = {{L"A100", {1, 255, 0, 0, 50}}, {L"A200", {2, 0, 128, 255, 0}}};
const Colors secondColors = {{L"B1", {1, 10, 20, 30, 100}}};

TEST(Colors, AreThoseOfTheLastColoratOfTheFileUntilAnotherIsSelected) {
  LoadedScheme scheme(twoColorats);
  EXPECT_EQ(ActiveColors(scheme.editor), secondColors);
  EXPECT_EQ(scheme.editor.SetActiveColorat(L"main"), 0);
  EXPECT_EQ(ActiveColors(scheme.editor), mainColors);
  EXPECT_EQ(scheme.editor.SetActiveColorat(L"second"), 0);
  EXPECT_EQ(ActiveColors(scheme.editor), secondColors);
}

TEST(Colors, AreWhatTheLinesOfTheSectionSay) {
  struct Case {
    const char* section;
    Colors colors;
  };
  const Case cases[] = {
      {"@m M\nA 300 -5 12 150\n", {{L"A", {1, 255, 0, 12, 100}}}},
      {"@m M\nA x 1 2 3\n", {{L"A", {1, 0, 1, 2, 3}}}},
      {"@m M\nA 4294967301 +7 007 5%\n", {{L"A", {1, 255, 7, 7, 5}}}},
      // An ignored line takes no number, but a repeated key does.
      {"@m M\nA 1 2 3\nB 1 2 3 4\n", {{L"B", {1, 1, 2, 3, 4}}}},
      {"@m M\nA 1 2 3 4\nA 5 6 7 8\nB 9 9 9 9\n",
       {{L"A", {1, 1, 2, 3, 4}}, {L"B", {3, 9, 9, 9, 9}}}},
      // Blocks with the same id make one Colorat, and the numbers restart with each.
      {"@m M\nA 1 1 1 1\n@m again\nA 2 2 2 2\nB 3 3 3 3\n@m M\nC 4 4 4 4\n",
       {{L"A", {1, 1, 1, 1, 1}}, {L"B", {2, 3, 3, 3, 3}}, {L"C", {1, 4, 4, 4, 4}}}},
      // A block of one line and an id without a blank make no Colorat.
      {"@m M\nA 1 1 1 1\n@n N\n", {{L"A", {1, 1, 1, 1, 1}}}},
      {"@m M\nA 1 1 1 1\n@n\nB 1 1 1 1\n", {{L"A", {1, 1, 1, 1, 1}}}},
      // A block of malformed lines makes a Colorat, which is active because it is the last.
      {"@m M\nA 1 1 1 1\n@n N\nbroken\n", {}},
      // Carriage returns, indentation and semicolons at line ends have no effect.
      {" @m M;\r\n\tA 1 2 3 4;\r\n\r\n", {{L"A", {1, 1, 2, 3, 4}}}},
      {"@Цвета Стен\nСтена \xD9\xA1\xD9\xA2 2 3 4\n", {{L"Стена", {1, 12, 2, 3, 4}}}},
      // A further section replaces the earlier one.
      {"@m M\nA 1 1 1 1\n==COLORAT\n@n N\nB 2 2 2 2\n", {{L"B", {1, 2, 2, 2, 2}}}},
  };
  for (const Case& one : cases) {
    LoadedScheme scheme(std::string("==COLORAT\n") + one.section);
    EXPECT_EQ(ActiveColors(scheme.editor), one.colors) << one.section;
  }
}

TEST(Colors, AreAbsentWithoutASection) {
  LoadedScheme scheme("==MAPTEXT\n@A\nwall\n");
  EXPECT_EQ(scheme.editor.SetActiveColorat(L"main"), 1);
  EXPECT_EQ(scheme.editor.SetActiveColorat(L""), 1);
  EXPECT_EQ(KeyTexts(scheme.editor), Texts{});
  ExpectNoColor(scheme.editor, L"A", badKey);
  ExpectNoColor(scheme.editor, L"", badKey);
}

TEST(Colors, AreLostWithAFurtherSectionThatHasNone) {
  for (const char* further : {"", "@n N\n", "@n\nA 1 2 3 4\n"}) {
    LoadedScheme scheme(std::string("==COLORAT\n@m M\nA 1 1 1 1\n==COLORAT\n") + further);
    EXPECT_EQ(scheme.editor.SetActiveColorat(L"m"), 1);
    EXPECT_EQ(KeyTexts(scheme.editor), Texts{});
    ExpectNoColor(scheme.editor, L"A", badKey);
  }
}

TEST(Colors, NeedAnActiveClassificator) {
  const TempFolder folder;
  Editor empty(L"", L"");
  Editor loaded(L"", L"");
  const std::wstring file = folder.Write("colors.txt", twoColorats);
  ASSERT_EQ(loaded.CreateClassificator(L"S", L"", L"", file.c_str()), 0);
  for (Editor* editor : {&empty, &loaded}) {
    EXPECT_EQ(OutOfRangeOf([&] { editor->SetActiveColorat(L"main"); }), badSubscript);
    int count = 77;
    Output<const wchar_t*> ids;
    EXPECT_EQ(OutOfRangeOf([&] { editor->GetColoratsIds(count, ids.array); }), badSubscript);
    EXPECT_EQ(count, 77);
    EXPECT_FALSE(ids.Written());
    ExpectNoColor(*editor, L"B1", badSubscript);
  }
  // The failures have not changed the editor.
  ASSERT_EQ(loaded.SetActiveClassificator(L"S"), 0);
  EXPECT_EQ(ActiveColors(loaded), secondColors);
}

TEST(Colors, AreThoseOfTheActiveClassificatorWhichKeepsItsOwnSelection) {
  LoadedScheme scheme(twoColorats);
  Editor& editor = scheme.editor;
  const std::wstring other =
      scheme.folder.Write("other.txt", "==COLORAT\n@x X\nX 1 2 3 4\n@y Y\nY 5 6 7 8\n");
  ASSERT_EQ(editor.CreateClassificator(L"T", L"", L"", other.c_str()), 0);
  EXPECT_EQ(editor.SetActiveColorat(L"main"), 0);
  EXPECT_EQ(editor.SetActiveColorat(L"x"), -1);

  ASSERT_EQ(editor.SetActiveClassificator(L"T"), 0);
  EXPECT_EQ(KeyTexts(editor), Texts{L"Y"});
  EXPECT_EQ(editor.SetActiveColorat(L"main"), -1);
  EXPECT_EQ(editor.SetActiveColorat(L"x"), 0);

  ASSERT_EQ(editor.SetActiveClassificator(L"S"), 0);
  EXPECT_EQ(ActiveColors(editor), mainColors);
  ASSERT_EQ(editor.SetActiveClassificator(L"T"), 0);
  EXPECT_EQ(KeyTexts(editor), Texts{L"X"});
}

TEST(Colors, StaySelectedWhateverIsLoadedLater) {
  LoadedScheme scheme(twoColorats);
  Editor& editor = scheme.editor;
  ASSERT_EQ(editor.SetActiveColorat(L"main"), 0);
  const std::wstring other = scheme.folder.Write("other.txt", "==COLORAT\n@x X\nX 1 2 3 4\n");
  const std::wstring same = scheme.folder.Wide() + L"/scheme.txt";
  ASSERT_EQ(editor.CreateClassificator(L"T", L"", L"", other.c_str()), 0);
  EXPECT_EQ(ActiveColors(editor), mainColors);
  ASSERT_EQ(editor.CreateClassificator(L"S", L"", L"", same.c_str()), 0);
  EXPECT_EQ(ActiveColors(editor), mainColors);
  ASSERT_EQ(editor.SetActiveClassificator(L"S"), 0);
  EXPECT_EQ(ActiveColors(editor), mainColors);
}

TEST(Colors, AreCopiedWithTheSelection) {
  LoadedScheme scheme(twoColorats);
  scheme.editor.SetActiveColorat(L"main");
  Editor copy(scheme.editor);
  EXPECT_EQ(scheme.editor.SetActiveColorat(L"second"), 0);
  EXPECT_EQ(ActiveColors(copy), mainColors);
  EXPECT_EQ(ActiveColors(scheme.editor), secondColors);
}

TEST(SetActiveColorat, ReturnsMinusOneForAnUnknownIdAndKeepsTheSelection) {
  LoadedScheme scheme(twoColorats);
  ASSERT_EQ(scheme.editor.SetActiveColorat(L"main"), 0);
  for (const wchar_t* id : {L"", L"Main", L"MAIN", L"mai", L"main ", L" main", L"mains", L"@main",
                            L"third", L"S", L"A100"}) {
    EXPECT_EQ(scheme.editor.SetActiveColorat(id), -1) << id;
    EXPECT_EQ(ActiveColors(scheme.editor), mainColors) << id;
  }
}

TEST(SetActiveColorat, CopiesItsArgument) {
  LoadedScheme scheme(twoColorats);
  std::wstring id = L"main";
  ASSERT_EQ(scheme.editor.SetActiveColorat(id.c_str()), 0);
  id = L"none";
  EXPECT_EQ(ActiveColors(scheme.editor), mainColors);
}

TEST(GetColoratsIds, ReturnsTheKeyTextsOfTheActiveColoratInTheOrderOfTheirUnits) {
  LoadedScheme scheme(
      "==COLORAT\n@m M\n"
      "Стена 1 1 1 1\nb 1 1 1 1\nAB 1 1 1 1\nC 1 1 1 1\nA 1 1 1 1\na 1 1 1 1\n10 1 1 1 1\n"
      "9 1 1 1 1\nДверь 1 1 1 1\nA_B 1 1 1 1\n");
  EXPECT_EQ(KeyTexts(scheme.editor),
            (Texts{L"10", L"9", L"A", L"AB", L"A_B", L"C", L"a", L"b", L"Дверь", L"Стена"}));
}

TEST(GetColoratsIds, KeepsToTheUnitsBeyondTheBasicPlane) {
  LoadedScheme scheme("==COLORAT\n@m M\n\uFFFD 1 1 1 1\n\U0001F600 1 1 1 1\n\uFF21 1 1 1 1\n");
  EXPECT_EQ(KeyTexts(scheme.editor), inOrderOfUnits);
}

TEST(GetColor, LooksForTheTextExactly) {
  LoadedScheme scheme("==COLORAT\n@m M\nKey 1 2 3 4\n\xD0\xB9 5 6 7 8\n@n N\nx 1 2 3 4\n");
  ASSERT_EQ(scheme.editor.SetActiveColorat(L"m"), 0);
  EXPECT_EQ(ColorOf(scheme.editor, L"Key"), (Color{1, 1, 2, 3, 4}));
  EXPECT_EQ(ColorOf(scheme.editor, L"\x0439"), (Color{2, 5, 6, 7, 8}));
  for (const wchar_t* text :
       {L"", L"key", L"KEY", L"Ke", L"Keys", L" Key", L"Key ", L"m", L"\x0438\x0306", L"x"}) {
    ExpectNoColor(scheme.editor, text, badKey);
  }
  EXPECT_EQ(ColorOf(scheme.editor, L"Key"), (Color{1, 1, 2, 3, 4}));
}

TEST(GetColor, NeverFindsAKeyWithANulWhichIsReturnedUpToIt) {
  LoadedScheme scheme("==COLORAT\n@m M\na\0b 1 2 3 4\n"sv);
  EXPECT_EQ(KeyTexts(scheme.editor), Texts{L"a"});
  ExpectNoColor(scheme.editor, L"a", badKey);
}

TEST(GetColor, RaisesForEveryTextOfAnEmptyColorat) {
  LoadedScheme scheme("==COLORAT\n@m M\nbroken\n");
  EXPECT_EQ(scheme.editor.SetActiveColorat(L"m"), 0);
  EXPECT_EQ(KeyTexts(scheme.editor), Texts{});
  ExpectNoColor(scheme.editor, L"broken", badKey);
}

TEST(Colors, AreFoundInAFileOfMegabytes) {
  std::string text = "==COLORAT\n@m M\n";
  for (int i = 1; i <= 20'000; ++i) text += "K" + std::to_string(i) + " 1 2 3 4\n";
  const std::wstring longKey(1'000'000, L'k');
  text += std::string(1'000'000, 'k') + " 5 6 7 8\n";
  LoadedScheme scheme(text);
  const Texts keys = KeyTexts(scheme.editor);
  ASSERT_EQ(keys.size(), 20'001u);
  EXPECT_TRUE(keys.back() == longKey);
  EXPECT_EQ(scheme.editor.GetColorNum(L"K20000"), 20'000);
  EXPECT_EQ(ColorOf(scheme.editor, longKey.c_str()), (Color{20'001, 5, 6, 7, 8}));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
