// Tests of `CreateDomen`. The contents of a domain file show in the items of a mapping string.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "RevitMappingEditorDll.h"
#include "support/Classificators.h"
#include "support/CurrentFolder.h"
#include "support/Links.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

// The mapping string of a wall has the property P of domain A, or else of domain B.
constexpr std::string_view scheme =
    "==MAPTEXT\n"
    "@@ (A B)\n"
    "@W10 {P}\n"
    "wall\n";

// Returns a file with a domain whose property P has one field with this value.
std::string DomenOf(const std::string& id, const std::string& value) {
  return "==DOMEN\n@@@ " + id + "\n@ P 0 1\nF str 0 " + value + "\n";
}

// An editor with its own data folder that has loaded only the scheme.
class CreateDomen : public testing::Test {
 protected:
  CreateDomen() : editor(data.Wide().c_str(), L"") {
    const std::wstring file = elsewhere.Write("scheme.txt", scheme);
    EXPECT_EQ(editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()), 0);
    EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  }

  int Create(const std::wstring& file) { return editor.CreateDomen(file.c_str()); }

  std::wstring Mapping() { return Take(editor.GetMappingStr(L"wall", 1, L"=")); }

  std::wstring Active() { return Take(editor.GetActiveDomenId()); }

  TempFolder data;
  TempFolder elsewhere;
  RevitMappingEditorDll editor;
};

constexpr const wchar_t* noDomain = L"Code W10;";

TEST_F(CreateDomen, LoadsAFileByItsWholePath) {
  EXPECT_EQ(Mapping(), noDomain);
  EXPECT_EQ(Create(elsewhere.Write("domens.txt", DomenOf("A", "own"))), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= own;");
}

TEST_F(CreateDomen, LoadsAFileOfTheDataFolder) {
  data.Write("domens.txt", DomenOf("A", "data"));
  EXPECT_EQ(Create(L"domens.txt"), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= data;");
}

TEST_F(CreateDomen, LoadsAFileOfAFolderInTheDataFolder) {
  fs::create_directory(data.Path() / "sub");
  data.Write("sub/domens.txt", DomenOf("A", "sub"));
  EXPECT_EQ(Create(L"sub/domens.txt"), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= sub;");
}

TEST_F(CreateDomen, PrefersTheFileUnderItsOwnNameToTheDataFolder) {
  data.Write("domens.txt", DomenOf("A", "data"));
  elsewhere.Write("domens.txt", DomenOf("A", "current"));
  const CurrentFolder current(elsewhere.Path());
  EXPECT_EQ(Create(L"domens.txt"), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= current;");
}

TEST_F(CreateDomen, JoinsDataFolderAndNameBySlashWhateverTheyBeginAndEndWith) {
  data.Write("domens.txt", DomenOf("A", "data"));
  // The root folder has no such file, so the data folder is searched too.
  data.Write("domens-of-a-test.txt", DomenOf("B", "root"));
  EXPECT_EQ(Create(L"/domens-of-a-test.txt"), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= root;");
  RevitMappingEditorDll slash((data.Wide() + L"/").c_str(), L"");
  EXPECT_EQ(slash.CreateDomen(L"domens.txt"), 0);
}

TEST_F(CreateDomen, SearchesTheRootFolderIfTheDataFolderIsEmpty) {
  // The second path is "/" and the name.
  RevitMappingEditorDll rooted(L"", L"");
  const std::wstring path = elsewhere.Write("domens.txt", DomenOf("A", "own"));
  EXPECT_EQ(rooted.CreateDomen(path.c_str()), 0);
  EXPECT_EQ(rooted.CreateDomen(L"no-domens-of-a-test.txt"), -1);
  if (path.front() != L'/') GTEST_SKIP() << "absolute paths begin with a drive here";
  EXPECT_EQ(rooted.CreateDomen(path.c_str() + 1), 0);
}

TEST_F(CreateDomen, ReturnsMinus1ForAFileThatIsInNeitherPlaceAndKeepsWhatThereIs) {
  EXPECT_EQ(Create(elsewhere.Write("domens.txt", DomenOf("A", "old"))), 0);
  data.Write("file.txt", "");
  for (const wchar_t* file : {L"missing.txt", L"missing/domens.txt", L"file.txt/x.txt",
                              L"missing.json", L"missing", L"отсутствует.txt"}) {
    EXPECT_EQ(Create(file), -1) << file;
  }
  EXPECT_EQ(Create(std::wstring(1, static_cast<wchar_t>(0xD800)) + L".txt"), -1);
  EXPECT_EQ(Mapping(), L"Code W10;P= old;");
  EXPECT_EQ(Active(), L"A");
}

TEST_F(CreateDomen, ReturnsMinus1ForAFileWithAnotherExtensionAndDoesNotReadIt) {
  for (const char* name : {"domens", "domens.cfg", "domens.txt.bak", "domens.TXT", ".txt"}) {
    EXPECT_EQ(Create(elsewhere.Write(name, DomenOf("A", "own"))), -1) << name;
  }
  for (const char* name : {"Domens.Txt", "Domens.Json", "Domens.JSON"}) {
    const TempFolder folder;  // separate, because some systems treat these names as equal
    EXPECT_EQ(Create(folder.Write(name, DomenOf("A", "own"))), -1) << name;
  }
  EXPECT_EQ(Mapping(), noDomain);
}

TEST_F(CreateDomen, DoesNotGoOnToTheDataFolderFromAFileThatItRefuses) {
  elsewhere.Write("domens.cfg", "");
  fs::create_directory(elsewhere.Path() / "domens.txt");
  data.Write("domens.txt", DomenOf("A", "data"));
  const CurrentFolder current(elsewhere.Path());
  EXPECT_EQ(Create(L"domens.cfg"), -1);
  EXPECT_EQ(Create(L"domens.txt"), 2);
  EXPECT_EQ(Mapping(), noDomain);
}

TEST_F(CreateDomen, Returns2ForAFolder) {
  fs::create_directory(elsewhere.Path() / "own.txt");
  fs::create_directory(data.Path() / "data.txt");
  EXPECT_EQ(Create(elsewhere.Wide() + L"/own.txt"), 2);
  EXPECT_EQ(Create(L"data.txt"), 2);
}

TEST_F(CreateDomen, ReturnsMinus1ForTheEmptyNameWhichIsTheDataFolderItself) {
  data.Write("domens.txt", DomenOf("A", "data"));
  EXPECT_EQ(Create(L""), -1);
  EXPECT_EQ(Create(L"."), -1);
  EXPECT_EQ(Mapping(), noDomain);
}

TEST_F(CreateDomen, Returns0ForAFileWithoutADomain) {
  EXPECT_EQ(Create(elsewhere.Write("empty.txt", "")), 0);
  EXPECT_EQ(Create(elsewhere.Write("other.txt", "==NOTES\n@@@ A\n@ P 0 1\n")), 0);
  EXPECT_EQ(Create(elsewhere.Write("small.txt", "==domen\n@@@ A\n@ P 0 1\n")), 0);
  EXPECT_EQ(Mapping(), noDomain);
}

TEST_F(CreateDomen, Returns0ForAFileThatEndsInBytesThatCannotBeDecoded) {
  EXPECT_EQ(Create(elsewhere.Write("bad.txt", DomenOf("A", "own") + "G str 0 in\xFFt\n")), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= own in;");
}

TEST_F(CreateDomen, FindsAFileWhoseNameIsNotLatin) {
  const fs::path name(u8"домены.txt");
  const std::string text = DomenOf("A", "own");
  std::ofstream(data.Path() / name, std::ios::binary) << text;
  EXPECT_EQ(Create(L"домены.txt"), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= own;");
}

TEST_F(CreateDomen, AddsTheDomainsOfEachFileToThoseOfTheOthers) {
  EXPECT_EQ(Create(elsewhere.Write("b.txt", DomenOf("B", "second"))), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= second;");
  EXPECT_EQ(Create(elsewhere.Write("a.txt", DomenOf("A", "first"))), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= first;");
  EXPECT_EQ(Create(elsewhere.Write("c.txt", DomenOf("C", "other"))), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= first;");
}

TEST_F(CreateDomen, MakesTheLastDomainOfTheFileTheActiveOneEvenIfItExists) {
  EXPECT_EQ(Active(), L"");
  EXPECT_EQ(Create(elsewhere.Write("1.txt", DomenOf("B", "b") + DomenOf("A", "a"))), 0);
  EXPECT_EQ(Active(), L"A");
  EXPECT_EQ(Create(elsewhere.Write("2.txt", DomenOf("B", "again"))), 0);
  EXPECT_EQ(Active(), L"B");
}

TEST_F(CreateDomen, LeavesTheActiveDomainAloneUnlessTheFileNamesOne) {
  EXPECT_EQ(Create(elsewhere.Write("1.txt", DomenOf("A", "a"))), 0);
  fs::create_directory(elsewhere.Path() / "folder.txt");
  EXPECT_EQ(Create(elsewhere.Write("2.txt", "==DOMEN\n@@@\n@ Q 0 1\n==NOTES\n@@@ B\n")), 0);
  EXPECT_EQ(Create(elsewhere.Write("3.cfg", DomenOf("B", "b"))), -1);
  EXPECT_EQ(Create(elsewhere.Wide() + L"/missing.txt"), -1);
  EXPECT_EQ(Create(elsewhere.Wide() + L"/folder.txt"), 2);
  EXPECT_EQ(Active(), L"A");
}

TEST_F(CreateDomen, ExtendsTheDomainsOfEarlierFilesAndChangesNothingInThem) {
  EXPECT_EQ(Create(elsewhere.Write("1.txt", DomenOf("A", "first"))), 0);
  EXPECT_EQ(Create(elsewhere.Write("2.txt", DomenOf("A", "second") + "G str 0 new\n")), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= first new;");
}

TEST_F(CreateDomen, ExtendsTheDomainsOfAClassificatorFile) {
  const std::wstring file =
      elsewhere.Write("both.txt", std::string(scheme) + DomenOf("A", "scheme"));
  ASSERT_EQ(editor.CreateClassificator(L"T", L"", L"Code", file.c_str()), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= scheme;");
  EXPECT_EQ(Create(elsewhere.Write("domens.txt", DomenOf("A", "domens") + "G str 0 new\n")), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= scheme new;");
}

TEST_F(CreateDomen, ReadsTheDomainsOfAClassificatorFileButNotTheClassificator) {
  const std::wstring file =
      elsewhere.Write("both.txt", "==MAPTEXT\n@X99\nwall\n" + DomenOf("A", "own"));
  EXPECT_EQ(Create(file), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= own;");
  EXPECT_EQ(ListClassificators(editor).size(), 1u);
}

TEST_F(CreateDomen, PassesOnTheFileSystemsErrorThatIsNoAbsence) {
  if (!MakeLink("loop.txt", elsewhere.Path() / "loop.txt") ||
      !MakeLink("loop.txt", data.Path() / "loop.txt")) {
    GTEST_SKIP() << "no links can be made here";
  }
  EXPECT_EQ(Create(elsewhere.Write("domens.txt", DomenOf("A", "old"))), 0);

  EXPECT_THROW(Create(elsewhere.Wide() + L"/loop.txt"), fs::filesystem_error);
  EXPECT_THROW(Create(L"loop.txt"), fs::filesystem_error);

  // The editor is unchanged and usable.
  EXPECT_EQ(Mapping(), L"Code W10;P= old;");
  EXPECT_EQ(Create(elsewhere.Write("more.txt", "==DOMEN\n@@@ A\n@ P 0 1\nG str 0 new\n")), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= old new;");
}

TEST_F(CreateDomen, FollowsASymbolicLinkToAFile) {
  elsewhere.Write("target", DomenOf("A", "own"));
  if (!MakeLink("target", elsewhere.Path() / "link.txt")) {
    GTEST_SKIP() << "no links can be made here";
  }
  EXPECT_EQ(Create(elsewhere.Wide() + L"/link.txt"), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= own;");
}

TEST_F(CreateDomen, TreatsALinkToNothingAsAMissingFile) {
  if (!MakeLink("missing", elsewhere.Path() / "link.txt")) {
    GTEST_SKIP() << "no links can be made here";
  }
  EXPECT_EQ(Create(elsewhere.Wide() + L"/link.txt"), -1);
}

TEST_F(CreateDomen, PassesADefaultThroughItsTextFormOnceForEachCopyOfItsProperty) {
  // A mapping string copies a property twice. Each copy removes a quotation mark and the tab before
  // it, and reading the file removes one more mark.
  EXPECT_EQ(Create(elsewhere.Write("d.txt", DomenOf("A", "x\"\t\"\t\"\t\""))), 0);
  EXPECT_EQ(Mapping(), L"Code W10;P= x\"\t;");
  // Copying the editor removes another.
  RevitMappingEditorDll copy(editor);
  EXPECT_EQ(Take(copy.GetMappingStr(L"wall", 1, L"=")), L"Code W10;P= x;");
  EXPECT_EQ(Mapping(), L"Code W10;P= x\"\t;");
}

TEST_F(CreateDomen, LoadsIntoOneEditorOnly) {
  RevitMappingEditorDll copy(editor);
  EXPECT_EQ(Create(elsewhere.Write("domens.txt", DomenOf("A", "own"))), 0);
  EXPECT_EQ(Take(copy.GetMappingStr(L"wall", 1, L"=")), noDomain);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
