// Tests of `ReplaceWholeFile` for every platform.

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "base/Files.h"
#include "support/CurrentFolder.h"
#include "support/Links.h"
#include "support/NamesIn.h"
#include "support/PlainUser.h"
#include "support/Program.h"
#include "support/ReplaceBy.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

TEST(ReplaceWholeFile, CreatesAFileOfTheBytesUnchanged) {
  const TempFolder folder;
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  for (const std::string& bytes :
       {""s, "a"s, "a\r\nb\n\r\x1A\0c"s, all, std::string(5'000'001, 'a')}) {
    ReplaceBy(folder.Wide() + L"/a", bytes);
    EXPECT_TRUE(ReadBytes(folder.Path() / "a") == bytes) << bytes.size();
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
    fs::remove(folder.Path() / "a");
  }
}

TEST(ReplaceWholeFile, PutsThePiecesOfAFileSideBySide) {
  const TempFolder folder;
  ReplaceWholeFile(folder.Wide() + L"/a", [](const TakeBytes& take) {
    for (const std::string_view piece : {"one ", "", "two ", "three"}) take(piece);
  });
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "one two three");
  ReplaceWholeFile(folder.Wide() + L"/b", [](const TakeBytes&) {});
  EXPECT_EQ(ReadBytes(folder.Path() / "b"), "");
}

TEST(ReplaceWholeFile, LeavesTheOldFileAndNothingElseWhereNotAllPiecesCome) {
  for (const bool old : {true, false}) {
    const TempFolder folder;
    if (old) folder.Write("a", "old");
    const auto fail = [](const TakeBytes& take) {
      take("new");
      throw std::runtime_error("no more");
    };
    EXPECT_THROW(ReplaceWholeFile(folder.Wide() + L"/a", fail), std::runtime_error);
    EXPECT_EQ(NamesIn(folder.Path()), old ? std::set<std::string>{"a"} : std::set<std::string>{});
    EXPECT_EQ(ReadBytes(folder.Path() / "a"), old ? "old" : "");
  }
}

TEST(ReplaceWholeFile, LeavesNothingOfTheOldFile) {
  const TempFolder folder;
  for (const std::string& old : {""s, "a"s, std::string(5'000'000, 'a')}) {
    for (const std::string& bytes : {""s, "new"s, std::string(100'000, 'b')}) {
      ReplaceBy(folder.Write("a", old), bytes);
      EXPECT_TRUE(ReadBytes(folder.Path() / "a") == bytes) << old.size() << ", " << bytes.size();
      EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
    }
  }
}

TEST(ReplaceWholeFile, ReplacesAFileOverAndOver) {
  const TempFolder folder;
  for (int i = 0; i < 20; ++i) ReplaceBy(folder.Wide() + L"/a", std::to_string(i));
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "19");
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
}

TEST(ReplaceWholeFile, TouchesNoOtherFile) {
  const TempFolder folder;
  for (const char* name : {"a.new", ".a.new", "a~", "a.tmp", "b"}) folder.Write(name, "other");
  ReplaceBy(folder.Write("a", "old"), "new");
  for (const char* name : {"a.new", ".a.new", "a~", "a.tmp", "b"}) {
    EXPECT_EQ(ReadBytes(folder.Path() / name), "other") << name;
  }
  EXPECT_EQ(NamesIn(folder.Path()).size(), 6u);
}

TEST(ReplaceWholeFile, TakesARelativePathFromTheCurrentFolder) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "inner");
  const CurrentFolder current(folder.Path());
  for (const wchar_t* path : {L"a", L"./b", L"inner/a", L"inner/../c"}) {
    ReplaceBy(path, "old");
    ReplaceBy(path, "new");
  }
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"a", "b", "c", "inner"}));
  EXPECT_EQ(NamesIn(folder.Path() / "inner"), std::set<std::string>{"a"});
  EXPECT_EQ(ReadBytes("inner/a"), "new");
}

TEST(ReplaceWholeFile, TakesANameInAnyScriptWhateverTheCLocaleIs) {
  const struct {
    const char8_t* name;
    const wchar_t* wide;
  } names[] = {
      {u8"Зоны ёЁ.json", L"/Зоны ёЁ.json"},
      {u8"\U0001F600.json", L"/\U0001F600.json"},
      {u8"標準€.json", L"/標準€.json"},
  };
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"C", "C.UTF-8", "ru_RU.UTF-8", "ru_RU.CP1251", ".UTF-8"}) {
    if (!std::setlocale(LC_ALL, locale)) continue;  // every system has "C"
    const TempFolder folder;
    for (const auto& one : names) {
      for (const char* bytes : {"old", "new"}) {
        ReplaceBy(folder.Wide() + one.wide, bytes);
        EXPECT_EQ(ReadBytes(folder.Path() / one.name), bytes) << locale;
      }
    }
    EXPECT_EQ(NamesIn(folder.Path()).size(), 3u) << locale;
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(ReplaceWholeFile, TakesTheLongestNameThatThereIs) {
  const TempFolder folder;
  const std::string name(255, 'a');
  if (!std::ofstream(folder.Path() / name)) GTEST_SKIP() << "names are shorter here";
  fs::remove(folder.Path() / name);
  for (const char* bytes : {"old", "new"}) {
    ReplaceBy(folder.Wide() + L"/" + std::wstring(255, L'a'), bytes);
    EXPECT_EQ(ReadBytes(folder.Path() / name), bytes);
  }
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{name});
}

TEST(ReplaceWholeFile, RaisesAnErrorWhereNoFileCanBeAndMakesNothing) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "old");
  const std::wstring paths[] = {
      L"",
      folder.Wide() + L"/missing/a",
      folder.Wide() + L"/missing/",
      file + L"/a",
      folder.Wide() + L"/" + std::wstring(300, L'a'),
      folder.Wide() + L"/" + std::wstring(300, L'я'),
  };
  for (const std::wstring& path : paths) {
    EXPECT_THROW(ReplaceBy(path, "new"), std::system_error) << path;
  }
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "old");
}

TEST(ReplaceWholeFile, RaisesAnErrorForANameThatIsNoText) {
  if (fs::path::preferred_separator != '/') GTEST_SKIP() << "a name is any units here";
  const TempFolder folder;
  const std::wstring noText(1, static_cast<wchar_t>(0xD83D));
  EXPECT_THROW(ReplaceBy(folder.Wide() + L"/" + noText, "new"), std::system_error);
  EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(ReplaceWholeFile, NeverReplacesAFolder) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "empty");
  fs::create_directory(folder.Path() / "full");
  folder.Write("full/a", "old");
  for (const wchar_t* name : {L"/empty", L"/full", L"/empty/", L"/full/.", L"/full/..", L"/"}) {
    EXPECT_THROW(ReplaceBy(folder.Wide() + name, "new"), std::system_error) << name;
  }
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"empty", "full"}));
  EXPECT_TRUE(fs::is_empty(folder.Path() / "empty"));
  EXPECT_EQ(NamesIn(folder.Path() / "full"), std::set<std::string>{"a"});
}

TEST(ReplaceWholeFile, LeavesAFileAloneThatMayNotBeWritten) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "old");
  fs::permissions(folder.Path() / "a", fs::perms::owner_read);
  std::optional<PlainUser> plainUser(std::in_place);
  const bool closed = !std::ofstream(folder.Path() / "a", std::ios::app);
  if (closed) {
    EXPECT_THROW(ReplaceBy(file, "new"), std::system_error);
  }
  plainUser.reset();
  fs::permissions(folder.Path() / "a", fs::perms::owner_all);
  if (!closed) GTEST_SKIP() << "no file is closed to this user";
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "old");
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
}

TEST(ReplaceWholeFile, ReplacesWhatALinkLeadsToAndLeavesTheLink) {
  const TempFolder folder;
  const TempFolder elsewhere;
  elsewhere.Write("target", "old");
  if (!MakeLink(elsewhere.Path() / "target", folder.Path() / "link") ||
      !MakeLink("link", folder.Path() / "second") ||
      !MakeFolderLink(elsewhere.Path(), folder.Path() / "elsewhere")) {
    GTEST_SKIP() << "no links can be made here";
  }
  for (const wchar_t* name : {L"/link", L"/second", L"/elsewhere/target"}) {
    const std::string bytes = "new through " + fs::path(name).string();
    ReplaceBy(folder.Wide() + name, bytes);
    EXPECT_EQ(ReadBytes(elsewhere.Path() / "target"), bytes);
  }
  EXPECT_EQ(fs::read_symlink(folder.Path() / "link"), elsewhere.Path() / "target");
  EXPECT_EQ(fs::read_symlink(folder.Path() / "second"), "link");
  EXPECT_FALSE(fs::is_symlink(elsewhere.Path() / "target"));
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"elsewhere", "link", "second"}));
  EXPECT_EQ(NamesIn(elsewhere.Path()), std::set<std::string>{"target"});
}

TEST(ReplaceWholeFile, RefusesALinkToNoFileAndLeavesIt) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "folder");
  if (!MakeLink("nothing", folder.Path() / "dangling") ||
      !MakeLink("loop", folder.Path() / "loop") ||
      !MakeFolderLink("folder", folder.Path() / "to-folder")) {
    GTEST_SKIP() << "no links can be made here";
  }
  for (const wchar_t* name : {L"/dangling", L"/loop", L"/to-folder"}) {
    EXPECT_THROW(ReplaceBy(folder.Wide() + name, "new"), std::system_error) << name;
    EXPECT_TRUE(fs::is_symlink(folder.Path() / fs::path(name).relative_path())) << name;
  }
  EXPECT_EQ(NamesIn(folder.Path()),
            (std::set<std::string>{"dangling", "folder", "loop", "to-folder"}));
  EXPECT_TRUE(fs::is_empty(folder.Path() / "folder"));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
