// The list of checks: numbers, names, and sentences in both languages.

#include "authoring/Checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// The places of arguments, each once. Braces that are no such place come as they are.
std::set<std::string> ArgumentsIn(std::string_view sentence) {
  static const std::regex braces("[{][0-9][}]|[{]|[}]");
  const std::string text(sentence);
  std::set<std::string> arguments;
  for (std::sregex_iterator found(text.begin(), text.end(), braces), end; found != end; ++found) {
    arguments.insert(found->str());
  }
  return arguments;
}

bool HasCyrillic(std::string_view sentence) {
  const std::wstring text = DecodeUtf8(sentence);
  return std::any_of(text.begin(), text.end(),
                     [](wchar_t unit) { return unit >= 0x400 && unit < 0x500; });
}

// A sentence and its translation.
void ExpectBothLanguages(const Sentence& sentence) {
  EXPECT_NE(sentence.english, "");
  EXPECT_FALSE(HasCyrillic(sentence.english)) << sentence.english;
  EXPECT_TRUE(HasCyrillic(sentence.russian)) << sentence.russian;
}

TEST(Checks, HaveNumbersInAscendingOrder) {
  std::vector<int> numbers;
  for (const Check& check : AllChecks()) numbers.push_back(check.number);
  EXPECT_EQ(std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()),
            numbers.end());
  EXPECT_GE(numbers.front(), 101);
  EXPECT_LE(numbers.back(), 999);
}

TEST(Checks, HaveNamesOfTheirOwnInSmallLettersAndHyphens) {
  static const std::regex name("[a-z0-9]+(-[a-z0-9]+)*");
  std::set<std::string> names;
  for (const Check& check : AllChecks()) {
    const std::string text(check.name);
    EXPECT_TRUE(std::regex_match(text, name)) << text;
    EXPECT_TRUE(names.insert(text).second) << text;
  }
}

TEST(Checks, AreFoundByTheirNumbers) {
  for (const Check& check : AllChecks()) EXPECT_EQ(&CheckOf(check.number), &check);
}

TEST(Checks, SpeakBothLanguages) {
  for (const Check& check : AllChecks()) {
    SCOPED_TRACE(check.number);
    ExpectBothLanguages(check.sentence);
  }
  for (const RelatedKind kind : {RelatedKind::winner, RelatedKind::earlier, RelatedKind::later,
                                 RelatedKind::alike, RelatedKind::listed}) {
    ExpectBothLanguages(SentenceOf(kind));
  }
}

TEST(Checks, EndTheirSentencesWithAPoint) {
  for (const Check& check : AllChecks()) {
    EXPECT_TRUE(check.sentence.english.ends_with('.')) << check.number;
    EXPECT_TRUE(check.sentence.russian.ends_with('.')) << check.number;
  }
}

TEST(Checks, NameTheSameArgumentsInBothLanguages) {
  EXPECT_EQ(ArgumentsIn("a {1}, {0} and {1}"), (std::set<std::string>{"{0}", "{1}"}));
  EXPECT_EQ(ArgumentsIn("a {x}"), (std::set<std::string>{"{", "}"}));
  for (const Check& check : AllChecks()) {
    const std::set<std::string> arguments = ArgumentsIn(check.sentence.english);
    EXPECT_EQ(arguments, ArgumentsIn(check.sentence.russian)) << check.number;
    EXPECT_FALSE(arguments.contains("{") || arguments.contains("}")) << check.number;
  }
}

TEST(Checks, PutArgumentsIntoTheirPlaces) {
  const Sentence sentence = {"{1} is \"{0}\", {1}.", "{0} это {1}."};
  EXPECT_EQ(Fill(sentence, Language::english, {"ж", "{0}"}), "{0} is \"ж\", {0}.");
  EXPECT_EQ(Fill(sentence, Language::russian, {"ж", "{0}"}), "ж это {0}.");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
