// The checks of `.json` domain files: what each finding says, and that the fates of members are
// true.

#include "authoring/JsonFileCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Checks.h"
#include "support/CheckedFiles.h"
#include "support/DescribeDomens.h"
#include "support/Program.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::string>;

// Each finding of the `.json` checks as `number place fate arguments`.
Texts Findings(const Report& report) {
  Texts shown;
  for (const Finding& finding : report.findings) {
    if (finding.number / 100 != 5) continue;
    std::string line = std::to_string(finding.number) + " " + TextOf(finding.place) + " " +
                       std::string(NameOf(finding.fate));
    for (const std::string& argument : finding.arguments) line += " " + argument;
    shown.push_back(line);
  }
  return shown;
}

std::set<int> Numbers(const Report& report) {
  std::set<int> numbers;
  for (const Finding& finding : report.findings) {
    if (finding.number / 100 == 5) numbers.insert(finding.number);
  }
  return numbers;
}

Report ReportOfJson(const std::string& bytes) {
  return ReportOf({File("domen zones.json", bytes)});
}

// A file with a property P of one field F, and what is in the four objects besides.
struct Zones {
  std::string top, domen, property, field = "sType: 'i', iDefault: 5";

  std::string Text() const {
    return "{Domen: {asFuncsNames: ['P'], " + domen + "},\n" +
           " Properties: {P: {asFuncsNames: ['F'], " + property + "}},\n" +
           " ArrayValueFields: {F: {" + field + "}},\n" + top + "}\n";
  }
};

std::string TopText(const std::string& top) {
  return Zones{top, "", ""}.Text();
}
std::string DomenText(const std::string& domen) {
  return Zones{"", domen, ""}.Text();
}
std::string PropertyText(const std::string& property) {
  return Zones{"", "", property}.Text();
}
std::string FieldText(const std::string& field) {
  return Zones{"", "", "", field}.Text();
}

// The whole of a file, with other lists.
std::string Lists(const std::string& properties, const std::string& fields,
                  const std::string& propertyMembers = "P: {asFuncsNames: ['F']}",
                  const std::string& fieldMembers = "F: {rDefault: 5}") {
  return "{Domen: {asFuncsNames: [" + properties + "]},\n Properties: {" +
         (propertyMembers.empty() ? "P: {asFuncsNames: [" + fields + "]}" : propertyMembers) +
         "},\n ArrayValueFields: {" + fieldMembers + "}}\n";
}

// A text that has a finding of the number, and one that is as near as it can be and has not.
struct Example {
  int number;
  std::string provoking;
  std::string nearMiss;
};

const std::vector<Example> examples = {
    {501, TopText("// \xCF\xEB\xE0\xED\n"), TopText("// План\n")},
    {502, "{Domen: {asFuncsNames: ['P']}", "{Domen: {asFuncsNames: ['P']}}"},
    {502, "{}/* open", "{}/* open */"},
    {502, "", "{}"},
    {503, DomenText("sName: 'Zones' sId: 1"), DomenText("sName: 'Zones', sId: 1")},
    {503, DomenText("sName: ['Zones'}"), DomenText("sName: ['Zones']")},
    {504, DomenText("sName 'Zones'"), DomenText("sName : 'Zones'")},
    {505, DomenText("2nd: 5"), DomenText("second: 5")},
    {505, DomenText("F\\x41: 5"), DomenText("F\\u0041: 5")},
    {505, DomenText("F\\u0020: 5"), DomenText("'F\\u0020': 5")},
    {506, DomenText("sName: Zones"), DomenText("sName: 'Zones'")},
    {506, DomenText("sName: ,"), DomenText("sName: null,")},
    {507, DomenText("sName: 'Zones\n'"), DomenText("sName: 'Zones\\\n'")},
    {508, DomenText("sName: '\\xG0'"), DomenText("sName: '\\xA0'")},
    {508, DomenText("sName: '\\u041'"), DomenText("sName: '\\u0410'")},
    {508, DomenText("sName: '\\1'"), DomenText("sName: '\\0'")},
    {509, FieldText("rDefault: 05"), FieldText("rDefault: 0.5")},
    {509, FieldText("rDefault: 0x"), FieldText("rDefault: 0x1")},
    {509, FieldText("rDefault: ."), FieldText("rDefault: .5")},
    {509, FieldText("rDefault: +"), FieldText("rDefault: +5")},
    {509, FieldText("rDefault: 1e"), FieldText("rDefault: 1e1")},
    {510, TopText("/ walls\n"), TopText("// walls\n")},
    {511, "{} {}", "{} // {}"},
    {512, TopText("x: " + std::string(1000, '[') + std::string(1000, ']')),
     TopText("x: " + std::string(999, '[') + std::string(999, ']'))},
    {521, "{}", "{Domen: {asFuncsNames: []}}"},
    {521, "{Domen: {sName: 'Zones'}}", "{Domen: {sName: 'Zones', asFuncsNames: []}}"},
    {522, DomenText("sname: 'Zones'"), DomenText("sName: 'Zones'")},
    {522, PropertyText("iSortID: 1"), PropertyText("iSortId: 1")},
    {522, FieldText("sTitle: 'F', rDefault: 1"), FieldText("sName: 'F', rDefault: 1")},
    {522, TopText("Fields: {}"), TopText("$schema: 'domen.schema.json'")},
    {523, PropertyText("ArrayValueFields: {}"), TopText("")},
    {524, "{Domen: []}", "{Domen: {asFuncsNames: []}}"},
    {524, Lists("'P'", "", "P: 'F'", ""), Lists("'P'", "", "P: {}", "")},
    {524, Lists("'P'", "'F'", "", "F: 5"), Lists("'P'", "'F'", "", "F: {rDefault: 5}")},
    {525, DomenText("sName: 5"), DomenText("sName: '5'")},
    {525, FieldText("sType: 's', sDefault: 5"), FieldText("sType: 's', sDefault: '5'")},
    {526, PropertyText("iUniq: true"), PropertyText("iUniq: 1")},
    {526, PropertyText("iSortId: 1.5"), PropertyText("iSortId: 10.0")},
    {526, FieldText("sType: 'i', iDefault: 3000000000"),
     FieldText("sType: 'i', iDefault: 2000000000")},
    {527, FieldText("rDefault: '0.5'"), FieldText("rDefault: 0.5")},
    {528, PropertyText("asObjectTypes: 'Room'"), PropertyText("asObjectTypes: ['Room']")},
    {529, PropertyText("asObjectTypes: ['Room', 5]"), PropertyText("asObjectTypes: ['Room', '5']")},
    {530, DomenText("sName: 'a', sName: 'b'"), DomenText("sName: 'a'}, D: {sName: 'b'")},
    {531, Lists("'P', 'Q'", "'F'"), Lists("'P', 'Q'", "'F'", "P: {asFuncsNames: ['F']}, Q: {}")},
    {532, Lists("'P'", "'F', 'G'", ""), Lists("'P'", "'F', 'G'", "", "F: {rDefault: 5}, G: {}")},
    {533, Lists("'P'", "'F'", "P: {asFuncsNames: ['F']}, Q: {}"),
     Lists("'P', 'Q'", "'F'", "P: {asFuncsNames: ['F']}, Q: {}")},
    {533, Lists("", "", "P: {}", ""), Lists("'P'", "", "P: {}", "")},
    {534, Lists("'P'", "'F'", "", "F: {rDefault: 5}, G: {}"), Lists("'P'", "'F'", "")},
    {535, FieldText("sType: 'str', sDefault: 'a'"), FieldText("sType: 's', sDefault: 'a'")},
    {535, FieldText("sType: 'R', rDefault: 5"), FieldText("sType: 'r', rDefault: 5")},
    {536, FieldText("iDefault: 5"), FieldText("rDefault: 5")},
    {536, FieldText("sType: 'i', rDefault: 5"), FieldText("sType: 'i', iDefault: 5")},
    {537, FieldText("sType: 's'"), FieldText("sType: 's', sDefault: ''")},
    {538, FieldText("rDefault: 1, iDefault: 1"), FieldText("rDefault: 1")},
    {539, FieldText("rDefault: Infinity"), FieldText("rDefault: 1e308")},
    {539, FieldText("sType: 'ar', rDefault: NaN"), FieldText("sType: 'as', sDefault: 'NaN'")},
    {540, Lists("'P', 'P'", "'F'"), Lists("'P'", "'F'")},
    {540, Lists("'P'", "'F', 'F'", ""), Lists("'P'", "'F'", "")},
    {541, Lists("'P', 'Q'", "", "P: {asFuncsNames: ['F']}, Q: {asFuncsNames: ['F']}"),
     Lists("'P', 'P'", "", "P: {asFuncsNames: ['F']}")},
    {542, PropertyText("sId: 'Other'"), PropertyText("sId: 'P'")},
    {543, Lists("'P 1'", "", "'P 1': {asFuncsNames: ['F']}"),
     Lists("'P1'", "", "'P1': {asFuncsNames: ['F']}")},
    {545, "['P']", "{}"},
    {547, Lists("'P'", "'F 1'", "", "'F 1': {rDefault: 5}"),
     Lists("'P'", "'F1'", "", "'F1': {rDefault: 5}")},
};

TEST(JsonFileCheck, SaysEachThingOfATextThatHasIt) {
  for (const Example& example : examples) {
    EXPECT_TRUE(Numbers(ReportOfJson(example.provoking)).contains(example.number))
        << example.number << ": " << example.provoking;
  }
}

TEST(JsonFileCheck, DoesNotSayItOfATextThatNearlyHasIt) {
  for (const Example& example : examples) {
    EXPECT_FALSE(Numbers(ReportOfJson(example.nearMiss)).contains(example.number))
        << example.number << ": " << example.nearMiss;
  }
}

// What depends on names and on other files.

TEST(JsonFileCheck, SaysThatTheDomainIsThereAlready) {
  const GivenFile zones = File("domen zones.json", Zones().Text());
  const Report report = ReportOf({File("domen d.txt", "==DOMEN\n@@@ zones\n"), zones});
  EXPECT_EQ(Findings(report), Texts({"520 1:1-1:2 lost zones"}));
  ASSERT_EQ(report.findings.back().related.size(), 1u);
  EXPECT_EQ(report.findings.back().related[0].place, (Place{0, 2, 1, 2, 10}));
  for (const Statement& statement : report.statements) {
    EXPECT_TRUE(statement.place.file == 0 || statement.fate == Fate::lost);
  }
  EXPECT_EQ(Findings(ReportOf({File("domen d.txt", "==DOMEN\n@@@ Zones\n"), zones})), Texts());
}

TEST(JsonFileCheck, NamesADefinitionInAJsonFileThatStays) {
  const Report report = ReportOf({File("domen zones.json", Zones().Text()),
                                  File("domen d.txt", "==DOMEN\n@@@ zones\n@ P 0 1\nF int 0 6\n")});
  std::vector<Place> earlier;
  for (const Finding& finding : report.findings) {
    for (const Related& related : finding.related) earlier.push_back(related.place);
  }
  EXPECT_EQ(earlier, (std::vector<Place>{{0, 2, 15, 2, 41}, {0, 3, 21, 3, 49}}));
}

TEST(JsonFileCheck, SaysThatNoListCanNameTheDomain) {
  const auto numbersOf = [](const std::string& name) {
    return Numbers(ReportOf({File("domen " + name, Zones().Text())}));
  };
  for (const char* name : {"a b.json", "a(b.json", "a).json"}) {
    EXPECT_EQ(numbersOf(name), std::set<int>({544})) << name;
  }
  EXPECT_EQ(numbersOf("a-b.json"), std::set<int>());
}

TEST(JsonFileCheck, SaysThatAClassificatorIsReadAsADomainFileToo) {
  const char* const scheme = "==MAPTEXT\n@W10\nwall\n";
  EXPECT_EQ(Findings(ReportOf({File("classificator s.json", scheme)})),
            Texts({"546 1:1-1:1 used s"}));
  EXPECT_EQ(Findings(ReportOf({File("classificator s.txt", scheme)})), Texts());
}

TEST(CheckUses, TellsOfADomainAndAPropertyOfAJsonFileThatNoCodeUses) {
  const GivenFile zones = File("domen zones.json", Zones().Text());
  const auto usesOf = [&zones](const std::string& scheme) {
    Texts shown;
    for (const Finding& finding : ReportOf({File("classificator s.txt", scheme), zones}).findings) {
      shown.push_back(std::to_string(finding.number) + " " + TextOf(finding.place) + " " +
                      finding.arguments[0]);
    }
    return shown;
  };
  EXPECT_EQ(usesOf("==MAPTEXT\n@W10\nwall\n"), Texts({"412 1:1-1:2 zones"}));
  EXPECT_EQ(usesOf("==MAPTEXT\n@@ (zones)\n@W10\nwall\n"), Texts({"413 2:15-2:41 P"}));
  EXPECT_EQ(usesOf("==MAPTEXT\n@@ (zones)\n@W10 {P}\nwall\n"), Texts());
}

TEST(JsonFileCheck, HasAnExampleOfEachCheck) {
  std::set<int> provoked = {520, 544, 546};  // by the tests above
  for (const Example& example : examples) provoked.insert(example.number);
  std::set<int> all;
  for (const Check& check : AllChecks()) {
    if (check.number / 100 == 5) all.insert(check.number);
  }
  EXPECT_EQ(provoked, all);
}

TEST(JsonFileCheck, PutsTheArgumentsIntoTheSentencesOfBothLanguages) {
  for (const Example& example : examples) {
    for (const Finding& finding : ReportOfJson(example.provoking).findings) {
      for (const Language language : {Language::english, Language::russian}) {
        const std::string text =
            Fill(CheckOf(finding.number).sentence, language, finding.arguments);
        for (const std::string& argument : finding.arguments) {
          EXPECT_NE(text.find(argument), text.npos) << finding.number << ": " << text;
        }
      }
    }
  }
}

// Places

TEST(JsonFileCheck, CountsColumnsInCodePointsAndNoByteOrderMark) {
  EXPECT_EQ(Findings(ReportOfJson("\xEF\xBB\xBF{/*Ж😀*/x: 1, Domen: {asFuncsNames: []}}")),
            Texts({"522 1:8-1:12 ignored x"}));
  EXPECT_EQ(Findings(ReportOfJson("\xEF\xBB\xBF{'Ж😀' 1}")), Texts({"504 1:7-1:7 lost"}));
}

TEST(JsonFileCheck, EndsLinesAsTheParserDoes) {
  EXPECT_EQ(Findings(ReportOfJson("{\r\n\n\r\xE2\x80\xA8 x: [\n]}")),
            Texts({"521 1:1-1:2 used", "522 5:2-6:2 ignored x"}));
}

TEST(JsonFileCheck, FindsPlacesInALongLine) {
  const std::string blanks(1000, ' ');
  EXPECT_EQ(Findings(ReportOfJson("{Domen: {asFuncsNames: []}," + blanks + "x: 1}")),
            Texts({"522 1:1028-1:1032 ignored x"}));
}

TEST(JsonFileCheck, PlacesWhatIsWrongWithAListAtItsEntry) {
  EXPECT_EQ(Findings(ReportOfJson("{Domen: {asFuncsNames: ['P', 5]}}")),
            Texts({"531 1:25-1:28 used P", "529 1:30-1:31 lost"}));
}

// Fates

// Each member as `key fate`, with a blank for each level.
Texts Fates(const std::string& bytes) {
  Texts shown;
  for (const Statement& statement : ReportOfJson(bytes).statements) {
    // The texts of these tests are on one line, and in ASCII.
    const std::size_t begin = statement.place.column - 1;
    shown.push_back(bytes.substr(begin, bytes.find(':', begin) - begin) + " " +
                    std::string(NameOf(statement.fate)));
  }
  return shown;
}

TEST(JsonFileCheck, TellsTheFateOfEachMember) {
  EXPECT_EQ(
      Fates("{$schema: 's', a: {b: {c: 1}}, Domen: {sName: 5, asFuncsNames: ['P', 'Q'], d: 1},"
            " Properties: {P: {sId: 'P', iUniq: 1, asFuncsNames: ['F'], x: {y: 1}},"
            " Q: {iUniq: {z: 1}}, R: {iUniq: 1}}, ArrayValueFields: {F: {sType: 'i', "
            "rDefault: 5}, F: {sType: 's'}, G: {sType: 'i'}}}"),
      Texts({"$schema ignored",
             "a ignored",
             "b ignored",
             "c ignored",
             "Domen used",
             "sName lost",
             "asFuncsNames used",
             "d ignored",
             "Properties used",
             "P used",
             "sId ignored",
             "iUniq used",
             "asFuncsNames used",
             "x ignored",
             "y ignored",
             "Q used",
             "iUniq lost",
             "z lost",
             "R lost",
             "iUniq lost",
             "ArrayValueFields used",
             "F shadowed",
             "sType shadowed",
             "rDefault shadowed",
             "F used",
             "sType used",
             "G lost",
             "sType lost"}));
}

TEST(JsonFileCheck, TellsThatSectionsComeToNothingWithoutALists) {
  EXPECT_EQ(Fates("{Properties: {P: {}}, ArrayValueFields: {F: {}}}"),
            Texts({"Properties lost", "P lost", "ArrayValueFields lost", "F lost"}));
}

TEST(JsonFileCheck, TellsThatAMalformedFileComesToNothing) {
  const Report report = ReportOfJson("{a: 1\n b: 2}");
  ASSERT_EQ(report.statements.size(), 1u);
  EXPECT_EQ(TextOf(report.statements[0].place), "1:1-2:7");
  EXPECT_EQ(report.statements[0].fate, Fate::lost);
}

TEST(JsonFileCheck, KnowsTheItemWithoutAName) {
  EXPECT_EQ(Fates("{Domen: {'': {asFuncsNames: ['']}, sName: 'D'}, Properties: {sName: 'P'}}"),
            Texts({"Domen used", "'' used", "asFuncsNames used", "sName ignored", "Properties used",
                   "sName used"}));
}

// The texts of all tests, whose members are taken out one by one.
Texts AllTexts() {
  Texts all = {ReadBytes(std::string(SOURCE_FOLDER) + "/data/zones.json")};
  for (const Example& example : examples) {
    for (const std::string& text : {example.provoking, example.nearMiss}) {
      if (text.size() < 1000) all.push_back(text);
    }
  }
  all.push_back(
      Lists("'P', 'Q', 'P', '', 5", "", "P: {asFuncsNames: ['F']}, '': {iUniq: 2}, P: 5"));
  all.push_back("{Properties: {P: {iUniq: 1}}, Domen: {sName: 'D', sName: {}}, Properties: {}}");
  all.push_back(Lists("''", "", "iUniq: 1, asFuncsNames: ['F', '']"));
  return all;
}

// What the library makes of the file by itself.
std::wstring DomainOf(const std::string& bytes) {
  static const TempFolder folder;
  DomenStore store;
  EXPECT_EQ(store.LoadDomen(folder.Write("zones.json", bytes), L""), 0);
  return Describe(store);
}

std::size_t PositionOf(std::string_view bytes, std::size_t line, std::size_t column) {
  std::size_t position = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  for (; line > 1; --line) position = bytes.find('\n', position) + 1;
  for (; column > 1; --column) {
    do {
      ++position;
    } while (position < bytes.size() &&
             (static_cast<unsigned char>(bytes[position]) & 0xC0U) == 0x80);
  }
  return position;
}

// The text without the member, and without the comma after it.
std::string Without(const Statement& statement, std::string bytes) {
  const Place& place = statement.place;
  const std::size_t begin = PositionOf(bytes, place.line, place.column);
  bytes.erase(begin, PositionOf(bytes, place.endLine, place.endColumn) - begin);
  const std::size_t comma = bytes.find_first_not_of(" \n", begin);
  if (comma != bytes.npos && bytes[comma] == ',') bytes.erase(comma, 1);
  return bytes;
}

TEST(JsonFileCheck, SaysOfNoMemberThatItHasNoEffectWhichHasOne) {
  std::size_t count = 0;
  for (const std::string& text : AllTexts()) {
    const std::wstring whole = DomainOf(text);
    for (const Statement& statement : ReportOfJson(text).statements) {
      if (statement.fate == Fate::used) continue;
      ++count;
      EXPECT_EQ(DomainOf(Without(statement, text)), whole) << TextOf(statement.place) << "\n"
                                                           << text;
    }
  }
  EXPECT_GT(count, 50u);
}

// Whether the member says what holds without it, or is an object. Of an object all members are
// looked at, and one that has an effect has it through its object.
bool NeedsNoEffect(std::string_view member) {
  const std::size_t value = member.find_first_not_of(" ", member.find(':') + 1);
  const std::string_view text = member.substr(value);
  constexpr std::string_view usual[] = {"''", "'\\0'", "0", "[]", "'r'", "'F'"};
  return text.starts_with("{") ||
         std::find(std::begin(usual), std::end(usual), text) != std::end(usual);
}

TEST(JsonFileCheck, SaysOfNoValueThatItIsUsedWithoutWhichAllIsTheSame) {
  std::size_t count = 0;
  for (const std::string& text : AllTexts()) {
    const std::wstring whole = DomainOf(text);
    for (const Statement& statement : ReportOfJson(text).statements) {
      const Place& place = statement.place;
      const std::size_t begin = PositionOf(text, place.line, place.column);
      const std::size_t end = PositionOf(text, place.endLine, place.endColumn);
      const std::string_view member = std::string_view(text).substr(begin, end - begin);
      if (statement.fate != Fate::used || NeedsNoEffect(member)) continue;
      ++count;
      EXPECT_NE(DomainOf(Without(statement, text)), whole) << TextOf(place) << "\n" << text;
    }
  }
  EXPECT_GT(count, 100u);
}

TEST(JsonFileCheck, LeavesTheDomainsAsALoadDoes) {
  for (const std::string& text : AllTexts()) {
    EXPECT_EQ(Describe(CheckedFiles({File("domen zones.json", text)}).loaded.domens),
              DomainOf(text))
        << text;
  }
}

TEST(JsonFileCheck, HasNoErrorAndNoWarningForTheSample) {
  for (const Finding& finding :
       ReportOfJson(ReadBytes(std::string(SOURCE_FOLDER) + "/data/zones.json")).findings) {
    EXPECT_EQ(CheckOf(finding.number).severity, Severity::hint) << TextOf(finding.place);
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
