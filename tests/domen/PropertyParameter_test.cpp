#include "PropertyParameter.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll::Properties {
namespace {

using namespace std::string_literals;

using Ints = std::vector<int>;
using Reals = std::vector<double>;
using Strings = std::vector<std::wstring>;

// Returns a new field with the name, title and flag that all these tests use.
template <class Field>
Field New() {
  return Field(L"name", L"title", false);
}

// Returns the text of a new field after setting it to `text`, or a word if it refuses the text.
template <class Field>
std::wstring ValueAfter(const std::wstring& text) {
  Field field = New<Field>();
  return field.SetValue(text) ? field.GetValue() : L"refused";
}

template <class Field>
void ExpectMembersAsGiven(int valueType) {
  SCOPED_TRACE(valueType);
  Field flagged(L"Class", L"Rating class", true);
  EXPECT_EQ(flagged.name, L"Class");
  EXPECT_EQ(flagged.title, L"Rating class");
  EXPECT_EQ(flagged.valueType, valueType);
  EXPECT_TRUE(flagged.fieldFlag);
  EXPECT_FALSE(Field(L"Class", L"", false).fieldFlag);
}

TEST(PropertyParameter, IsBuiltWithNameTitleAndFlagAndTheNumberOfItsType) {
  ExpectMembersAsGiven<PropertyIntParameter>(0);
  ExpectMembersAsGiven<PropertyRealParameter>(1);
  ExpectMembersAsGiven<PropertyStrParameter>(2);
  ExpectMembersAsGiven<PropertyIListParameter>(3);
  ExpectMembersAsGiven<PropertyRListParameter>(4);
  ExpectMembersAsGiven<PropertySListParameter>(5);
}

TEST(PropertyParameter, StartsAt1OrAtOneEmptyText) {
  EXPECT_EQ(New<PropertyIntParameter>().value, 1);
  EXPECT_EQ(New<PropertyRealParameter>().value, 1.0);
  EXPECT_EQ(New<PropertyStrParameter>().value, L"");
  EXPECT_EQ(New<PropertyIListParameter>().value, Ints{1});
  EXPECT_EQ(New<PropertyRListParameter>().value, Reals{1.0});
  EXPECT_EQ(New<PropertySListParameter>().value, Strings{L""});
}

TEST(PropertyParameter, PrintsItsStartingValue) {
  EXPECT_EQ(New<PropertyIntParameter>().GetValue(), L"1");
  EXPECT_EQ(New<PropertyRealParameter>().GetValue(), L"1");
  EXPECT_EQ(New<PropertyStrParameter>().GetValue(), L"");
  EXPECT_EQ(New<PropertyIListParameter>().GetValue(), L"1");
  EXPECT_EQ(New<PropertyRListParameter>().GetValue(), L"1");
  EXPECT_EQ(New<PropertySListParameter>().GetValue(), L"");
}

// Returns one field of each type.
std::vector<std::unique_ptr<PropertyParameter>> OneOfEachType() {
  std::vector<std::unique_ptr<PropertyParameter>> fields;
  fields.push_back(std::make_unique<PropertyIntParameter>(L"name", L"title", true));
  fields.push_back(std::make_unique<PropertyRealParameter>(L"name", L"title", true));
  fields.push_back(std::make_unique<PropertyStrParameter>(L"name", L"title", true));
  fields.push_back(std::make_unique<PropertyIListParameter>(L"name", L"title", true));
  fields.push_back(std::make_unique<PropertyRListParameter>(L"name", L"title", true));
  fields.push_back(std::make_unique<PropertySListParameter>(L"name", L"title", true));
  return fields;
}

TEST(PropertyParameter, WorksAlikeThroughTheBase) {
  for (const auto& field : OneOfEachType()) {
    SCOPED_TRACE(field->valueType);
    EXPECT_TRUE(field->CheckValue(L"42"));
    EXPECT_TRUE(field->SetValue(L" 42 "));
    EXPECT_EQ(field->GetValue(), L"42");
  }
}

TEST(PropertyParameter, RefusesATextOfWhiteSpaceAloneAndKeepsItsValue) {
  for (const wchar_t* blank :
       {L"", L" ", L"   ", L"\t", L"\r\n", L" \t\v\f ", L"\xA0", L"\x2003", L"\x3000 \x2028"}) {
    for (const auto& field : OneOfEachType()) {
      SCOPED_TRACE(field->valueType);
      ASSERT_TRUE(field->SetValue(L"42"));
      EXPECT_FALSE(field->SetValue(blank));
      EXPECT_EQ(field->GetValue(), L"42");
    }
  }
}

TEST(PropertyParameter, ChecksATextWithoutTakingIt) {
  for (const auto& field : OneOfEachType()) {
    SCOPED_TRACE(field->valueType);
    const std::wstring before = field->GetValue();
    EXPECT_TRUE(field->CheckValue(L"42"));
    EXPECT_EQ(field->GetValue(), before);
  }
}

TEST(PropertyParameter, KeepsNameTitleTypeAndFlagWhateverIsSet) {
  int valueType = 0;
  for (const auto& field : OneOfEachType()) {
    field->SetValue(L"42");
    field->SetValue(L"x");
    EXPECT_EQ(field->name, L"name");
    EXPECT_EQ(field->title, L"title");
    EXPECT_EQ(field->valueType, valueType++);
    EXPECT_TRUE(field->fieldFlag);
  }
}

TEST(PropertyParameter, TakesTheLastOfSeveralValues) {
  for (const auto& field : OneOfEachType()) {
    SCOPED_TRACE(field->valueType);
    EXPECT_TRUE(field->SetValue(L"1 2 3") || field->SetValue(L"5"));
    EXPECT_TRUE(field->SetValue(L"42"));
    EXPECT_EQ(field->GetValue(), L"42");
  }
}

// Integers

TEST(PropertyIntParameter, RefusesAWordAndThenReads1) {
  auto field = New<PropertyIntParameter>();
  EXPECT_FALSE(field.SetValue(L"word"));
  EXPECT_EQ(field.GetValue(), L"1");
}

TEST(PropertyIntParameter, TrimsWhatItTakesAndNotWhatItChecks) {
  struct Case {
    const wchar_t* text;
    bool passesCheck;
  };
  for (const Case& one : {Case{L"42", true}, Case{L"  42", true}, Case{L"\t42", true},
                          Case{L"42 ", false}, Case{L"  42  ", false}, Case{L"42\r", false}}) {
    auto field = New<PropertyIntParameter>();
    EXPECT_EQ(field.CheckValue(one.text), one.passesCheck) << one.text;
    EXPECT_TRUE(field.SetValue(one.text)) << one.text;
    EXPECT_EQ(field.GetValue(), L"42") << one.text;
  }
}

TEST(PropertyIntParameter, ChecksAndTakesIntegersOf32BitsOnly) {
  for (const wchar_t* text : {L"", L"x", L"2.5", L"1,5", L"0x10", L"1e3", L"12abc", L"1 2",
                              L"\"5\"", L"5;", L"+", L"2147483648", L"-2147483649"}) {
    auto field = New<PropertyIntParameter>();
    EXPECT_TRUE(field.SetValue(L"7"));
    EXPECT_FALSE(field.CheckValue(text)) << text;
    EXPECT_FALSE(field.SetValue(text)) << text;
    EXPECT_EQ(field.value, 7) << text;
  }
}

TEST(PropertyIntParameter, PrintsPlainDecimals) {
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(L"+5"), L"5");
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(L"-5"), L"-5");
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(L"007"), L"7");
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(L"-0"), L"0");
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(L"2147483647"), L"2147483647");
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(L"-2147483648"), L"-2147483648");
}

// Reals

TEST(PropertyRealParameter, RefusesAWordAndThenReads1) {
  auto field = New<PropertyRealParameter>();
  EXPECT_FALSE(field.SetValue(L"word"));
  EXPECT_EQ(field.GetValue(), L"1");
}

TEST(PropertyRealParameter, TrimsWhatItTakesAndNotWhatItChecks) {
  auto field = New<PropertyRealParameter>();
  EXPECT_TRUE(field.CheckValue(L"  2.5"));
  EXPECT_FALSE(field.CheckValue(L"2.5 "));
  EXPECT_TRUE(field.SetValue(L"  2.5 \t"));
  EXPECT_EQ(field.value, 2.5);
}

TEST(PropertyRealParameter, ChecksAndTakesRealsOnly) {
  for (const wchar_t* text :
       {L"", L"x", L"1,5", L"1e", L"1e999", L"1e-999", L"inf", L"nan", L"0x10", L"1 2", L"2.5;"}) {
    auto field = New<PropertyRealParameter>();
    EXPECT_TRUE(field.SetValue(L"7.5"));
    EXPECT_FALSE(field.CheckValue(text)) << text;
    EXPECT_FALSE(field.SetValue(text)) << text;
    EXPECT_EQ(field.value, 7.5) << text;
  }
}

TEST(PropertyRealParameter, PrintsTheShortestTextThatReadsBack) {
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L"0.1"), L"0.1");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L"1.0"), L"1");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L"2.50"), L"2.5");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L".5"), L"0.5");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L"12"), L"12");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L"1e3"), L"1000");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(L"100000"), L"1e+05");
}

// Strings

TEST(PropertyStrParameter, PassesEveryTextOfACheck) {
  auto field = New<PropertyStrParameter>();
  for (const wchar_t* text : {L"", L"  ", L"\"", L"word", L"two words", L"42"}) {
    EXPECT_TRUE(field.CheckValue(text)) << text;
  }
}

TEST(PropertyStrParameter, LosesWhiteSpaceAtItsEndsAndThenQuotationMarks) {
  struct Case {
    const wchar_t* text;
    const wchar_t* stored;
  };
  const Case cases[] = {
      {L"word", L"word"},           {L"  word\t\r\n", L"word"},
      {L"\"word\"", L"word"},       {L" \"word\" ", L"word"},
      {L"\"word", L"word"},         {L"word\"", L"word"},
      {L"\"\"\"word\"\"", L"word"}, {L"\"two words\"", L"two words"},
      {L"wo\"rd", L"wo\"rd"},       {L"\"a\" \"b\"", L"a\" \"b"},
      {L"\"a\"\"b\"", L"a\"\"b"},   {L"'word'", L"'word'"},
      {L"«слово»", L"«слово»"},     {L"a  b", L"a  b"},
      {L"\xA0word\x3000", L"word"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ValueAfter<PropertyStrParameter>(one.text), one.stored) << one.text;
  }
}

TEST(PropertyStrParameter, KeepsWhiteSpaceJustInsideTheQuotationMarks) {
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"\"word \""), L"word ");
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"\" word\""), L" word");
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"\"  \""), L"  ");
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"\"word\" \""), L"word\" ");
}

TEST(PropertyStrParameter, TakesQuotationMarksAloneAsTheEmptyText) {
  for (const wchar_t* text : {L"\"", L"\"\"", L" \"\"\" "}) {
    auto field = New<PropertyStrParameter>();
    EXPECT_TRUE(field.SetValue(L"old"));
    EXPECT_TRUE(field.SetValue(text)) << text;
    EXPECT_EQ(field.value, L"") << text;
  }
}

TEST(PropertyStrParameter, TakesUnitsOfAnyKind) {
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"a\0b"s), L"a\0b"s);
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"\0"s), L"\0"s);
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(L"\"\U0001F6AA\""), L"\U0001F6AA");
  const std::wstring loneSurrogate(1, static_cast<wchar_t>(0xD800));
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(loneSurrogate), loneSurrogate);
}

TEST(PropertyStrParameter, PrintsTheStoredTextUnchanged) {
  auto field = New<PropertyStrParameter>();
  field.value = L" \"x\" ";
  EXPECT_EQ(field.GetValue(), L" \"x\" ");
  EXPECT_EQ(field.value, L" \"x\" ");
}

// Lists of numbers

TEST(PropertyIListParameter, ChecksEachPieceAtBlanks) {
  struct Case {
    const wchar_t* text;
    bool passes;
  };
  const Case cases[] = {
      {L"1", true},
      {L"1 2 3", true},
      {L" 1  2 ", true},
      {L"-1 +2 003", true},
      {L"1 2 x", false},
      {L"x 1", false},
      {L"1 2.5", false},
      {L"1,2", false},
      {L"1, 2", false},
      {L"1;2", false},
      {L"1\t2", false},
      {L"1\n2", false},
      {L"\"1", false},
      {L"1 2;", false},
      {L"2147483648", false},
      {L"1 \"2\"", false},
      {L"1\xA0"
       L"2",
       false},
  };
  for (const Case& one : cases) {
    auto field = New<PropertyIListParameter>();
    EXPECT_EQ(field.CheckValue(one.text), one.passes) << one.text;
    EXPECT_EQ(field.SetValue(one.text), one.passes) << one.text;
  }
}

TEST(PropertyIListParameter, TakesOneEntryPerPiece) {
  auto field = New<PropertyIListParameter>();
  EXPECT_TRUE(field.SetValue(L"1  2"));
  EXPECT_EQ(field.value, (Ints{1, 2}));
  EXPECT_EQ(field.GetValue(), L"1 2");
  EXPECT_TRUE(field.SetValue(L"  -7 +8   009 "));
  EXPECT_EQ(field.value, (Ints{-7, 8, 9}));
  EXPECT_EQ(field.GetValue(), L"-7 8 9");
}

TEST(PropertyIListParameter, KeepsAllItsEntriesWhenOnePieceIsNoNumber) {
  auto field = New<PropertyIListParameter>();
  EXPECT_TRUE(field.SetValue(L"7 8"));
  EXPECT_FALSE(field.SetValue(L"1 2 x"));
  EXPECT_FALSE(field.SetValue(L"x 1 2"));
  EXPECT_EQ(field.value, (Ints{7, 8}));
}

TEST(PropertyIListParameter, PassesATextWithoutPiecesOnlyInACheck) {
  for (const wchar_t* text : {L"", L" ", L"    ", L"\t", L" \t "}) {
    auto field = New<PropertyIListParameter>();
    EXPECT_TRUE(field.CheckValue(text));
    EXPECT_FALSE(field.SetValue(text));
    EXPECT_EQ(field.value, Ints{1});
  }
}

TEST(PropertyIListParameter, TrimsOtherWhiteSpaceNextToABlank) {
  auto field = New<PropertyIListParameter>();
  EXPECT_TRUE(field.SetValue(L"1 \t2\t 3\r\n"));
  EXPECT_EQ(field.value, (Ints{1, 2, 3}));
}

TEST(PropertyRListParameter, ChecksEachPieceAtBlanks) {
  struct Case {
    const wchar_t* text;
    bool passes;
  };
  const Case cases[] = {
      {L"1", true},         {L"0.9 .5 1e3", true}, {L" 1  2.5 ", true}, {L"1 2 x", false},
      {L"0.9,5", false},    {L"1;2", false},       {L"1\t2", false},    {L"1e999 1", false},
      {L"1 1e-999", false}, {L"inf", false},
  };
  for (const Case& one : cases) {
    auto field = New<PropertyRListParameter>();
    EXPECT_EQ(field.CheckValue(one.text), one.passes) << one.text;
    EXPECT_EQ(field.SetValue(one.text), one.passes) << one.text;
  }
}

TEST(PropertyRListParameter, TakesOneEntryPerPiece) {
  auto field = New<PropertyRListParameter>();
  EXPECT_TRUE(field.SetValue(L" 0.10  2.0 100000 "));
  EXPECT_EQ(field.value, (Reals{0.1, 2, 100000}));
  EXPECT_EQ(field.GetValue(), L"0.1 2 1e+05");
}

TEST(PropertyRListParameter, KeepsAllItsEntriesWhenOnePieceIsNoNumber) {
  auto field = New<PropertyRListParameter>();
  EXPECT_TRUE(field.SetValue(L"7.5 8"));
  EXPECT_FALSE(field.SetValue(L"1 2.5 1,5"));
  EXPECT_EQ(field.value, (Reals{7.5, 8}));
}

TEST(PropertyRListParameter, PassesATextWithoutPiecesOnlyInACheck) {
  for (const wchar_t* text : {L"", L"   "}) {
    auto field = New<PropertyRListParameter>();
    EXPECT_TRUE(field.CheckValue(text));
    EXPECT_FALSE(field.SetValue(text));
    EXPECT_EQ(field.value, Reals{1.0});
  }
}

// Lists of strings

TEST(PropertySListParameter, PassesEveryTextOfACheck) {
  auto field = New<PropertySListParameter>();
  for (const wchar_t* text : {L"", L"  ", L"\"", L"word", L"two words", L"42"}) {
    EXPECT_TRUE(field.CheckValue(text)) << text;
  }
}

TEST(PropertySListParameter, TakesOneEntryPerPieceAndKeepsTheirQuotationMarks) {
  struct Case {
    const wchar_t* text;
    Strings entries;
  };
  const Case cases[] = {
      {L"one", {L"one"}},
      {L" one   two ", {L"one", L"two"}},
      {L"\"one\" two", {L"\"one\"", L"two"}},
      {L"\"one two\"", {L"\"one", L"two\""}},
      {L"\"\"", {L"\"\""}},
      {L"one,two;three", {L"one,two;three"}},
      {L"one\ttwo", {L"one\ttwo"}},
      {L"one \t two", {L"one", L"two"}},
  };
  for (const Case& one : cases) {
    auto field = New<PropertySListParameter>();
    EXPECT_TRUE(field.SetValue(one.text)) << one.text;
    EXPECT_EQ(field.value, one.entries) << one.text;
  }
}

TEST(PropertySListParameter, RemovesTheQuotationMarksOfItsEntriesWhenItPrintsThem) {
  auto field = New<PropertySListParameter>();
  EXPECT_TRUE(field.SetValue(L"\"one two\" \"\"three\" fo\"ur"));
  EXPECT_EQ(field.GetValue(), L"one two three fo\"ur");
  EXPECT_EQ(field.value, (Strings{L"one", L"two", L"three", L"fo\"ur"}));
  EXPECT_EQ(field.GetValue(), L"one two three fo\"ur");
}

TEST(PropertySListParameter, PutsABlankBeforeAnEntryIfThereIsTextAlready) {
  struct Case {
    const wchar_t* text;
    const wchar_t* printed;
  };
  const Case cases[] = {
      {L"\"\"", L""},     {L"\"\" \"\"", L""},    {L"\"\" a", L"a"},
      {L"a \"\"", L"a "}, {L"a \"\" b", L"a  b"}, {L"\"\" a \"\" \"\" b", L"a   b"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ValueAfter<PropertySListParameter>(one.text), one.printed) << one.text;
  }
}

TEST(PropertySListParameter, KeepsItsOneEmptyEntryWhenTheEmptyTextIsRefused) {
  auto field = New<PropertySListParameter>();
  EXPECT_FALSE(field.SetValue(L""));
  EXPECT_EQ(field.value, Strings{L""});
}

// Long texts

TEST(PropertyParameter, TakesATextOfMegabytes) {
  const std::wstring word(5'000'000, L'x');
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(word), word);
  EXPECT_EQ(ValueAfter<PropertySListParameter>(word), word);
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(word), L"refused");
  EXPECT_EQ(ValueAfter<PropertyRealParameter>(word), L"refused");
  EXPECT_EQ(ValueAfter<PropertyIListParameter>(word), L"refused");
  EXPECT_EQ(ValueAfter<PropertyStrParameter>(std::wstring(5'000'000, L'"')), L"");
  EXPECT_EQ(ValueAfter<PropertySListParameter>(std::wstring(5'000'000, L' ')), L"refused");
  EXPECT_EQ(ValueAfter<PropertyIntParameter>(std::wstring(5'000'000, L' ') + L"5"), L"5");
}

TEST(PropertyParameter, TakesAListOfAMillionEntries) {
  std::wstring text = L"7";
  for (int i = 1; i < 1'000'000; ++i) text += L" 7";
  auto numbers = New<PropertyIListParameter>();
  EXPECT_TRUE(numbers.SetValue(text));
  EXPECT_EQ(numbers.value, Ints(1'000'000, 7));
  EXPECT_TRUE(numbers.GetValue() == text);
  auto strings = New<PropertySListParameter>();
  EXPECT_TRUE(strings.SetValue(text));
  EXPECT_EQ(strings.value.size(), 1'000'000u);
  EXPECT_TRUE(strings.GetValue() == text);
}

// The class hierarchy

template <class Field>
constexpr bool derivesFromTheBase =
    std::is_base_of_v<PropertyParameter, Field> && !std::is_abstract_v<Field>;

static_assert(std::is_abstract_v<PropertyParameter>);
static_assert(derivesFromTheBase<PropertyIntParameter>);
static_assert(derivesFromTheBase<PropertyRealParameter>);
static_assert(derivesFromTheBase<PropertyStrParameter>);
static_assert(derivesFromTheBase<PropertyIListParameter>);
static_assert(derivesFromTheBase<PropertyRListParameter>);
static_assert(derivesFromTheBase<PropertySListParameter>);

// Texts are passed by value.
static_assert(std::is_same_v<decltype(&PropertyParameter::CheckValue),
                             bool (PropertyParameter::*)(std::wstring)>);
static_assert(std::is_same_v<decltype(&PropertyParameter::SetValue),
                             bool (PropertyParameter::*)(std::wstring)>);
static_assert(
    std::is_same_v<decltype(&PropertyParameter::GetValue), std::wstring (PropertyParameter::*)()>);

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll::Properties
