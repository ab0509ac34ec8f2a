#include "json5/Json5Writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "json5/Json5Parser.h"
#include "json5/Json5Record.h"
#include "json5/Json5Text.h"
#include "support/AlikeHashes.h"
#include "support/AtOnce.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Kind = Json5Value::Kind;
using Texts = std::vector<std::wstring>;
using Value = std::variant<std::wstring, int, double, Texts>;

constexpr double infinity = std::numeric_limits<double>::infinity();

// Fills a record by requests, one per line.
class Requests {
 public:
  Requests& Section(std::wstring_view section, std::wstring_view item = L"") {
    current = record.Open(std::wstring(section).c_str(), item);
    return *this;
  }

  // The position of the last opened item, and a way to return to one.
  std::size_t Place() const { return current; }

  Requests& Back(std::size_t place) {
    current = place;
    return *this;
  }

  Requests& Set(std::wstring_view key, const Value& value, std::wstring_view comment = L"") {
    const std::uint32_t keyPlace = record.repeated.PlaceOf(std::wstring(key).c_str());
    const std::uint32_t commentPlace = record.repeated.PlaceOf(std::wstring(comment).c_str());
    std::visit(Setter{record, current, keyPlace, commentPlace}, value);
    return *this;
  }

  std::string Text() const {
    std::string text;
    WriteJson5(record, [&text](std::string_view piece) { text += piece; });
    return text;
  }

  // Returns the size of the largest piece that is passed on.
  std::size_t LargestPiece() const {
    std::size_t largest = 0;
    WriteJson5(record, [&](std::string_view piece) { largest = std::max(largest, piece.size()); });
    return largest;
  }

 private:
  struct Setter {
    void operator()(const std::wstring& text) const { Set(record.Keep(text)); }
    void operator()(int number) const { Set(number); }
    void operator()(double number) const { Set(number); }
    void operator()(const Texts& texts) const {
      const std::span<std::wstring_view> kept = record.List(texts.size());
      std::transform(texts.begin(), texts.end(), kept.begin(), [this](const std::wstring& text) {
        return record.KeepWide(ToJson5Text(text));
      });
      Set(kept);
    }
    void Set(const Json5RecordValue& value) const { record.Set(item, key, comment, value); }

    Json5Record& record;
    std::size_t item;
    std::uint32_t key;
    std::uint32_t comment;
  };

  Json5Record record;
  std::size_t current = 0;
};

// Returns the text of a file with one value of one key.
std::string Written(const Value& value, std::wstring_view comment = L"") {
  Requests requests;
  const std::string text = requests.Section(L"S").Set(L"k", value, comment).Text();
  const std::string head = "{\n  \"S\": {\n    \"k\": ";
  const std::string tail = "\n  }\n}\n";
  EXPECT_TRUE(text.starts_with(head) && text.ends_with(tail)) << text;
  return text.substr(head.size(), text.size() - head.size() - tail.size());
}

// Returns the string after a round trip.
std::wstring ReadBack(const std::wstring& value) {
  const std::string text = Written(value);
  Json5Tree tree;
  EXPECT_FALSE(ParseJson5(text, tree)) << text;
  return ToWideText(tree.root.text);
}

// Layout

TEST(WriteJson5, WritesAnEmptyRecordAsAnEmptyObject) {
  EXPECT_EQ(Requests().Text(), "{}\n");
}

TEST(WriteJson5, IndentsByTwoAndPutsCommentsAfterTheValues) {
  Requests requests;
  requests.Section(L"Domen").Set(L"sName", L"Zones"s, L"Имя");
  requests.Set(L"asFuncsNames", Texts{L"ZoneKind", L"Limits"}, L"Свойства");
  requests.Section(L"Properties", L"ZoneKind").Set(L"sName", L"Zone kind"s, L"Имя");
  requests.Set(L"iSortId", 10);
  requests.Section(L"Properties", L"Limits").Set(L"rDefault", 2.5, L"Значение");
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"Domen\": {\n"
            "    \"sName\": \"Zones\", // Имя\n"
            "    \"asFuncsNames\": [\"ZoneKind\", \"Limits\"] // Свойства\n"
            "  },\n"
            "  \"Properties\": {\n"
            "    \"ZoneKind\": {\n"
            "      \"sName\": \"Zone kind\", // Имя\n"
            "      \"iSortId\": 10\n"
            "    },\n"
            "    \"Limits\": {\n"
            "      \"rDefault\": 2.5 // Значение\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(WriteJson5, WritesSectionsAndItemsWithoutKeysAsEmptyObjects) {
  Requests requests;
  requests.Section(L"A").Section(L"B", L"one").Section(L"B", L"two").Section(L"C");
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"A\": {},\n"
            "  \"B\": {\n"
            "    \"one\": {},\n"
            "    \"two\": {}\n"
            "  },\n"
            "  \"C\": {}\n"
            "}\n");
}

TEST(WriteJson5, PutsTheKeysOfAnOnlyItemWithoutANameIntoTheSectionItself) {
  Requests requests;
  requests.Section(L"S", L"").Set(L"b", 2, L"own").Set(L"c", 3);
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"S\": {\n"
            "    \"b\": 2, // own\n"
            "    \"c\": 3\n"
            "  }\n"
            "}\n");
}

TEST(WriteJson5, SortsAnItemWithoutANameAmongOthers) {
  Requests requests;
  requests.Section(L"S", L"first").Set(L"a", 1);
  requests.Section(L"S", L"").Set(L"b", 2, L"own");
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"S\": {\n"
            "    \"first\": {\n"
            "      \"a\": 1\n"
            "    },\n"
            "    \"\": {\n"
            "      \"b\": 2 // own\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(WriteJson5, WritesNamesAndKeysLikeAnyString) {
  Requests requests;
  requests.Section(L"a \"b\"", L"Свойство\n").Set(L"", 1).Set(L"back\\slash", 2);
  requests.Section(L"");
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"a \\\"b\\\"\": {\n"
            "    \"Свойство\\n\": {\n"
            "      \"\": 1,\n"
            "      \"back\\\\slash\": 2\n"
            "    }\n"
            "  },\n"
            "  \"\": {}\n"
            "}\n");
}

TEST(WriteJson5, WritesNoByteOrderMarkAndNoCarriageReturn) {
  const std::string text =
      Requests().Section(L"S").Set(L"k", L"a\r\nb"s, L"c\r\nd").Set(L"l", Texts{L"\r"}).Text();
  EXPECT_EQ(text.front(), '{');
  EXPECT_EQ(text.find('\r'), text.npos);
}

// Values

TEST(WriteJson5, WritesArraysOfStringsOnOneLine) {
  EXPECT_EQ(Written(Texts{}), "[]");
  EXPECT_EQ(Written(Texts{L"a"}), "[\"a\"]");
  EXPECT_EQ(Written(Texts{L"a", L"", L"б", L"a"}), "[\"a\", \"\", \"б\", \"a\"]");
  EXPECT_EQ(Written(Texts{L"a\nb", L"\"", L","}), R"(["a\nb", "\"", ","])");
  std::string hundred = "[\"a\"";
  for (int i = 1; i < 100; ++i) hundred += ", \"a\"";
  EXPECT_EQ(Written(Texts(100, L"a")), hundred + "]");
}

TEST(WriteJson5, WritesIntegersWithoutAPoint) {
  EXPECT_EQ(Written(0), "0");
  EXPECT_EQ(Written(-7), "-7");
  EXPECT_EQ(Written(std::numeric_limits<int>::max()), "2147483647");
  EXPECT_EQ(Written(std::numeric_limits<int>::min()), "-2147483648");
}

TEST(WriteJson5, WritesRealsWithAPointOrAnExponentInTheirShortestForm) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0.0"},
      {-0.0, "-0.0"},
      {1.0, "1.0"},
      {-1.0, "-1.0"},
      {10.0, "10.0"},
      {0.1, "0.1"},
      {-2.5, "-2.5"},
      {1.0 / 3, "0.3333333333333333"},
      {1e5, "1e+05"},
      {123456.0, "123456.0"},
      {2147483648.0, "2147483648.0"},
      {1e-5, "1e-05"},
      {1e300, "1e+300"},
      {-1.5e-300, "-1.5e-300"},
      {9007199254740993.0, "9007199254740992.0"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
      {std::numeric_limits<double>::denorm_min(), "5e-324"},
  };
  for (const auto& [number, text] : cases) EXPECT_EQ(Written(number), text);
}

TEST(WriteJson5, WritesRealsThatJsonHasNoNumberForAsNull) {
  EXPECT_EQ(Written(infinity), "null");
  EXPECT_EQ(Written(-infinity), "null");
  EXPECT_EQ(Written(std::numeric_limits<double>::quiet_NaN()), "null");
  EXPECT_EQ(Written(-std::numeric_limits<double>::quiet_NaN()), "null");
}

TEST(WriteJson5, WritesStringsInDoubleQuotationMarks) {
  EXPECT_EQ(Written(L""s), R"("")");
  EXPECT_EQ(Written(L"it's"s), R"("it's")");
  EXPECT_EQ(Written(L"say \"a\""s), R"("say \"a\"")");
  EXPECT_EQ(Written(L"a\\b\\"s), R"("a\\b\\")");
  EXPECT_EQ(Written(L"\\\""s), R"("\\\"")");
  EXPECT_EQ(Written(L"https://a/*b*/"s), R"("https://a/*b*/")");
  EXPECT_EQ(Written(L"Стена, 漢字"s), "\"Стена, 漢字\"");
}

TEST(WriteJson5, EscapesEachControlCharacter) {
  for (wchar_t unit = 0; unit < 0x20; ++unit) {
    const std::string digits = "0123456789abcdef";
    std::string escape = "\\u00"s + digits[static_cast<std::size_t>(unit) / 16] +
                         digits[static_cast<std::size_t>(unit) % 16];
    if (unit == L'\b') escape = "\\b";
    if (unit == L'\t') escape = "\\t";
    if (unit == L'\n') escape = "\\n";
    if (unit == L'\f') escape = "\\f";
    if (unit == L'\r') escape = "\\r";
    EXPECT_EQ(Written(std::wstring{L'a', unit, L'b'}), "\"a" + escape + "b\"");
  }
}

TEST(WriteJson5, EscapesTheLineTerminatorsAboveAscii) {
  EXPECT_EQ(Written(L"a\u2028b\u2029"s), R"("a\u2028b\u2029")");
}

TEST(WriteJson5, WritesAllOtherCharactersUnchanged) {
  EXPECT_EQ(Written(L"/\x007F\x0085\u00A0\u2027\u202A\uFEFF\xFFFF"s),
            "\"/\x7F\xC2\x85\xC2\xA0\xE2\x80\xA7\xE2\x80\xAA\xEF\xBB\xBF\xEF\xBF\xBF\"");
  EXPECT_EQ(Written(L"\uD7FF\uE000"s), "\"\xED\x9F\xBF\xEE\x80\x80\"");
  EXPECT_EQ(Written(L"\U00010000\U0001F600\U0010FFFF"s),
            "\"\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\"");
}

TEST(WriteJson5, EscapesSurrogatesWithoutAPartner) {
  EXPECT_EQ(Written(L"\xD83D"s), R"("\ud83d")");
  EXPECT_EQ(Written(L"\xDE00"s), R"("\ude00")");
  EXPECT_EQ(Written(L"\xD800\xDBFF\xDC00"s.substr(0, 2)), R"("\ud800\udbff")");
  EXPECT_EQ(Written(L"\xDFFF\xD83D"s), R"("\udfff\ud83d")");
  EXPECT_EQ(Written(L"a\xD83Dg\xDE00 \U0001F600"s), "\"a\\ud83dg\\ude00 \xF0\x9F\x98\x80\"");
  EXPECT_EQ(Written(Texts{L"\xD83D", L"\xDE00"}), R"(["\ud83d", "\ude00"])");
}

TEST(WriteJson5, WritesTwoUnitsOfAPairSoThatTheyReadAsTheirCodePoint) {
  EXPECT_EQ(ReadBack(L"\xD83D\xDE00"), L"\U0001F600");
  EXPECT_EQ(ReadBack(L"a\xD83D\xD83D\xDE00\xDE00z"), L"a\xD83D\U0001F600\xDE00z");
}

TEST(WriteJson5, WritesEveryUnitSoThatItReadsAsItself) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const std::wstring value(2, static_cast<wchar_t>(unit));
    ASSERT_EQ(ReadBack(value), value) << unit;
  }
}

TEST(WriteJson5, WritesAFileThatCanBeReadWhateverNumberAUnitIs) {
  if (sizeof(wchar_t) == 2) GTEST_SKIP() << "every unit is one of UTF-16";
  const std::wstring value = {L'a', static_cast<wchar_t>(0x110041), static_cast<wchar_t>(-1)};
  EXPECT_EQ(ReadBack(value), L"a\xFFFD\xFFFD");
  EXPECT_EQ(ReadBack(L"\U0010FFFF"), L"\U0010FFFF");
}

// Comments

TEST(WriteJson5, WritesACommentAfterItsValueAndTheComma) {
  EXPECT_EQ(Written(1, L"Комментарий"), "1 // Комментарий");
  EXPECT_EQ(Written(Texts{L"a", L"b"}, L"c"), R"(["a", "b"] // c)");
  EXPECT_EQ(Written(1, L""), "1");
  EXPECT_EQ(Written(1, L"// a /* b */ \"c\" \\"), "1 // // a /* b */ \"c\" \\");
  EXPECT_EQ(Written(1, L"\U0001F600\t"), "1 // \xF0\x9F\x98\x80\t");
}

TEST(WriteJson5, PutsABlankForEachLineTerminatorInAComment) {
  EXPECT_EQ(Written(1, L"a\nb"), "1 // a b");
  EXPECT_EQ(Written(1, L"a\r\nb"), "1 // a  b");
  EXPECT_EQ(Written(1, L"a\u2028b\u2029c\rd"), "1 // a b c d");
}

TEST(WriteJson5, WritesValidUtf8WhateverACommentHolds) {
  const std::string text =
      Requests().Section(L"S").Set(L"k", 1, L"a\xD83Dg").Set(L"l", 2, L"\xDE00").Text();
  Json5Tree tree;
  EXPECT_FALSE(ParseJson5(text, tree)) << text;
  EXPECT_NE(text.find("\"l\": 2"), text.npos);
}

// Order and repeats

TEST(WriteJson5, KeepsTheOrderOfTheFirstRequests) {
  Requests requests;
  requests.Section(L"Z").Set(L"b", 1).Set(L"a", 2);
  requests.Section(L"Y", L"y");
  requests.Section(L"A", L"z").Set(L"c", 3);
  requests.Section(L"Z").Set(L"c", 4).Set(L"b", 5);
  requests.Section(L"A", L"a").Set(L"d", 6);
  requests.Section(L"A", L"z").Set(L"a", 7);
  requests.Section(L"Y", L"y").Set(L"e", 8);
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"Z\": {\n"
            "    \"b\": 5,\n"
            "    \"a\": 2,\n"
            "    \"c\": 4\n"
            "  },\n"
            "  \"Y\": {\n"
            "    \"y\": {\n"
            "      \"e\": 8\n"
            "    }\n"
            "  },\n"
            "  \"A\": {\n"
            "    \"z\": {\n"
            "      \"c\": 3,\n"
            "      \"a\": 7\n"
            "    },\n"
            "    \"a\": {\n"
            "      \"d\": 6\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(WriteJson5, ReplacesTheValueOfAKeyInItsPlace) {
  Requests requests;
  requests.Section(L"S", L"i").Set(L"a", 1, L"one").Set(L"b", 2, L"two");
  requests.Section(L"S", L"j").Set(L"a", 3, L"three");
  requests.Section(L"S", L"i").Set(L"a", Texts{L"x"}, L"four");
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"S\": {\n"
            "    \"i\": {\n"
            "      \"a\": [\"x\"], // four\n"
            "      \"b\": 2 // two\n"
            "    },\n"
            "    \"j\": {\n"
            "      \"a\": 3 // three\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(WriteJson5, PutsRequestsThatTakeTurnsIntoTheItemsThatTheyWereMadeOf) {
  Requests requests;
  const std::size_t a = requests.Section(L"S", L"a").Set(L"k", 1, L"old").Place();
  const std::size_t t = requests.Section(L"T", L"t").Set(L"k", 2).Place();
  const std::size_t b = requests.Section(L"S", L"b").Place();
  requests.Back(a).Set(L"l", 3).Back(t).Set(L"l", 4).Back(b).Set(L"k", 5);
  requests.Back(a).Set(L"k", 6, L"new").Section(L"S", L"a").Set(L"m", 7).Back(t).Set(L"k", 8);
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"S\": {\n"
            "    \"a\": {\n"
            "      \"k\": 6, // new\n"
            "      \"l\": 3,\n"
            "      \"m\": 7\n"
            "    },\n"
            "    \"b\": {\n"
            "      \"k\": 5\n"
            "    }\n"
            "  },\n"
            "  \"T\": {\n"
            "    \"t\": {\n"
            "      \"k\": 8,\n"
            "      \"l\": 4\n"
            "    }\n"
            "  }\n"
            "}\n");
}

// Returns the keys of two requests for each of the names, the second in reverse order.
std::string RequestsForEach(const std::vector<std::string>& names) {
  Requests requests;
  for (const std::string& name : names) requests.Section(L"S", ToWideText(name)).Set(L"a", 1);
  requests.Section(L"T");
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    requests.Section(L"S", ToWideText(*name)).Set(L"b", 2);
  }
  return requests.Text();
}

TEST(WriteJson5, DistinguishesNamesWithEqualHashes) {
  const std::vector<std::string> names = NamesOfAlikeHashes(500, 12);
  std::string expected;
  for (const std::string& name : names) {
    expected += (expected.empty() ? "\n" : ",\n") + ("    \"" + name + "\": {\n") +
                "      \"a\": 1,\n      \"b\": 2\n    }";
  }
  EXPECT_EQ(RequestsForEach(names), "{\n  \"S\": {" + expected + "\n  },\n  \"T\": {}\n}\n");
}

TEST(WriteJson5, DistinguishesKeysAndNamesByUnit) {
  Requests requests;
  requests.Section(L"S", L"a").Set(L"k", 1).Set(L"K", 2);
  requests.Section(L"S", L"A").Section(L"s", L"a");
  requests.Section(L"S", L"й").Section(L"S", L"и\u0306");
  EXPECT_EQ(requests.Text(),
            "{\n"
            "  \"S\": {\n"
            "    \"a\": {\n"
            "      \"k\": 1,\n"
            "      \"K\": 2\n"
            "    },\n"
            "    \"A\": {},\n"
            "    \"й\": {},\n"
            "    \"и\u0306\": {}\n"
            "  },\n"
            "  \"s\": {\n"
            "    \"a\": {}\n"
            "  }\n"
            "}\n");
}

TEST(WriteJson5, ChangesNothingInTheRecord) {
  Requests requests;
  requests.Section(L"S").Set(L"a", 1.5, L"c");
  const std::string text = requests.Text();
  EXPECT_EQ(requests.Text(), text);
}

// Random records

// Parses JSON without the extensions of JSON5.
class StrictJson {
 public:
  explicit StrictJson(std::string_view bytes) : rest(bytes) {}

  bool IsDocument() { return Value() && (Space(), rest.empty()); }

 private:
  void Space() {
    while (!rest.empty() && (rest[0] == ' ' || rest[0] == '\n')) rest.remove_prefix(1);
  }

  bool Skip(std::string_view word) {
    const bool there = rest.starts_with(word);
    if (there) rest.remove_prefix(word.size());
    return there;
  }

  bool SkipAnyOf(std::string_view set) {
    const bool there = !rest.empty() && set.find(rest[0]) != set.npos;
    if (there) rest.remove_prefix(1);
    return there;
  }

  bool Digits() {
    if (!SkipAnyOf("0123456789")) return false;
    while (SkipAnyOf("0123456789")) continue;
    return true;
  }

  bool Number() {
    Skip("-");
    if (!Skip("0") && !Digits()) return false;
    if (Skip(".") && !Digits()) return false;
    if (!SkipAnyOf("eE")) return true;
    SkipAnyOf("+-");
    return Digits();
  }

  bool Escape() {
    if (!Skip("u")) return SkipAnyOf("\"\\/bfnrt");
    for (int i = 0; i < 4; ++i) {
      if (!SkipAnyOf("0123456789abcdefABCDEF")) return false;
    }
    return true;
  }

  bool String() {
    if (!Skip("\"")) return false;
    while (!Skip("\"")) {
      if (rest.empty() || static_cast<unsigned char>(rest[0]) < 0x20) return false;
      if (Skip("\\")) {
        if (!Escape()) return false;
      } else {
        rest.remove_prefix(1);
      }
    }
    return true;
  }

  bool Member() { return Space(), String() && (Space(), Skip(":")) && Value(); }

  bool List(bool (StrictJson::*element)(), std::string_view end) {
    Space();
    if (Skip(end)) return true;
    while ((this->*element)()) {
      Space();
      if (Skip(end)) return true;
      if (!Skip(",")) return false;
    }
    return false;
  }

  bool Value() {
    Space();
    if (Skip("{")) return List(&StrictJson::Member, "}");
    if (Skip("[")) return List(&StrictJson::Value, "]");
    if (rest.starts_with('"')) return String();
    return Skip("null") || Skip("true") || Skip("false") || Number();
  }

  std::string_view rest;
};

bool IsJson(std::string_view bytes) {
  return StrictJson(bytes).IsDocument();
}

TEST(StrictJson, DistinguishesJsonFromJson5) {
  for (const char* text : {"{}", "[1, -0.5e+10, \"a\\u00e9\\n\"]", "{\"a\": {\"b\": [null]}}\n"}) {
    EXPECT_TRUE(IsJson(text)) << text;
  }
  for (const char* text :
       {"",       "{a: 1}", "'a'",       "[1,]",  "{\"a\": 1,}",    "+1",        ".5",
        "5.",     "0x1",    "01",        "NaN",   "1 // c",         "\"\\x41\"", "\"\\v\"",
        "\"\n\"", "1 2",    "{\"a\" 1}", "[1 2]", "\xEF\xBB\xBF{}", "[\r]"}) {
    EXPECT_FALSE(IsJson(text)) << text;
  }
}

// Returns the text without its `//` comments.
std::string WithoutComments(const std::string& text) {
  std::string stripped;
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!inString && text.compare(i, 2, "//") == 0) i = text.find('\n', i);
    stripped += text[i];
    if (text[i] == '"') inString = !inString;
    if (inString && text[i] == '\\') stripped += text[++i];
  }
  return stripped;
}

// Section, item and key, in the order of the units, and the value.
using Path = std::tuple<std::wstring, std::wstring, std::wstring>;

struct RandomRecord {
  Requests requests;
  std::map<Path, Value> values;
};

class Dice {
 public:
  explicit Dice(unsigned seed) : engine(seed) {}

  // The same on every platform, unlike a standard distribution.
  std::size_t Below(std::size_t bound) { return engine() % bound; }

  // Returns a text of special characters. There are lone surrogates, but no pairs.
  std::wstring Text() {
    const Texts pieces = {L"a",       L"Ж",      L" ",      L"\"",     L"'",      L"\\",
                          L"\n",      L"\r",     L"\t",     L"\v",     L"\x0001", L"\0"s,
                          L"\u2028",  L"\u2029", L"\uFEFF", L"//",     L"/*",     L"*/",
                          L",",       L"}",      L"]",      L"\x0085", L"\uFFFF", L"\U0001F600",
                          L"\xD83D ", L"\xDE00", L"\\u",    L"0",      L"u0041",  L":"};
    std::wstring text;
    for (std::size_t i = Below(6); i != 0; --i) text += pieces[Below(pieces.size())];
    return text;
  }

  double Real() {
    const double reals[] = {0.0, -0.0, 1.0, 0.1, -2.5, 1e5, 1e300, -5e-324, infinity, -infinity};
    if (Below(2) == 0) return reals[Below(std::size(reals))];
    return std::ldexp(static_cast<double>(engine()), static_cast<int>(Below(2000)) - 1000);
  }

  Value AnyValue() {
    switch (Below(4)) {
      case 0:
        return Text();
      case 1:
        return static_cast<int>(engine() - 0x80000000u);
      case 2:
        return Real();
      default:
        Texts texts(Below(4));
        for (std::wstring& text : texts) text = Text();
        return texts;
    }
  }

 private:
  std::mt19937 engine;
};

// Returns the text as requests take names and keys.
std::wstring UpToNul(const std::wstring& text) {
  return text.c_str();
}

// Item names and keys begin with different letters, so that they don't collide.
std::unique_ptr<RandomRecord> MakeRandomRecord(unsigned seed) {
  auto made = std::make_unique<RandomRecord>();
  Dice dice(seed);
  for (std::size_t requests = dice.Below(30); requests != 0; --requests) {
    const std::wstring section = dice.Below(2) == 0 ? L"S" : UpToNul(dice.Text());
    const std::wstring item = dice.Below(3) == 0 ? L"" : L"i" + dice.Text();
    const std::wstring key = L"k" + (dice.Below(2) == 0 ? L"" : UpToNul(dice.Text()));
    const Value value = dice.AnyValue();
    made->requests.Section(section, item).Set(key, value, dice.Text());
    made->values[{section, item, key}] = value;
  }
  return made;
}

void ExpectValue(const Json5Tree& tree, const Json5Value& read, const Value& expected) {
  if (const auto* text = std::get_if<std::wstring>(&expected)) {
    EXPECT_EQ(read.kind, Kind::string);
    EXPECT_EQ(ToWideText(read.text), *text);
  } else if (const auto* number = std::get_if<int>(&expected)) {
    EXPECT_EQ(read.kind, Kind::number);
    EXPECT_EQ(read.number, *number);
  } else if (const auto* real = std::get_if<double>(&expected)) {
    EXPECT_EQ(read.kind, std::isfinite(*real) ? Kind::number : Kind::null);
    EXPECT_EQ(read.number, std::isfinite(*real) ? *real : 0);
    EXPECT_EQ(std::signbit(read.number), std::isfinite(*real) && std::signbit(*real));
  } else {
    EXPECT_EQ(read.kind, Kind::array);
    Texts texts;
    for (const Json5Member& element : tree.Members(read)) {
      texts.push_back(ToWideText(element.value.text));
    }
    EXPECT_EQ(texts, std::get<Texts>(expected));
  }
}

const Json5Value* FindPath(const Json5Tree& tree, const Path& path) {
  const auto& [section, item, key] = path;
  const Json5Value* found = tree.Find(tree.root, ToJson5Text(section));
  if (found == nullptr) return nullptr;
  const Json5Value* named = tree.Find(*found, ToJson5Text(item));
  // The item without a name is the section itself if it is the only one.
  const bool alone = item.empty() && (!named || named->kind != Json5Value::Kind::object);
  return tree.Find(alone ? *found : *named, ToJson5Text(key));
}

// Returns the number of values that are not objects.
std::size_t CountValues(const Json5Tree& tree, const Json5Value& value) {
  if (value.kind != Kind::object) return 1;
  std::size_t count = 0;
  for (const Json5Member& member : tree.Members(value)) count += CountValues(tree, member.value);
  return count;
}

constexpr unsigned randomRecords = 500;

TEST(WriteJson5, WritesRandomRecordsSoThatTheyReadAsWhatTheyHold) {
  for (unsigned seed = 0; seed < randomRecords; ++seed) {
    SCOPED_TRACE(seed);
    const auto record = MakeRandomRecord(seed);
    const std::string text = record->requests.Text();
    Json5Tree tree;
    ASSERT_FALSE(ParseJson5(text, tree)) << text;
    EXPECT_EQ(CountValues(tree, tree.root), record->values.size());
    for (const auto& [path, value] : record->values) {
      const Json5Value* read = FindPath(tree, path);
      ASSERT_NE(read, nullptr) << text;
      ExpectValue(tree, *read, value);
    }
    ASSERT_FALSE(HasFailure()) << text;
  }
}

TEST(WriteJson5, WritesJsonButForTheComments) {
  for (unsigned seed = 0; seed < randomRecords; ++seed) {
    const std::string text = MakeRandomRecord(seed)->requests.Text();
    ASSERT_TRUE(IsJson(WithoutComments(text))) << text;
  }
}

TEST(WriteJson5, WritesTheSameRequestsAsTheSameBytes) {
  for (unsigned seed = 0; seed < randomRecords; ++seed) {
    ASSERT_EQ(MakeRandomRecord(seed)->requests.Text(), MakeRandomRecord(seed)->requests.Text());
  }
}

// Huge texts

TEST(WriteJson5, HandlesTextsOfFiveMillionUnits) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_EQ(Written(std::wstring(size, L'a')).size(), size + 2);
    EXPECT_EQ(Written(std::wstring(size / 5, L'\n')).size(), 2 * (size / 5) + 2);
    EXPECT_EQ(Written(1, std::wstring(size, L'\n')).size(), size + 5);
  });
}

TEST(WriteJson5, HandlesAMillionStrings) {
  ExpectDoneAtOnce(
      1'000'000, [](std::size_t size) { EXPECT_EQ(Written(Texts(size, L"a")).size(), 5 * size); });
}

TEST(WriteJson5, PassesALongFileOnInPieces) {
  Requests requests;
  for (int i = 0; i < 100'000; ++i) {
    requests.Section(L"S", L"item" + std::to_wstring(i)).Set(L"k", i, L"comment");
  }
  EXPECT_GT(requests.Text().size(), 4'000'000u);
  EXPECT_LE(requests.LargestPiece(), 65'536u);
}

TEST(WriteJson5, SplitsALongStringIntoPieces) {
  Requests requests;
  requests.Section(L"S").Set(L"k", std::wstring(300'000, L'\n'));
  std::string expected = "{\n  \"S\": {\n    \"k\": \"";
  for (int i = 0; i < 300'000; ++i) expected += "\\n";
  EXPECT_EQ(requests.Text(), expected + "\"\n  }\n}\n");
  EXPECT_LE(requests.LargestPiece(), 65'536u);
}

TEST(WriteJson5, HandlesAHundredThousandItems) {
  ExpectDoneAtOnce(100'000, [](std::size_t size) {
    Requests requests;
    for (std::size_t i = 0; i < size; ++i) {
      requests.Section(L"S", L"item" + std::to_wstring(i)).Set(L"k", 1, L"comment");
    }
    const std::string text = requests.Text();
    Json5Tree tree;
    ASSERT_FALSE(ParseJson5(text, tree));
    EXPECT_EQ(CountValues(tree, tree.root), size);
  });
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
