// Tests of file names and file sharing on Windows.

#include <gtest/gtest.h>
#include <windows.h>

#include <cwctype>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "RevitMappingEditorDll.h"
#include "base/Files.h"
#include "base/Text.h"
#include "classificator/ColoratSection.h"
#include "support/CurrentFolder.h"
#include "support/ReplaceBy.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

constexpr const char* schemeText = "==MAPTEXT\n@W10\nwall\n==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\n";

// A folder with a scheme of a given name.
class SchemeFolder {
 public:
  ~SchemeFolder() {
    // From the inside out, because long paths need their prefix.
    for (fs::path path = file; path != folder.Path(); path = path.parent_path()) {
      const std::wstring name = L"\\\\?\\" + path.wstring();
      DeleteFileW(name.c_str());
      RemoveDirectoryW(name.c_str());
    }
  }
  SchemeFolder(const SchemeFolder&) = delete;
  SchemeFolder& operator=(const SchemeFolder&) = delete;

  explicit SchemeFolder(const fs::path& name) : file(folder.Path() / name) {
    fs::create_directories(L"\\\\?\\" + file.parent_path().wstring());
    std::ofstream(fs::path(L"\\\\?\\" + file.wstring()), std::ios::binary) << schemeText;
  }

  const fs::path& Folder() const { return folder.Path(); }
  const fs::path& File() const { return file; }

 private:
  TempFolder folder;
  fs::path file;
};

int Load(const std::wstring& dataFolder, const std::wstring& file) {
  RevitMappingEditorDll editor(dataFolder.c_str(), L"");
  return editor.CreateClassificator(L"id", L"name", L"Code", file.c_str());
}

std::wstring WithSlashes(std::wstring path, wchar_t slash) {
  for (wchar_t& unit : path) {
    if (unit == L'/' || unit == L'\\') unit = slash;
  }
  return path;
}

TEST(WindowsPaths, TakeNamesInCyrillicLetters) {
  const SchemeFolder scheme(L"Схемы\\Классификатор.txt");
  EXPECT_EQ(Load(L"", scheme.File().wstring()), 0);
  EXPECT_EQ(Load(scheme.Folder().wstring(), L"Схемы\\Классификатор.txt"), 0);
}

TEST(WindowsPaths, TakeEitherSlash) {
  const SchemeFolder scheme(L"a\\b\\scheme.txt");
  EXPECT_EQ(Load(L"", WithSlashes(scheme.File().wstring(), L'/')), 0);
  EXPECT_EQ(Load(L"", WithSlashes(scheme.File().wstring(), L'\\')), 0);
  EXPECT_EQ(Load(scheme.Folder().wstring(), L"a/b\\scheme.txt"), 0);
}

TEST(WindowsPaths, AreRelativeToTheCurrentFolderFirst) {
  const SchemeFolder scheme(L"a\\scheme.txt");
  const CurrentFolder current(scheme.Folder());
  EXPECT_EQ(Load(L"", L"a\\scheme.txt"), 0);
  EXPECT_EQ(Load(L"a", L"scheme.txt"), 0);
  EXPECT_EQ(Load(L"b", L"scheme.txt"), -1);
}

TEST(WindowsPaths, TakeADrivePrefixWithoutASlashAsRelativeToItsCurrentFolder) {
  const SchemeFolder scheme(L"scheme.txt");
  const CurrentFolder current(scheme.Folder());
  const std::wstring drive = scheme.File().root_name().wstring();
  EXPECT_EQ(Load(L"", drive + L"scheme.txt"), 0);
}

TEST(WindowsPaths, MayBeLongerThanTheOldLimit) {
  fs::path name;
  for (int i = 0; i < 6; ++i) name /= std::wstring(60, static_cast<wchar_t>(L'a' + i));
  const SchemeFolder scheme(name / L"scheme.txt");
  ASSERT_GT(scheme.File().wstring().size(), 300u);
  EXPECT_EQ(Load(L"", scheme.File().wstring()), 0);
  EXPECT_EQ(Load(scheme.Folder().wstring(), (name / L"scheme.txt").wstring()), 0);
  EXPECT_EQ(Load(L"", WithSlashes(scheme.File().wstring(), L'/')), 0);
  EXPECT_EQ(Load(L"", (scheme.File().parent_path() / L"none.txt").wstring()), -1);

  ReplaceBy(scheme.File().wstring(), "new");
  EXPECT_EQ(ReadFile(scheme.File().wstring()), "new");
}

TEST(WindowsPaths, ThatAreInvalidAreAbsence) {
  for (const wchar_t* name : {L"a<b.txt", L"a|b.txt", L"a\"b.txt", L"a?b.txt", L"a*b.txt"}) {
    EXPECT_FALSE(Exists(name)) << name;
    EXPECT_EQ(Load(L"", name), -1) << name;
  }
}

TEST(WindowsPaths, OfANetworkThatIsNotThereAreAbsence) {
  const DWORD attributes = GetFileAttributesW(L"\\\\no-such-server\\share\\scheme.txt");
  ASSERT_EQ(attributes, INVALID_FILE_ATTRIBUTES);
  const DWORD error = GetLastError();
  if (error != ERROR_BAD_NETPATH && error != ERROR_PATH_NOT_FOUND) {
    GTEST_SKIP() << "the system's error for it is " << error << " here";
  }
  EXPECT_EQ(Load(L"", L"\\\\no-such-server\\share\\scheme.txt"), -1);
}

TEST(WindowsPaths, ThatAreFoldersReturnTwo) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "scheme.txt");
  EXPECT_EQ(Load(L"", (folder.Path() / L"scheme.txt").wstring()), 2);
}

// A pipe with a name like a file's. If it is taken, no end of it is free.
class NamedPipe {
 public:
  explicit NamedPipe(bool taken)
      : server(CreateNamedPipeW(name.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 0, 0, 0,
                                nullptr)),
        client(taken ? Open() : INVALID_HANDLE_VALUE) {}
  NamedPipe(const NamedPipe&) = delete;
  NamedPipe& operator=(const NamedPipe&) = delete;
  ~NamedPipe() {
    CloseHandle(client);
    CloseHandle(server);
  }

  HANDLE Open() const {
    return CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0,
                       nullptr);
  }

  const std::wstring name =
      L"\\\\.\\pipe\\mapping-editor-" + std::to_wstring(GetCurrentProcessId()) + L".json";

 private:
  HANDLE server;
  HANDLE client;
};

template <class Call>
std::error_code ErrorOf(Call call) {
  try {
    call();
    return {};
  } catch (const std::system_error& error) {
    return error.code();
  }
}

TEST(WindowsPaths, RaiseEachErrorThatIsNoAbsence) {
  const NamedPipe pipe(true);
  EXPECT_EQ(pipe.Open(), INVALID_HANDLE_VALUE);
  ASSERT_EQ(GetLastError(), DWORD{ERROR_PIPE_BUSY});
  EXPECT_THROW(Exists(pipe.name), fs::filesystem_error);
  EXPECT_EQ(ErrorOf([&] { Exists(pipe.name); }).value(), ERROR_PIPE_BUSY);
}

TEST(WindowsPaths, OfPipesAreNoFilesToBeReadWhole) {
  const NamedPipe pipe(false);
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(pipe.name); }), std::errc::invalid_argument);
}

TEST(WindowsSharing, LetsAFileBeReadThatAnotherHasOpenForWriting) {
  const SchemeFolder scheme(L"scheme.txt");
  HANDLE writer = CreateFileW(scheme.File().c_str(), GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Load(L"", scheme.File().wstring()), 0);
  CloseHandle(writer);
}

TEST(WindowsSharing, ReturnsTwoForAFileThatAnotherProcessOpenedExclusively) {
  const SchemeFolder scheme(L"scheme.txt");
  HANDLE owner = CreateFileW(scheme.File().c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                             OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(owner, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Load(L"", scheme.File().wstring()), 2);
  CloseHandle(owner);
}

// The system decides whether an open file can be replaced; in either case the file is complete.
TEST(WindowsSharing, ReplacesATargetThatAnotherReadsOrLeavesItAlone) {
  for (const DWORD share : {FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_DELETE}) {
    const SchemeFolder scheme(L"target.json");
    HANDLE reader =
        CreateFileW(scheme.File().c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    bool replaced = true;
    try {
      ReplaceBy(scheme.File().wstring(), "new");
    } catch (const std::system_error&) {
      replaced = false;
    }
    CloseHandle(reader);
    EXPECT_EQ(ReadFile(scheme.File().wstring()), std::string(replaced ? "new" : schemeText));
    const auto files = std::distance(fs::directory_iterator(scheme.Folder()), {});
    EXPECT_EQ(files, 1) << "litter beside the target";
  }
}

TEST(WindowsSharing, LeavesAReadOnlyTargetAlone) {
  const SchemeFolder scheme(L"target.json");
  SetFileAttributesW(scheme.File().c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_THROW(ReplaceBy(scheme.File().wstring(), "new"), std::system_error);
  SetFileAttributesW(scheme.File().c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(std::distance(fs::directory_iterator(scheme.Folder()), {}), 1);
}

// The library implements white space and `_wtoi` itself, so that they are the same everywhere.

TEST(WindowsRuntime, HasTheLibrarysWhiteSpace) {
  for (unsigned code = 0; code <= 0xFFFF; ++code) {
    // The oldest runtime lacks U+0085.
    if (code == 0x85) continue;
    const auto unit = static_cast<wchar_t>(code);
    EXPECT_EQ(IsSpace(unit), std::iswspace(unit) != 0) << std::hex << code;
  }
}

TEST(WindowsRuntime, ReadsNumbersAsTheLibraryDoes) {
  for (unsigned code = 1; code <= 0xFFFF; ++code) {
    // White space is trimmed before a number is read.
    if (IsSpace(static_cast<wchar_t>(code))) continue;
    const wchar_t text[] = {static_cast<wchar_t>(code), L'7', L'\0'};
    EXPECT_EQ(ReadLeadingInt(text), _wtoi(text)) << std::hex << code;
  }
  for (const wchar_t* text : {L"", L"-", L"+", L"+-3", L"--3", L"12x", L"007", L"-0", L"2147483647",
                              L"2147483648", L"-2147483648", L"-2147483649", L"4294967301",
                              L"-99999999999999999999", L"99999999999999999999"}) {
    EXPECT_EQ(ReadLeadingInt(text), _wtoi(text)) << text;
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
