#include "base/PathParts.h"

#include <gtest/gtest.h>

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

TEST(FileName, IsAfterTheFolderAndTheDriveAndBeforeAStream) {
  struct Case {
    const wchar_t* path;
    const wchar_t* name;
  };
  const Case cases[] = {
      {L"", L""},
      {L"b.txt", L"b.txt"},
      {L"a/b.txt", L"b.txt"},
      {L"a\\b.txt", L"b.txt"},
      {L"a\\b/c.txt", L"c.txt"},
      {L"a/b\\c.txt", L"c.txt"},
      {L"a//b.txt", L"b.txt"},
      {L"C:\\Схемы\\Стены.txt", L"Стены.txt"},
      {L"\\\\server\\share\\b.txt", L"b.txt"},
      {L"/b", L"b"},
      {L"a/", L""},
      {L"a\\", L""},
      {L"a/..", L".."},
      {L"C:", L""},
      {L"C:b.txt", L"b.txt"},
      {L"z:b.txt", L"b.txt"},
      {L"C:/", L""},
      {L"b.txt:stream", L"b.txt"},
      {L"b.txt:stream:$DATA", L"b.txt"},
      {L"a/b.txt:stream.json", L"b.txt"},
      {L"C:b.txt:stream", L"b.txt"},
      {L"ab:c.txt", L"ab"},  // a drive has one letter
      {L"1:b.txt", L"1"},    // and it is a Latin one
      {L"Я:b.txt", L"Я"},
      {L"@:b.txt", L"@"},
      {L"[:b.txt", L"["},
      {L"`:b.txt", L"`"},
      {L"{:b.txt", L"{"},
      {L"a/C:b.txt", L"C"},  // and is at the start
  };
  for (const Case& one : cases) EXPECT_EQ(FileName(one.path), one.name) << one.path;
}

TEST(Extension, IsTheFileNameFromItsLastPointOn) {
  struct Case {
    const wchar_t* path;
    const wchar_t* extension;
  };
  const Case cases[] = {
      {L"", L""},
      {L"a", L""},
      {L"a.txt", L".txt"},
      {L"a.TXT", L".TXT"},
      {L"a.b.txt", L".txt"},
      {L"a.txt.json", L".json"},
      {L"a b.txt", L".txt"},
      {L"a.txt ", L".txt "},
      {L"Стены.тхт", L".тхт"},
      {L"a.", L"."},
      {L"a..", L"."},
      {L"...", L"."},
      {L".txt", L""},  // a leading dot starts no extension
      {L"..txt", L".txt"},
      {L".a.txt", L".txt"},
      {L".", L""},
      {L"..", L""},
      {L"a/.", L""},
      {L"a.txt/..", L""},
      {L"a.txt/b", L""},
      {L"a.txt\\b", L""},
      {L"a.txt/", L""},
      {L"a.txt\\.txt", L""},
      {L"a/.txt", L""},
      {L"C:.txt", L""},
      {L"C:a.txt", L".txt"},
      {L"C:\\a.b\\c.txt", L".txt"},
      {L"a.txt:stream", L".txt"},
      {L"a.txt:b.json", L".txt"},
      {L"a:b.txt", L".txt"},
      {L"ab:c.txt", L""},
      {L"..:a.txt", L""},
  };
  for (const Case& one : cases) EXPECT_EQ(Extension(one.path), one.extension) << one.path;
}

TEST(PathParts, AreViewsIntoThePath) {
  const std::wstring_view path = L"a/b.txt";
  EXPECT_EQ(FileName(path).data(), path.data() + 2);
  EXPECT_EQ(Extension(path).data(), path.data() + 3);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
