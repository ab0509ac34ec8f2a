#include "json5/Json5Parser.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "json5/IdentifierChars.h"
#include "json5/Json5Text.h"
#include "support/AtOnce.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Kind = Json5Value::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();

// A text, its tree, and the error if it is malformed.
struct Document {
  explicit Document(std::wstring_view wide)
      : text(ToJson5Text(wide)), error(ParseJson5(text, tree)) {}

  const Json5Value* Find(const Json5Value& object, std::wstring_view key) const {
    return tree.Find(object, ToJson5Text(key));
  }

  std::string text;
  Json5Tree tree;
  std::optional<Json5Error> error;
};

std::wstring ShowNumber(double number) {
  if (std::isnan(number)) return L"NaN";
  std::array<char, 32> chars;
  const char* end = std::to_chars(chars.data(), chars.data() + chars.size(), number).ptr;
  return std::wstring(std::begin(chars), std::begin(chars) + (end - chars.data()));
}

// Returns a value as one line: `[1 'text' {key:true}]`.
std::wstring Show(const Json5Tree& tree, const Json5Value& value) {
  if (value.kind == Kind::null) return L"null";
  if (value.kind == Kind::boolean) return value.boolean ? L"true" : L"false";
  if (value.kind == Kind::number) return ShowNumber(value.number);
  if (value.kind == Kind::string) return L"'" + ToWideText(value.text) + L"'";
  const bool isArray = value.kind == Kind::array;
  std::wstring shown;
  for (const Json5Member& member : tree.Members(value)) {
    if (!shown.empty()) shown += L' ';
    if (!isArray) shown.append(ToWideText(member.key)).append(1, L':');
    shown += Show(tree, member.value);
  }
  return (isArray ? L"[" : L"{") + shown + (isArray ? L"]" : L"}");
}

std::wstring Parsed(std::wstring_view text) {
  const Document document(text);
  return document.error ? L"malformed" : Show(document.tree, document.tree.root);
}

bool IsWellFormed(std::wstring_view text) {
  return !Document(text).error;
}

void ExpectMalformed(const std::vector<std::wstring>& texts) {
  for (const std::wstring& text : texts) EXPECT_EQ(Parsed(text), L"malformed") << text;
}

// Returns line and column of the error, or zeros if there is none.
std::pair<std::size_t, std::size_t> ErrorPlace(std::wstring_view text) {
  const std::optional<Json5Error> error = Document(text).error;
  if (!error) return {0, 0};
  return {error->line, error->column};
}

// Returns "" if there is no error.
std::string ErrorMessage(std::wstring_view text) {
  const std::optional<Json5Error> error = Document(text).error;
  return error ? error->message : "";
}

// Returns NaN unless the text is a number.
double NumberOf(std::wstring_view text) {
  const Document document(text);
  const Json5Value& root = document.tree.root;
  const bool parsed = !document.error && root.kind == Kind::number;
  return parsed ? root.number : std::numeric_limits<double>::quiet_NaN();
}

std::wstring Zeros(std::size_t count) {
  return std::wstring(count, L'0');
}

std::wstring Repeat(std::wstring_view text, std::size_t count) {
  std::wstring repeated;
  repeated.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// White space

constexpr std::wstring_view whiteSpace =
    L"\t\n\v\f\r \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
    L"\u2028\u2029\u202F\u205F\u3000\uFEFF";

TEST(ParseJson5, PassesOverWhiteSpaceBetweenAnyTwoTokens) {
  for (const wchar_t unit : whiteSpace) {
    std::wstring text;
    for (const wchar_t* token : {L"[", L"1", L",", L"'a'", L",", L"{", L"k", L":", L"null", L",",
                                 L"'l'", L":", L"[", L"]", L",", L"}", L",", L"]"}) {
      text.append(1, unit).append(token);
    }
    text.append(2, unit);
    EXPECT_EQ(Parsed(text), L"[1 'a' {k:null l:[]}]") << static_cast<std::uint32_t>(unit);
  }
}

TEST(ParseJson5, TakesNoOtherUnitAsWhiteSpace) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto wide = static_cast<wchar_t>(unit);
    const bool space = whiteSpace.find(wide) != whiteSpace.npos;
    // A leading sign is part of the number, as digits and the point are.
    if (std::wstring_view(L"+-.123456789").find(wide) != std::wstring_view::npos) continue;
    ASSERT_EQ(IsWellFormed({std::array{wide, L'1'}.data(), 2}), space) << unit;
  }
}

TEST(ParseJson5, RefusesInvisibleCharactersThatAreNoWhiteSpace) {
  for (const wchar_t unit :
       {L'\0', L'\b', L'\x0E', L'\x1A', L'\x1C', L'\x1F', L'\x7F', L'\x85', L'\xAD', L'\x180E',
        L'\x200B', L'\x200C', L'\x200D', L'\x2060', L'\xFFFE'}) {
    const std::wstring text(1, unit);
    ExpectMalformed({text + L"1", L"1" + text, L"[" + text + L"]", L"[1" + text + L",2]",
                     L"{" + text + L"}", L"{'a'" + text + L":1}", L"{a:" + text + L"1}"});
  }
}

TEST(ParseJson5, SkipsAnyNumberOfByteOrderMarks) {
  EXPECT_EQ(Parsed(L"\uFEFF\uFEFF{\uFEFFa\uFEFF:1}\uFEFF"), L"{a:1}");
}

// Comments

TEST(ParseJson5, EndsALineCommentAtEachLineTerminatorAndAtTheEnd) {
  for (const wchar_t* end : {L"\n", L"\r", L"\r\n", L"\u2028", L"\u2029"}) {
    EXPECT_EQ(Parsed(L"// c" + std::wstring(end) + L"1"), L"1");
    EXPECT_EQ(Parsed(L"[1, // 2" + std::wstring(end) + L"3//" + std::wstring(end) + L"]"),
              L"[1 3]");
  }
  EXPECT_EQ(Parsed(L"1// c"), L"1");
  EXPECT_EQ(Parsed(L"1//"), L"1");
  for (std::size_t letters = 0; letters < 20; ++letters) {
    EXPECT_EQ(Parsed(L"1//" + std::wstring(letters, L'я')), L"1") << letters;
  }
}

TEST(ParseJson5, EndsALineCommentAtNothingElse) {
  for (const wchar_t* inside : {L"\v", L"\f", L"\x0085", L"\u200B", L"*/", L"\\", L" // ", L"'"}) {
    EXPECT_EQ(Parsed(L"1 //" + std::wstring(inside) + L"2"), L"1") << inside;
  }
  EXPECT_EQ(Parsed(L"1 //\0 2"s), L"1");
  EXPECT_EQ(Parsed(L"//\\\n1"), L"1");  // a backslash doesn't continue a comment
}

TEST(ParseJson5, PassesOverCommentsBetweenAnyTwoTokens) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"/**/1", L"1"},
      {L"/***/1/****/", L"1"},
      {L"/* * / ** // /* */1", L"1"},
      {L"/*/*/1", L"1"},  // the slash of the opening doesn't end the comment
      {L"/*\n\r\u2028\u2029*/1", L"1"},
      {L"/*a*//*b*/ /*c*/1", L"1"},
      {L"1/*//*/", L"1"},
      {L"[/*,*/1/*,2*/,/*]*/]/**/", L"[1]"},
      {L"{/**/a/**/:/**/1/**/,/**/'b'/**/:/**/2/**/}", L"{a:1 b:2}"},
      {L"{//\n}", L"{}"},
      {L"['/* no comment */', '// nor this']", L"['/* no comment */' '// nor this']"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
  EXPECT_EQ(Parsed(L"/*\0*/1"s), L"1");
}

TEST(ParseJson5, RefusesACommentThatIsNotClosed) {
  ExpectMalformed({L"/*", L"1/*", L"1/*/", L"1/* *", L"1/* * /", L"1/*\n", L"/*1", L"[1/*]",
                   L"1/*a*/*/", L"/*/* */ */1"});
}

TEST(ParseJson5, RefusesAStrokeThatBeginsNoComment) {
  ExpectMalformed({L"/", L"1/", L"1/ /c", L"/ *c*/1", L"1 / 2", L"/1", L"#c\n1", L"<!--c-->1"});
}

TEST(ParseJson5, RefusesACommentInsideAToken) {
  ExpectMalformed({L"-/**/1", L"1/**/2", L"tr/**/ue", L"{a/**/b:1}", L"1/**/e5", L"0/**/x1"});
}

// Top level

TEST(ParseJson5, TakesAnyValueAtTheTop) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"null", L"null"}, {L"true", L"true"}, {L"false", L"false"}, {L"0", L"0"},
      {L"\"a\"", L"'a'"}, {L"'a'", L"'a'"},   {L"[]", L"[]"},       {L"{}", L"{}"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
}

TEST(ParseJson5, RefusesATextWithoutAValue) {
  ExpectMalformed({L"", L" ", L"\n\n", L"\uFEFF", L"//", L"/**/", L"// c\n /* c */ ", L"\0"s});
}

TEST(ParseJson5, RefusesASecondValue) {
  ExpectMalformed({L"1 2", L"1,2", L"1,", L"[] []", L"{}{}", L"null null", L"'a''b'", L"1;", L"1}",
                   L"1]", L"true//\nfalse", L"[],", L"{}:", L"'a':1", L"a:1"});
}

TEST(ParseJson5, TakesWordsOnlyAsTheyAreWritten) {
  ExpectMalformed({L"True",      L"TRUE",      L"Null",     L"nul",
                   L"nulll",     L"tru",       L"fals",     L"falsee",
                   L"truefalse", L"undefined", L"infinity", L"INFINITY",
                   L"Infinit",   L"Infinityy", L"nan",      L"NAN",
                   L"Na",        L"NaNN",      L"NaN1",     L"true1",
                   L"n",         L"t",         L"f",        L"a",
                   L"$",         L"тrue",      L"`a`",      L"\u201Ca\u201D"});
  ExpectMalformed({LR"(tru\u0065)", LR"(\u0074rue)", LR"(\u004eaN)"});
}

// Identifiers

struct KeyCase {
  std::wstring text;
  std::wstring key;
};

void ExpectKeys(const std::vector<KeyCase>& cases) {
  for (const KeyCase& one : cases) {
    EXPECT_EQ(Parsed(L"{" + one.text + L":1}"), L"{" + one.key + L":1}") << one.text;
    EXPECT_EQ(Parsed(L"{ " + one.text + L" : 1 , }"), L"{" + one.key + L":1}") << one.text;
  }
}

void ExpectNoKeys(const std::vector<std::wstring>& texts) {
  for (const std::wstring& text : texts) {
    EXPECT_EQ(Parsed(L"{" + text + L":1}"), L"malformed") << text;
  }
}

TEST(ParseJson5, TakesIdentifiersOfAnyScriptAsKeys) {
  const std::vector<std::wstring> keys = {
      L"a",
      L"Z",
      L"$",
      L"_",
      L"$$",
      L"__a$1",
      L"a0123456789",
      L"sName",
      L"Ключ",
      L"ёЁ",
      L"ключ2",
      L"éß",
      L"ªµº",
      L"\u01C5",                    // a letter of title case
      L"\u02B0a",                   // a modifier letter
      L"λόγος",                     // Greek
      L"שלום",                      // Hebrew
      L"\u0643\u062A\u0627\u0628",  // Arabic
      L"\u0915\u093E\u0932",        // Devanagari with a spacing mark
      L"漢字",
      L"한국",
      L"かな",
      L"\u2163",         // a numeral that is a letter
      L"\u3007",         // another one
      L"e\u0301",        // a combining mark
      L"a\u0660\u0966",  // digits of other scripts
      L"a\u203F\uFE33",  // connectors
      L"a\u200Cb\u200D",
      L"\U00010400",           // a letter above U+FFFF
      L"\U00020000\U0001D7CE"  // a letter and a digit above U+FFFF
  };
  for (const std::wstring& key : keys) ExpectKeys({{key, key}});
}

TEST(ParseJson5, TakesEveryWordAsAKey) {
  for (const wchar_t* key :
       {L"true",   L"false", L"null",  L"Infinity",  L"NaN",         L"undefined", L"if",
        L"for",    L"class", L"enum",  L"function",  L"let",         L"static",    L"this",
        L"typeof", L"var",   L"yield", L"__proto__", L"constructor", L"e1",        L"x0"}) {
    ExpectKeys({{key, key}});
  }
}

TEST(ParseJson5, TakesEscapesOfCodePointsInIdentifiers) {
  ExpectKeys({{LR"(\u0061)", L"a"},
              {LR"(\u0061b)", L"ab"},
              {LR"(a\u0062)", L"ab"},
              {LR"(\u0061\u0062)", L"ab"},
              {LR"(a\u0062c\u0064e)", L"abcde"},
              {LR"(\u0024\u005F)", L"$_"},
              {LR"(\u005f)", L"_"},
              {LR"(\u041A\u043b\u044Eч)", L"Ключ"},
              {LR"(a\u0030)", L"a0"},
              {LR"(a\u0301)", L"a\u0301"},
              {LR"(a\u200C\u200d)", L"a\u200C\u200D"},
              {LR"(a\u203f)", L"a\u203F"},
              {LR"(\u0061\u200C)"
               L"\u0301",
               L"a\u200C\u0301"}});
}

TEST(ParseJson5, RefusesEscapesOfWhatCannotBeInAnIdentifier) {
  ExpectNoKeys({LR"(\u0000)",        LR"(\u0020)",  LR"(a\u0020)",      LR"(a\u00A0)",
                LR"(a\u0000)",       LR"(a\u002D)", LR"(a\u002E)",      LR"(a\u003A)",
                LR"(a\u005C)",       LR"(\u005C)",  LR"(a\u005Cu0062)", LR"(a\u0022)",
                LR"(\u0022a\u0022)", LR"(a\u2028)", LR"(a\u200B)",      LR"(a\uFEFF)",
                LR"(a\u20AC)",       LR"(a\u2116)", LR"(a\u00B7)",      LR"(a\u2118)"});
}

TEST(ParseJson5, RefusesEscapesAtTheStartOfWhatCanOnlyBeInside) {
  for (const wchar_t* escape :
       {LR"(\u0030)", LR"(\u0301)", LR"(\u0660)", LR"(\u200C)", LR"(\u203F)"}) {
    EXPECT_FALSE(IsWellFormed(L"{" + std::wstring(escape) + L"a:1}")) << escape;
    EXPECT_TRUE(IsWellFormed(L"{a" + std::wstring(escape) + L":1}")) << escape;
  }
}

TEST(ParseJson5, DoesNotTakeAnEscapedPairOfSurrogatesAsALetter) {
  ExpectNoKeys({LR"(\uD801\uDC00)", LR"(a\uD801\uDC00)", LR"(\uD801)", LR"(a\uDC00)"});
}

TEST(ParseJson5, TakesNoOtherEscapeInAnIdentifier) {
  ExpectNoKeys({LR"(\x61)", LR"(a\x61)", LR"(\a)", LR"(a\b)", LR"(\)", LR"(a\)", LR"(\\)", LR"(\u)",
                LR"(\u006)", LR"(\u00)", LR"(\u006g)", LR"(\u{61})", LR"(\U0061)", LR"(a\u 0061)",
                L"a\\\nb", L"\\\n", LR"(\0)", LR"(\u+061)"});
}

TEST(ParseJson5, RefusesKeysThatAreNeitherIdentifiersNorStrings) {
  ExpectNoKeys(
      {L"",       L"1",       L"0a",           L"1a",         L"-a",          L"+1",
       L".5",     L"a-b",     L"a.b",          L"a b",        L"a,b",         L"@a",
       L"#a",     L"a#",      L"a!",           L"~",          L"[a]",         L"[]",
       L"{}",     L"`a`",     L"(a)",          L"a'b'",       L"'a'b",        L"'a'\"b\"",
       L"a\"b\"", L"\u0301a", L"\u200Ca",      L"\u200D",     L"\u0660",      L"\u203F",
       L"\u20AC", L"№",       L"\u2118",       L"\u212E",     L"a\u00B7",     L"a\u2013b",
       L"·",      L"a\u20DD", L"\u0024\u00A2", L"\U0001F600", L"a\U0001F600", L"\U0001D7CE",
       L"\xD801", L"\xDC00",  L"a\xD801",      L"a\xDC00",    L"\xDC00\xD801"});
}

TEST(ParseJson5, TakesLettersAboveTheFirst65536InAKey) {
  const std::wstring letter = L"\U00010400";
  ExpectKeys({{letter, letter}, {L"a" + letter, L"a" + letter}, {letter + L"1", letter + L"1"}});
}

TEST(ParseJson5, EndsAnIdentifierAtWhiteSpaceOfAnyKind) {
  for (const wchar_t unit : whiteSpace) {
    EXPECT_EQ(Parsed(L"{a"s + unit + L":1}"), L"{a:1}") << static_cast<std::uint32_t>(unit);
    EXPECT_EQ(Parsed(L"{a"s + unit + L"b:1}"), L"malformed") << static_cast<std::uint32_t>(unit);
  }
}

TEST(ParseJson5, TakesStringsAsKeys) {
  ExpectKeys({{L"'a'", L"a"},
              {L"\"a\"", L"a"},
              {L"''", L""},
              {L"\"\"", L""},
              {L"'a b'", L"a b"},
              {L"'1'", L"1"},
              {L"'it\"s'", L"it\"s"},
              {LR"('a\x62\u0063\n')", L"abc\n"},
              {LR"('\uD83D\uDE00')", L"\U0001F600"},
              {L"'a\\\nb'", L"ab"},
              {LR"('\0')", L"\0"s},
              {L"'№'", L"№"}});
}

// The numbers of code points of a kind below U+10000 and from there on, and the sum of them all.
struct Tally {
  explicit Tally(bool (*isOfKind)(std::uint32_t)) {
    for (std::uint32_t code = 0; code <= 0x10FFFF; ++code) {
      if (!isOfKind(code)) continue;
      ++(code <= 0xFFFF ? below : above);
      sum += code;
    }
  }

  int below = 0;
  int above = 0;
  std::uint64_t sum = 0;
};

TEST(IsIdentifierStart, IsTrueForTheLettersOfUnicode10) {
  const Tally tally(IsIdentifierStart);
  EXPECT_EQ(tally.below, 48'839);
  EXPECT_EQ(tally.above, 76'492);
  EXPECT_EQ(tally.sum, 12'790'698'295u);
}

TEST(IsIdentifierPart, IsTrueForTheLettersMarksDigitsAndConnectorsOfUnicode10) {
  const Tally tally(IsIdentifierPart);
  EXPECT_EQ(tally.below, 50'499);
  EXPECT_EQ(tally.above, 77'597);
  EXPECT_EQ(tally.sum, 13'106'631'376u);
}

TEST(IsIdentifierStart, TakesTheCategoriesThatCharactersHadInUnicode10) {
  EXPECT_FALSE(IsIdentifierStart(0x1CF2));  // marks at that time, letters since
  EXPECT_FALSE(IsIdentifierStart(0x1CF3));
  EXPECT_TRUE(IsIdentifierPart(0x1CF2));
  EXPECT_TRUE(IsIdentifierPart(0x1CF3));
  EXPECT_FALSE(IsIdentifierPart(0x111C9));  // punctuation at that time, a mark since
}

TEST(IsIdentifierPart, IsFalseForSurrogatesAndNumbersThatAreNoCodePoints) {
  for (const std::uint32_t code : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0xFFFFu, 0x10FFFFu,
                                   0x110000u, 0x80000061u, 0xFFFFFFFFu}) {
    EXPECT_FALSE(IsIdentifierStart(code)) << code;
    EXPECT_FALSE(IsIdentifierPart(code)) << code;
  }
}

// Strings

// Returns the string, or nothing if the text is none.
std::optional<std::wstring> StringOf(std::wstring_view text) {
  const Document document(text);
  if (document.error || document.tree.root.kind != Kind::string) return std::nullopt;
  return ToWideText(document.tree.root.text);
}

struct StringCase {
  std::wstring inside;  // the marks
  std::wstring value;
};

void ExpectStrings(const std::vector<StringCase>& cases) {
  for (const StringCase& one : cases) {
    for (const wchar_t mark : {L'"', L'\''}) {
      EXPECT_EQ(StringOf(mark + one.inside + mark), one.value) << one.inside;
      EXPECT_EQ(StringOf(mark + (L"x" + one.inside + L"y") + mark), L"x" + one.value + L"y")
          << one.inside;
    }
  }
}

void ExpectNoStrings(const std::vector<std::wstring>& insides) {
  for (const std::wstring& inside : insides) {
    for (const wchar_t mark : {L'"', L'\''}) {
      EXPECT_EQ(StringOf(mark + inside + mark), std::nullopt) << inside;
    }
  }
}

TEST(ParseJson5, TakesStringsInEitherQuotationMarks) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"\"\"", L""},           {L"''", L""},
      {L"\"it's\"", L"it's"},   {L"'say \"a\"'", L"say \"a\""},
      {L"'it\\'s'", L"it's"},   {L"\"a\\\"b\"", L"a\"b"},
      {L"\"it\\'s\"", L"it's"}, {L"'a\\\"b'", L"a\"b"},
      {L"'\\\\'", L"\\"},       {L"'\"'", L"\""},
      {L"\"'\"", L"'"},         {L"'\\'\\''", L"''"},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(StringOf(text), value) << text;
}

TEST(ParseJson5, TakesAllButLineFeedsAndCarriageReturnsIntoAString) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto wide = static_cast<wchar_t>(unit);
    if (wide == L'\\' || wide == L'\'') continue;
    const std::array text{L'\'', wide, L'\''};
    const Document document({text.data(), text.size()});
    const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;  // which UTF-8 doesn't have
    ASSERT_EQ(!document.error, wide != L'\n' && wide != L'\r' && !surrogate) << unit;
    if (!document.error) {
      ASSERT_EQ(ToWideText(document.tree.root.text), std::wstring_view(&wide, 1)) << unit;
    }
  }
  ExpectStrings({{L"Стена \U0001F600", L"Стена \U0001F600"}, {L"\u2028\u2029", L"\u2028\u2029"}});
  ExpectNoStrings({L"a\nb", L"a\rb", L"a\r\nb", L"\n", L"\r"});
}

TEST(ParseJson5, TakesTheSingleCharacterEscapes) {
  ExpectStrings({{LR"(\b)", L"\b"},
                 {LR"(\f)", L"\f"},
                 {LR"(\n)", L"\n"},
                 {LR"(\r)", L"\r"},
                 {LR"(\t)", L"\t"},
                 {LR"(\v)", L"\v"},
                 {LR"(\')", L"'"},
                 {LR"(\")", L"\""},
                 {LR"(\\)", L"\\"},
                 {LR"(\\n)", L"\\n"},
                 {LR"(\r\n\\\')", L"\r\n\\'"}});
}

TEST(ParseJson5, DropsABackslashBeforeACharacterThatHasNoEscape) {
  for (wchar_t unit = 0; unit < 0x80; ++unit) {
    constexpr std::wstring_view meaning = L"\n\r0123456789bfnrtvux\\'\"";
    if (meaning.find(unit) != meaning.npos) continue;
    ExpectStrings({{std::wstring{L'\\', unit}, std::wstring(1, unit)}});
  }
  ExpectStrings({{L"\\я", L"я"},
                 {L"\\\U0001F600", L"\U0001F600"},
                 {L"\\\u0660", L"\u0660"},  // no digit of the grammar
                 {L"\\\x0085", L"\x0085"},
                 {L"\\\u00A0", L"\u00A0"},
                 {L"\\\uFEFF", L"\uFEFF"},
                 {L"\\B\\N\\U0041\\X41", L"BNU0041X41"}});
}

TEST(ParseJson5, TakesAnEscapedZeroAsNulUnlessADigitFollows) {
  ExpectStrings({{LR"(\0)", L"\0"s},
                 {LR"(\0a)", L"\0a"s},
                 {LR"(\0\0)", L"\0\0"s},
                 {LR"(\0\x31)",
                  L"\0"
                  L"1"s},
                 {LR"(\0 1)", L"\0 1"s},
                 {L"\\0\u0661", L"\0\u0661"s},
                 {L"\\0\\\n1",
                  L"\0"
                  L"1"s}});
  ExpectNoStrings({LR"(\00)", LR"(\01)", LR"(\07)", LR"(\08)", LR"(\09)", LR"(\012)"});
}

TEST(ParseJson5, RefusesEscapesOfOtherDigits) {
  ExpectNoStrings({LR"(\1)", LR"(\2)", LR"(\3)", LR"(\4)", LR"(\5)", LR"(\6)", LR"(\7)", LR"(\8)",
                   LR"(\9)", LR"(\12)", LR"(\1a)", LR"(a\7)"});
}

TEST(ParseJson5, TakesHexadecimalEscapesOfTwoAndOfFourDigits) {
  ExpectStrings({{LR"(\x41)", L"A"},
                 {LR"(\x00)", L"\0"s},
                 {LR"(\xe9\xE9\xfF)", L"éé\u00FF"},
                 {LR"(\x412)", L"A2"},
                 {LR"(\u0041)", L"A"},
                 {LR"(\u00412)", L"A2"},
                 {LR"(\u0000)", L"\0"s},
                 {LR"(\u0421\u0442\u0435\u043d\u0430)", L"Стена"},
                 {LR"(\uaBcD)", L"\uABCD"},
                 {LR"(\uFFFF)", L"\xFFFF"},
                 {LR"(\u0022\u0027\u005C)", L"\"'\\"},
                 {LR"(\u000A\x0d\u2028)", L"\n\r\u2028"}});
}

TEST(ParseJson5, RefusesHexadecimalEscapesThatLackADigit) {
  ExpectNoStrings(
      {LR"(\x)",     LR"(\x4)",         LR"(\x4g)",         LR"(\xg4)",           LR"(\x 41)",
       LR"(\x-4)",   LR"(\u)",          LR"(\u0)",          LR"(\u00)",           LR"(\u004)",
       LR"(\u004g)", LR"(\u00 41)",     LR"(\ug041)",       LR"(\u{41})",         LR"(\u+041)",
       LR"(\u0x41)", LR"(\u004\u0041)", L"\\x\uFF14\uFF11", L"\\u00\u0664\u0661", L"\\u00\\\n41"});
  ExpectNoStrings(
      {LR"(\x0/)", LR"(\x0:)", LR"(\x0@)", LR"(\x0G)", LR"(\x0`)", LR"(\x0g)"});  // neighbours
}

TEST(ParseJson5, DropsLineContinuations) {
  ExpectStrings({{L"\\\n", L""},
                 {L"\\\r", L""},
                 {L"\\\r\n", L""},
                 {L"\\\u2028", L""},
                 {L"\\\u2029", L""},
                 {L"a\\\nb\\\r\nc", L"abc"},
                 {L"\\\n\\\n\\\r\\\r\n", L""},
                 {L"\\\n  a", L"  a"},
                 {L"\\\u2028\u2028", L"\u2028"}});
  ExpectNoStrings({L"\\\n\n", L"\\\n\r", L"\\\r\r", L"\\\r\n\n", L"\\ \n", L"\\\\\n"});
}

TEST(ParseJson5, RefusesStringsThatAreNotClosed) {
  ExpectMalformed({L"\"", L"'", L"\"a", L"'a", L"\"a'", L"'a\"", LR"("\)", LR"("\")", LR"('\')",
                   LR"("\x)", LR"("\x4)", LR"("\u004)", L"\"\\\n", L"\"\\\r", LR"('a\\\')",
                   L"'a\n'", L"[\"a]", L"{\"a:1}", L"{'a':'b}"});
}

TEST(ParseJson5, MakesACodePointOfAnEscapedPairOfSurrogates) {
  ExpectStrings({{LR"(\uD83D\uDE00)", L"\U0001F600"},
                 {LR"(\ud83d\ude00)", L"\U0001F600"},
                 {LR"(\uD800\uDC00)", L"\U00010000"},
                 {LR"(\uDBFF\uDFFF)", L"\U0010FFFF"},
                 {LR"(\uD83D\uDE00\uD83D\uDE01)", L"\U0001F600\U0001F601"},
                 {LR"(\uD83D\uD83D\uDE00)", L"\xD83D\U0001F600"},
                 {LR"(\uD83D\uDE00\uDE00)", L"\U0001F600\xDE00"}});
}

TEST(ParseJson5, KeepsSurrogatesWithoutAPartner) {
  ExpectStrings({{LR"(\uD83D)", L"\xD83D"},
                 {LR"(\uDE00)", L"\xDE00"},
                 {LR"(\uDE00\uD83D)", L"\xDE00\xD83D"},
                 {LR"(\uD83D\uD83D)", L"\xD83D\xD83D"},
                 {LR"(\uD83D\uE000)", L"\xD83D\xE000"},
                 {LR"(\uD83D\uDBFF)", L"\xD83D\xDBFF"},
                 {LR"(\uD7FF\uDE00)", L"\xD7FF\xDE00"},
                 {LR"(\uD83Dg\uDE00)", L"\xD83Dg\xDE00"},
                 {LR"(\uD83D\n\uDE00)", L"\xD83D\n\xDE00"},
                 {LR"(\uD83D\x41\uDE00)", L"\xD83D\x0041\xDE00"},
                 {LR"(\uD83D\0\uDE00)", L"\xD83D\0\xDE00"s}});
}

TEST(ParseJson5, MakesACodePointOfAPairAlsoAcrossALineContinuation) {
  for (const wchar_t* end : {L"\n", L"\r", L"\r\n", L"\u2028", L"\u2029"}) {
    const std::wstring continuation = L"\\" + std::wstring(end);
    ExpectStrings({{LR"(\uD83D)" + continuation + LR"(\uDE00)", L"\U0001F600"},
                   {LR"(\uD83D)" + continuation + continuation + LR"(\uDE00)", L"\U0001F600"}});
  }
}

TEST(ParseJson5, CopiesOnlyStringsAndKeysThatHaveEscapes) {
  const std::wstring text = LR"({plain: "text", 'Ключ': 'it"s', "\u0061": "b", c: "\n"})";
  const Document document(text);
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  EXPECT_EQ(tree.decoded.size(), 2u);
  const Json5Value* plain = document.Find(tree.root, L"plain");
  ASSERT_NE(plain, nullptr);
  EXPECT_EQ(plain->text.data(), document.text.data() + document.text.find("text"));
}

// UTF-8

bool AreWellFormed(std::string_view bytes) {
  Json5Tree tree;
  return !ParseJson5(bytes, tree);
}

TEST(ParseJson5, RefusesBytesThatAreNoUtf8WhereverTheyAre) {
  for (const std::string bad :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xD0", "\xD0g", "\xD0\xD0", "\xE0\x80\x80",
        "\xE2\x82", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\xFE", "\xFF"}) {
    SCOPED_TRACE(bad);
    for (const char* letters : {"", "a", "Стен", "Стена", "Стена С", "\xE2\x82\xAC"}) {
      for (const char* behind : {"", "b", "Стена", "Стена, Стена"}) {
        const std::string text = letters + bad + behind;
        EXPECT_FALSE(AreWellFormed("'" + text + "'"));
        EXPECT_FALSE(AreWellFormed("'\\n" + text + "'"));
        EXPECT_FALSE(AreWellFormed("1//" + text));
        EXPECT_FALSE(AreWellFormed("1//" + text + "\n"));
        EXPECT_FALSE(AreWellFormed("1/*" + text + "*/"));
        EXPECT_FALSE(AreWellFormed("{a" + text + ":1}"));
        EXPECT_FALSE(AreWellFormed("[1 " + text + "]"));
      }
    }
    EXPECT_FALSE(AreWellFormed("'\\" + bad + "'"));
  }
}

TEST(ParseJson5, EndsALineCommentAtEachPlaceAmongLetters) {
  for (const std::wstring letters : {L"Стена из кирпича", L"éèêëéèêë", L"漢字漢字", L"aСтена"}) {
    for (std::size_t length = 0; length <= letters.size(); ++length) {
      for (const wchar_t* end : {L"\n", L"\r", L"\u2028", L"\u2029"}) {
        const std::wstring text = L"//" + letters.substr(0, length) + end;
        EXPECT_EQ(Parsed(text + L"1"), L"1") << text;
        EXPECT_EQ(Parsed(text + L"С"), L"malformed") << text;
      }
    }
  }
}

// Numbers

struct NumberCase {
  std::wstring text;
  double number;
};

// Checks the numbers with each sign and without.
void ExpectNumbers(const std::vector<NumberCase>& cases) {
  for (const NumberCase& one : cases) {
    const double plain = NumberOf(one.text);
    const double positive = NumberOf(L"+" + one.text);
    const double negative = NumberOf(L"-" + one.text);
    EXPECT_EQ(plain, one.number) << one.text;
    EXPECT_EQ(positive, one.number) << one.text;
    EXPECT_EQ(negative, -one.number) << one.text;
    EXPECT_FALSE(std::signbit(plain)) << one.text;
    EXPECT_FALSE(std::signbit(positive)) << one.text;
    EXPECT_TRUE(std::signbit(negative)) << one.text;
  }
}

TEST(ParseJson5, TakesDecimalNumbersOfEveryForm) {
  ExpectNumbers(
      {{L"0", 0},        {L"7", 7},         {L"10", 10},         {L"1234567890", 1234567890},
       {L"0.0", 0},      {L"0.", 0},        {L".0", 0},          {L"1.5", 1.5},
       {L"0.1", 0.1},    {L"0.05", 0.05},   {L"5.", 5},          {L".5", 0.5},
       {L".05", 0.05},   {L"0e0", 0},       {L"0e1", 0},         {L"1", 1},
       {L"1e0", 1},      {L"1e3", 1000},    {L"1E3", 1000},      {L"1e+3", 1000},
       {L"1e-3", 0.001}, {L"1E-03", 0.001}, {L"1e0005", 100000}, {L"5.e2", 500},
       {L".5e2", 50},    {L"0.5E+2", 50},   {L"12.34e1", 123.4}, {L"0.e0", 0},
       {L".0e00", 0}});
}

TEST(ParseJson5, TakesHexadecimalNumbers) {
  ExpectNumbers({{L"0x0", 0},
                 {L"0X0", 0},
                 {L"0x1F", 31},
                 {L"0X1f", 31},
                 {L"0xdecaf", 912559},
                 {L"0xABCDEF", 11259375},
                 {L"0x0009", 9},
                 {L"0x00", 0},
                 {L"0xe", 14},
                 {L"0x1e5", 485},  // no exponent
                 {L"0xFFFFFFFF", 4294967295.0},
                 {L"0x100000000", 4294967296.0}});
}

TEST(ParseJson5, TakesInfinityAndNaNWithEachSign) {
  ExpectNumbers({{L"Infinity", infinity}});
  EXPECT_EQ(Parsed(L"[NaN, +NaN, -NaN]"), L"[NaN NaN NaN]");
}

TEST(ParseJson5, RefusesLeadingZeros) {
  ExpectMalformed({L"00", L"01", L"010", L"08", L"09", L"-01", L"+01", L"00.5", L"01.5", L"00e1",
                   L"00x1", L"0_1", L"0b1", L"0o7", L"0B1", L"0O7"});
}

TEST(ParseJson5, RefusesASignApartFromItsNumber) {
  ExpectMalformed(
      {L"- 1", L"+ 1", L"-\n1", L"-//\n1", L"- Infinity", L"+ NaN", L"- .5", L"-\u00A01"});
}

TEST(ParseJson5, RefusesNumbersThatAreIncompleteOrGoOn) {
  ExpectMalformed(
      {L"+",     L"-",     L".",      L"+.",         L"-.",        L"++1",      L"--1",   L"+-1",
       L"-+1",   L"..5",   L"1..",    L"1.2.3",      L".5.",       L".e1",      L"e1",    L"1e",
       L"1e+",   L"1e-",   L"1E",     L"1e+-1",      L"1e1.5",     L"1e1.",     L"1e.5",  L"1e0x1",
       L"1ee1",  L"1e1e1", L"1.e",    L"5 .",        L"5 e1",      L"1 000",    L"1_000", L"1'000",
       L"1n",    L"1f",    L"1.0f",   L"1a",         L"1$",        L"0x",       L"0X",    L"-0x",
       L"0xg",   L"0x-1",  L"0x 1",   L"0x1.8",      L"0x1p3",     L"0x1g",     L"0x1_0", L"x1",
       L"#1",    L"0x0x1", L"-x1",    L"--Infinity", L"-infinity", L"+Inf",     L"-true", L"+null",
       L"-'1'",  L"+[]",   L"\u0661", L"\uFF11",     L"1\u0662",   L"\u22121",  L"1,5",   L"1true",
       L"1null", L"1'a'",  L"1[",     L"NaN.0",      L"Infinity1", LR"(\u0031)"});
  ExpectMalformed({L"[1true]", L"[1'a']", L"[1[]]", L"[1{}]", L"[truefalse]", L"[1-1]", L"[1+1]",
                   L"['a'1]", L"['a''b']", L"[[]1]", L"{a:1b:2}", L"{a:'b'c:1}", L"{a:[]b:1}"});
}

TEST(ParseJson5, EndsANumberAtTheNextToken) {
  EXPECT_EQ(Parsed(L"[1,2.,.3,0x4,-5e1,Infinity,-NaN]"), L"[1 2 0.3 4 -50 inf NaN]");
  EXPECT_EQ(Parsed(L"{a:1,b:.5}"), L"{a:1 b:0.5}");
  EXPECT_EQ(Parsed(L"[1/**/,2.//\n]"), L"[1 2]");
}

TEST(ParseJson5, ReturnsTheDoubleNearestToADecimalNumber) {
  ExpectNumbers({{L"9007199254740993", 9007199254740992.0},
                 {L"9007199254740993.0000000000000000000000000000001", 9007199254740994.0},
                 {L"0.1000000000000000055511151231257827021181583404541015625", 0.1},
                 {L"123456789012345678901234567890", 123456789012345678901234567890.0},
                 {L"2.2250738585072011e-308", 2.2250738585072011e-308},
                 {L"2.2250738585072014e-308", std::numeric_limits<double>::min()},
                 {L"5e-324", std::numeric_limits<double>::denorm_min()},
                 {L"4.9e-324", std::numeric_limits<double>::denorm_min()},
                 {L"3e-324", std::numeric_limits<double>::denorm_min()},
                 {L"2.4703282292062328e-324", std::numeric_limits<double>::denorm_min()},
                 {L"1.7976931348623157e308", std::numeric_limits<double>::max()},
                 {L"1.7976931348623158e308", std::numeric_limits<double>::max()}});
}

TEST(ParseJson5, ReturnsTheDoubleNearestToAHexadecimalNumber) {
  const std::wstring ones = L"0xFFFFFFFFFFFFF8";  // as many as a double has digits
  ExpectNumbers(
      {{L"0x1FFFFFFFFFFFFF", 9007199254740991.0},
       {L"0x20000000000001", 9007199254740992.0},  // a tie rounds to even
       {L"0x20000000000003", 9007199254740996.0},
       {L"0x20000000000001" + Zeros(16), std::ldexp(9007199254740992.0, 64)},
       {L"0x20000000000001" + Zeros(15) + L"1", std::ldexp(9007199254740994.0, 64)},
       {L"0x20000000000000" + std::wstring(16, L'F'), std::ldexp(9007199254740992.0, 64)},
       {L"0x8" + Zeros(255), std::ldexp(1, 1023)},
       {ones + Zeros(242), std::numeric_limits<double>::max()},
       {L"0xFFFFFFFFFFFFFB" + std::wstring(242, L'F'), std::numeric_limits<double>::max()},
       {L"0x" + Zeros(400) + L"1F", 31},
       {L"0x" + Zeros(400) + ones.substr(2) + Zeros(242), std::numeric_limits<double>::max()},
       {L"0x" + Zeros(400), 0}});
}

TEST(ParseJson5, MakesNumbersBeyondTheRangeOfADoubleInfinite) {
  // Halfway between the greatest double and the next one, if there were one.
  const std::wstring halfway =
      L"17976931348623158079372897140530341507993413271003782693617377898044496829276475094664901"
      L"79775872070963302864166928879109465555478519404026306574886715058206819089020007083836762"
      L"73854845817711531764475730270069855571366959622842914819860834936475292719074168444365510"
      L"704342711559699508093042880177904174497792";
  ExpectNumbers(
      {{L"1e309", infinity},
       {L"1e400", infinity},
       {L"1.7976931348623159e308", infinity},
       {halfway, infinity},
       {halfway + L".", infinity},
       {halfway.substr(0, halfway.size() - 2) + L"79.9", std::numeric_limits<double>::max()},
       {std::wstring(400, L'9'), infinity},
       {L"1" + Zeros(400), infinity},
       {L"1" + Zeros(400) + L".", infinity},
       {L"1" + Zeros(400) + L".0e-10", infinity},
       {L"1" + Zeros(400) + L"e99999999999999999999", infinity},
       {L"0.1e310", infinity},
       {L".00001e314", infinity},
       {L"0." + Zeros(400) + L"1e800", infinity},
       {L"1e2147483648", infinity},
       {L"1e4294967297", infinity},
       {L"1e9223372036854775808", infinity},
       {L"1e99999999999999999999999", infinity},
       {L"1e+99999999999999999999999", infinity},
       {L"1e" + Zeros(400) + L"309", infinity},
       {L"1e" + std::wstring(400, L'9'), infinity},
       {L"0x1" + Zeros(256), infinity},
       {L"0xFFFFFFFFFFFFFC" + Zeros(242), infinity},  // halfway
       {L"0x" + std::wstring(400, L'F'), infinity},
       {L"0x" + Zeros(400) + L"1" + Zeros(256), infinity}});
}

TEST(ParseJson5, MakesNumbersTooSmallForADoubleZero) {
  ExpectNumbers({{L"1e-324", 0},
                 {L"2.4703282292062327e-324", 0},
                 {L"1e-400", 0},
                 {L"0." + Zeros(400) + L"1", 0},
                 {L"." + Zeros(400) + L"1", 0},
                 {L"." + Zeros(400) + L"1e+9", 0},
                 {L"0." + Zeros(400) + L"1e-99999999999999999999", 0},
                 {L"1" + Zeros(400) + L"e-800", 0},
                 {L"9999999999e-400", 0},
                 {L"1e-2147483649", 0},
                 {L"1e-4294967295", 0},
                 {L"1e-9223372036854775809", 0},
                 {L"1e-99999999999999999999999", 0},
                 {L"1E-" + std::wstring(400, L'9'), 0}});
}

TEST(ParseJson5, KeepsZeroZeroWhateverItsExponent) {
  ExpectNumbers({{L"0e400", 0},
                 {L"0e99999999999999999999999", 0},
                 {L"0e-99999999999999999999999", 0},
                 {L"0.000e2147483648", 0},
                 {L".0E+400", 0},
                 {L"0." + Zeros(400) + L"e999", 0}});
}

TEST(ParseJson5, LetsDigitsAndExponentCancelOut) {
  ExpectNumbers({{L"1" + Zeros(400) + L"e-400", 1},
                 {L"1" + Zeros(400) + L"." + Zeros(400) + L"e-399", 10},
                 {L"0." + Zeros(400) + L"1e401", 1},
                 {L"." + Zeros(400) + L"125e+403", 125},
                 {L"0." + Zeros(400) + L"1e" + Zeros(400) + L"401", 1},
                 {L"1e" + Zeros(400), 1},
                 {L"1e-" + Zeros(400) + L"2", 0.01},
                 {L"1." + Zeros(400), 1},
                 {L"1" + Zeros(100'000) + L"e-100000", 1},
                 {L"0." + Zeros(100'000) + L"1e100001", 1},
                 {L"1" + Zeros(100'000) + L"e-100309", 1e-309},
                 {L"1" + Zeros(100'000) + L"e-99692", 1e308}});
}

// Arrays and objects

TEST(ParseJson5, TakesArraysAndObjects) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"[]", L"[]"},
      {L"[ ]", L"[]"},
      {L"[[]]", L"[[]]"},
      {L"[[],[]]", L"[[] []]"},
      {L"[1]", L"[1]"},
      {L"[1,2,3]", L"[1 2 3]"},
      {L"[3,1,2,1]", L"[3 1 2 1]"},
      {L"[null,true,'a',[0],{}]", L"[null true 'a' [0] {}]"},
      {L"{}", L"{}"},
      {L"{ }", L"{}"},
      {L"{a:1}", L"{a:1}"},
      {L"{a:{}}", L"{a:{}}"},
      {L"{a:[],b:{}}", L"{a:[] b:{}}"},
      {L"{a:{b:{c:[1,{d:2}]}}}", L"{a:{b:{c:[1 {d:2}]}}}"},
      {L"[{a:1},{a:2}]", L"[{a:1} {a:2}]"},
      {L"{a:[{b:[]},[]],c:3}", L"{a:[{b:[]} []] c:3}"},
      {L"{a:true,b:null,'c d':\"e\",f:-.5}", L"{a:true b:null c d:'e' f:-0.5}"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
}

TEST(ParseJson5, TakesOneCommaAfterTheLastElement) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"[1,]", L"[1]"},
      {L"[1 , ]", L"[1]"},
      {L"[[],]", L"[[]]"},
      {L"[[1,],]", L"[[1]]"},
      {L"{a:1,}", L"{a:1}"},
      {L"{a:1 , }", L"{a:1}"},
      {L"{a:{b:1,},}", L"{a:{b:1}}"},
      {L"[{a:[1,],},]", L"[{a:[1]}]"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
}

TEST(ParseJson5, RefusesCommasWithoutAnElementBefore) {
  ExpectMalformed({L"[,]", L"[,1]", L"[1,,]", L"[1,,2]", L"[1,/**/,]", L"[[],,]", L"{,}", L"{,a:1}",
                   L"{a:1,,}", L"{a:1,,b:2}", L"{a:,}", L"{a:1,/**/,}", L",", L",1", L"[{},,{}]"});
}

TEST(ParseJson5, RefusesElementsWithoutACommaBetween) {
  ExpectMalformed({L"[1 2]", L"['a' 'b']", L"[[] []]", L"[{} {}]", L"[1\n2]", L"[1;2]", L"[1:2]",
                   L"{a:1 b:2}", L"{a:1\nb:2}", L"{a:1;b:2}", L"{a:{} b:{}}", L"{'a':1 'b':2}"});
}

TEST(ParseJson5, RefusesMembersWithoutKeyColonOrValue) {
  ExpectMalformed({L"{a}",      L"{'a'}",  L"{a,b}",       L"{a 1}", L"{'a' 1}", L"{a::1}",
                   L"{a=1}",    L"{a:}",   L"{:1}",        L"{:}",   L"{1}",     L"{a:1,b}",
                   L"{a:1,:2}", L"{a:b}",  L"{a:b:1}",     L"{[]}",  L"{{}}",    L"{'a','b'}",
                   L"{null}",   L"{...a}", L"{get a(){}}", L"[a:1]", L"['a':1]", L"[a]"});
}

TEST(ParseJson5, RefusesBracketsThatDoNotMatch) {
  ExpectMalformed({L"[",         L"{",      L"]",     L"}",     L"[}",  L"{]",      L"[1",
                   L"[1,",       L"[1}",    L"{a",    L"{'a'",  L"{a:", L"{a:1",    L"{a:1,",
                   L"{a:1]",     L"[[]",    L"[]]",   L"{a:{}", L"{}}", L"[{]}",    L"{a:[}]",
                   L"[[1,2],[3", L"{a:[1}", L"[(1)]", L"(1)",   L"[1)", L"[{a:1],}"});
}

// Depth

std::wstring Nested(std::wstring_view opening, std::wstring_view inner, std::wstring_view closing,
                    std::size_t depth) {
  return Repeat(opening, depth).append(inner).append(Repeat(closing, depth));
}

TEST(ParseJson5, TakesAThousandLevelsAndNoMore) {
  const std::pair<const wchar_t*, const wchar_t*> levels[] = {
      {L"[", L"]"},     {L"{a:", L"}"},     {L"[1,", L",]"},
      {L"[ ", L" \n]"}, {L"{b:1,a:", L"}"}, {L"/**/[//\n", L"]"},
  };
  for (const auto& [opening, closing] : levels) {
    for (const wchar_t* inner : {L"[]", L"{}", L"[1,'a']", L"{a:1}"}) {
      EXPECT_TRUE(IsWellFormed(Nested(opening, inner, closing, 999))) << opening << inner;
      EXPECT_FALSE(IsWellFormed(Nested(opening, inner, closing, 1000))) << opening << inner;
    }
    EXPECT_TRUE(IsWellFormed(Nested(opening, L"1", closing, 1000))) << opening;
    EXPECT_FALSE(IsWellFormed(Nested(opening, L"1", closing, 1001))) << opening;
  }
}

TEST(ParseJson5, CountsArraysAndObjectsTogetherAsLevels) {
  EXPECT_TRUE(IsWellFormed(Nested(L"[{a:", L"1", L"}]", 500)));
  EXPECT_FALSE(IsWellFormed(Nested(L"[{a:", L"[]", L"}]", 500)));
  EXPECT_FALSE(IsWellFormed(Nested(L"[{a:", L"{}", L"}]", 500)));
  EXPECT_TRUE(IsWellFormed(Nested(L"{a:[", L"{}", L"]}", 499)));
}

TEST(ParseJson5, CountsOnlyLevelsThatAreOpenAtOnce) {
  const std::wstring deep = Nested(L"[", L"", L"]", 999);
  EXPECT_TRUE(IsWellFormed(L"[" + deep + L"," + deep + L"," + deep + L"]"));
  EXPECT_TRUE(IsWellFormed(L"{a:" + deep + L",b:" + deep + L"}"));
  EXPECT_FALSE(IsWellFormed(L"[" + deep + L",[" + deep + L"]]"));
}

TEST(ParseJson5, KeepsTheInnermostValueOfAThousandLevels) {
  const std::wstring text = Nested(L"[{a:", L"'x'", L"}]", 500);
  const Document document(text);
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  const Json5Value* value = &tree.root;
  for (int i = 0; i < 500; ++i) {
    ASSERT_EQ(tree.Members(*value).size(), 1u);
    value = document.Find(tree.Members(*value).front().value, L"a");
    ASSERT_NE(value, nullptr);
  }
  EXPECT_EQ(value->text, "x");
}

// The tree

TEST(Json5TreeMembers, AreThoseOfAnObjectInTheOrderOfTheirKeysBytes) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"{b:1,a:2,c:3}", L"{a:2 b:1 c:3}"},
      {L"{Б:1,b:2,a:3,B:4,'':5,А:6}", L"{:5 B:4 a:3 b:2 А:6 Б:1}"},
      {L"{abc:1,ab:2,b:3,a:4}", L"{a:4 ab:2 abc:1 b:3}"},  // a prefix first
      {L"{'10':1,'9':2,'1':3}", L"{1:3 10:1 9:2}"},
      {L"{ё:1,я:2,а:3}", L"{а:3 я:2 ё:1}"},
      {L"{\uFF21:1,z:2,漢:3}", L"{z:2 漢:3 \uFF21:1}"},
      {L"[{b:1,a:2},{d:1,c:2}]", L"[{a:2 b:1} {c:2 d:1}]"},
      {L"{b:{d:1,c:2},a:3}", L"{a:3 b:{c:2 d:1}}"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
}

TEST(Json5TreeMembers, AreThoseOfAnArrayInTheOrderOfTheTextWithEmptyKeys) {
  const Document document(L"{k:['b','a',{d:1},'b']}");
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  const auto elements = tree.Members(*document.Find(tree.root, L"k"));
  ASSERT_EQ(elements.size(), 4u);
  EXPECT_EQ(elements[0].value.text, "b");
  EXPECT_EQ(elements[1].value.text, "a");
  EXPECT_EQ(elements[2].value.kind, Kind::object);
  EXPECT_EQ(elements[3].value.text, "b");
  for (const Json5Member& element : elements) EXPECT_EQ(element.key, "");
}

TEST(Json5TreeMembers, AreNoneOfAScalarOrOfAnEmptyArrayOrObject) {
  const Document document(L"[null,true,1,'a',[],{}]");
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  ASSERT_EQ(tree.Members(tree.root).size(), 6u);
  for (const Json5Member& element : tree.Members(tree.root)) {
    EXPECT_TRUE(tree.Members(element.value).empty());
  }
}

TEST(ParseJson5, KeepsTheLastValueOfAKey) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"{a:1,a:2}", L"{a:2}"},
      {L"{a:1,b:2,a:3,c:4,b:5,a:6}", L"{a:6 b:5 c:4}"},
      {L"{a:1,'a':2,\"a\":3}", L"{a:3}"},
      {LR"({a:1,\u0061:2,'\x61':3})", L"{a:3}"},
      {L"{'':1,\"\":2}", L"{:2}"},
      {L"{a:1,A:2}", L"{A:2 a:1}"},
      {L"{й:1,и\u0306:2}", L"{и\u0306:2 й:1}"},  // one letter, composed and decomposed
      {L"{a:1,a:null}", L"{a:null}"},
      {L"{a:{b:1,c:2},a:{b:3}}", L"{a:{b:3}}"},  // the first is replaced as a whole
      {L"{a:[1,2],a:[3]}", L"{a:[3]}"},
      {L"{a:{a:1,a:2},a:{a:3,a:4}}", L"{a:{a:4}}"},
      {L"[{a:1,a:2},{a:3}]", L"[{a:2} {a:3}]"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(Parsed(text), shown) << text;
}

TEST(ParseJson5, KeepsTheLastOfManyValuesOfManyKeys) {
  std::wstring text = L"{";
  for (int i = 0; i < 1000; ++i) {
    text += L"k" + std::to_wstring(i * 37 % 50) + L":" + std::to_wstring(i) + L",";
  }
  text += L"}";
  const Document document(text);
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  EXPECT_EQ(tree.Members(tree.root).size(), 50u);
  for (int i = 950; i < 1000; ++i) {
    const Json5Value* last = document.Find(tree.root, L"k" + std::to_wstring(i * 37 % 50));
    ASSERT_NE(last, nullptr) << i;
    EXPECT_EQ(last->number, i);
  }
}

TEST(Json5TreeFind, ReturnsTheValueOfAKeyOfAnObject) {
  const std::wstring text = LR"({b: 1, 'a b': 2, '': 3, '\0': 4, Ключ: 5, ab: 6, b: 7})";
  const Document document(text);
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  const std::pair<std::wstring, double> cases[] = {{L"b", 7},   {L"a b", 2},  {L"", 3},
                                                   {L"\0"s, 4}, {L"Ключ", 5}, {L"ab", 6}};
  for (const auto& [key, number] : cases) {
    const Json5Value* found = document.Find(tree.root, key);
    ASSERT_NE(found, nullptr) << key;
    EXPECT_EQ(found->number, number) << key;
  }
}

TEST(Json5TreeFind, ReturnsNothingForAnotherKey) {
  const Document document(L"{b:{inner:1},c:2}");
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  for (const std::wstring& key :
       {L""s, L"a"s, L"B"s, L"bb"s, L"ba"s, L"d"s, L"inner"s, L"b\0"s, L"\uFFFF"s}) {
    EXPECT_EQ(document.Find(tree.root, key), nullptr) << key;
  }
}

TEST(Json5TreeFind, ReturnsNothingInWhatIsNoObject) {
  const Document document(L"[null,true,1,'a',['a',{a:1}],{}]");
  ASSERT_FALSE(document.error);
  const Json5Tree& tree = document.tree;
  EXPECT_EQ(document.Find(tree.root, L""), nullptr);  // not even the empty key of elements
  for (const Json5Member& element : tree.Members(tree.root)) {
    EXPECT_EQ(document.Find(element.value, L""), nullptr);
    EXPECT_EQ(document.Find(element.value, L"a"), nullptr);
  }
}

TEST(Json5TreeFindNear, ReturnsTheSameFromEveryPlace) {
  std::wstring text = L"{";
  for (int i = 1; i < 40; i += 2)
    text += L"k" + std::to_wstring(100 + i) + L":" + std::to_wstring(i) + L",";
  const Document document(text + L"}");
  for (std::size_t from = 0; from < 25; ++from) {
    for (int i = 0; i < 42; ++i) {
      std::size_t place = from;
      const Json5Value* found =
          document.tree.FindNear(document.tree.root, "k" + std::to_string(100 + i), place);
      ASSERT_EQ(found != nullptr, i % 2 == 1 && i < 40) << i << " from " << from;
      if (!found) continue;
      EXPECT_EQ(found->number, i);
      EXPECT_EQ(place, static_cast<std::size_t>(i / 2));
    }
  }
}

TEST(Json5TreeFindNear, ReturnsNothingInAnEmptyObject) {
  const Document document(L"{}");
  std::size_t place = 5;
  EXPECT_EQ(document.tree.FindNear(document.tree.root, "k", place), nullptr);
}

TEST(Json5TreeFindNear, ReturnsNothingInWhatIsNoObject) {
  const Document document(L"['a']");
  std::size_t place = 0;
  EXPECT_EQ(document.tree.FindNear(document.tree.root, "", place), nullptr);
}

// Errors

struct PlaceCase {
  std::wstring text;
  std::size_t line;
  std::size_t column;
};

void ExpectPlaces(const std::vector<PlaceCase>& cases) {
  for (const PlaceCase& one : cases) {
    EXPECT_EQ(ErrorPlace(one.text), std::pair(one.line, one.column)) << one.text;
  }
}

TEST(ParseJson5Error, IsAtTheFirstUnitThatFitsNothing) {
  ExpectPlaces(
      {{L"x", 1, 1},         {L"  x", 1, 3},         {L"1 2", 1, 3},     {L"[1 2]", 1, 4},
       {L"[,]", 1, 2},       {L"[1,,]", 1, 4},       {L"[1}", 1, 3},     {L"{a 1}", 1, 4},
       {L"{a:}", 1, 4},      {L"{1:1}", 1, 2},       {L"{a-b:1}", 1, 3}, {L"{a:1 b:2}", 1, 6},
       {L"01", 1, 2},        {L"- 1", 1, 2},         {L"1ex", 1, 3},     {L"0xg", 1, 3},
       {LR"('\x4g')", 1, 5}, {LR"('\u00g0')", 1, 6}, {LR"('\1')", 1, 3}, {L"'a\nb'", 1, 3},
       {L"'a\r\nb'", 1, 3},  {L"[\0]"s, 1, 2}});
}

TEST(ParseJson5Error, IsAtTheBracketThatIsTooDeep) {
  ExpectPlaces({{std::wstring(1001, L'['), 1, 1001},
                {std::wstring(1002, L'['), 1, 1001},
                {std::wstring(1000, L'[') + L" {}", 1, 1002}});
}

TEST(ParseJson5Error, SaysOfABracketThatIsTooDeepTheSameWhateverFollows) {
  EXPECT_EQ(ErrorMessage(std::wstring(1001, L'[')), ErrorMessage(std::wstring(1001, L'[') + L"1"));
}

TEST(ParseJson5Error, IsAfterATextThatEndsTooEarly) {
  ExpectPlaces({{L"", 1, 1},
                {L"  ", 1, 3},
                {L"[", 1, 2},
                {L"[1,", 1, 4},
                {L"{\"a\":", 1, 6},
                {L"'abc", 1, 5},
                {L"'abc\\", 1, 6},
                {L"/* abc", 1, 7},
                {L"-", 1, 2},
                {L"0x", 1, 3},
                {L"1e+", 1, 4},
                {LR"('\u00)", 1, 6},
                {L"\n", 2, 1},
                {L"[1,\n", 2, 1},
                {L"[1,\r\n  ", 2, 3},
                {L"/*\n*\n", 3, 1},
                {L"// abc", 1, 7}});
}

TEST(ParseJson5Error, CountsALineForEachLineTerminatorAndOneForCrLf) {
  for (const wchar_t* end : {L"\n", L"\r", L"\r\n", L"\u2028", L"\u2029"}) {
    const std::wstring e(end);
    ExpectPlaces({{L"[1," + e + L"2 3]", 2, 3},
                  {e + e + L" x", 3, 2},
                  {L"[" + e + e + L"1," + e + L"]]", 4, 2},
                  {L"//" + e + L"x", 2, 1},
                  {L"/*" + e + L" " + e + L"*/x", 3, 3},
                  {L"['a\\" + e + L"b' x]", 2, 4},
                  {L"{a:1," + e, 2, 1}});
  }
  ExpectPlaces({{L"\n\rx", 3, 1},
                {L"\r\r\nx", 3, 1},
                {L"\r\n\nx", 3, 1},
                {L"['\u2028', x]", 2, 4}});  // also within a string
}

TEST(ParseJson5Error, CountsNoLineForOtherWhiteSpace) {
  ExpectPlaces({{L"\v\f\tx", 1, 4}, {L"\u00A0\uFEFF\u3000x", 1, 4}, {L"['\x0085' x]", 1, 6}});
}

TEST(ParseJson5Error, CountsColumnsInUnits) {
  const std::wstring start = L"['\U0001F600Стена' ";
  ExpectPlaces({{start + L"x]", 1, start.size() + 1}});
}

TEST(ParseJson5Error, SaysWhatIsWrong) {
  struct Case {
    const wchar_t* text;
    const char* message;
  };
  for (const Case& one : {
           Case{L"[1", "the text ends too early"},
           Case{L"/*", "the text ends too early"},
           Case{L"'\\", "the text ends too early"},
           Case{L"/1", "a stroke that begins no comment"},
           Case{L"0xg", "a hexadecimal number without digits"},
           Case{L"01", "a digit behind a leading 0"},
           Case{L".x", "a point without digits"},
           Case{L"-x", "a sign without a number"},
           Case{L"1ex", "an exponent without digits"},
           Case{L"'\\xg'", "an escape that lacks a hexadecimal digit"},
           Case{L"'\n'", "a string that is not closed on its line"},
           Case{L"'\\1'", "an escape of a digit"},
           Case{L"{\\x61:1}", "a key with an escape other than \\u"},
           Case{L"{\\u0020:1}", "an escape of what can't stand in a key"},
           Case{L"{1:1}", "a key is expected"},
           Case{L"{a}", "a colon is expected behind a key"},
           Case{L"[,]", "a value is expected"},
           Case{L"[1 2]", "neither a comma nor the end of an array or object"},
           Case{L"1 2", "something behind the value"},
       }) {
    EXPECT_EQ(ErrorMessage(one.text), one.message) << one.text;
  }
  EXPECT_EQ(ErrorMessage(std::wstring(1001, L'[')), "arrays and objects too deep in each other");
}

// Huge texts take linear time.

TEST(ParseJson5, HandlesStringsOfFiveMillionUnits) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    const std::wstring plain(size, L'a');
    EXPECT_TRUE(StringOf(L"'" + plain + L"'") == plain);
    EXPECT_EQ(StringOf(L"'" + plain), std::nullopt);
    EXPECT_TRUE(StringOf(L"'" + Repeat(L"\\n", size / 2) + L"'") == std::wstring(size / 2, L'\n'));
  });
}

TEST(ParseJson5, HandlesLineContinuationsAndPairsByTheMillion) {
  ExpectDoneAtOnce(2'500'000, [](std::size_t size) {
    EXPECT_EQ(StringOf(L"'" + Repeat(L"\\\n", size) + L"'"), L"");
    const std::optional<std::wstring> pairs =
        StringOf(L"'" + Repeat(LR"(\uD83D\uDE00)", size / 6) + L"'");
    EXPECT_TRUE(pairs == Repeat(L"\U0001F600", size / 6));
  });
}

TEST(ParseJson5, HandlesKeysOfFiveMillionUnits) {
  for (const std::wstring first : {L"a", L"\\u0061"}) {
    ExpectDoneAtOnce(5'000'000, [&first](std::size_t size) {
      const Document document(L"{" + first + std::wstring(size - 1, L'b') + L":1}");
      ASSERT_FALSE(document.error);
      const auto members = document.tree.Members(document.tree.root);
      ASSERT_EQ(members.size(), 1u);
      EXPECT_TRUE(members[0].key == "a" + std::string(size - 1, 'b')) << members[0].key.size();
      EXPECT_EQ(members[0].value.number, 1);
    });
  }
}

TEST(ParseJson5, HandlesNumbersOfFiveMillionDigits) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_EQ(NumberOf(std::wstring(size, L'1')), infinity);
    EXPECT_EQ(NumberOf(L"0." + Zeros(size) + L"1"), 0);
    EXPECT_EQ(NumberOf(L"1." + Zeros(size)), 1);
  });
}

TEST(ParseJson5, HandlesExponentsAndHexadecimalNumbersOfFiveMillionDigits) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_EQ(NumberOf(L"1e" + Zeros(size) + L"1"), 10);
    EXPECT_EQ(NumberOf(L"0x" + std::wstring(size, L'F')), infinity);
    EXPECT_EQ(NumberOf(L"0x" + Zeros(size) + L"F"), 15);
  });
}

TEST(ParseJson5, HandlesFiveMillionUnitsOfWhiteSpaceAndComments) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_EQ(Parsed(std::wstring(size, L' ') + L"1"), L"1");
    EXPECT_EQ(Parsed(L"/*" + std::wstring(size, L'*') + L"/1"), L"1");
    EXPECT_EQ(Parsed(Repeat(L"//\n", size / 3) + L"1"), L"1");
    EXPECT_EQ(Parsed(L"/*" + std::wstring(size, L'*')), L"malformed");
  });
}

TEST(ParseJson5, HandlesAMillionElements) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    const Document document(L"[" + Repeat(L"1,", size) + L"]");
    ASSERT_FALSE(document.error);
    EXPECT_EQ(document.tree.Members(document.tree.root).size(), size);
  });
}

TEST(ParseJson5, HandlesAMillionArraysAtAnyDepth) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    const Document document(Nested(L"[", Repeat(L"[],", size), L"]", 999));
    ASSERT_FALSE(document.error);
    EXPECT_EQ(document.tree.members.size(), size + 998);
  });
}

// The keys differ, and the text doesn't have them in order.
TEST(ParseJson5, HandlesAMillionMembers) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    std::wstring text = L"{";
    for (std::size_t i = 0; i < size; ++i) {
      text.append(L"k").append(std::to_wstring(i * 7919 % size)).append(L":1,");
    }
    const Document document(text + L"}");
    ASSERT_FALSE(document.error);
    const Json5Tree& tree = document.tree;
    EXPECT_EQ(tree.Members(tree.root).size(), size);
    EXPECT_NE(document.Find(tree.root, L"k" + std::to_wstring(size - 1)), nullptr);
  });
}

TEST(ParseJson5, HandlesAMillionMembersOfOneKey) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    EXPECT_EQ(Parsed(L"{" + Repeat(L"a:1,", size - 1) + L"a:2}"), L"{a:2}");
  });
}

TEST(ParseJson5, HandlesFiveMillionOpeningBrackets) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_FALSE(IsWellFormed(std::wstring(size, L'[')));
    EXPECT_FALSE(IsWellFormed(Repeat(L"{a:", size / 3)));
    EXPECT_FALSE(IsWellFormed(std::wstring(size, L']')));
  });
}

TEST(ParseJson5, FindsTheLineOfAnErrorAfterFiveMillionUnits) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_EQ(ErrorPlace(std::wstring(size, L'\n') + L"x"), std::pair(size + 1, std::size_t{1}));
  });
}

// The parts of a text, each as its depth in blanks, its text, and behind a bar that of its value.
std::vector<std::string> ShowParts(std::string_view text) {
  Json5Tree tree;
  Json5Parts parts;
  EXPECT_FALSE(ParseJson5(text, tree, &parts)) << text;
  std::vector<std::string> shown;
  std::vector<std::size_t> depths;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Json5Part& part = parts[i];
    depths.push_back(i == 0 ? 0 : depths[part.parent] + 1);
    std::string line(depths.back(), ' ');
    line.append(text.substr(part.begin, part.end - part.begin));
    if (part.begin != part.valueBegin) {
      line.append("|").append(text.substr(part.valueBegin, part.end - part.valueBegin));
    }
    shown.push_back(line);
  }
  return shown;
}

TEST(Json5Parts, TellWhereEachValueIsWithItsKey) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(ShowParts(" 5 // five"), Lines({"5"}));
  EXPECT_EQ(ShowParts("[1 , [ ], 'a' ]"), Lines({"[1 , [ ], 'a' ]", " 1", " [ ]", " 'a'"}));
  EXPECT_EQ(ShowParts("{ /**/a :1, 'b': {c:[2]}, }/**/"),
            Lines({"{ /**/a :1, 'b': {c:[2]}, }", " a :1|1", " 'b': {c:[2]}|{c:[2]}", "  c:[2]|[2]",
                   "   2"}));
}

TEST(Json5Parts, HaveTheMembersThatALaterOneReplaces) {
  EXPECT_EQ(ShowParts("{a:1,b:2,'a':3}"),
            std::vector<std::string>({"{a:1,b:2,'a':3}", " a:1|1", " b:2|2", " 'a':3|3"}));
}

TEST(Json5Parts, HaveDecodedKeysAndTheValuesOfTheTree) {
  const std::string text = "{'\\x41': [true, '\\x42']}";
  Json5Tree tree;
  Json5Parts parts;
  ASSERT_FALSE(ParseJson5(text, tree, &parts));
  ASSERT_EQ(parts.size(), 4u);
  EXPECT_EQ(parts[1].key, "A");
  EXPECT_EQ(parts[1].value.kind, Kind::array);
  EXPECT_TRUE(parts[2].value.boolean);
  EXPECT_EQ(parts[3].value.text, "B");
  EXPECT_EQ(Show(tree, tree.root), L"{A:[true 'B']}");
}

TEST(Json5Error, HasThePositionInBytes) {
  Json5Tree tree;
  const std::optional<Json5Error> error = ParseJson5("{Ж: 1\n 2}", tree);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->position, 8u);
  EXPECT_EQ(error->line, 2u);
  EXPECT_EQ(error->column, 2u);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
