// Tests of loading, listing and selecting classificator files through the exported class.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "RevitMappingEditorDll.h"
#include "support/Classificators.h"
#include "support/CurrentFolder.h"
#include "support/GlobalLocale.h"
#include "support/Links.h"
#include "support/OutOfRange.h"
#include "support/PlainUser.h"
#include "support/Results.h"
#include "support/TempFolder.h"
#include "support/UpperFails.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

using Editor = RevitMappingEditorDll;
using Names = ClassificatorNames;

int Create(Editor& editor, const std::wstring& file) {
  return editor.CreateClassificator(L"id", L"name", L"Param", file.c_str());
}

// Returns a classificator file, identified by its default code.
std::string Scheme(std::string_view code) {
  return "==MAPTEXT\n$ " + std::string(code) + "\n";
}

// Selects a Classificator and returns its default code.
std::wstring CodeOfScheme(Editor& editor, const wchar_t* id = L"id") {
  EXPECT_EQ(editor.SetActiveClassificator(id), 0);
  return Take(editor.GetDefaultClaccificatorCode());
}

constexpr const char* colors = "==COLORAT\n@m M\nA 1 2 3 4\n";

// A selected Classificator without the key A throws another exception.
bool NoneIsSelected(Editor& editor) {
  return OutOfRangeOf([&editor] { editor.GetColorNum(L"A"); }) == badSubscript;
}

// The search for the file

TEST(CreateClassificator, TakesAPathThatExistsUnchanged) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", Scheme("A"));
  Editor editor(L"no such folder", L"");
  EXPECT_EQ(Create(editor, file), 0);
  EXPECT_EQ(CodeOfScheme(editor), L"A");
}

TEST(CreateClassificator, SearchesTheDataFolderForWhatIsNotInTheCurrentOne) {
  const TempFolder current;
  const TempFolder data;
  current.Write("both.txt", Scheme("CURRENT"));
  data.Write("both.txt", Scheme("DATA"));
  data.Write("data.txt", Scheme("DATA"));
  const CurrentFolder inCurrent(current.Path());
  Editor editor(data.Wide().c_str(), L"");
  EXPECT_EQ(editor.CreateClassificator(L"both", L"", L"", L"both.txt"), 0);
  EXPECT_EQ(editor.CreateClassificator(L"data", L"", L"", L"data.txt"), 0);
  EXPECT_EQ(CodeOfScheme(editor, L"both"), L"CURRENT");
  EXPECT_EQ(CodeOfScheme(editor, L"data"), L"DATA");
}

TEST(CreateClassificator, PutsASlashAfterADataFolderThatEndsInOne) {
  const TempFolder data;
  data.Write("a.txt", Scheme("A"));
  Editor editor((data.Wide() + L"/").c_str(), L"");
  EXPECT_EQ(Create(editor, L"a.txt"), 0);
}

TEST(CreateClassificator, TakesItsDataFolderUnchanged) {
  if (fs::path::preferred_separator != '/') GTEST_SKIP() << "no folder's name can end so here";
  const TempFolder folder;
  fs::create_directory(folder.Path() / " data ");
  folder.Write(" data /a.txt", Scheme("A"));
  const CurrentFolder current(folder.Path());
  Editor editor(L" data ", L"");
  EXPECT_EQ(Create(editor, L"a.txt"), 0);
}

TEST(CreateClassificator, FindsNamesAndFoldersInAnyScript) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / u8"Схемы");
  std::ofstream(folder.Path() / u8"Схемы" / u8"Стены \U0001F600.txt") << Scheme("A");
  Editor editor((folder.Wide() + L"/Схемы").c_str(), L"");
  EXPECT_EQ(Create(editor, L"Стены \U0001F600.txt"), 0);
  EXPECT_EQ(CodeOfScheme(editor), L"A");
}

TEST(CreateClassificator, ReturnsMinusOneForWhatIsInNeitherPlaceAndStoresNothing) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", Scheme("A"));
  Editor editor(folder.Wide().c_str(), L"");
  for (const std::wstring& absent :
       {std::wstring(L"missing.txt"), folder.Wide() + L"/missing.txt",
        std::wstring(L"missing/a.txt"), file + L"/a.txt", std::wstring(L"a.txt/a.txt"),
        std::wstring(300, L'a') + L".txt", std::wstring(1, wchar_t{0xD83D}) + L".txt"}) {
    EXPECT_EQ(Create(editor, absent), -1) << absent;
  }
  EXPECT_EQ(ListClassificators(editor), Names{});
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), 1);
}

TEST(CreateClassificator, ReturnsMinusOneForAnEmptyNameWithoutADataFolder) {
  const TempFolder folder;
  Editor editor((folder.Wide() + L"/missing").c_str(), L"");
  EXPECT_EQ(Create(editor, L""), -1);
  EXPECT_EQ(ListClassificators(editor), Names{});
}

TEST(CreateClassificator, RaisesTheErrorOfTheSearchAndStoresNothing) {
  const TempFolder folder;
  if (!MakeLink("loop.txt", folder.Path() / "loop.txt")) {
    GTEST_SKIP() << "no links can be made here";
  }
  const std::wstring good = folder.Write("a.txt", Scheme("A"));
  Editor editor(folder.Wide().c_str(), L"");
  EXPECT_THROW(Create(editor, folder.Wide() + L"/loop.txt"), fs::filesystem_error);
  EXPECT_THROW(Create(editor, L"loop.txt"), fs::filesystem_error);
  EXPECT_EQ(ListClassificators(editor), Names{});
  EXPECT_EQ(Create(editor, good), 0);
  EXPECT_EQ(CodeOfScheme(editor), L"A");
}

// The statuses

TEST(CreateClassificator, ReturnsZeroForAnEmptyFileAndForOneWithoutSections) {
  const TempFolder folder;
  Editor editor(folder.Wide().c_str(), L"");
  for (const char* bytes : {"", "wall\n@A\n"}) {
    EXPECT_EQ(Create(editor, folder.Write("a.txt", bytes)), 0);
    EXPECT_EQ(CodeOfScheme(editor), L"");
  }
}

TEST(CreateClassificator, ReturnsMinusOneForAnyOtherExtensionButStoresTheEntry) {
  const TempFolder folder;
  for (const char* name :
       {"a.dat", "a.TXT", "a.Txt", "a.txtx", "a.tx", "a", "a.", "a.txt.bak", ".txt"}) {
    Editor editor(folder.Wide().c_str(), L"");
    EXPECT_EQ(Create(editor, folder.Write(name, Scheme("A"))), -1) << name;
    EXPECT_EQ(ListClassificators(editor), (Names{{L"id", L"name"}})) << name;
    EXPECT_EQ(CodeOfScheme(editor), L"A") << name;
    EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L"Param") << name;
  }
}

TEST(CreateClassificator, JudgesTheExtensionAfterTheLastPoint) {
  const TempFolder folder;
  Editor editor(folder.Wide().c_str(), L"");
  for (const char* name : {"a.txt", "a.b.txt", "a.json.txt", ".a.txt"}) {
    EXPECT_EQ(Create(editor, folder.Write(name, "")), 0) << name;
  }
}

TEST(CreateClassificator, ReturnsTwoForAFolderAndStoresAnEntryOfTheArgumentsAlone) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "folder.txt");
  fs::create_directory(folder.Path() / "folder");
  // The empty name is that of the data folder itself.
  for (const wchar_t* name : {L"folder.txt", L"folder", L""}) {
    Editor editor(folder.Wide().c_str(), L"");
    EXPECT_EQ(Create(editor, name), 2) << name;
    EXPECT_EQ(ListClassificators(editor), (Names{{L"id", L"name"}})) << name;
    EXPECT_EQ(CodeOfScheme(editor), L"") << name;
    EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L"Param") << name;
    EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L"Param ;") << name;
  }
}

TEST(CreateClassificator, ReturnsTwoForAFileThatTheUserMayNotRead) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", Scheme("A"));
  fs::permissions(folder.Path() / "a.txt", fs::perms::none);
  const PlainUser plainUser;
  if (std::ifstream(folder.Path() / "a.txt")) GTEST_SKIP() << "no file is closed to this user";
  Editor editor(L"", L"");
  EXPECT_EQ(Create(editor, file), 2);
  EXPECT_EQ(ListClassificators(editor), (Names{{L"id", L"name"}}));
}

TEST(CreateClassificator, ReturnsThreeForAnExceptionAndStoresWhatWasRead) {
  if (!oneRuntime) GTEST_SKIP() << "the tests can't make the library fail";
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt",
                                         "==DOMEN\n@@@ D\n@P 0 0\nF int 0 7\n"
                                         "==MAPTEXT\n$ Z\nwall\n");
  const std::wstring good = folder.Write("b.txt", "==MAPTEXT\n@@ (D)\n@A {P}\nwall");
  Editor editor(L"", L"");
  {
    const GlobalLocale failing(UpperFails);
    EXPECT_EQ(Create(editor, file), 3);
  }
  EXPECT_EQ(ListClassificators(editor), (Names{{L"id", L"name"}}));
  EXPECT_EQ(CodeOfScheme(editor), L"Z");

  // The editor still works, and the failed file has added no domains.
  EXPECT_EQ(editor.CreateClassificator(L"good", L"", L"Param", good.c_str()), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"good"), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L"Param A;");
  EXPECT_EQ(editor.CreateDomen(file.c_str()), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L"Param A;P= 7;");
}

// Domains of classificator files

TEST(CreateClassificator, LoadsTheDomainsThatTheFileHolds) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt",
                                         "==DOMEN\n@@@ D\n@P 0 0\nF int 0 7\n"
                                         "==MAPTEXT\n@@ (D)\n@A {P}\nwall\n");
  Editor editor(L"", L"");
  EXPECT_EQ(Create(editor, file), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L"Param A;P= 7;");
}

TEST(CreateClassificator, LoadsTheDomainsFromTheDataFolderToo) {
  const TempFolder folder;
  folder.Write("a.txt",
               "==MAPTEXT\n@@ (D)\n@A {P=8}\nwall\n"
               "==DOMEN\n@@@ D\n@P 0 0\nF int 0 7\n");
  Editor editor(folder.Wide().c_str(), L"");
  EXPECT_EQ(Create(editor, L"a.txt"), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"")), L"Param A;P 8;");
}

TEST(CreateClassificator, LoadsNoDomainsFromAFileOfAnotherExtension) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.TXT",
                                         "==MAPTEXT\n@@ (D)\n@A {P}\nwall\n"
                                         "==DOMEN\n@@@ D\n@P 0 0\nF int 0 7\n");
  Editor editor(L"", L"");
  EXPECT_EQ(Create(editor, file), -1);
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L"Param A;");
}

TEST(CreateClassificator, LeavesTheActiveDomainAloneUnlessTheFileNamesOne) {
  const TempFolder folder;
  folder.Write("domen.txt", "==DOMEN\n@@@ D\n");
  folder.Write("empty.txt", "");
  folder.Write("scheme.txt", Scheme("A"));
  folder.Write("other.dat", "==DOMEN\n@@@ E\n");
  fs::create_directory(folder.Path() / "folder.txt");
  Editor editor(folder.Wide().c_str(), L"");
  ASSERT_EQ(editor.CreateDomen(L"domen.txt"), 0);
  struct Case {
    const wchar_t* file;
    int status;
  };
  const Case cases[] = {{L"empty.txt", 0},
                        {L"scheme.txt", 0},
                        {L"missing.txt", -1},
                        {L"other.dat", -1},
                        {L"folder.txt", 2}};
  for (const Case& one : cases) {
    EXPECT_EQ(Create(editor, one.file), one.status) << one.file;
    EXPECT_EQ(Take(editor.GetActiveDomenId()), L"D") << one.file;
  }
}

// The entries

TEST(CreateClassificator, TakesItsArgumentsUnchanged) {
  const TempFolder folder;
  folder.Write(" a.txt", "");
  Editor editor(folder.Wide().c_str(), L"");
  EXPECT_EQ(editor.CreateClassificator(L"id", L"", L"", L"a.txt"), -1);
  EXPECT_EQ(editor.CreateClassificator(L" id ", L" n ", L" p\t", L" a.txt"), 0);
  EXPECT_EQ(ListClassificators(editor), (Names{{L" id ", L" n "}}));
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), -1);
  ASSERT_EQ(editor.SetActiveClassificator(L" id "), 0);
  EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L" p\t");
}

TEST(CreateClassificator, CopiesItsArguments) {
  const TempFolder folder;
  std::wstring file = folder.Write("a.txt", Scheme("A"));
  std::wstring id = L"i";
  std::wstring name = L"n";
  std::wstring paramName = L"p";
  Editor editor(L"", L"");
  EXPECT_EQ(editor.CreateClassificator(id.data(), name.data(), paramName.data(), file.data()), 0);
  for (std::wstring* text : {&id, &name, &paramName, &file}) text->front() = L'!';
  EXPECT_EQ(ListClassificators(editor), (Names{{L"i", L"n"}}));
  EXPECT_EQ(editor.SetActiveClassificator(L"i"), 0);
  EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L"p");
}

TEST(GetClassificatorsNames, ReturnsEachEntryInTheOrderOfLoadingWhateverItsStatus) {
  const TempFolder folder;
  Editor editor(L"", L"");
  const std::wstring good = folder.Write("a.txt", "");
  const std::wstring other = folder.Write("a.dat", "");
  EXPECT_EQ(editor.CreateClassificator(L"b", L"Стены", L"", good.c_str()), 0);
  EXPECT_EQ(editor.CreateClassificator(L"Я", L"", L"", folder.Wide().c_str()), 2);
  EXPECT_EQ(editor.CreateClassificator(L"x", L"x", L"", L"no such file.txt"), -1);
  EXPECT_EQ(editor.CreateClassificator(L"A", L"n", L"", other.c_str()), -1);
  EXPECT_EQ(editor.CreateClassificator(L"", L" n ", L"", good.c_str()), 0);
  EXPECT_EQ(editor.CreateClassificator(L"b", L"again", L"", good.c_str()), 0);
  EXPECT_EQ(ListClassificators(editor),
            (Names{{L"b", L"Стены"}, {L"Я", L""}, {L"A", L"n"}, {L"", L" n "}, {L"b", L"again"}}));
}

// The selection

TEST(CreateClassificator, SelectsNothingWhateverItsStatus) {
  const TempFolder folder;
  folder.Write("a.txt", colors);
  folder.Write("a.dat", colors);
  fs::create_directory(folder.Path() / "folder.txt");
  struct Case {
    const wchar_t* file;
    int status;
  };
  for (const Case& one : {Case{L"a.txt", 0}, Case{L"a.dat", -1}, Case{L"folder.txt", 2}}) {
    Editor editor(folder.Wide().c_str(), L"");
    EXPECT_EQ(Create(editor, one.file), one.status) << one.file;
    EXPECT_TRUE(NoneIsSelected(editor)) << one.file;
  }
}

TEST(CreateClassificator, SelectsNothingWhereAnExceptionEndsIt) {
  if (!oneRuntime) GTEST_SKIP() << "the tests can't make the library fail";
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", std::string(colors) + "==MAPTEXT\nwall\n");
  Editor editor(L"", L"");
  const GlobalLocale failing(UpperFails);
  EXPECT_EQ(Create(editor, file), 3);
  EXPECT_TRUE(NoneIsSelected(editor));
}

TEST(SetActiveClassificator, SelectsNothingForAnUnknownId) {
  const TempFolder folder;
  Editor editor(L"", L"");
  EXPECT_EQ(Create(editor, folder.Write("a.txt", colors)), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"unknown"), -1);
  EXPECT_TRUE(NoneIsSelected(editor));
}

TEST(SetActiveClassificator, ReturnsOneWhileNothingIsLoadedEvenForAnEmptyId) {
  Editor editor(L"", L"");
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), 1);
  EXPECT_EQ(editor.SetActiveClassificator(L""), 1);
}

TEST(SetActiveClassificator, ReturnsMinusOneForAnUnknownIdAndKeepsTheSelection) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "");
  Editor editor(L"", L"");
  editor.CreateClassificator(L"Стены", L"name", L"p1", file.c_str());
  editor.CreateClassificator(L"other", L"name", L"p2", file.c_str());
  ASSERT_EQ(editor.SetActiveClassificator(L"Стены"), 0);
  for (const wchar_t* id : {L"стены", L"Стен", L"Стены ", L" Стены", L"", L"name", L"Other"}) {
    EXPECT_EQ(editor.SetActiveClassificator(id), -1) << id;
    EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L"p1") << id;
  }
}

TEST(SetActiveClassificator, TakesTheEarliestOfEqualIds) {
  const TempFolder folder;
  Editor editor(folder.Wide().c_str(), L"");
  folder.Write("a.txt", Scheme("A"));
  folder.Write("b.txt", Scheme("B"));
  editor.CreateClassificator(L"id", L"", L"p1", L"a.txt");
  editor.CreateClassificator(L"id", L"", L"p2", L"b.txt");
  EXPECT_EQ(CodeOfScheme(editor), L"A");
  EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L"p1");
}

TEST(SetActiveClassificator, TakesTheEarliestOfEqualIdsEvenIfItsLoadFailed) {
  const TempFolder folder;
  Editor editor(L"", L"");
  editor.CreateClassificator(L"id", L"", L"", folder.Wide().c_str());
  editor.CreateClassificator(L"id", L"", L"", folder.Write("b.txt", Scheme("B")).c_str());
  EXPECT_EQ(CodeOfScheme(editor), L"");
}

TEST(SetActiveClassificator, FindsAnEmptyId) {
  const TempFolder folder;
  Editor editor(L"", L"");
  editor.CreateClassificator(L"id", L"", L"p1", folder.Write("a.txt", "").c_str());
  editor.CreateClassificator(L"", L"", L"p2", folder.Write("b.txt", "").c_str());
  EXPECT_EQ(editor.SetActiveClassificator(L""), 0);
  EXPECT_EQ(Take(editor.GetActiveClassificatorParamName()), L"p2");
}

TEST(SetActiveClassificator, SwitchesBackAndForth) {
  const TempFolder folder;
  Editor editor(L"", L"");
  editor.CreateClassificator(L"a", L"", L"", folder.Write("a.txt", Scheme("A")).c_str());
  editor.CreateClassificator(L"b", L"", L"", folder.Write("b.txt", Scheme("B")).c_str());
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(CodeOfScheme(editor, L"a"), L"A");
    EXPECT_EQ(CodeOfScheme(editor, L"b"), L"B");
  }
}

TEST(SetActiveClassificator, IsNotUndoneByFurtherLoads) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", Scheme("A"));
  const std::wstring other = folder.Write("b.txt", Scheme("B"));
  Editor editor(L"", L"");
  editor.CreateClassificator(L"a", L"", L"", file.c_str());
  ASSERT_EQ(editor.SetActiveClassificator(L"a"), 0);
  for (int i = 0; i < 100; ++i) {
    ASSERT_EQ(editor.CreateClassificator(L"b", L"", L"", other.c_str()), 0);
    ASSERT_EQ(Take(editor.GetDefaultClaccificatorCode()), L"A");
  }
  EXPECT_EQ(ListClassificators(editor).size(), 101u);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
