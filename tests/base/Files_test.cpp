#include "base/Files.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "support/CurrentFolder.h"
#include "support/Links.h"
#include "support/PlainUser.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

const std::wstring loneSurrogate(1, wchar_t{0xD83D});

// Removes all permissions of a file or folder for its lifetime.
class Refused {
 public:
  explicit Refused(fs::path refused) : path(std::move(refused)) {
    fs::permissions(path, fs::perms::none);
  }
  Refused(const Refused&) = delete;
  Refused& operator=(const Refused&) = delete;
  ~Refused() { fs::permissions(path, fs::perms::owner_all); }

 private:
  fs::path path;
};

TEST(Exists, IsTrueForAFileAndForAFolder) {
  const TempFolder folder;
  EXPECT_TRUE(Exists(folder.Write("a.txt", "")));
  EXPECT_TRUE(Exists(folder.Wide()));
  EXPECT_TRUE(Exists(folder.Wide() + L"/"));
}

TEST(Exists, TakesANameThatCannotBeAsPlainAbsence) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "");
  const std::wstring cases[] = {
      L"",
      folder.Wide() + L"/b.txt",                       // a missing file
      folder.Wide() + L"/missing/a.txt",               // a missing folder
      file + L"/a.txt",                                // a file as a folder
      folder.Wide() + L"/" + std::wstring(300, L'a'),  // a name that is too long
      folder.Wide() + L"/" + std::wstring(300, L'я'),
      folder.Wide() + L"/<a|b>?*\"",                    // an invalid name
      folder.Wide() + L"/a" + loneSurrogate + L".txt",  // a name that is no text
  };
  for (const std::wstring& path : cases) EXPECT_FALSE(Exists(path)) << path;
}

TEST(Exists, TakesAPathThatIsTooLongAsPlainAbsence) {
  if (fs::path::preferred_separator != '/') GTEST_SKIP() << "the bound on paths is another here";
  const TempFolder folder;
  EXPECT_FALSE(Exists(folder.Wide() + std::wstring(50'000, L'/')));
}

TEST(Exists, TakesALinkToNothingAsAbsence) {
  const TempFolder folder;
  if (!MakeLink("nothing", folder.Path() / "link")) {
    GTEST_SKIP() << "no links can be made here";
  }
  EXPECT_FALSE(Exists(folder.Wide() + L"/link"));
}

TEST(Exists, RaisesAnyOtherErrorOfTheSystem) {
  const TempFolder folder;
  if (!MakeLink("loop", folder.Path() / "loop")) GTEST_SKIP() << "no links can be made here";
  EXPECT_THROW(Exists(folder.Wide() + L"/loop"), fs::filesystem_error);
  EXPECT_THROW(Exists(folder.Wide() + L"/loop/a.txt"), fs::filesystem_error);
}

TEST(Exists, RaisesARefusedAccess) {
  const TempFolder folder;
  const fs::path closed = folder.Path() / "closed";
  fs::create_directory(closed);
  const Refused refused(closed);
  const PlainUser plainUser;
  std::error_code error;
  if (fs::status(closed / "a.txt", error).type() == fs::file_type::not_found)
    GTEST_SKIP() << "no folder is closed to this user";
  EXPECT_THROW(Exists(folder.Wide() + L"/closed/a.txt"), fs::filesystem_error);
}

TEST(Files, AreFoundAndReadByTheirNameInAnyScriptWhateverTheCLocaleIs) {
  const TempFolder folder;
  const struct {
    const char8_t* name;
    const wchar_t* wide;
  } names[] = {
      {u8"Схема ёЁ.txt", L"/Схема ёЁ.txt"},
      {u8"\U0001F600.txt", L"/\U0001F600.txt"},
      {u8"標準€.txt", L"/標準€.txt"},
  };
  for (const auto& one : names) std::ofstream(folder.Path() / one.name) << "found";
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"C", "C.UTF-8", "ru_RU.UTF-8", "ru_RU.CP1251", ".UTF-8"}) {
    if (!std::setlocale(LC_ALL, locale)) continue;  // every system has "C"
    for (const auto& one : names) {
      EXPECT_TRUE(Exists(folder.Wide() + one.wide)) << locale;
      EXPECT_EQ(ReadFile(folder.Wide() + one.wide), "found") << locale;
    }
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(FindFile, ReturnsAPathThatExistsUnchanged) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "");
  EXPECT_EQ(FindFile(folder.Wide(), file), file);
  EXPECT_EQ(FindFile(L"no such folder", file), file);
  EXPECT_EQ(FindFile(loneSurrogate, file), file);
  EXPECT_EQ(FindFile(L"", folder.Wide()), folder.Wide());
}

TEST(FindFile, TakesBlanksAsPartsOfTheNames) {
  const TempFolder folder;
  folder.Write(" a.txt", "");
  EXPECT_EQ(FindFile(folder.Wide(), L" a.txt"), folder.Wide() + L"/ a.txt");
  EXPECT_EQ(FindFile(folder.Wide(), L"a.txt"), std::nullopt);
}

TEST(FindFile, TakesABlankAtTheEndOfTheDataFolderAsPartOfItsName) {
  if (fs::path::preferred_separator != '/') GTEST_SKIP() << "no folder's name can end so here";
  const TempFolder folder;
  fs::create_directory(folder.Path() / "data ");
  folder.Write("data /a.txt", "");
  EXPECT_EQ(FindFile(folder.Wide() + L"/data ", L"a.txt"), folder.Wide() + L"/data /a.txt");
  EXPECT_EQ(FindFile(folder.Wide() + L"/data", L"a.txt"), std::nullopt);
}

TEST(FindFile, TriesTheCurrentFolderBeforeTheDataFolder) {
  const TempFolder current;
  const TempFolder data;
  current.Write("a.txt", "");
  data.Write("a.txt", "");
  data.Write("b.txt", "");
  const CurrentFolder inCurrent(current.Path());
  EXPECT_EQ(FindFile(data.Wide(), L"a.txt"), L"a.txt");
  EXPECT_EQ(FindFile(data.Wide(), L"./a.txt"), L"./a.txt");
  EXPECT_EQ(FindFile(data.Wide(), L"b.txt"), data.Wide() + L"/b.txt");
  EXPECT_EQ(FindFile(data.Wide(), L"./b.txt"), data.Wide() + L"/./b.txt");
}

TEST(FindFile, TakesARelativeDataFolderFromTheCurrentFolder) {
  const TempFolder current;
  fs::create_directory(current.Path() / "data");
  current.Write("data/b.txt", "");
  const CurrentFolder inCurrent(current.Path());
  EXPECT_EQ(FindFile(L"data", L"b.txt"), L"data/b.txt");
  EXPECT_EQ(FindFile(L".", L"data/b.txt"), L"data/b.txt");
}

TEST(FindFile, AlwaysPutsAForwardSlashAfterTheDataFolder) {
  const TempFolder folder;
  folder.Write("only-here.txt", "");
  EXPECT_EQ(FindFile(folder.Wide() + L"/", L"only-here.txt"), folder.Wide() + L"//only-here.txt");
  EXPECT_EQ(FindFile(folder.Wide(), L"/only-here.txt"), folder.Wide() + L"//only-here.txt");
}

TEST(FindFile, SearchesTheRootWithAnEmptyDataFolder) {
  const TempFolder folder;
  const fs::path fromRoot = fs::canonical(folder.Path()).relative_path();
  if (!fs::exists("/" / fromRoot)) GTEST_SKIP() << "the test's folder is on another drive";
  const std::wstring file = fromRoot.wstring();
  EXPECT_EQ(FindFile(L"", file), L"/" + file);
}

TEST(FindFile, FindsTheDataFolderItselfUnderAnEmptyName) {
  const TempFolder folder;
  EXPECT_EQ(FindFile(folder.Wide(), L""), folder.Wide() + L"/");
  EXPECT_EQ(FindFile(folder.Wide() + L"/missing", L""), std::nullopt);
}

TEST(FindFile, ReturnsNothingIfTheFileIsInNeitherPlace) {
  const TempFolder folder;
  EXPECT_EQ(FindFile(folder.Wide(), L"b.txt"), std::nullopt);
  EXPECT_EQ(FindFile(folder.Wide(), folder.Wide() + L"/b.txt"), std::nullopt);
  EXPECT_EQ(FindFile(folder.Wide(), loneSurrogate), std::nullopt);
  EXPECT_EQ(FindFile(loneSurrogate, L"b.txt"), std::nullopt);
}

TEST(FindFile, RaisesTheErrorOfEitherPlace) {
  const TempFolder folder;
  const TempFolder empty;
  if (!MakeLink("loop", folder.Path() / "loop")) GTEST_SKIP() << "no links can be made here";
  EXPECT_THROW(FindFile(empty.Wide(), folder.Wide() + L"/loop"), fs::filesystem_error);
  EXPECT_THROW(FindFile(folder.Wide(), L"loop"), fs::filesystem_error);
}

TEST(ReadFile, ReturnsTheBytesUnchanged) {
  const TempFolder folder;
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  for (const std::string& bytes : {""s, "a"s, "a\r\nb\n\r\x1A\0c"s, "\xEF\xBB\xBF=="s, all}) {
    EXPECT_EQ(ReadFile(folder.Write("a.txt", bytes)), bytes);
  }
}

TEST(ReadFile, ReadsFilesOfAnySizeToTheEnd) {
  const TempFolder folder;
  for (const std::size_t size : {4095u, 4096u, 4097u, 8192u, 65'536u, 5'000'001u}) {
    std::string bytes(size, 'a');
    bytes.back() = 'z';
    EXPECT_TRUE(ReadFile(folder.Write("a.txt", bytes)) == bytes) << size;
  }
}

TEST(ReadFile, ReturnsNothingForWhatCannotBeOpened) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "a");
  fs::create_directory(folder.Path() / "folder.txt");
  EXPECT_EQ(ReadFile(L""), std::nullopt);
  EXPECT_EQ(ReadFile(folder.Wide() + L"/b.txt"), std::nullopt);
  EXPECT_EQ(ReadFile(folder.Wide() + L"/folder.txt"), std::nullopt);
  EXPECT_EQ(ReadFile(folder.Wide() + L"/"), std::nullopt);
  EXPECT_EQ(ReadFile(file + L"/a.txt"), std::nullopt);
  EXPECT_EQ(ReadFile(folder.Wide() + L"/" + loneSurrogate), std::nullopt);
}

TEST(ReadFile, ReturnsNothingForAFileThatTheUserMayNotRead) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "a");
  const Refused refused(folder.Path() / "a.txt");
  const PlainUser plainUser;
  if (std::ifstream(folder.Path() / "a.txt")) GTEST_SKIP() << "no file is closed to this user";
  EXPECT_EQ(ReadFile(file), std::nullopt);
}

// This can fail on Windows only, where an open file may be locked.
TEST(ReadFile, ReadsAFileThatIsOpenForWritingElsewhere) {
  if (fs::path::preferred_separator == '/') GTEST_SKIP() << "an open file is closed to nobody here";
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "ab");
  std::fstream other(folder.Path() / "a.txt");
  other << "x" << std::flush;
  EXPECT_EQ(ReadFile(file), "xb");
  other << "y" << std::flush;
  EXPECT_EQ(ReadFile(file), "xy");
}

TEST(ReadFile, ReadsAFileThatSaysItIsEmpty) {
  std::ifstream file("/proc/self/status");
  if (!file) GTEST_SKIP() << "no such file here";
  const std::optional<std::string> bytes = ReadFile(L"/proc/self/status");
  ASSERT_TRUE(bytes.has_value());
  EXPECT_NE(bytes->find("\nState:"), bytes->npos);
}

TEST(ReadFile, EndsWhereTheSystemFailsToReadOn) {
  if (!std::ifstream("/proc/self/mem")) GTEST_SKIP() << "no such file here";
  EXPECT_EQ(ReadFile(L"/proc/self/mem"), "");
}

TEST(ReadWholeFile, ReturnsAllBytes) {
  const TempFolder folder;
  for (const std::string& bytes : {""s, "a\r\n\0b\x1A\xFF"s, std::string(100'000, 'a')}) {
    EXPECT_TRUE(ReadWholeFile(folder.Write("a.txt", bytes)) == bytes);
  }
}

TEST(ReadWholeFile, RaisesAnExceptionForWhatCannotBeOpened) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a.txt", "a");
  for (const std::wstring& path : {L""s, folder.Wide(), folder.Wide() + L"/b.txt", file + L"/a.txt",
                                   folder.Wide() + L"/" + loneSurrogate}) {
    EXPECT_THROW(ReadWholeFile(path), std::system_error) << path;
  }
}

TEST(ReadWholeFile, RaisesAnExceptionWhereTheSystemFailsToReadOn) {
  if (!std::ifstream("/proc/self/mem")) GTEST_SKIP() << "no such file here";
  EXPECT_THROW(ReadWholeFile(L"/proc/self/mem"), std::system_error);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
