// Tests `classify` from the outside: its output, exit statuses and messages.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/Links.h"
#include "support/PlainUser.h"
#include "support/Program.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

class Classify : public testing::Test {
 protected:
  void SetUp() override {
    folder.Write("scheme.txt",
                 "==MAPTEXT\n@@ (D)\n$ Z99\n@W10 {GRADE=60,A}\nbasic wall\n@D20\ndoor\n");
    folder.Write("domain.txt", "==DOMEN\n@@@ D\n@ GRADE 0 1\nRating int 1 0\nClass str 1 none\n");
    folder.Write("elements.txt", "Basic Wall 200\nDoor 2\nRoof\nDoor 3\n");
  }

  // Runs the program with the test's folder as its current folder.
  Outcome Run(const std::string& arguments, const std::string& outputTo = "") const {
    return RunProgram(CLASSIFY_PROGRAM, arguments, folder.Path(), outputTo);
  }

  Outcome RunOnElements(const std::string& elements, const std::string& arguments = "") const {
    folder.Write("these.txt", elements);
    return Run("--classificator scheme.txt --domen domain.txt " + arguments + " these.txt");
  }

  TempFolder folder;
};

TEST_F(Classify, PrintsDescriptionCodeIdCodeAndMappingStringOfEachElement) {
  const Outcome outcome = Run("--classificator scheme.txt --domen domain.txt elements.txt");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output,
            "Basic Wall 200\t1\tW10\tClassCode W10;GRADE= 60 A;\n"
            "Door 2\t0\tD20\tClassCode D20;\n"
            "Roof\t-1\tZ99\tClassCode Z99;\n"
            "Door 3\t0\tD20\tClassCode D20;\n");
}

TEST_F(Classify, SummarisesOnStandardErrorWithoutABarWhereThatIsNoTerminal) {
  const Outcome outcome = Run("--classificator scheme.txt --domen domain.txt elements.txt");
  const std::string expected =
      "4 elements, 3 matched (75.0 %)\n"
      "most frequent codes:\n"
      "       2  D20\n"
      "       1  W10\n"
      "       1  Z99\n";
  EXPECT_EQ(outcome.errors.substr(0, expected.size()), expected);
  EXPECT_TRUE(outcome.errors.ends_with(" elements per second\n"));
  EXPECT_EQ(outcome.errors.find('\r'), std::string::npos);
}

TEST_F(Classify, ShowsABarWhereStandardErrorIsATerminal) {
  if (RunProgram("script", "--version", folder.Path()).status != 0) {
    GTEST_SKIP() << "no program `script` to make a terminal";
  }
  const std::string command = CLASSIFY_PROGRAM " --classificator scheme.txt elements.txt";
  const std::string screen =
      RunProgram("script", "-qec '" + command + "' typescript", folder.Path()).output;
  EXPECT_NE(screen.find("\r[........................................]   0 % of 4"),
            std::string::npos)
      << screen;
}

TEST_F(Classify, NamesAtMostTenCodes) {
  std::string scheme = "==MAPTEXT\n";
  std::string elements;
  for (char letter = 'a'; letter <= 'l'; ++letter) {
    scheme += std::string("@code-") + letter + "\n" + letter + "\n";
    elements += std::string(1, letter) + "\n";
  }
  folder.Write("twelve.txt", scheme);
  folder.Write("elements.txt", elements + "l\n");
  const Outcome outcome = Run("--classificator twelve.txt elements.txt");
  EXPECT_NE(outcome.errors.find("       2  code-l\n       1  code-a\n"), std::string::npos);
  EXPECT_NE(outcome.errors.find("code-i"), std::string::npos);
  EXPECT_EQ(outcome.errors.find("code-j"), std::string::npos);
}

TEST_F(Classify, PutsParameterNameSuffixAndMarksWhereTheyBelong) {
  const Outcome outcome =
      RunOnElements("basic wall\n", "--param P --suffix : --start-mark \"[[\" --end-mark \"]]\"");
  EXPECT_EQ(outcome.output, "basic wall\t1\tW10\t[[P W10;GRADE: 60 A;]]\n");
}

TEST_F(Classify, TakesAnEmptySuffix) {
  const Outcome outcome = RunOnElements("basic wall\n", "--suffix \"\"");
  EXPECT_EQ(outcome.output, "basic wall\t1\tW10\tClassCode W10;GRADE 60 A;\n");
}

TEST_F(Classify, HasNoItemsFromTheParamSection) {
  const Outcome outcome = RunOnElements("basic wall\n", "--source 2");
  EXPECT_EQ(outcome.output, "basic wall\t1\tW10\tClassCode W10;\n");
}

TEST_F(Classify, TakesTheDescriptionFromAColumnOfATable) {
  const Outcome outcome = RunOnElements("Doors\tdoor\t7\nWalls\tbasic wall\n", "--column 2");
  EXPECT_EQ(outcome.output,
            "door\t0\tD20\tClassCode D20;\n"
            "basic wall\t1\tW10\tClassCode W10;GRADE= 60 A;\n");
}

TEST_F(Classify, ReadsStandardInput) {
  const Outcome outcome = Run("--classificator scheme.txt - <elements.txt");
  EXPECT_EQ(outcome.output.substr(0, 19), "Basic Wall 200\t1\tW1");
}

TEST_F(Classify, FindsFilesInTheDataFolder) {
  fs::create_directory(folder.Path() / "schemes");
  folder.Write("schemes/other.txt", "==MAPTEXT\n@X\ndoor\n");
  const Outcome outcome = Run("--data-folder schemes --classificator other.txt elements.txt");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.output.find("Door 2\t0\tX\t"), std::string::npos);
}

TEST_F(Classify, CountsAnEmptyLineAsAnElementAndAFinalLineFeedAsNone) {
  EXPECT_EQ(RunOnElements("door\n\ndoor").output,
            "door\t0\tD20\tClassCode D20;\n"
            "\t-1\tZ99\tClassCode Z99;\n"
            "door\t0\tD20\tClassCode D20;\n");
}

TEST_F(Classify, PassesOverAByteOrderMarkAndCarriageReturns) {
  EXPECT_EQ(RunOnElements("\xEF\xBB\xBF"
                          "door\r\n")
                .output,
            "door\t0\tD20\tClassCode D20;\n");
}

TEST_F(Classify, WritesTabsWithinADescriptionAsBlanks) {
  EXPECT_EQ(RunOnElements("door\tleft\n").output, "door left\t0\tD20\tClassCode D20;\n");
}

TEST_F(Classify, PrintsNothingForNoElements) {
  const Outcome outcome = RunOnElements("");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "0 elements, 0 matched (0.0 %)\n");
}

TEST_F(Classify, MatchesCyrillicLettersWhateverTheirCase) {
  if (OWN_RUNTIMES) GTEST_SKIP() << "the library's runtime has no locale but the plain one";
  folder.Write("scheme.txt", "==MAPTEXT\n@А1\nстена\n");
  EXPECT_EQ(RunOnElements("СТЕНА 400\n").output, "СТЕНА 400\t0\tА1\tClassCode А1;\n");
}

TEST_F(Classify, FailsWithOneSentenceAStatusOfItsKindAndNoOutput) {
  folder.Write("latin1.txt", "door\nT\xFCr\n");
  folder.Write("zero.txt", std::string("do\0or\n", 6));
  folder.Write("SCHEME.TXT", "==MAPTEXT\n");
  folder.Write("broken.json", "{\n  Domen {}\n}\n");
  folder.Write("latin1.json", "{ Domen: { sName: 'T\xFCr' } }");
  folder.Write("half.json", R"({ Domen: { sName: '\uD83D', asFuncsNames: [] } })");
  fs::create_directory(folder.Path() / "folder.txt");
  struct Case {
    const char* arguments;
    int status;
    const char* sentence;
  };
  const Case cases[] = {
      {"--classificator none.txt elements.txt", 3,
       "Classificator file \"none.txt\" does not exist."},
      {"--classificator SCHEME.TXT elements.txt", 3,
       "Classificator file \"SCHEME.TXT\" has a name that ends neither in \".txt\" nor in "
       "\".json\"."},
      {"--classificator folder.txt elements.txt", 3,
       "Classificator file \"folder.txt\" can't be opened."},
      {"--classificator scheme.txt --domen none.txt elements.txt", 4,
       "Domain file \"none.txt\" does not exist."},
      {"--classificator scheme.txt --domen folder.txt elements.txt", 4,
       "Domain file \"folder.txt\" can't be opened."},
      {"--classificator scheme.txt none.txt", 5, "Elements file \"none.txt\" can't be opened."},
      {"--classificator scheme.txt latin1.txt", 5,
       "Elements file \"latin1.txt\", line 2, is not UTF-8."},
      {"--classificator scheme.txt zero.txt", 5,
       "Elements file \"zero.txt\", line 1, contains a NUL."},
      {"--classificator scheme.txt --column 2 elements.txt", 5,
       "Elements file \"elements.txt\", line 1, has 1 column, but column 2 was requested."},
      {"--domen broken.json --list domens", 4,
       "Domain file \"broken.json\", line 2, column 9: a colon is expected behind a key."},
      {"--domen latin1.json --list domens", 4, "Domain file \"latin1.json\" is not UTF-8."},
      {"--domen half.json --list domens", 8, "A text contains a lone surrogate."},
      {"--domen domain.txt export E out.json", 7, "No domain \"E\" is loaded."},
      {"--domen domain.txt export D out.txt", 7,
       "Target \"out.txt\" has a name that doesn't end in \".json\"."},
      {"--domen domain.txt export D no/out.json", 7,
       "Target \"no/out.json\" could not be written."},
      {"--domen domain.txt export D", 2, "TARGET is required (see classify --help)"},
      {"elements.txt", 2, "--classificator is required (see classify --help)"},
      {"--classificator scheme.txt", 2, "ELEMENTS is required (see classify --help)"},
      {"--domen domain.txt --colours --list domens", 2,
       "--classificator is required (see classify --help)"},
      {"--classificator scheme.txt --list codes", 2,
       "--list: codes not in {domens,properties,fields} (see classify --help)"},
      {"--classificator scheme.txt --source 3 elements.txt", 2,
       "--source: 3 not in {1,2} (see classify --help)"},
  };
  for (const Case& one : cases) {
    const Outcome outcome = Run(one.arguments);
    EXPECT_EQ(outcome.status, one.status) << one.arguments;
    EXPECT_EQ(outcome.output, "") << one.arguments;
    EXPECT_EQ(outcome.errors, std::string("classify: ") + one.sentence + "\n") << one.arguments;
  }
}

TEST_F(Classify, SaysWhyAFileCannotBeReached) {
  if (!MakeLink("loop.txt", folder.Path() / "loop.txt")) {
    GTEST_SKIP() << "no links can be made here";
  }
  const Outcome outcome = Run("--classificator loop.txt elements.txt");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_TRUE(
      outcome.errors.starts_with("classify: Classificator file \"loop.txt\" can't be reached: "))
      << outcome.errors;
}

TEST_F(Classify, SaysThatTheOutputCouldNotBeWritten) {
  if (fs::path::preferred_separator != '/' || !fs::exists("/dev/full")) {
    GTEST_SKIP() << "no device that is always full";
  }
  const Outcome outcome = Run("--classificator scheme.txt elements.txt", "/dev/full");
  EXPECT_EQ(outcome.status, 6);
  EXPECT_EQ(outcome.errors,
            "classify: The output could not be written: No space left on device.\n");
}

TEST_F(Classify, ListsTheColoursOfTheActiveColorat) {
  folder.Write("colours.txt",
               "==COLORAT\n@a A\nX 1 2 3 4\n@b B\nWalls 255 0 0 50\nDoors 300 1 2 3\n");
  const Outcome outcome = Run("--classificator colours.txt --colours");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "Doors\t2\t255\t1\t2\t3\nWalls\t1\t255\t0\t0\t50\n");
}

TEST_F(Classify, ShowsColoursWhereTheTerminalTakesThem) {
  if (RunProgram("script", "--version", folder.Path()).status != 0) {
    GTEST_SKIP() << "no program `script` to make a terminal";
  }
  folder.Write("colours.txt", "==COLORAT\n@b B\nWalls 255 0 7 50\n");
  const std::string command = CLASSIFY_PROGRAM " --classificator colours.txt --colours";
  const auto onTerminal = [&](const std::string& colours) {
    return RunProgram("env", "COLORTERM=" + colours + " script -qec '" + command + "' typescript",
                      folder.Path());
  };
  EXPECT_EQ(onTerminal("truecolor").output,
            "Walls\t1\t255\t0\t7\t50\t\033[48;2;255;0;7m      \033[0m\r\n");
  EXPECT_EQ(onTerminal("").output, "Walls\t1\t255\t0\t7\t50\r\n");
}

TEST_F(Classify, ListsDomensPropertiesAndFields) {
  folder.Write("more.txt",
               "==DOMEN\n@@@ E\n@@ Door Gate\n@ B 1 -2 Leaf of a door\nW real 1 0.9 Width\n"
               "@@ Door\n@ A 0 1\n@@\n@ C 0 3\nN slist 0 x\n");
  struct Case {
    const char* list;
    const char* output;
  };
  const Case cases[] = {
      {"domens", "D\tD\t\nE\tE\tactive\n"},
      {"properties",
       "D\tGRADE\tGRADE\t1\t2\nE\tA\tA\t1\t0\nE\tB\tLeaf of a door\t-2\t1\nE\tC\tC\t3\t1\n"},
      {"properties --type Gate",
       "D\tGRADE\tGRADE\t1\t2\nE\tB\tLeaf of a door\t-2\t1\nE\tC\tC\t3\t1\n"},
      {"properties --type Wall --type Gate", "D\tGRADE\tGRADE\t1\t2\nE\tC\tC\t3\t1\n"},
      {"fields --type Gate",
       "D\tGRADE\tRating\tRating\tint\t1\t0\nD\tGRADE\tClass\tClass\tstr\t1\tnone\n"
       "E\tB\tW\tWidth\treal\t1\t0.9\nE\tC\tN\tN\tslist\t0\tx\n"},
  };
  for (const Case& one : cases) {
    const Outcome outcome =
        Run(std::string("--domen domain.txt --domen more.txt --list ") + one.list);
    EXPECT_EQ(outcome.status, 0) << one.list;
    EXPECT_EQ(outcome.output, one.output) << one.list;
  }
}

TEST_F(Classify, ReadsDomainsInJson5) {
  folder.Write(
      "json.json",
      "{ Domen: { asFuncsNames: ['GRADE'] }, Properties: { GRADE: { asFuncsNames: ['F'] } } }");
  folder.Write("scheme.txt", "==MAPTEXT\n@@ (json)\n@W10 {GRADE=60}\nwall\n");
  folder.Write("elements.txt", "wall\n");
  const Outcome outcome = Run("--classificator scheme.txt --domen json.json elements.txt");
  EXPECT_EQ(outcome.output, "wall\t0\tW10\tClassCode W10;GRADE= 60;\n");
}

TEST_F(Classify, ExportsADomainThatItCanReadAgain) {
  const Outcome outcome = Run("--domen domain.txt export D out.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output + outcome.errors, "");
  EXPECT_EQ(Run("--domen out.json --list properties").output, "out\tGRADE\tGRADE\t1\t2\n");
}

// The older file has the same properties, so that only its bytes differ from the new one.
TEST_F(Classify, SaysThatAnExportLeftAnOlderOne) {
  const fs::path target = folder.Path() / "out.json";
  ASSERT_EQ(Run("--domen domain.txt export D out.json").status, 0);
  const std::string older = ReadBytes(target);
  folder.Write("domain.txt",
               "==DOMEN\n@@@ D\n@ GRADE 0 1 Grade\nRating int 1 0\nClass str 1 none\n");
  fs::permissions(folder.Path(), fs::perms::all);
  fs::permissions(target, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  bool closed = false;
  Outcome outcome = {};
  try {
    const PlainUser plainUser;
    closed = Run("--help").status == 0 && !std::ofstream(target, std::ios::app);
    outcome = Run("--domen domain.txt export D out.json");
  } catch (const fs::filesystem_error&) {
    closed = false;
  }
  fs::permissions(target, fs::perms::owner_all);
  if (!closed) GTEST_SKIP() << "no file is closed to this user, or the program and all folders are";
  EXPECT_EQ(outcome.status, 7);
  EXPECT_TRUE(outcome.errors.starts_with("classify: Target \"out.json\" could not be written.\n"))
      << outcome.errors;
  EXPECT_EQ(ReadBytes(target), older);
}

TEST_F(Classify, SaysThatATargetCannotBeReached) {
  if (!MakeLink("loop.json", folder.Path() / "loop.json")) {
    GTEST_SKIP() << "no links can be made here";
  }
  const Outcome outcome = Run("--domen domain.txt export D loop.json");
  EXPECT_EQ(outcome.status, 7);
  EXPECT_EQ(outcome.errors, "classify: Target \"loop.json\" could not be written.\n");
}

TEST_F(Classify, WaitsForNoPipe) {
  if (fs::path::preferred_separator != '/' ||
      RunProgram("mkfifo", "pipe.json", folder.Path()).status != 0) {
    GTEST_SKIP() << "no pipes that are files here";
  }
  EXPECT_EQ(Run("--domen pipe.json --list domens").errors,
            "classify: Domain file \"pipe.json\" could not be read to its end.\n");
  EXPECT_EQ(Run("--domen domain.txt export D pipe.json").errors,
            "classify: Target \"pipe.json\" could not be written.\n");
}

TEST_F(Classify, ListsItsExitStatusesInItsHelp) {
  const Outcome outcome = Run("--help");
  EXPECT_EQ(outcome.status, 0);
  for (const char* line :
       {"\n  2  ", "\n  3  ", "\n  4  ", "\n  5  ", "\n  6  ", "\n  7  ", "\n  8  "}) {
    EXPECT_NE(outcome.output.find(line), std::string::npos) << line;
  }
}

TEST_F(Classify, PrintsItsVersionWithoutAnythingToClassify) {
  const Outcome outcome = Run("--version");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "classify " CLASSIFY_VERSION "\n");
  EXPECT_EQ(outcome.errors, "");
}

}  // namespace
