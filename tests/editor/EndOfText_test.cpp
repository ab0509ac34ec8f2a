// Tests that the byte 1A ends a text file, whichever call reads it, but not a `.json` file.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/DomenRows.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Editor = RevitMappingEditorDll;
using Texts = std::vector<std::wstring>;

// Returns the mapping strings of a wall, a door, and a text that matches no pattern.
Texts MappingsOf(Editor& editor) {
  Texts mappings;
  for (const wchar_t* text : {L"wall", L"door", L"roof"}) {
    mappings.push_back(Take(editor.GetMappingStr(text, 1, L"=")));
  }
  return mappings;
}

// The same for the classificator and the domains of one file.
Texts MappingsBy(std::string_view scheme) {
  const TempFolder folder;
  const std::wstring file = folder.Write("scheme.txt", scheme);
  Editor editor(L"", L"");
  EXPECT_EQ(editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  return MappingsOf(editor);
}

TEST(TheByte1A, EndsAClassificatorFileWhereverItIs) {
  struct Case {
    const char* scheme;
    Texts mappings;
  };
  const Texts all = {L"Code W10;P= own;", L"Code D20;", L"Code Z99;"};
  const Case cases[] = {
      {"==MAPTEXT\n@@ (A)\n$ Z99\n@W10 {P}\nwall\n@D20\ndoor\n==DOMEN\n@@@ A\n@ P 0 1\n"
       "F str 0 own\n\x1A",
       all},
      {"==MAPTEXT\n@@ (A)\n$ Z99\n@W10 {P}\nwall\n@D20\ndoor\n==DOMEN\n@@@ A\n@ P 0 1\n"
       "F str 0 own\n\x1A==DOMEN\n@@@ A\n@ P 0 1\nG str 0 more\n",
       all},
      // In the middle of a section, and of a line.
      {"==MAPTEXT\n@@ (A)\n$ Z99\n@W10 {P}\nwall\n\x1A\n@D20\ndoor\n==DOMEN\n@@@ A\n@ P 0 1\n"
       "F str 0 own\n",
       {L"Code W10;", L"Code Z99;", L"Code Z99;"}},
      {"==MAPTEXT\n@@ (A)\n$ Z99\n@W10 {P}\nwall\n@D2\x1A"
       "0\ndoor\n==DOMEN\n@@@ A\n",
       {L"Code W10;", L"Code Z99;", L"Code Z99;"}},
      {"==MAPTEXT\n$ Z99\n@W10\nwall\n@D20\ndo\x1Aor\n",
       {L"Code W10;", L"Code D20;", L"Code Z99;"}},
      // Only in the domains.
      {"==MAPTEXT\n@@ (A)\n$ Z99\n@W10 {P}\nwall\n@D20\ndoor\n==DOMEN\n@@@ A\n@ P 0 1\n"
       "F str 0 o\x1Awn\nG str 0 more\n",
       {L"Code W10;P= o;", L"Code D20;", L"Code Z99;"}},
      {"\x1A==MAPTEXT\n$ Z99\n@W10\nwall\n", {L"Code ;", L"Code ;", L"Code ;"}},
  };
  for (const Case& one : cases) EXPECT_EQ(MappingsBy(one.scheme), one.mappings) << one.scheme;
}

// Returns the fields of property P of domain A in a file of these bytes.
FieldRows FieldsBy(std::string_view domens) {
  const TempFolder folder;
  const std::wstring file = folder.Write("domens.txt", domens);
  Editor editor(L"", L"");
  EXPECT_EQ(editor.CreateDomen(file.c_str()), 0);
  if (OfType(editor, L"A", L"Door").empty()) return {};
  return Fields(editor, L"A", L"P");
}

TEST(TheByte1A, EndsATextDomainFileWhereverItIs) {
  const FieldRow f = {L"F", L"F", 2, false, L"own"};
  const FieldRow g = {L"G", L"G", 2, false, L"more"};
  struct Case {
    const char* domens;
    FieldRows fields;
  };
  const Case cases[] = {
      {"==DOMEN\n@@@ A\n@ P 0 1\nF str 0 own\nG str 0 more\n\x1A", {f, g}},
      {"==DOMEN\n@@@ A\n@ P 0 1\nF str 0 own\nG str 0 more\x1A and more\nH str 0 x", {f, g}},
      {"==DOMEN\n@@@ A\n@ P 0 1\nF str 0 own\n\x1A\nG str 0 more\n", {f}},
      {"==DOMEN\n@@@ A\n@ P 0 1\nF str 0 own\nG str\x1A 0 more\n", {f}},
      {"==DOMEN\n@@@ A\n@ P 0\x1A 1\nF str 0 own\n", {}},
      {"==DOMEN\x1A\n@@@ A\n@ P 0 1\nF str 0 own\n", {}},
      {"\x1A==DOMEN\n@@@ A\n@ P 0 1\nF str 0 own\n", {}},
  };
  for (const Case& one : cases) EXPECT_EQ(FieldsBy(one.domens), one.fields) << one.domens;
}

// Returns the name of the domain and the value of its one field, or nothing if the file is
// malformed.
std::wstring DomenBy(std::string_view json) {
  const TempFolder folder;
  const std::wstring file = folder.Write("A.json", json);
  Editor editor(L"", L"");
  EXPECT_EQ(editor.CreateDomen(file.c_str()), 0);
  EXPECT_EQ(Take(editor.GetActiveDomenId()), L"A");
  int count = 0;
  const wchar_t** const names = editor.GetDomensNames(count);
  std::wstring described = TakeAll(count, names).at(0);
  if (OfType(editor, L"A", L"Door").empty()) return described;
  for (const FieldRow& field : Fields(editor, L"A", L"P")) described += L" " + std::get<4>(field);
  return described;
}

TEST(TheByte1A, EndsNoJsonFileAndIsMalformedThereOutsideOfStringsAndComments) {
  const std::string whole =
      "{Domen: {sName: 'N', asFuncsNames: ['P']}, Properties: {P: {asFuncsNames: ['F']}},"
      " ArrayValueFields: {F: {sType: 's', sDefault: 'a|b'}}} // end";
  const auto with = [&whole](std::string_view place, std::string_view bytes) {
    std::string json = whole;
    return json.replace(json.find(place), 1, bytes);
  };
  EXPECT_EQ(DomenBy(whole), L"N a|b");
  EXPECT_EQ(DomenBy(with("|", "\x1A")),
            L"N a\x1A"
            L"b");
  EXPECT_EQ(DomenBy(whole + "\x1A"), L"N a|b");
  EXPECT_EQ(DomenBy(whole + "\n\x1A"), L"");
  EXPECT_EQ(DomenBy(with(",", "\x1A,")), L"");
  EXPECT_EQ(DomenBy("\x1A" + whole), L"");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
