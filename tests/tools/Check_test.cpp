// `classify check` as its user sees it: what it prints, and its exit status.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/Program.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

class CheckCommand : public testing::Test {
 protected:
  void SetUp() override {
    folder.Write("clean.txt", "==MAPTEXT\n@A\nwall\n");
    folder.Write("hint.txt", "==MAPTEXT\n@A\nwall  in\n");
    folder.Write("warning.txt", "==MAPTEXT\n@A\nwall\nwall in\n");
    folder.Write("error.txt", "==MAPTEXT\n@A\nwall\n==Domen\n");
    folder.Write("domen.txt", "==DOMEN\n/ none yet\n");
  }

  // Runs the program in the test's folder.
  Outcome Run(const std::string& arguments) const {
    return RunProgram(CLASSIFY_PROGRAM, "check " + arguments, folder.Path());
  }

  // With variables of the environment, as "LANG=ru_RU.UTF-8".
  Outcome RunIn(const std::string& environment, const std::string& arguments) const {
    return RunProgram("env",
                      "-u LC_ALL -u LC_MESSAGES -u LANG " + environment +
                          " \"" CLASSIFY_PROGRAM "\" check " + arguments,
                      folder.Path());
  }

  TempFolder folder;
};

const std::string warningInEnglish =
    "warning.txt:4:1: warning: No description gets to this pattern, since one that it fits is "
    "taken "
    "by \"wall\" before; make that pattern longer, or move this one above it if both have as many "
    "words. [209]\n"
    "warning.txt:3:1: note: this pattern comes first\n";

const std::string warningInRussian =
    "warning.txt:4:1: warning: Ни одно описание не дойдёт до этого образца: всё, что ему подходит, "
    "раньше забирает «wall»; сделайте тот образец длиннее или, если слов поровну, поставьте этот "
    "выше. [209]\n"
    "warning.txt:3:1: note: этот образец идёт раньше\n";

TEST_F(CheckCommand, PrintsALineForEachFindingAndEachRelatedPlace) {
  const Outcome outcome = Run("--language en --classificator warning.txt");
  EXPECT_EQ(outcome.output, warningInEnglish);
  EXPECT_EQ(outcome.errors, "");
}

TEST_F(CheckCommand, PrintsNothingForAFileWithoutFindings) {
  const Outcome outcome = Run("--classificator clean.txt --domen domen.txt");
  EXPECT_EQ(outcome.output + outcome.errors, "");
}

TEST_F(CheckCommand, EndsWith1IfAndOnlyIfSomethingOfTheSeverityWasFound) {
  struct Case {
    const char* arguments;
    int status;
  };
  const Case cases[] = {
      {"--classificator clean.txt", 0},
      {"--classificator clean.txt --fail-on hint", 0},
      {"--classificator hint.txt", 0},
      {"--classificator hint.txt --fail-on warning", 0},
      {"--classificator hint.txt --fail-on hint", 1},
      {"--classificator warning.txt", 0},
      {"--classificator warning.txt --fail-on error", 0},
      {"--classificator warning.txt --fail-on warning", 1},
      {"--classificator warning.txt --fail-on hint", 1},
      {"--classificator error.txt", 1},
      {"--classificator error.txt --fail-on hint", 1},
      {"--classificator error.txt --fail-on never", 0},
      {"--classificator error.txt --format json", 1},
      {"--classificator clean.txt --classificator error.txt --domen domen.txt", 1},
  };
  for (const Case& one : cases) EXPECT_EQ(Run(one.arguments).status, one.status) << one.arguments;
}

TEST_F(CheckCommand, FailsWithOneSentenceAndNoOutput) {
  fs::create_directory(folder.Path() / "folder.txt");
  struct Case {
    const char* arguments;
    int status;
    const char* sentence;
  };
  const Case cases[] = {
      {"", 2, "--classificator or --domen is required (see classify check --help)"},
      {"--format json", 2, "--classificator or --domen is required (see classify check --help)"},
      {"--domen domen.txt --language de", 2,
       "--language: de not in {en,ru} (see classify check --help)"},
      {"--domen domen.txt --fail-on all", 2,
       "--fail-on: all not in {error,warning,hint,never} (see classify check --help)"},
      {"--classificator none.txt", 3, "\"none.txt\" is not there, or can't be read."},
      {"--classificator error.txt --domen none.json", 3,
       "\"none.json\" is not there, or can't be read."},
      {"--classificator folder.txt", 3, "\"folder.txt\" is not there, or can't be read."},
  };
  for (const Case& one : cases) {
    const Outcome outcome = Run(one.arguments);
    EXPECT_EQ(outcome.status, one.status) << one.arguments;
    EXPECT_EQ(outcome.output, "") << one.arguments;
    EXPECT_EQ(outcome.errors, std::string("classify: ") + one.sentence + "\n") << one.arguments;
  }
}

TEST_F(CheckCommand, RefusesUnknownOptionsAndFormats) {
  for (const char* argument : {"--unknown", "--format xml"}) {
    const Outcome outcome = Run(std::string("--domen domen.txt ") + argument);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.starts_with("classify: ")) << outcome.errors;
    EXPECT_TRUE(outcome.errors.ends_with(" (see classify check --help)\n")) << outcome.errors;
  }
}

TEST_F(CheckCommand, TellsTheFateOfEveryStatementWhenAskedForAll) {
  EXPECT_EQ(Run("--language en --all --classificator warning.txt").output,
            "warning.txt:1:1: used\n"
            "warning.txt:2:1: used\n"
            "warning.txt:3:1: used\n"
            "warning.txt:4:1: unreachable\n" +
                warningInEnglish);
}

TEST_F(CheckCommand, PrintsJson) {
  EXPECT_EQ(Run("--language en --format json --classificator clean.txt").output, R"({
  "findings": [],
  "summary": {
    "errors": 0,
    "warnings": 0,
    "hints": 0
  }
}
)");
  EXPECT_EQ(Run("--language ru --format json --all --classificator warning.txt").output, R"({
  "findings": [
    {
      "file": "warning.txt",
      "line": 4,
      "column": 1,
      "endLine": 4,
      "endColumn": 8,
      "severity": "warning",
      "number": 209,
      "name": "unreachable",
      "fate": "unreachable",
      "message": "Ни одно описание не дойдёт до этого образца: всё, что ему подходит, раньше забирает «wall»; сделайте тот образец длиннее или, если слов поровну, поставьте этот выше.",
      "related": [
        {
          "file": "warning.txt",
          "line": 3,
          "column": 1,
          "message": "этот образец идёт раньше"
        }
      ]
    }
  ],
  "statements": [
    {
      "file": "warning.txt",
      "line": 1,
      "column": 1,
      "endLine": 1,
      "endColumn": 10,
      "section": "==MAPTEXT",
      "fate": "used"
    },
    {
      "file": "warning.txt",
      "line": 2,
      "column": 1,
      "endLine": 2,
      "endColumn": 3,
      "section": "==MAPTEXT",
      "fate": "used"
    },
    {
      "file": "warning.txt",
      "line": 3,
      "column": 1,
      "endLine": 3,
      "endColumn": 5,
      "section": "==MAPTEXT",
      "fate": "used"
    },
    {
      "file": "warning.txt",
      "line": 4,
      "column": 1,
      "endLine": 4,
      "endColumn": 8,
      "section": "==MAPTEXT",
      "fate": "unreachable"
    }
  ],
  "summary": {
    "errors": 0,
    "warnings": 1,
    "hints": 0
  }
}
)");
}

TEST_F(CheckCommand, PrintsTheSameBytesForTheSameFiles) {
  for (const char* format : {"text", "json", "sarif"}) {
    const std::string arguments = std::string("--all --format ") + format +
                                  " --classificator warning.txt --classificator error.txt"
                                  " --domen domen.txt";
    EXPECT_EQ(Run(arguments).output, Run(arguments).output);
  }
}

TEST_F(CheckCommand, WritesFindingsInEitherLanguage) {
  EXPECT_EQ(Run("--language en --classificator warning.txt").output, warningInEnglish);
  EXPECT_EQ(Run("--language ru --classificator warning.txt").output, warningInRussian);
}

TEST_F(CheckCommand, WritesFindingsInTheLanguageOfTheSystem) {
  if (fs::path::preferred_separator != '/') GTEST_SKIP() << "no program `env`";
  struct Case {
    const char* environment;
    bool isRussian;
  };
  const Case cases[] = {
      {"", false},
      {"LC_ALL=ru_RU.UTF-8", true},
      {"LANG=ru_RU.UTF-8", true},
      {"LC_MESSAGES=ru_RU.UTF-8 LANG=en_US.UTF-8", true},
      {"LC_ALL=C LC_MESSAGES=ru_RU.UTF-8 LANG=ru_RU.UTF-8", false},
      {"LC_ALL= LANG=ru_RU.UTF-8", true},
      {"LANG=de_DE.UTF-8", false},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(RunIn(one.environment, "--classificator warning.txt").output,
              one.isRussian ? warningInRussian : warningInEnglish)
        << one.environment;
  }
  EXPECT_EQ(RunIn("LC_ALL=ru_RU.UTF-8", "--language en --classificator warning.txt").output,
            warningInEnglish);
}

TEST_F(CheckCommand, LoadsClassificatorsFirstAndEachInItsOrder) {
  EXPECT_EQ(
      Run("--language en --all --domen domen.txt --classificator hint.txt "
          "--classificator clean.txt")
          .output,
      "hint.txt:1:1: used\n"
      "hint.txt:2:1: used\n"
      "hint.txt:3:1: used\n"
      "clean.txt:1:1: used\n"
      "clean.txt:2:1: used\n"
      "clean.txt:3:1: used\n"
      "domen.txt:1:1: used\n"
      "domen.txt:2:1: comment\n"
      "hint.txt:3:1: hint: Two blanks in a row make an empty word, which any word fits; write "
      "one blank unless that is meant. [213]\n");
}

TEST_F(CheckCommand, FindsFilesInTheDataFolder) {
  fs::create_directory(folder.Path() / "schemes");
  folder.Write("schemes/other.txt", "==MAPTEXT\n@A\nwall  in\n");
  const Outcome outcome =
      Run("--data-folder schemes --classificator other.txt --fail-on hint --language en");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.output.starts_with("other.txt:3:1: hint: ")) << outcome.output;
}

TEST_F(CheckCommand, KeepsAFindingOnOneLineWhateverIsInIt) {
  folder.Write("semicolons.txt", "==MAPTEXT\n@A; wall;\n@B\nroof;\n");
  const std::string output = Run("--language en --classificator semicolons.txt").output;
  EXPECT_EQ(output,
            "semicolons.txt:3:1: warning: No pattern follows the code B roof, so that no element "
            "gets it; write a pattern below the header, or delete the header. [207]\n");
}

TEST_F(CheckCommand, ShowsTheLineAndAMarkerOnATerminal) {
  if (RunProgram("script", "--version", folder.Path()).status != 0) {
    GTEST_SKIP() << "no program `script` to make a terminal";
  }
  folder.Write("marked.txt", "==MAPTEXT\n@A\n  ж  in\n");
  const std::string command = CLASSIFY_PROGRAM " check --language en --classificator marked.txt";
  const auto onTerminal = [&](const std::string& environment) {
    return WithoutCarriageReturns(RunProgram("env",
                                             "-u NO_COLOR TERM=xterm " + environment +
                                                 " script -qec '" + command + "' typescript",
                                             folder.Path())
                                      .output);
  };
  const std::string sentence =
      ": Two blanks in a row make an empty word, which any word fits; write one blank unless that "
      "is meant. [213]\n";
  const std::string plain = "marked.txt:3:3: hint" + sentence + "  ж  in\n  ^^^^^\n";
  EXPECT_EQ(onTerminal("NO_COLOR=1"), plain);
  EXPECT_EQ(onTerminal("TERM=dumb"), plain);
  EXPECT_EQ(onTerminal(""), "marked.txt:3:3: \033[1;36mhint\033[0m" + sentence +
                                "  ж  in\n  \033[1;36m^^^^^\033[0m\n");
}

TEST_F(CheckCommand, ListsItsOptionsAndExitStatusesInItsHelp) {
  const Outcome outcome = Run("--help");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  for (const char* part : {"--classificator FILE", "--domen FILE", "--data-folder DIR", "--format ",
                           "--all", "--fail-on error|warning|hint|never", "--language en|ru",
                           "docs/checks.md", "\n  0  ", "\n  1  ", "\n  2  ", "\n  3  "}) {
    EXPECT_NE(outcome.output.find(part), std::string::npos) << part;
  }
}

}  // namespace
