// `classify check --format sarif`. That the output is SARIF at all, its published schema tells
// (tests/json/reports_test.sh).

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/Program.h"
#include "support/TempFolder.h"

namespace {

class CheckSarif : public testing::Test {
 protected:
  // The output for a classificator of this name.
  std::string Sarif(const std::string& name, const std::string& bytes,
                    const std::string& options = "--language en") const {
    folder.Write(name, bytes);
    const Outcome outcome = RunProgram(
        CLASSIFY_PROGRAM,
        "check --fail-on never --format sarif " + options + " --classificator \"" + name + "\"",
        folder.Path());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    return outcome.output;
  }

  static void ExpectIn(const std::string& output, const std::string& part) {
    EXPECT_NE(output.find(part), std::string::npos) << part << "\n in \n" << output;
  }

  TempFolder folder;
};

const std::string hidden = "==MAPTEXT\n@A\nж 1\nж 1 2\n";

TEST_F(CheckSarif, HasTheFindingWithItsRuleItsPlaceAndARelatedPlace) {
  const std::string output = Sarif("s.txt", hidden);
  ExpectIn(output, "\"version\": \"2.1.0\"");
  ExpectIn(output, "\"columnKind\": \"unicodeCodePoints\"");
  const std::string results = output.substr(output.find("\"results\""));
  ExpectIn(results, "\"ruleId\": \"209\"");
  ExpectIn(results, "\"level\": \"warning\"");
  ExpectIn(results,
           "\"startLine\": 4,\n                  \"startColumn\": 1,\n"
           "                  \"endLine\": 4,\n                  \"endColumn\": 6\n");
  ExpectIn(results, "\"relatedLocations\"");
  ExpectIn(results, "\"text\": \"this pattern comes first\"");
}

TEST_F(CheckSarif, HasAHintAsANote) {
  const std::string output = Sarif("s.txt", "==MAPTEXT\n@A\nwall  in\n");
  ExpectIn(output.substr(output.find("\"results\"")), "\"level\": \"note\"");
}

TEST_F(CheckSarif, HasTheVersionOfTheProgram) {
  const std::string version = RunProgram(CLASSIFY_PROGRAM, "--version", folder.Path()).output;
  const std::string number = version.substr(0, version.find_last_not_of("\r\n") + 1);
  ExpectIn(Sarif("s.txt", hidden),
           "\"version\": \"" + number.substr(number.find_last_of(' ') + 1) + "\"");
}

TEST_F(CheckSarif, EncodesWhatAUriCantHold) {
  ExpectIn(Sarif("a b#ж.txt", hidden), "\"uri\": \"a%20b%23%D0%B6.txt\"");
}

TEST_F(CheckSarif, DoublesTheBracesOfAMessage) {
  const std::string output = Sarif("s.txt", "==MAPTEXT\n@A\n{wall}\n{wall} in\n");
  ExpectIn(output, "is taken by \\\"{{wall}}\\\" before");
}

TEST_F(CheckSarif, SpeaksRussian) {
  const std::string output = Sarif("s.txt", hidden, "--language ru");
  ExpectIn(output, "\"language\": \"ru\"");
  ExpectIn(output, "\"text\": \"этот образец идёт раньше\"");
}

TEST_F(CheckSarif, IsTheSameForTheSameFiles) {
  EXPECT_EQ(Sarif("s.txt", hidden), Sarif("s.txt", hidden));
}

}  // namespace
