// Tests that codes and mapping strings of the exports equal those of the naive forms, while all
// that they depend on changes at random: caches must never show.

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "base/Files.h"
#include "domen/DomenStore.h"
#include "naive/ClassificatorFile.h"
#include "naive/CodeLookup.h"
#include "naive/MappingString.h"
#include "naive/Records.h"
#include "support/GlobalLocale.h"
#include "support/OutOfRange.h"
#include "support/Random.h"
#include "support/Results.h"
#include "support/TempFolder.h"
#include "support/UpperFails.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Lines = std::vector<std::string>;

// An editor and the records that it must have. Both are copied together; there are no moves,
// because an editor has none.
struct Twins {
  Twins() : editor(L"", L"") {}
  Twins(const Twins& other) = default;
  Twins& operator=(const Twins& other) = default;

  void CreateClassificator(const std::wstring& id, const std::wstring& file) {
    const std::optional<std::string> bytes = ReadFile(file);
    ASSERT_TRUE(bytes);
    const Naive::ClassificatorFile read = Naive::ReadClassificator(*bytes);
    const std::wstring paramName = L"Param" + std::to_wstring(classificators.size());
    classificators.push_back({paramName, read.mapTextSection, read.paramSection});
    ids.push_back(id);
    ASSERT_EQ(editor.CreateClassificator(id.c_str(), L"", paramName.c_str(), file.c_str()),
              store.LoadDomen(file, L""));
  }

  void CreateDomen(const std::wstring& file) {
    ASSERT_EQ(editor.CreateDomen(file.c_str()), store.LoadDomen(file, L""));
  }

  // Of equal ids the first one is selected.
  void SetActiveClassificator(const std::wstring& id) {
    const int status = editor.SetActiveClassificator(id.c_str());
    for (std::size_t i = 0; i < ids.size(); ++i) {
      if (ids[i] != id) continue;
      ASSERT_EQ(status, 0);
      active = i;
      return;
    }
    ASSERT_NE(status, 0);
  }

  void SetMarks(const std::wstring& start, const std::wstring& end) {
    startMark = start;
    endMark = end;
    editor.SetStartMark(start.c_str());
    editor.SetEndMark(end.c_str());
  }

  const Naive::Classificator& Active() const { return classificators[active]; }

  RevitMappingEditorDll editor;
  std::vector<std::wstring> ids;  // of the classificators
  std::vector<Naive::Classificator> classificators;
  std::size_t active = 0;
  DomenStore store;
  std::wstring startMark;
  std::wstring endMark;
};

const Lines domenIds = {"D", "E", "J", "K"};
const Lines propertyIds = {"P", "P", "P", "Q"};
const Lines fieldNames = {"a", "ab", "b", "c"};
const Lines textTypes = {"int", "real", "str", "str", "ilist", "rlist", "slist", "slist"};
const Lines jsonTypes = {"i", "r", "s", "s", "ai", "ar", "as", "as"};

// Words without a blank. The white space in some of them doesn't separate words.
const Lines words = {"1",
                     "12",
                     "30",
                     "0.25",
                     "2.5",
                     "-7",
                     "x",
                     "y",
                     "\"x\"",
                     "\"",
                     "\"\"x\"",
                     "\"\xC2\xA0x\xC2\xA0\"",
                     "x;",
                     ";5;",
                     "1e400",
                     "\"\t\"",
                     "\xC2\xA0\"\xC2\xA0",
                     "Я"};

// Values of a configuration file, with layers of blanks and quotation marks, of which each copy of
// a property removes one.
const Lines jsonTexts = {"x",
                         "1 2",
                         "",
                         R"(" ")",
                         R"("" "x")",
                         R"("a" "b c")",
                         R"( " x " )",
                         R"(" " " x " " ")",
                         R"(" " " " " x " " " " ")",
                         R"(" " " " " " " x " " " " " " ")"};

const Lines patterns = {"wall", "basic wall", "basic", "door", "wall  x", "сте"};

const std::vector<std::wstring> texts = {L"wall",  L"Basic Wall 5", L"WALL x x", L"door",
                                         L"стена", L"Стена",        L"roof",     L""};

const std::vector<std::wstring> suffixes = {L"", L"=", L" as "};

constexpr UpperFunction uppers[] = {UpperOfNothing, UpperOfLatin, UpperOfLatinAndCyrillic};

class Round {
 public:
  explicit Round(unsigned seed) : random(seed), editors(3) {
    for (int i = 0; i < 5; ++i) WriteFiles(std::to_string(i));
    for (const char* name : {"J.json", "K.json", "D.json"}) {
      domenFiles.push_back(folder.Write(name, JsonDomen()));
    }
    for (Twins& twins : editors) {
      twins.CreateClassificator(L"S0", random.OneOf(classificatorFiles));
      twins.SetActiveClassificator(L"S0");
      twins.CreateDomen(random.OneOf(domenFiles));
    }
  }

  void Run() {
    for (int step = 0; step < 30 && !testing::Test::HasFailure(); ++step) {
      Change(random.OneOf(editors));
      for (Twins& twins : editors) Compare(twins);
    }
  }

 private:
  void WriteFiles(const std::string& name) {
    const std::string domen = random.OneIn(2) ? "" : "==DOMEN\n" + TextDomen();
    const std::string text = "==MAPTEXT\n" + MapText() + "==PARAM\n" + Param() + domen;
    classificatorFiles.push_back(folder.Write("scheme" + name + ".txt", text));
    domenFiles.push_back(folder.Write("domen" + name + ".txt", "==DOMEN\n" + TextDomen()));
  }

  std::string Value() {
    std::string value = random.OneOf(words);
    if (random.OneIn(6)) value += "=" + random.OneOf(words);
    return value;
  }

  // Returns "name=value", and sometimes only a part of it.
  std::string Named() {
    std::string name = random.OneOf(fieldNames);
    if (random.OneIn(3)) name += random.OneOf(fieldNames);
    if (random.OneIn(8)) return name;
    name += "=";
    return name + random.OneOf(words);
  }

  std::string Item() {
    std::string item = random.OneOf(propertyIds);
    const bool isNamed = random.OneIn(2);
    const bool isOneToken = random.OneIn(2);
    if (isOneToken) item += isNamed ? ":" : "=";
    for (std::size_t count = random.Below(5); count > 0; --count) {
      if (!isOneToken) item += " ";
      item += isNamed ? Named() : Value();
      if (isOneToken && count > 1) item += ",";
    }
    return item + (random.OneIn(3) ? "; " : " ");
  }

  std::string Header() {
    std::string header = "@C" + std::to_string(random.Below(4));
    for (std::size_t count = random.OneIn(5) ? 0 : 1 + random.Below(2); count > 0; --count) {
      header += " {" + Item();
      if (random.OneIn(2)) header += Item();
      header += "}";
    }
    return header + "\n";
  }

  std::string MapText() {
    std::string text = "@@ (";
    for (std::size_t count = random.OneIn(8) ? 0 : 1 + random.Below(4); count > 0; --count) {
      text += random.OneOf(domenIds);
      text += " ";
    }
    text += ")\n";
    if (random.OneIn(2)) text += "$ C0\n";
    for (std::size_t count = 1 + random.Below(4); count > 0; --count) {
      text += Header();
      text += random.OneOf(patterns) + "\n";
    }
    // Comments, so that most sections have more line ends than semicolons.
    for (int i = 0; i < 20; ++i) text += "!\n";
    return text;
  }

  std::string Param() {
    std::string text;
    for (std::size_t count = random.Below(3); count > 0; --count) {
      text += "C" + std::to_string(random.Below(4)) + " ";
      text += Item() + "\n";
    }
    return text;
  }

  std::string TextDomen() {
    std::string text;
    for (std::size_t domens = 1 + random.Below(2); domens > 0; --domens) {
      text += "@@@ " + random.OneOf(domenIds) + "\n";
      for (std::size_t properties = 1 + random.Below(3); properties > 0; --properties) {
        text += "@ " + random.OneOf(propertyIds) + " 0 1\n";
        for (std::size_t fields = random.Below(5); fields > 0; --fields) text += TextField();
      }
    }
    for (int i = 0; i < 20; ++i) text += "!\n";
    return text;
  }

  std::string TextField() {
    std::string field = random.OneOf(fieldNames);
    field += " " + random.OneOf(textTypes);
    return field + " 0 " + random.OneOf(words) + "\n";
  }

  std::string JsonNames(const Lines& names) {
    std::string list;
    for (std::size_t count = 1 + random.Below(4); count > 0; --count) {
      list += "'" + random.OneOf(names) + "',";
    }
    return "asFuncsNames: [" + list + "]";
  }

  std::string JsonDomen() {
    std::string text = "{Domen: {" + JsonNames(propertyIds) + "},\nProperties: {\n";
    for (const char* id : {"P", "Q"}) {
      text += id;
      text += ": {" + JsonNames(fieldNames) + "},\n";
    }
    text += "},\nArrayValueFields: {\n";
    for (const std::string& name : fieldNames) {
      text += name + ": {sType: '" + random.OneOf(jsonTypes) + "', iDefault: 5, rDefault: 0.5, ";
      text += "sDefault: '" + random.OneOf(jsonTexts) + "'},\n";
    }
    return text + "}}\n";
  }

  void Change(Twins& twins) {
    switch (random.Below(8)) {
      case 0:
      case 1:
        return twins.CreateDomen(random.OneOf(domenFiles));
      case 2:
        return twins.CreateClassificator(SomeId(), random.OneOf(classificatorFiles));
      case 3:
        return twins.SetActiveClassificator(SomeId());
      case 4: {
        const Twins& other = random.OneOf(editors);
        twins = other;
        return;
      }
      case 5: {
        const Twins copy(twins);
        random.OneOf(editors) = copy;
        return;
      }
      case 6:
        // A library with its own runtime doesn't see the locale.
        if (oneRuntime) locale.emplace(random.OneOf(uppers));
        return;
      default:
        twins.SetMarks(random.OneOf(suffixes), random.OneOf(suffixes));
    }
  }

  std::wstring SomeId() { return L"S" + std::to_wstring(random.Below(4)); }

  void Compare(Twins& twins) {
    for (const std::wstring& text : texts) CompareText(twins, text);
    const int count = static_cast<int>(twins.Active().mapTextSection.records.size());
    for (int codeId = -2; codeId <= count; ++codeId) {
      CompareCode(twins, codeId, 1);
      CompareCode(twins, codeId, random.Between(0, 3));
    }
    for (const int codeId : {INT_MIN, INT_MAX}) CompareCode(twins, codeId, random.Between(0, 3));
  }

  void CompareText(Twins& twins, const std::wstring& text) {
    const int sourceKind = random.OneIn(4) ? random.Between(-1, 3) : 1;
    const std::wstring& suffix = random.OneOf(suffixes);
    EXPECT_EQ(Take(twins.editor.GetMappingStr(text.c_str(), sourceKind, suffix.c_str())),
              Naive::GetMappingStr(twins.Active(), twins.store, twins.startMark, twins.endMark,
                                   text, sourceKind, suffix))
        << testing::PrintToString(text) << ", " << sourceKind;
    EXPECT_EQ(twins.editor.GetClaccificatorCodeId(text.c_str()),
              Naive::FindCodeId(twins.Active().mapTextSection, text));
  }

  void CompareCode(Twins& twins, int codeId, int sourceKind) {
    const std::wstring& suffix = random.OneOf(suffixes);
    std::wstring params;
    std::wstring naive;
    EXPECT_EQ(OutOfRangeOf([&] {
                params = Take(
                    twins.editor.GetClaccificatorCodeParams(codeId, sourceKind, suffix.c_str()));
              }),
              OutOfRangeOf([&] {
                naive = Naive::GetClaccificatorCodeParams(twins.Active(), twins.store, codeId,
                                                          sourceKind, suffix);
              }))
        << codeId << ", " << sourceKind;
    EXPECT_EQ(params, naive) << codeId << ", " << sourceKind;
  }

  Random random;
  TempFolder folder;
  std::vector<std::wstring> classificatorFiles;
  std::vector<std::wstring> domenFiles;
  std::vector<Twins> editors;
  std::optional<GlobalLocale> locale;
};

TEST(Editor, AnswersAsTheNaiveFormsDoWhileAllThatItHoldsChanges) {
  const unsigned rounds = SLOW_BUILD ? 40 : 150;
  for (unsigned seed = 0; seed < rounds && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Round(seed).Run();
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
