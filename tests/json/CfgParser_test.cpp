#include <CfgParser.h>
#include <JSON5Section.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "json/StringArrayParam.h"
#include "support/Links.h"
#include "support/PlainUser.h"
#include "support/Program.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using namespace std::string_view_literals;

using Texts = std::vector<std::wstring>;
using SectionPointer = std::unique_ptr<JSON5Section>;

SectionPointer Open(CfgParser& parser, const wchar_t* name, const wchar_t* item = L"") {
  bool found = false;
  SectionPointer section(parser.Section(name, found, true, true, item));
  EXPECT_NE(section, nullptr);
  return section;
}

bool IsFound(CfgParser& parser, const wchar_t* name, const wchar_t* item = L"") {
  bool found = false;
  const SectionPointer section(parser.Section(name, found, true, true, item));
  return found;
}

// A parser of a file with these bytes.
struct ParsedFile {
  explicit ParsedFile(std::string_view bytes)
      : path(folder.Write("a.json", bytes)), parser(path.c_str(), L"", L"RU") {}

  TempFolder folder;
  std::wstring path;
  CfgParser parser;
};

// What the requests find, or nothing where they return the default.

std::optional<std::wstring> FindString(JSON5Section& section, const wchar_t* key) {
  bool found = false;
  const std::wstring result = section.ParamString(key, L"default", found, L"", false);
  if (found) return result;
  EXPECT_EQ(result, L"default");
  return std::nullopt;
}

std::optional<int> FindInt(JSON5Section& section, const wchar_t* key) {
  bool found = false;
  const int result = section.ParamInt(key, -77, found, L"", false);
  if (found) return result;
  EXPECT_EQ(result, -77);
  return std::nullopt;
}

std::optional<double> FindDouble(JSON5Section& section, const wchar_t* key) {
  bool found = false;
  const double result = section.ParamDouble(key, -77.5, found, L"", false);
  if (found) return result;
  EXPECT_EQ(result, -77.5);
  return std::nullopt;
}

std::optional<Texts> FindStrings(JSON5Section& section, const wchar_t* key) {
  Texts values = {L"de", L"fault"};
  if (ReadStringArrayParam(section, key, values, L"")) return values;
  EXPECT_EQ(values, (Texts{L"de", L"fault"}));
  return std::nullopt;
}

// Returns what a request finds for the string s in section S of a file of these bytes.
std::optional<std::wstring> FindStringIn(std::string_view bytes) {
  ParsedFile file(bytes);
  return FindString(*Open(file.parser, L"S"), L"s");
}

std::string Saved(CfgParser& parser, const TempFolder& folder) {
  parser.saveCfgParamsToJson5((folder.Wide() + L"/saved.json").c_str(), 2);
  return ReadBytes(folder.Path() / "saved.json");
}

// Each type of request

TEST(Requests, TakeEachTypeOfValueOrCountItAsAbsent) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  struct Case {
    const char* value;
    std::optional<std::wstring> string;
    std::optional<int> integer;
    std::optional<double> real;
    std::optional<Texts> strings;
  };
  const std::optional<std::wstring> noString;
  const std::optional<int> noInt;
  const std::optional<double> noReal;
  const std::optional<Texts> noStrings;
  const Case cases[] = {
      {"'a'", L"a", noInt, noReal, noStrings},
      {"\"\"", L"", noInt, noReal, noStrings},
      {"'5'", L"5", noInt, noReal, noStrings},
      {"'Стена \\u20ac'", L"Стена €", noInt, noReal, noStrings},
      {"5", noString, 5, 5.0, noStrings},
      {"5.0", noString, 5, 5.0, noStrings},
      {"5.", noString, 5, 5.0, noStrings},
      {"+5", noString, 5, 5.0, noStrings},
      {"-5", noString, -5, -5.0, noStrings},
      {"0x1F", noString, 31, 31.0, noStrings},
      {"-0X1f", noString, -31, -31.0, noStrings},
      {"0", noString, 0, 0.0, noStrings},
      {"-0.0", noString, 0, -0.0, noStrings},
      {"1e3", noString, 1000, 1000.0, noStrings},
      {"12.5E+1", noString, 125, 125.0, noStrings},
      {"500e-2", noString, 5, 5.0, noStrings},
      {"0.5", noString, noInt, 0.5, noStrings},
      {".5", noString, noInt, 0.5, noStrings},
      {"0.1", noString, noInt, 0.1, noStrings},  // which a float rounds differently
      {"-1e-1", noString, noInt, -0.1, noStrings},
      {"2147483647", noString, 2147483647, 2147483647.0, noStrings},
      {"2147483648", noString, noInt, 2147483648.0, noStrings},
      {"-2147483648", noString, std::numeric_limits<int>::min(), -2147483648.0, noStrings},
      {"-2147483649", noString, noInt, -2147483649.0, noStrings},
      {"0x7FFFFFFF", noString, 2147483647, 2147483647.0, noStrings},
      {"0xFFFFFFFF", noString, noInt, 4294967295.0, noStrings},
      {"2147483647.5", noString, noInt, 2147483647.5, noStrings},
      {"4294967301", noString, noInt, 4294967301.0, noStrings},
      {"1e300", noString, noInt, 1e300, noStrings},
      {"5e-324", noString, noInt, 5e-324, noStrings},
      {"Infinity", noString, noInt, infinity, noStrings},
      {"-Infinity", noString, noInt, -infinity, noStrings},
      {"true", noString, noInt, noReal, noStrings},
      {"false", noString, noInt, noReal, noStrings},
      {"null", noString, noInt, noReal, noStrings},
      {"{}", noString, noInt, noReal, noStrings},
      {"{a: 'a'}", noString, noInt, noReal, noStrings},
      {"[]", noString, noInt, noReal, Texts{}},
      {"['a']", noString, noInt, noReal, Texts{L"a"}},
      {"['b', 'a', '', 'b',]", noString, noInt, noReal, Texts{L"b", L"a", L"", L"b"}},
      {"[1, 2]", noString, noInt, noReal, Texts{}},
      {"[5, 'a', null, ['b'], {c: 'c'}, true, 'd', 0.5]", noString, noInt, noReal,
       Texts{L"a", L"d"}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.value);
    ParsedFile file("{S: {k: " + std::string(one.value) + "}}");
    const SectionPointer section = Open(file.parser, L"S");
    EXPECT_EQ(FindString(*section, L"k"), one.string);
    EXPECT_EQ(FindInt(*section, L"k"), one.integer);
    EXPECT_EQ(FindDouble(*section, L"k"), one.real);
    EXPECT_EQ(FindStrings(*section, L"k"), one.strings);
  }
}

TEST(Requests, TakeNotANumberAsARealAndAsNoInteger) {
  ParsedFile file("{S: {k: NaN}}");
  const SectionPointer section = Open(file.parser, L"S");
  const std::optional<double> number = FindDouble(*section, L"k");
  EXPECT_TRUE(number && std::isnan(*number));
  EXPECT_EQ(FindInt(*section, L"k"), std::nullopt);
}

TEST(Requests, KeepTheSignOfARealZero) {
  ParsedFile file("{S: {k: -0}}");
  EXPECT_TRUE(std::signbit(FindDouble(*Open(file.parser, L"S"), L"k").value_or(1)));
}

TEST(Requests, WriteFoundEachTimeInOneVariable) {
  ParsedFile file("{S: {s: 'a', i: 5, r: 0.5, as: ['b']}}");
  const SectionPointer section = Open(file.parser, L"S");
  bool found = true;
  EXPECT_STREQ(section->ParamString(L"x", L"d", found, L"", false), L"d");
  EXPECT_FALSE(found);
  EXPECT_STREQ(section->ParamString(L"s", L"d", found, L"", false), L"a");
  EXPECT_TRUE(found);
  EXPECT_EQ(section->ParamInt(L"x", 7, found, L"", false), 7);
  EXPECT_FALSE(found);
  EXPECT_EQ(section->ParamInt(L"i", 7, found, L"", false), 5);
  EXPECT_TRUE(found);
  EXPECT_EQ(section->ParamDouble(L"x", 7.5, found, L"", false), 7.5);
  EXPECT_FALSE(found);
  EXPECT_EQ(section->ParamDouble(L"r", 7.5, found, L"", false), 0.5);
  EXPECT_TRUE(found);
  int count = -1;
  section->ParamStringArray(L"x", count, nullptr, 0, found, L"", false);
  EXPECT_FALSE(found);
  EXPECT_EQ(count, 0);
  const std::unique_ptr<const wchar_t*[]> strings(
      section->ParamStringArray(L"as", count, nullptr, 0, found, L"", false));
  EXPECT_TRUE(found);
  ASSERT_EQ(count, 1);
  EXPECT_STREQ(strings[0], L"b");
}

TEST(Requests, WithOverrideReturnTheDefaultWhateverTheFileHolds) {
  ParsedFile file("{S: {s: 'a', i: 5, r: 0.5, as: ['b']}}");
  for (const wchar_t* name : {L"S", L"missing"}) {
    const SectionPointer section = Open(file.parser, name);
    for (const bool before : {true, false}) {
      bool found = before;
      EXPECT_STREQ(section->ParamString(L"s", L"d", found, L"", true), L"d");
      EXPECT_FALSE(found);
      found = before;
      EXPECT_EQ(section->ParamInt(L"i", 7, found, L"", true), 7);
      EXPECT_FALSE(found);
      found = before;
      EXPECT_EQ(section->ParamDouble(L"r", 7.5, found, L"", true), 7.5);
      EXPECT_FALSE(found);
    }
    Texts values = {L"x", L"y"};
    EXPECT_FALSE(ReadStringArrayParam(*section, L"as", values, L"", true));
    EXPECT_EQ(values, (Texts{L"x", L"y"}));
  }
}

TEST(Requests, DistinguishKeysByEveryUnit) {
  ParsedFile file("{S: {sName: 'a', sname: 'b', 'sName ': 'c', '': 'd', 'имя': 'e'}}");
  const SectionPointer section = Open(file.parser, L"S");
  EXPECT_EQ(FindString(*section, L"sName"), L"a");
  EXPECT_EQ(FindString(*section, L"sname"), L"b");
  EXPECT_EQ(FindString(*section, L"sName "), L"c");
  EXPECT_EQ(FindString(*section, L""), L"d");
  EXPECT_EQ(FindString(*section, L"имя"), L"e");
  EXPECT_EQ(FindString(*section, L"SNAME"), std::nullopt);
  EXPECT_EQ(FindString(*section, L"Имя"), std::nullopt);
}

TEST(Requests, TakeTheLastOfDuplicateKeys) {
  ParsedFile file("{S: {k: 1}, S: {k: 'a', k: 2, m: 3, k: 4, m: 'b'}}");
  const SectionPointer section = Open(file.parser, L"S");
  EXPECT_EQ(FindInt(*section, L"k"), 4);
  EXPECT_EQ(FindInt(*section, L"m"), std::nullopt);
  EXPECT_EQ(FindString(*section, L"m"), L"b");
}

TEST(Requests, ReturnStringsUpToTheirFirstNul) {
  ParsedFile file("{S: {s: 'a\\0b', as: ['c\\u0000d', '\\0']}}");
  const SectionPointer section = Open(file.parser, L"S");
  EXPECT_EQ(FindString(*section, L"s"), L"a");
  EXPECT_EQ(FindStrings(*section, L"as"), (Texts{L"c", L""}));
}

TEST(Requests, ReturnStringsOfAnyLength) {
  const std::string text(2'000'000, 'a');
  const std::optional<std::wstring> found = FindStringIn("{S: {s: '" + text + "'}}");
  EXPECT_TRUE(found == std::wstring(text.begin(), text.end()));
}

// Sections

TEST(Section, ReportsWhetherTheFileHasItInOneVariable) {
  ParsedFile file("{Domen: {}, Properties: {A: {}}}");
  bool found = false;
  delete file.parser.Section(L"Domen", found, true, true, L"");
  EXPECT_TRUE(found);
  delete file.parser.Section(L"ArrayValueFields", found, true, true, L"A");
  EXPECT_FALSE(found);
  delete file.parser.Section(L"Properties", found, true, false, L"A");
  EXPECT_TRUE(found);
  delete file.parser.Section(L"Properties", found, false, true, L"B");
  EXPECT_FALSE(found);
  delete file.parser.Section(L"domen", found, true, true, L"");
  EXPECT_FALSE(found);
}

TEST(Section, ThatTheFileLacksAnswersEveryRequestWithItsDefault) {
  ParsedFile file("{k: 1, S: {k: 1, I: {k: 1}}}");
  const std::pair<const wchar_t*, const wchar_t*> lacking[] = {
      {L"T", L""}, {L"T", L"I"}, {L"S", L"J"}, {L"S", L"i"}, {L"", L""}};
  for (const auto& [name, item] : lacking) {
    const SectionPointer section = Open(file.parser, name, item);
    EXPECT_EQ(FindString(*section, L"k"), std::nullopt);
    EXPECT_EQ(FindInt(*section, L"k"), std::nullopt);
    EXPECT_EQ(FindDouble(*section, L"k"), std::nullopt);
    EXPECT_EQ(FindStrings(*section, L"k"), std::nullopt);
  }
}

TEST(Section, ThatIsNoObjectIsAbsent) {
  for (const char* value : {"5", "'I'", "null", "true", "[]", "[{I: {k: 1}}]", "['I']"}) {
    SCOPED_TRACE(value);
    ParsedFile section("{S: " + std::string(value) + "}");
    EXPECT_FALSE(IsFound(section.parser, L"S"));
    EXPECT_FALSE(IsFound(section.parser, L"S", L"I"));
    EXPECT_EQ(FindInt(*Open(section.parser, L"S", L"I"), L"k"), std::nullopt);
    ParsedFile item("{S: {I: " + std::string(value) + "}}");
    EXPECT_TRUE(IsFound(item.parser, L"S"));
    EXPECT_FALSE(IsFound(item.parser, L"S", L"I"));
    EXPECT_EQ(FindInt(*Open(item.parser, L"S", L"I"), L"k"), std::nullopt);
  }
}

TEST(Section, IsItselfTheItemWithoutAName) {
  ParsedFile file("{S: {k: 1, I: {k: 2}, J: {k: 3}}}");
  EXPECT_EQ(FindInt(*Open(file.parser, L"S"), L"k"), 1);
  EXPECT_EQ(FindInt(*Open(file.parser, L"S", L"I"), L"k"), 2);
  EXPECT_EQ(FindInt(*Open(file.parser, L"S", L"J"), L"k"), 3);
}

TEST(Section, IsChosenByItsNamesAndNotByItsPlaceInARun) {
  ParsedFile file("{S: {I: {k: 1}, J: {k: 2}}}");
  for (const bool first : {true, false}) {
    for (const bool last : {true, false}) {
      bool found = false;
      const SectionPointer section(file.parser.Section(L"S", found, first, last, L"J"));
      EXPECT_TRUE(found);
      EXPECT_EQ(FindInt(*section, L"k"), 2);
    }
  }
}

TEST(Section, IsANewObjectEachTimeAndStaysGoodWhenItsLikeEnds) {
  ParsedFile file("{S: {I: {s: 'a', i: 5}}}");
  const SectionPointer one = Open(file.parser, L"S", L"I");
  SectionPointer other = Open(file.parser, L"S", L"I");
  EXPECT_NE(one, other);
  EXPECT_EQ(FindString(*one, L"s"), L"a");
  EXPECT_EQ(FindString(*other, L"s"), L"a");
  other.reset();
  EXPECT_EQ(FindString(*one, L"s"), L"a");
  EXPECT_EQ(FindInt(*one, L"i"), 5);
}

TEST(Section, IsNotFoundUnderANameThatIsNoText) {
  if (sizeof(wchar_t) == 2) GTEST_SKIP() << "every unit can be part of a text here";
  ParsedFile file("{a: {b: {}, '': {}, '?': {}, '\\uFFFD': {}}}");
  const std::wstring noText(1, static_cast<wchar_t>(0x110000));
  EXPECT_TRUE(IsFound(file.parser, L"a", L"b"));
  EXPECT_FALSE(IsFound(file.parser, L"a", noText.c_str()));
}

TEST(Section, StaysGoodWhileOthersAreOpenedAndEnded) {
  ParsedFile file("{Domen: {s: 'a'}, Properties: {P: {s: 'b'}}, ArrayValueFields: {F: {s: 'c'}}}");
  const SectionPointer domen = Open(file.parser, L"Domen");
  for (int i = 0; i < 100; ++i) {
    const SectionPointer property = Open(file.parser, L"Properties", L"P");
    const std::wstring missing = L"missing" + std::to_wstring(i);
    EXPECT_EQ(FindString(*Open(file.parser, missing.c_str()), L"s"), std::nullopt);
    EXPECT_EQ(FindString(*Open(file.parser, L"ArrayValueFields", L"F"), L"s"), L"c");
    EXPECT_EQ(FindString(*property, L"s"), L"b");
  }
  EXPECT_EQ(FindString(*domen, L"s"), L"a");
}

TEST(Section, KeepsTheStringsThatItReturnedOverFurtherRequests) {
  ParsedFile file("{S: {s: 'a', t: 'b\\n'}}");
  const SectionPointer section = Open(file.parser, L"S");
  bool found = false;
  std::wstring value = L"default";
  const wchar_t* const fromFile = section->ParamString(L"s", L"", found, L"", false);
  const wchar_t* const decoded = section->ParamString(L"t", L"", found, L"", false);
  const wchar_t* const fromDefault = section->ParamString(L"x", value.c_str(), found, L"", false);
  const wchar_t* const overridden = section->ParamString(L"y", value.c_str(), found, L"", true);
  for (int i = 0; i < 100; ++i) {
    const std::wstring other = L"other" + std::to_wstring(i);
    for (const wchar_t* key : {L"s", L"t", L"x", L"y", other.c_str()}) {
      section->ParamString(key, L"other", found, L"", true);
    }
    Open(file.parser, L"S", other.c_str());
  }
  EXPECT_STREQ(fromFile, L"a");
  EXPECT_STREQ(decoded, L"b\n");
  EXPECT_STREQ(fromDefault, L"default");
  EXPECT_STREQ(overridden, L"default");
}

// Files

constexpr const char* plainFile = "{S: {s: 'a'}}";

TEST(CfgParser, TakesAMissingFileAsAnEmptyOne) {
  const TempFolder folder;
  const std::wstring file = folder.Write("file", plainFile);
  const std::wstring missing[] = {
      L"",
      folder.Wide() + L"/missing.json",
      folder.Wide() + L"/missing/a.json",
      folder.Wide() + L"/нет.json",
      file + L"/a.json",
      folder.Wide() + L"/" + std::wstring(300, L'a') + L".json",
      folder.Wide() + L"/" + std::wstring(1, static_cast<wchar_t>(0xD800)) + L".json",
  };
  for (const std::wstring& path : missing) {
    SCOPED_TRACE(path);
    CfgParser parser(path.c_str(), L"", L"RU");
    EXPECT_FALSE(IsFound(parser, L"S"));
    EXPECT_EQ(FindString(*Open(parser, L"S"), L"s"), std::nullopt);
  }
}

TEST(CfgParser, TakesAMalformedFileAsAnEmptyOneAsAWhole) {
  const char* const malformed[] = {
      "",
      " \n",
      "// nothing",
      "{S: {s: 'a'}",
      "{S: {s: 'a'}}}",
      "{S: {s: 'a'}} {}",
      "{S: {s: 'a'}, ,}",
      "{S: {s: 'a'}, T: }",
      "{S: {s: 'a'}, T: {t: 'b}}",
      "{S: {s: 'a'}, T: [1, 2}",
      "{S: {s: 'a'}, T: 01}",
      "{S: {s: 'a'}, T: True}",
      "{S: {s: 'a'}, T: undefined}",
      "{S: {s: 'a'}, 1: 2}",
      "{S: {s: 'a'} T: 1}",
      "{S: {s: 'a'}} /* open",
      "==DOMEN\n@@@ S\n",
      "S: {s: 'a'}",
  };
  for (const char* bytes : malformed) EXPECT_EQ(FindStringIn(bytes), std::nullopt) << bytes;
}

TEST(CfgParser, TakesAFileWithoutAnObjectAsAnEmptyOne) {
  for (const char* bytes : {"5", "'S'", "null", "true", "[]", "[{S: {s: 'a'}}]"}) {
    EXPECT_EQ(FindStringIn(bytes), std::nullopt) << bytes;
  }
}

TEST(CfgParser, TakesAFileThatIsNotUtf8AsAnEmptyOneAsAWhole) {
  const std::string_view undecodable[] = {
      "\xFF",              // never a byte of UTF-8
      "\xC0\x80",          // not the shortest form
      "\xED\xA0\x80",      // a surrogate
      "\xF4\x90\x80\x80",  // above U+10FFFF
      "\xD0",              // cut off
      "\xCF\xEE\xEB",      // Cyrillic letters of a code page
  };
  for (const std::string_view bytes : undecodable) {
    const std::string text(bytes);
    EXPECT_EQ(FindStringIn("{S: {s: 'a'}, t: '" + text + "'}"), std::nullopt);
    EXPECT_EQ(FindStringIn("{S: {s: 'a'}} //" + text), std::nullopt);
  }
  EXPECT_EQ(FindStringIn("\xFF\xFE{\0S\0:\0{\0s\0:\0'\0a\0'\0}\0}\0"sv), std::nullopt);
}

TEST(CfgParser, SkipsAByteOrderMark) {
  EXPECT_EQ(FindStringIn("\xEF\xBB\xBF{S: {s: 'a'}}"), L"a");
  EXPECT_EQ(FindStringIn("\xEF\xBB\xBF"), std::nullopt);
}

TEST(CfgParser, ReadsEveryFormOfTheLanguage) {
  const char* const forms[] = {
      R"({"S":{"s":"a"}})",
      "\n{\r\n\t'S' :{ s\v:\f'a' , },}\n",
      "// c\n{/* c */S: {s: '\\x61'}/**/}//",
      "{\\u0053: {s: 'a'}}",
      "{S: {s: '\\\na'}}",
      "{\xC2\xA0S:\xE2\x80\xA8{s: 'a'}\xEF\xBB\xBF}",  // white space of all kinds
  };
  for (const char* bytes : forms) EXPECT_EQ(FindStringIn(bytes), L"a") << bytes;
}

TEST(CfgParser, TakesAThousandLevelsOfNestingAndNoMore) {
  const auto nested = [](std::size_t depth, char open, char close) {
    return "{S: {s: 'a', t: " + std::string(depth - 2, open) + std::string(depth - 2, close) + "}}";
  };
  EXPECT_EQ(FindStringIn(nested(1000, '[', ']')), L"a");
  EXPECT_EQ(FindStringIn(nested(1001, '[', ']')), std::nullopt);
  EXPECT_EQ(FindStringIn(nested(1'000'000, '[', ']')), std::nullopt);
  EXPECT_EQ(FindStringIn("{S: {s: 'a'}, T: " + std::string(1'000'000, '{')), std::nullopt);
}

TEST(CfgParser, RaisesAnExceptionForWhatExistsAndCannotBeRead) {
  const TempFolder folder;
  EXPECT_ANY_THROW(CfgParser(folder.Wide().c_str(), L"", L"RU"));
  EXPECT_ANY_THROW(CfgParser((folder.Wide() + L"/").c_str(), L"", L"RU"));
}

TEST(CfgParser, RaisesAnExceptionForALinkThatLeadsNowhereElse) {
  const TempFolder folder;
  if (!MakeLink("loop.json", folder.Path() / "loop.json")) {
    GTEST_SKIP() << "no links can be made here";
  }
  EXPECT_ANY_THROW(CfgParser((folder.Wide() + L"/loop.json").c_str(), L"", L"RU"));
}

TEST(CfgParser, RaisesAnExceptionForARefusedAccess) {
  const TempFolder folder;
  const std::wstring path = folder.Write("a.json", plainFile);
  fs::permissions(folder.Path() / "a.json", fs::perms::none);
  std::optional<PlainUser> plainUser(std::in_place);
  const bool refused = ReadBytes(folder.Path() / "a.json").empty();
  if (refused) {
    EXPECT_ANY_THROW(CfgParser(path.c_str(), L"", L"RU"));
  }
  plainUser.reset();
  fs::permissions(folder.Path() / "a.json", fs::perms::owner_all);
  if (!refused) GTEST_SKIP() << "no file is closed to this user";
}

TEST(CfgParser, DoesNotLookAtItsOtherArguments) {
  const TempFolder folder;
  const std::wstring path = folder.Write("a.json", plainFile);
  for (const wchar_t* text : {L"", L"RU", L"{S: {s: 'b'}}", L"no such file"}) {
    CfgParser parser(path.c_str(), text, text);
    EXPECT_EQ(FindString(*Open(parser, L"S"), L"s"), L"a");
  }
}

TEST(CfgParser, DoesNotTouchTheFileThatItReads) {
  const TempFolder folder;
  const std::wstring path = folder.Write("a.json", plainFile);
  {
    CfgParser parser(path.c_str(), L"", L"RU");
    bool found = false;
    Open(parser, L"S")->ParamString(L"s", L"b", found, L"", true);
  }
  EXPECT_EQ(ReadBytes(folder.Path() / "a.json"), plainFile);
}

// Saving

TEST(Save, WritesWhatWasRequestedWithEachCommentAfterItsValue) {
  const TempFolder folder;
  CfgParser parser((folder.Wide() + L"/missing.json").c_str(), L"", L"RU");
  bool found = false;
  Open(parser, L"Domen")->ParamString(L"sName", L"Зоны", found, L"Имя", true);
  {
    const SectionPointer item = Open(parser, L"Properties", L"A");
    Texts values = {L"b", L"a \"c\""};
    ReadStringArrayParam(*item, L"as", values, L"Список, в порядке", true);
    item->ParamInt(L"i", -5, found, L"", true);
    item->ParamDouble(L"r", 1.0, found, L"// /* */", true);
  }
  Texts none;
  ReadStringArrayParam(*Open(parser, L"Properties", L"Б"), L"as", none, L"c", true);
  Open(parser, L"Properties", L"C");
  EXPECT_EQ(Saved(parser, folder),
            "{\n"
            "  \"Domen\": {\n"
            "    \"sName\": \"Зоны\" // Имя\n"
            "  },\n"
            "  \"Properties\": {\n"
            "    \"A\": {\n"
            "      \"as\": [\"b\", \"a \\\"c\\\"\"], // Список, в порядке\n"
            "      \"i\": -5,\n"
            "      \"r\": 1.0 // // /* */\n"
            "    },\n"
            "    \"Б\": {\n"
            "      \"as\": [] // c\n"
            "    },\n"
            "    \"C\": {}\n"
            "  }\n"
            "}\n");
}

TEST(Save, KeepsTheOrderOfTheFirstRequests) {
  const TempFolder folder;
  CfgParser parser((folder.Wide() + L"/missing.json").c_str(), L"", L"RU");
  bool found = false;
  const auto request = [&](const wchar_t* section, const wchar_t* item, const wchar_t* key) {
    Open(parser, section, item)->ParamInt(key, 1, found, L"", true);
  };
  request(L"Z", L"b", L"y");
  request(L"A", L"b", L"y");
  request(L"Z", L"a", L"y");
  request(L"Z", L"b", L"x");
  request(L"A", L"b", L"y");
  request(L"Z", L"a", L"y");
  EXPECT_EQ(Saved(parser, folder),
            "{\n"
            "  \"Z\": {\n"
            "    \"b\": {\n"
            "      \"y\": 1,\n"
            "      \"x\": 1\n"
            "    },\n"
            "    \"a\": {\n"
            "      \"y\": 1\n"
            "    }\n"
            "  },\n"
            "  \"A\": {\n"
            "    \"b\": {\n"
            "      \"y\": 1\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(Save, HasTheLastValueAndCommentOfAKeyInTheFirstPlace) {
  const TempFolder folder;
  CfgParser parser((folder.Wide() + L"/missing.json").c_str(), L"", L"RU");
  bool found = false;
  const SectionPointer one = Open(parser, L"S");
  const SectionPointer other = Open(parser, L"S");
  one->ParamString(L"k", L"a", found, L"first", true);
  one->ParamInt(L"l", 1, found, L"", true);
  other->ParamDouble(L"k", 0.5, found, L"second", true);
  EXPECT_EQ(Saved(parser, folder),
            "{\n"
            "  \"S\": {\n"
            "    \"k\": 0.5, // second\n"
            "    \"l\": 1\n"
            "  }\n"
            "}\n");
}

TEST(Save, WritesTheRequestsAndNotTheFileThatWasRead) {
  ParsedFile file("{S: {s: 'a', i: 1, rest: 1}, T: {}}");
  {
    bool found = false;
    const SectionPointer section = Open(file.parser, L"S");
    section->ParamInt(L"i", 7, found, L"read", false);
    section->ParamString(L"s", L"b", found, L"overridden", true);
    section->ParamString(L"x", L"c", found, L"default", false);
    Texts values = {L"d"};
    ReadStringArrayParam(*section, L"as", values, L"default", false);
  }
  file.parser.saveCfgParamsToJson5(file.path.c_str(), 2);
  EXPECT_EQ(ReadBytes(file.folder.Path() / "a.json"),
            "{\n"
            "  \"S\": {\n"
            "    \"i\": 1, // read\n"
            "    \"s\": \"b\", // overridden\n"
            "    \"x\": \"c\", // default\n"
            "    \"as\": [\"d\"] // default\n"
            "  }\n"
            "}\n");
}

// Returns the file that is saved after requests of each type, all with one comment.
std::string SavedRequests(std::string_view bytes, bool overriding) {
  ParsedFile file(bytes);
  {
    bool found = false;
    const SectionPointer section = Open(file.parser, L"S");
    section->ParamString(L"s", L"d", found, L"c", overriding);
    section->ParamInt(L"i", 7, found, L"c", overriding);
    section->ParamDouble(L"r", 7.5, found, L"c", overriding);
    Texts values = {L"d"};
    ReadStringArrayParam(*section, L"as", values, L"c", overriding);
  }
  return Saved(file.parser, file.folder);
}

TEST(Save, WritesTheFilesValuesWhereTheRequestsGaveThem) {
  constexpr std::string_view bytes = "{S: {s: 'a', i: 1, r: 0.5, as: ['x', 5, 'y']}}";
  EXPECT_EQ(SavedRequests(bytes, false),
            "{\n"
            "  \"S\": {\n"
            "    \"s\": \"a\", // c\n"
            "    \"i\": 1, // c\n"
            "    \"r\": 0.5, // c\n"
            "    \"as\": [\"x\", \"y\"] // c\n"
            "  }\n"
            "}\n");
  EXPECT_EQ(SavedRequests(bytes, true),
            "{\n"
            "  \"S\": {\n"
            "    \"s\": \"d\", // c\n"
            "    \"i\": 7, // c\n"
            "    \"r\": 7.5, // c\n"
            "    \"as\": [\"d\"] // c\n"
            "  }\n"
            "}\n");
}

TEST(Save, WritesAnObjectEvenIfNothingWasRequested) {
  ParsedFile file(plainFile);
  EXPECT_EQ(Saved(file.parser, file.folder), "{}\n");
}

TEST(Save, DoesNotDependOnTheBuffersOfTheRequests) {
  const TempFolder folder;
  CfgParser parser((folder.Wide() + L"/missing.json").c_str(), L"", L"RU");
  {
    std::wstring section = L"S", item = L"I", key = L"k", value = L"v", comment = L"c";
    bool found = false;
    Open(parser, section.c_str(), item.c_str())
        ->ParamString(key.c_str(), value.c_str(), found, comment.c_str(), true);
    section = item = key = value = comment = L"x";
  }
  EXPECT_EQ(Saved(parser, folder),
            "{\n"
            "  \"S\": {\n"
            "    \"I\": {\n"
            "      \"k\": \"v\" // c\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(Save, DistinguishesKeysAndCommentsHoweverManyThereAre) {
  ParsedFile file("{}");
  Texts texts;
  for (int i = 0; i < 2000; ++i) texts.push_back(L"k" + std::to_wstring(i));
  {
    const SectionPointer section = Open(file.parser, L"a");
    bool found = false;
    for (int i = 0; i < 2000; ++i) {
      const wchar_t* comment = texts[static_cast<std::size_t>(1999 - i)].c_str();
      section->ParamInt(texts[static_cast<std::size_t>(i)].c_str(), i, found, comment, true);
    }
  }
  file.parser.saveCfgParamsToJson5(file.path.c_str(), 2);
  const std::string bytes = ReadBytes(file.path);
  for (int i = 0; i < 2000; ++i) {
    const std::string line = "\"k" + std::to_string(i) + "\": " + std::to_string(i) +
                             (i < 1999 ? "," : "") + " // k" + std::to_string(1999 - i) + "\n";
    EXPECT_NE(bytes.find(line), bytes.npos) << line;
  }
}

TEST(Save, CanBeDoneAgainWithWhatWasRequestedSince) {
  const TempFolder folder;
  CfgParser parser((folder.Wide() + L"/missing.json").c_str(), L"", L"RU");
  bool found = false;
  Open(parser, L"S")->ParamInt(L"i", 1, found, L"", true);
  const std::string once = Saved(parser, folder);
  EXPECT_EQ(Saved(parser, folder), once);
  Open(parser, L"S")->ParamInt(L"j", 2, found, L"", true);
  EXPECT_EQ(Saved(parser, folder), "{\n  \"S\": {\n    \"i\": 1,\n    \"j\": 2\n  }\n}\n");
}

TEST(Save, RaisesAnExceptionWhereNoFileCanBe) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "folder.json");
  CfgParser parser((folder.Wide() + L"/missing.json").c_str(), L"", L"RU");
  for (const wchar_t* name : {L"/folder.json", L"/missing/a.json"}) {
    EXPECT_ANY_THROW(parser.saveCfgParamsToJson5((folder.Wide() + name).c_str(), 2)) << name;
  }
  EXPECT_TRUE(fs::is_directory(folder.Path() / "folder.json"));
  EXPECT_FALSE(fs::exists(folder.Path() / "missing"));
}

// Reading what was saved

const Texts awkwardTexts = {
    L"",
    L" ",
    L"a",
    L"Имя (код) свойства",
    L"\"'\\/",
    L"\b\f\n\r\t\v\x1B\x7F",
    L"// no comment /* */",
    L"\x2028\x2029\xFEFF\x00A0",
    L"\U0001F600 \xFFFD \xFFFF",
    std::wstring(1, static_cast<wchar_t>(0xD800)),
    std::wstring(1, static_cast<wchar_t>(0xDFFF)) + static_cast<wchar_t>(0xD83D) + L"x",
    L"__proto__",
    std::wstring(100'000, L'я'),
};

TEST(SavedFiles, ReturnTheirStrings) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  for (const std::wstring& text : awkwardTexts) {
    Texts values = {text, L"b", text};
    {
      CfgParser parser(path.c_str(), L"", L"RU");
      const SectionPointer section = Open(parser, L"S");
      section->ParamString(L"s", text.c_str(), found, L"c", true);
      ReadStringArrayParam(*section, L"as", values, L"c", true);
      parser.saveCfgParamsToJson5(path.c_str(), 2);
    }
    CfgParser parser(path.c_str(), L"", L"RU");
    const SectionPointer section = Open(parser, L"S");
    EXPECT_EQ(FindString(*section, L"s"), text);
    EXPECT_EQ(FindStrings(*section, L"as"), (Texts{text, L"b", text}));
  }
}

TEST(SavedFiles, ReturnWhatIsStoredUnderNamesOfAnyText) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  {
    CfgParser parser(path.c_str(), L"", L"RU");
    for (const std::wstring& text : awkwardTexts) {
      if (text.empty()) continue;
      Open(parser, L"S", text.c_str())->ParamInt(text.c_str(), 5, found, L"c", true);
      Open(parser, text.c_str(), L"I")->ParamInt(text.c_str(), 6, found, L"c", true);
    }
    parser.saveCfgParamsToJson5(path.c_str(), 2);
  }
  CfgParser parser(path.c_str(), L"", L"RU");
  for (const std::wstring& text : awkwardTexts) {
    if (text.empty()) continue;
    EXPECT_EQ(FindInt(*Open(parser, L"S", text.c_str()), text.c_str()), 5) << text;
    EXPECT_EQ(FindInt(*Open(parser, text.c_str(), L"I"), text.c_str()), 6) << text;
  }
}

TEST(SavedFiles, AreNotBrokenByAnyComment) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  for (const std::wstring& comment : awkwardTexts) {
    {
      CfgParser parser(path.c_str(), L"", L"RU");
      const SectionPointer section = Open(parser, L"S");
      section->ParamInt(L"i", 5, found, comment.c_str(), true);
      section->ParamInt(L"j", 6, found, (L"a\n, k: 7 " + comment).c_str(), true);
      parser.saveCfgParamsToJson5(path.c_str(), 2);
    }
    CfgParser parser(path.c_str(), L"", L"RU");
    const SectionPointer section = Open(parser, L"S");
    EXPECT_EQ(FindInt(*section, L"i"), 5) << comment;
    EXPECT_EQ(FindInt(*section, L"j"), 6) << comment;
    EXPECT_EQ(FindInt(*section, L"k"), std::nullopt) << comment;
  }
}

// Text after a line terminator would be a key of the file.
TEST(SavedFiles, KeepACommentOnItsLineWhicheverTerminatorItHas) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  for (const wchar_t* end : {L"\n", L"\r", L"\r\n", L"\x2028", L"\x2029"}) {
    const std::wstring behindAComma = L"a"s + end + L"k: 7,";
    const std::wstring behindAValue = L"a"s + end + L", l: 8";
    {
      CfgParser parser(path.c_str(), L"", L"RU");
      const SectionPointer section = Open(parser, L"S");
      section->ParamInt(L"i", 5, found, behindAComma.c_str(), true);
      section->ParamInt(L"j", 6, found, behindAValue.c_str(), true);
      parser.saveCfgParamsToJson5(path.c_str(), 2);
    }
    SCOPED_TRACE(ReadBytes(folder.Path() / "a.json"));
    CfgParser parser(path.c_str(), L"", L"RU");
    const SectionPointer section = Open(parser, L"S");
    EXPECT_EQ(FindInt(*section, L"i"), 5);
    EXPECT_EQ(FindInt(*section, L"j"), 6);
    EXPECT_EQ(FindInt(*section, L"k"), std::nullopt);
    EXPECT_EQ(FindInt(*section, L"l"), std::nullopt);
  }
}

TEST(SavedFiles, ReturnTheirNumbers) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  using Ints = std::numeric_limits<int>;
  using Reals = std::numeric_limits<double>;
  for (const int number : {0, 1, -1, Ints::max(), Ints::min()}) {
    CfgParser writer(path.c_str(), L"", L"RU");
    Open(writer, L"S")->ParamInt(L"i", number, found, L"", true);
    writer.saveCfgParamsToJson5(path.c_str(), 2);
    CfgParser parser(path.c_str(), L"", L"RU");
    EXPECT_EQ(FindInt(*Open(parser, L"S"), L"i"), number);
  }
  for (const double number : {0.0, 1.0, -1.0, 0.1, 2.5, 1e5, 1e16, 123456789.0, 1e300, -1e-300,
                              Reals::denorm_min(), Reals::max(), 1.0 / 3}) {
    CfgParser writer(path.c_str(), L"", L"RU");
    Open(writer, L"S")->ParamDouble(L"r", number, found, L"", true);
    writer.saveCfgParamsToJson5(path.c_str(), 2);
    CfgParser parser(path.c_str(), L"", L"RU");
    EXPECT_EQ(FindDouble(*Open(parser, L"S"), L"r"), number);
    const std::string bytes = ReadBytes(folder.Path() / "a.json");
    const std::string value = bytes.substr(bytes.find("\"r\": "));
    EXPECT_NE(value.find_first_of(".e"), value.npos) << "a real is told from an integer";
  }
}

TEST(SavedFiles, StayWholeWhereARealIsNoNumber) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  using Reals = std::numeric_limits<double>;
  for (const double number : {Reals::infinity(), -Reals::infinity(), Reals::quiet_NaN()}) {
    {
      CfgParser parser(path.c_str(), L"", L"RU");
      const SectionPointer section = Open(parser, L"S");
      section->ParamDouble(L"r", number, found, L"", true);
      section->ParamInt(L"i", 5, found, L"", true);
      parser.saveCfgParamsToJson5(path.c_str(), 2);
    }
    CfgParser parser(path.c_str(), L"", L"RU");
    const SectionPointer section = Open(parser, L"S");
    EXPECT_EQ(FindDouble(*section, L"r"), std::nullopt) << "the format has no such number";
    EXPECT_EQ(FindInt(*section, L"i"), 5);
  }
}

TEST(SavedFiles, ReturnTheSectionItselfAndItsItems) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  {
    CfgParser parser(path.c_str(), L"", L"RU");
    Open(parser, L"S")->ParamInt(L"k", 1, found, L"", true);
    Open(parser, L"S", L"I")->ParamInt(L"k", 2, found, L"", true);
    parser.saveCfgParamsToJson5(path.c_str(), 2);
  }
  CfgParser parser(path.c_str(), L"", L"RU");
  EXPECT_EQ(FindInt(*Open(parser, L"S"), L"k"), 1);
  EXPECT_EQ(FindInt(*Open(parser, L"S", L"I"), L"k"), 2);
}

TEST(SavedFiles, DistinguishAKeyOfTheSectionItselfFromAnItemOfThatName) {
  const TempFolder folder;
  const std::wstring path = folder.Wide() + L"/a.json";
  bool found = false;
  {
    CfgParser parser(path.c_str(), L"", L"RU");
    Open(parser, L"S")->ParamInt(L"k", 1, found, L"", true);
    Open(parser, L"S", L"k")->ParamInt(L"i", 2, found, L"", true);
    parser.saveCfgParamsToJson5(path.c_str(), 2);
  }
  CfgParser parser(path.c_str(), L"", L"RU");
  EXPECT_EQ(FindInt(*Open(parser, L"S"), L"k"), 1);
  EXPECT_EQ(FindInt(*Open(parser, L"S", L"k"), L"i"), 2);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
