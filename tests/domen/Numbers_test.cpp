#include "domen/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <locale>
#include <optional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

constexpr double maxReal = std::numeric_limits<double>::max();
constexpr double minNormal = std::numeric_limits<double>::min();
constexpr double minReal = std::numeric_limits<double>::denorm_min();

// Returns the number, or nothing if the text is none. Checks that a refused text changes no number.
std::optional<int> IntOf(std::wstring_view text) {
  int number = 77;
  if (ParseInt(text, number)) return number;
  EXPECT_EQ(number, 77);
  return std::nullopt;
}

std::optional<double> RealOf(std::wstring_view text) {
  double number = 77.5;
  if (ParseReal(text, number)) return number;
  EXPECT_EQ(number, 77.5);
  return std::nullopt;
}

// Distinguishes -0 from 0 and numbers that differ in their last bit.
std::uint64_t Bits(double number) {
  return std::bit_cast<std::uint64_t>(number);
}

bool Same(std::optional<int> one, std::optional<int> other) {
  return one == other;
}

bool Same(std::optional<double> one, std::optional<double> other) {
  return one.has_value() == other.has_value() && (!one || Bits(*one) == Bits(*other));
}

// A wide input stream, which defines the readers: it skips leading white space, and the text is a
// number if the extraction succeeds and reaches the end.
class NumberStream {
 public:
  NumberStream() {
    stream.imbue(std::locale::classic());
    readsHexadecimalReals = Read<double>(L"0x1").has_value();
  }

  std::optional<int> IntOf(const std::wstring& text) { return Read<int>(text); }

  std::optional<double> RealOf(const std::wstring& text) {
    // Some streams accept hexadecimal reals; the readers don't.
    if (readsHexadecimalReals && text.find_first_of(L"xX") != text.npos) return std::nullopt;
    const std::optional<double> number = Read<double>(text);
    // Some streams return 0 for a number that underflows; the readers refuse it.
    if (number == 0 && HasDigitAbove0(text.substr(0, text.find_first_of(L"eE")))) {
      return std::nullopt;
    }
    return number;
  }

 private:
  template <class Number>
  std::optional<Number> Read(const std::wstring& text) {
    stream.clear();
    stream.str(text);
    Number number{};
    stream >> number;
    if (stream.rdstate() != std::ios_base::eofbit) return std::nullopt;
    return number;
  }

  static bool HasDigitAbove0(const std::wstring& text) {
    return text.find_first_of(L"123456789") != text.npos;
  }

  std::wistringstream stream;
  bool readsHexadecimalReals;
};

// Collects the first few texts on which a reader and the stream differ.
class Differences {
 public:
  void Compare(const std::wstring& text) {
    if (texts.size() == 5) return;
    if (!Same(IntOf(text), stream.IntOf(text))) texts.push_back(L"int '" + text + L"'");
    if (!Same(RealOf(text), stream.RealOf(text))) texts.push_back(L"real '" + text + L"'");
  }

  std::vector<std::wstring> texts;

 private:
  NumberStream stream;
};

constexpr std::wstring_view numberUnits = L"0123456789+-.eExX ,\t";

// Compares all texts that consist of `text` and up to `more` further units.
void CompareAll(Differences& differences, std::wstring& text, int more) {
  differences.Compare(text);
  if (more == 0) return;
  for (const wchar_t unit : numberUnits) {
    text.push_back(unit);
    CompareAll(differences, text, more - 1);
    text.pop_back();
  }
}

TEST(ParseNumber, AgreesWithAStreamOnEveryTextOfUpToFourUnits) {
  Differences differences;
  std::wstring text;
  CompareAll(differences, text, 4);
  EXPECT_TRUE(differences.texts.empty()) << testing::PrintToString(differences.texts);
}

TEST(ParseNumber, AgreesWithAStreamOnLongerTextsByChance) {
  Differences differences;
  std::mt19937 random(20);
  std::wstring text;
  for (int i = 0; i < 150'000; ++i) {
    // Half of the texts are mostly digits, because few of the others are numbers.
    const std::size_t kinds = i % 2 == 0 ? numberUnits.size() : 3 * numberUnits.size();
    text.resize(5 + random() % 10);
    for (wchar_t& unit : text) {
      const std::size_t kind = random() % kinds;
      unit = numberUnits[kind < numberUnits.size() ? kind : kind % 10];
    }
    differences.Compare(text);
  }
  EXPECT_TRUE(differences.texts.empty()) << testing::PrintToString(differences.texts);
}

TEST(ParseNumber, AgreesWithAStreamAtTheLimitsOfTheTypes) {
  Differences differences;
  for (const wchar_t* text : {
           L"2147483646",
           L"2147483647",
           L"2147483648",
           L"2147483657",
           L"4294967295",
           L"4294967296",
           L"4294967301",
           L"9223372036854775807",
           L"9223372036854775808",
           L"18446744073709551616",
           L"99999999999999999999999999999999999999",
           L"0000000000000000000002147483647",
           L"1.7976931348623157e308",
           L"1.7976931348623158e308",
           L"1.7976931348623159e308",
           L"17976931348623157e292",
           L"0.00017976931348623157e312",
           L"1e308",
           L"1.8e308",
           L"1e309",
           L"1e999",
           L"1e99999999999999999999",
           L"0e999",
           L"0e99999999999999999999",
           L"0.0e-999",
           L"2.2250738585072014e-308",
           L"2.2250738585072011e-308",
           L"4.9406564584124654e-324",
           L"5e-324",
           L"3e-324",
           L"2e-324",
           L"1e-400",
           L"1e-99999999999999999999",
           L"9007199254740993",
           L"9007199254740992.5",
           L"0.1",
           L"1e23",
           L"8.41e21",
           L"5e-0324",
           L"123456789012345678901234567890",
           L"0.30000000000000004",
           L"2.22507385850720113605740979670913197593481954635164564e-308",
       }) {
    differences.Compare(text);
    differences.Compare(L"-"s + text);
    differences.Compare(L"+"s + text);
  }
  EXPECT_TRUE(differences.texts.empty()) << testing::PrintToString(differences.texts);
}

TEST(ParseInt, TakesDecimalDigitsAfterWhiteSpaceASignOrZeros) {
  struct Case {
    const wchar_t* text;
    int number;
  };
  const Case cases[] = {
      {L"0", 0},     {L"12", 12},
      {L" 12", 12},  {L"   12", 12},
      {L"\t12", 12}, {L"\r\n\v\f12", 12},
      {L"+5", 5},    {L"-5", -5},
      {L" -5", -5},  {L"007", 7},
      {L"-007", -7}, {L"-0", 0},
      {L"+000", 0},  {L"00000000000000000012", 12},
  };
  for (const Case& one : cases) EXPECT_EQ(IntOf(one.text), one.number) << one.text;
}

TEST(ParseInt, TakesThe32BitRangeAndNoMore) {
  EXPECT_EQ(IntOf(L"2147483647"), 2147483647);
  EXPECT_EQ(IntOf(L"-2147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(IntOf(L"2147483648"), std::nullopt);
  EXPECT_EQ(IntOf(L"-2147483649"), std::nullopt);
  EXPECT_EQ(IntOf(L"4294967301"), std::nullopt);
  EXPECT_EQ(IntOf(L"99999999999999999999"), std::nullopt);
}

TEST(ParseInt, RefusesAnythingButAnInteger) {
  for (const wchar_t* text :
       {L"",      L" ",     L"\t",    L"+",  L"-",     L"+-5",  L"-+5", L"--5", L"- 5",
        L"12abc", L"abc",   L"0x10",  L"x",  L"0b1",   L"2.5",  L"2.",  L".5",  L"1e3",
        L"1,000", L"1 000", L"1'000", L"5;", L"\"5\"", L"true", L"№5",  L"5№"}) {
    EXPECT_EQ(IntOf(text), std::nullopt) << text;
  }
}

TEST(ParseInt, RefusesWhiteSpaceAfterTheNumber) {
  for (const wchar_t* text : {L"12 ", L"12\t", L"12\n", L"12\r", L"12\xA0", L" 12 "}) {
    EXPECT_EQ(IntOf(text), std::nullopt) << text;
  }
}

TEST(ParseInt, TakesNoDigitsButTheAsciiOnes) {
  EXPECT_EQ(IntOf(L"\x0661\x0662"), std::nullopt);  // Arabic
  EXPECT_EQ(IntOf(L"1\x0662"), std::nullopt);
  EXPECT_EQ(IntOf(L"\xFF11"), std::nullopt);      // of full width
  EXPECT_EQ(IntOf(L"\x0131"), std::nullopt);      // its low byte is "1"
  EXPECT_EQ(IntOf(L"5\x0135"), std::nullopt);     // its low byte is "5"
  EXPECT_EQ(IntOf(L"\U0001D7CF"), std::nullopt);  // above U+FFFF
  EXPECT_EQ(IntOf(L"\x2212"
                  L"5"),
            std::nullopt);  // the mathematical minus
}

// A unit that is no character and is negative on some systems.
TEST(ParseNumber, TakesNoDigitsButTheAsciiOnes) {
  const std::wstring unit(1, static_cast<wchar_t>(0xFFFFFF36));  // its low byte is "6"
  EXPECT_EQ(IntOf(L"5" + unit), std::nullopt);
  EXPECT_EQ(RealOf(L"1." + unit), std::nullopt);
}

TEST(ParseNumber, SkipsLeadingWhiteSpaceOfAnyScript) {
  EXPECT_EQ(IntOf(L"\x2003-5"), -5);
  EXPECT_EQ(IntOf(L"\x3000\x2003 12"), 12);
  EXPECT_EQ(RealOf(L"\x3000+2.5"), 2.5);
  EXPECT_EQ(IntOf(L"\xFEFF+1"), std::nullopt);  // a byte order mark is none
}

TEST(ParseInt, DoesNotStopAtANul) {
  EXPECT_EQ(IntOf(L"5\0"s), std::nullopt);
  EXPECT_EQ(IntOf(L"5\0006"s), std::nullopt);
  EXPECT_EQ(IntOf(L"\0005"s), std::nullopt);
  EXPECT_EQ(IntOf(L"\0"s), std::nullopt);
}

TEST(ParseReal, TakesAPointAndAnExponent) {
  struct Case {
    const wchar_t* text;
    double number;
  };
  const Case cases[] = {
      {L"2.5", 2.5},    {L".5", 0.5},          {L"5.", 5},     {L"-.5", -0.5},
      {L"+.5", 0.5},    {L"1e3", 1000},        {L"1E3", 1000}, {L"1e+3", 1000},
      {L"1e-3", 0.001}, {L"1.e3", 1000},       {L".5e1", 5},   {L"1e003", 1000},
      {L" 2.5", 2.5},   {L"\t-2.5", -2.5},     {L"0.1", 0.1},  {L"007.50", 7.5},
      {L"0e999", 0},    {L"-1.5e-3", -0.0015},
  };
  for (const Case& one : cases) EXPECT_EQ(RealOf(one.text), one.number) << one.text;
}

TEST(ParseReal, TakesEveryIntegerText) {
  for (const wchar_t* text : {L"0", L"12", L" 12", L"+5", L"-5", L"007", L"2147483647"}) {
    ASSERT_TRUE(IntOf(text)) << text;
    EXPECT_EQ(RealOf(text), *IntOf(text)) << text;
  }
}

TEST(ParseReal, KeepsTheSignOfZero) {
  ASSERT_EQ(RealOf(L"-0"), 0.0);
  EXPECT_TRUE(std::signbit(*RealOf(L"-0")));
  EXPECT_FALSE(std::signbit(*RealOf(L"0")));
}

TEST(ParseReal, RefusesAnythingButAReal) {
  for (const wchar_t* text :
       {L"",    L" ",    L"+",    L"-",     L".",     L"+.",   L"-.",   L"e",       L"e3",
        L".e3", L"1e",   L"1e+",  L"1e-",   L"1,5",   L"1.5.", L"1..5", L"1.5e2.5", L"1e2e3",
        L"+-1", L"--1",  L"- 1",  L"1.5 ",  L"1.5\t", L"1.5x", L"1 .5", L"1. 5",    L"1e 3",
        L"1d3", L"1.5f", L"2.5;", L"1'000", L"½",     L"1½",   L"1\0",  L"\x0661.5"}) {
    if (*text == L'1' && text[1] == L'\0') continue;
    EXPECT_EQ(RealOf(text), std::nullopt) << text;
  }
  EXPECT_EQ(RealOf(L"1.5\0"s), std::nullopt);
}

TEST(ParseReal, TakesNoNamesAndNoHexadecimalDigits) {
  for (const wchar_t* text : {L"inf", L"-inf", L"infinity", L"INF", L"nan", L"NaN", L"nan(1)",
                              L"0x10", L"0X1P3", L"0x1.8", L"1p3", L"A"}) {
    EXPECT_EQ(RealOf(text), std::nullopt) << text;
  }
}

TEST(ParseReal, RefusesWhatIsBeyondTheRange) {
  for (const wchar_t* text :
       {L"1e309", L"-1e309", L"1e999", L"1.7976931348623159e308", L"1e99999999999999999999",
        L"1e-400", L"-1e-999", L"0.1e-400", L"1e-99999999999999999999", L"2e-324"}) {
    EXPECT_EQ(RealOf(text), std::nullopt) << text;
  }
}

TEST(ParseReal, TakesTheWholeRange) {
  EXPECT_EQ(RealOf(L"1.7976931348623157e308"), maxReal);
  EXPECT_EQ(RealOf(L"-1.7976931348623157e+308"), -maxReal);
  EXPECT_EQ(RealOf(L"2.2250738585072014e-308"), minNormal);
  EXPECT_EQ(RealOf(L"5e-324"), minReal);
  EXPECT_EQ(RealOf(L"1e-310"), 1e-310);
}

TEST(ParseReal, RoundsToTheNearestAndOnATieToTheEvenOne) {
  EXPECT_EQ(RealOf(L"9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(RealOf(L"9007199254740995"), 9007199254740996.0);
  EXPECT_EQ(RealOf(L"9007199254740993.00000000000000000000000000000000001"), 9007199254740994.0);
}

TEST(ParseNumber, TakesALineOfMegabytes) {
  const std::wstring zeros(5'000'000, L'0');
  EXPECT_EQ(IntOf(zeros), 0);
  EXPECT_EQ(IntOf(zeros + L"12"), 12);
  EXPECT_EQ(IntOf(L"1" + zeros), std::nullopt);
  EXPECT_EQ(RealOf(zeros + L"12"), 12);
  EXPECT_EQ(RealOf(L"2.5" + zeros), 2.5);
  EXPECT_EQ(RealOf(L"1" + zeros), std::nullopt);
  EXPECT_EQ(RealOf(L"0." + zeros + L"1"), std::nullopt);
  EXPECT_EQ(RealOf(std::wstring(5'000'000, L'x')), std::nullopt);
  EXPECT_EQ(IntOf(std::wstring(5'000'000, L' ') + L"12"), 12);
}

TEST(FormatInt, PrintsPlainDecimals) {
  EXPECT_EQ(FormatInt(0), L"0");
  EXPECT_EQ(FormatInt(7), L"7");
  EXPECT_EQ(FormatInt(-5), L"-5");
  EXPECT_EQ(FormatInt(1234567), L"1234567");
  EXPECT_EQ(FormatInt(std::numeric_limits<int>::max()), L"2147483647");
  EXPECT_EQ(FormatInt(std::numeric_limits<int>::min()), L"-2147483648");
}

TEST(FormatReal, PrintsTheShortestTextThatReadsBack) {
  struct Case {
    double number;
    const wchar_t* text;
  };
  const Case cases[] = {
      {1.0, L"1"},
      {2.5, L"2.5"},
      {0.1, L"0.1"},
      {0.1 + 0.2, L"0.30000000000000004"},
      {1.0 / 3, L"0.3333333333333333"},
      {-2.5, L"-2.5"},
      {0.0, L"0"},
      {-0.0, L"-0"},
      {100.0, L"100"},
      {120000.0, L"120000"},
      {1234567.5, L"1234567.5"},
      {123456789.0, L"123456789"},
      {maxReal, L"1.7976931348623157e+308"},
      {minNormal, L"2.2250738585072014e-308"},
      {minReal, L"5e-324"},
  };
  for (const Case& one : cases) EXPECT_EQ(FormatReal(one.number), one.text);
}

TEST(FormatReal, PrintsAnExponentOnlyWhereThatIsShorter) {
  EXPECT_EQ(FormatReal(10000.0), L"10000");
  EXPECT_EQ(FormatReal(100000.0), L"1e+05");
  EXPECT_EQ(FormatReal(0.001), L"0.001");
  EXPECT_EQ(FormatReal(0.0001), L"1e-04");
  EXPECT_EQ(FormatReal(0.00001), L"1e-05");
}

TEST(FormatReal, PrintsInfinitiesAndNanByTheirNames) {
  EXPECT_EQ(FormatReal(std::numeric_limits<double>::infinity()), L"inf");
  EXPECT_EQ(FormatReal(-std::numeric_limits<double>::infinity()), L"-inf");
  EXPECT_EQ(FormatReal(std::numeric_limits<double>::quiet_NaN()), L"nan");
}

TEST(FormatInt, ReadsBack) {
  std::mt19937 random(21);
  for (int i = 0; i < 20'000; ++i) {
    // All lengths are equally likely.
    const int number = static_cast<int>(random()) >> (random() % 32);
    ASSERT_EQ(IntOf(FormatInt(number)), number);
  }
}

TEST(FormatReal, ReadsBackAsTheSameNumber) {
  std::mt19937_64 random(22);
  for (int i = 0; i < 50'000; ++i) {
    // Random bits have all magnitudes; some numbers are of usual size.
    double number = std::bit_cast<double>(random());
    if (i % 4 == 1) number = static_cast<double>(random() % 10'000'000) / 1000;
    if (i % 4 == 2) number = std::bit_cast<double>(random() >> 12);  // subnormal
    if (!std::isfinite(number)) continue;
    const std::wstring text = FormatReal(number);
    const std::optional<double> read = RealOf(text);
    ASSERT_TRUE(read) << text;
    ASSERT_EQ(Bits(*read), Bits(number)) << text;
  }
}

// Replaces the global locale for its lifetime.
class GlobalNumberLocale {
 public:
  explicit GlobalNumberLocale(const std::locale& locale) : previous(std::locale::global(locale)) {}
  GlobalNumberLocale(const GlobalNumberLocale&) = delete;
  GlobalNumberLocale& operator=(const GlobalNumberLocale&) = delete;
  ~GlobalNumberLocale() { std::locale::global(previous); }

 private:
  std::locale previous;
};

// Numbers as in 1.234.567,5.
template <class Unit>
class CommaPunctuation : public std::numpunct<Unit> {
 protected:
  Unit do_decimal_point() const override { return Unit(','); }
  Unit do_thousands_sep() const override { return Unit('.'); }
  std::string do_grouping() const override { return "\3"; }
};

void ExpectNumbersOfTheClassicLocale() {
  EXPECT_EQ(RealOf(L"2.5"), 2.5);
  EXPECT_EQ(RealOf(L"2,5"), std::nullopt);
  EXPECT_EQ(RealOf(L"1.000"), 1);
  EXPECT_EQ(RealOf(L"1.234.567"), std::nullopt);
  EXPECT_EQ(IntOf(L"1.000"), std::nullopt);
  EXPECT_EQ(IntOf(L"1,000"), std::nullopt);
  EXPECT_EQ(IntOf(L"1234567"), 1234567);
  EXPECT_EQ(FormatReal(1234567.5), L"1234567.5");
  EXPECT_EQ(FormatInt(1234567), L"1234567");
}

TEST(Numbers, AreThoseOfTheClassicLocaleWhateverTheGlobalPunctuation) {
  const std::locale narrow(std::locale::classic(), new CommaPunctuation<char>);
  const GlobalNumberLocale global(std::locale(narrow, new CommaPunctuation<wchar_t>));
  std::wostringstream stream;
  stream << 1234567;
  ASSERT_EQ(stream.str(), L"1.234.567");
  ExpectNumbersOfTheClassicLocale();
}

TEST(Numbers, AreThoseOfTheClassicLocaleWhateverTheLocaleOfTheProcess) {
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "ru_RU.UTF-8", "ru_RU.utf8",
                           "fr_FR.UTF-8", "de-DE", "ru-RU"}) {
    std::optional<std::locale> locale;
    try {
      locale.emplace(name);
    } catch (const std::runtime_error&) {
      continue;  // not installed
    }
    // A named locale becomes that of the C library too.
    const GlobalNumberLocale global(*locale);
    ExpectNumbersOfTheClassicLocale();
    return;
  }
  GTEST_SKIP() << "no locale with a decimal comma is installed";
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
