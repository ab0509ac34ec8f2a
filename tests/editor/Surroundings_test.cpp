// Tests that the process around the library changes no answer: locales (except for capitals),
// current folders, time zones.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <locale>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "classify/Environment.h"
#include "support/CurrentFolder.h"
#include "support/RichSession.h"
#include "support/UpperFails.h"

namespace fs = std::filesystem;

namespace {

using Editor = RichSession::Editor;

constexpr const char* localeNames[] = {"C", "ru_RU.UTF-8", "de_DE.UTF-8", "tr_TR.UTF-8"};

// Which runtime gets a locale: only C, both, or only C++.
enum class Runtime { c, both, cpp };
constexpr Runtime runtimes[] = {Runtime::c, Runtime::both, Runtime::cpp};

// Restores the locales of both runtimes at the end of its lifetime.
class LocalesAsTheyWere {
 public:
  LocalesAsTheyWere() = default;
  LocalesAsTheyWere(const LocalesAsTheyWere&) = delete;
  LocalesAsTheyWere& operator=(const LocalesAsTheyWere&) = delete;
  ~LocalesAsTheyWere() { Restore(); }

  void Restore() const {
    std::locale::global(cpp);
    std::setlocale(LC_ALL, c.c_str());
  }

 private:
  std::locale cpp;
  std::string c = std::setlocale(LC_ALL, nullptr);
};

bool IsThere(const char* name) {
  const LocalesAsTheyWere before;
  try {
    const std::locale made(name);
    return std::setlocale(LC_ALL, name) != nullptr;
  } catch (const std::runtime_error&) {
    return false;
  }
}

void SetLocale(const char* name, Runtime runtime) {
  const std::string c = std::setlocale(LC_ALL, nullptr);
  if (runtime != Runtime::c) std::locale::global(std::locale(name));
  std::setlocale(LC_ALL, runtime == Runtime::cpp ? c.c_str() : name);
}

std::vector<const char*> LocalesThatAreThere() {
  std::vector<const char*> names;
  for (const char* name : localeNames) {
    if (IsThere(name)) names.push_back(name);
  }
  return names;
}

// Skips the test if the system lacks some of the locales. The others have been tested then.
void SkipUnlessAllAreThere() {
  for (const char* name : localeNames) {
    if (!IsThere(name)) GTEST_SKIP() << "the system doesn't have the locale " << name;
  }
}

TEST(Surroundings, ChangeNoAnswerByALocaleThatIsSetBeforeTheLoad) {
  const LocalesAsTheyWere before;
  const RichSession session;
  const std::string expected = session.AnswersOfNewEditor();
  for (const char* name : LocalesThatAreThere()) {
    for (const Runtime runtime : runtimes) {
      before.Restore();
      SetLocale(name, runtime);
      EXPECT_TRUE(session.AnswersOfNewEditor() == expected) << name << static_cast<int>(runtime);
    }
  }
  SkipUnlessAllAreThere();
}

TEST(Surroundings, ChangeNoAnswerByALocaleThatIsSetBetweenCalls) {
  const LocalesAsTheyWere before;
  const RichSession session;
  const TempFolder to;
  const std::string expected = session.AnswersOfNewEditor();
  for (const char* name : LocalesThatAreThere()) {
    for (const Runtime runtime : runtimes) {
      before.Restore();
      SetLocale(name, runtime);
      Editor editor(L"", L"");
      session.LoadInto(editor, session.Folder());
      for (const char* later : LocalesThatAreThere()) {
        SetLocale(later, runtime);
        EXPECT_TRUE(session.AnswersAndExports(editor, to.Path()) == expected)
            << name << static_cast<int>(runtime) << ", and then " << later;
      }
    }
  }
  SkipUnlessAllAreThere();
}

// The library doesn't change the locales.
TEST(Surroundings, KeepTheirLocale) {
  const LocalesAsTheyWere before;
  const RichSession session;
  for (const char* name : LocalesThatAreThere()) {
    SetLocale(name, Runtime::both);
    const std::string ofC = std::setlocale(LC_ALL, nullptr);
    session.AnswersOfNewEditor();
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), ofC);
    EXPECT_EQ(std::locale().name(), std::locale(name).name());
  }
}

// In Turkish the capital of "i" has a dot, and that of the dotless letter has none.
TEST(Surroundings, MakeCapitalsByTheLocaleOfTheCall) {
  if (!oneRuntime) GTEST_SKIP() << "the library has a global locale of its own";
  if (!IsThere("tr_TR.UTF-8")) GTEST_SKIP() << "the system doesn't have the locale tr_TR.UTF-8";
  const LocalesAsTheyWere before;
  const TempFolder folder;
  const std::wstring file = folder.Write("scheme.txt", "==MAPTEXT\ntitle\n");
  Editor editor(L"", L"");
  const auto codeIds = [&editor] {
    return std::vector<int>{editor.GetClaccificatorCodeId(L"title"),
                            editor.GetClaccificatorCodeId(L"TITLE"),
                            editor.GetClaccificatorCodeId(L"T\u0130TLE")};
  };
  SetLocale("tr_TR.UTF-8", Runtime::both);
  EXPECT_EQ(editor.CreateClassificator(L"S", L"", L"", file.c_str()), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  EXPECT_EQ(codeIds(), (std::vector<int>{0, -1, 0}));
  before.Restore();
  EXPECT_EQ(codeIds(), (std::vector<int>{-1, -1, 0}));
}

// If the capitals are those of the C runtime's locale, the answers follow it, and otherwise they
// don't: an editor with filled caches answers as a new one.
TEST(Surroundings, MakeCapitalsByTheCRuntimeOfTheCallOrNotAtAll) {
  const LocalesAsTheyWere before;
  const TempFolder folder;
  const std::wstring file = folder.Write("scheme.txt", "==MAPTEXT\nст\n");
  const auto load = [&file](Editor& editor) {
    EXPECT_EQ(editor.CreateClassificator(L"S", L"", L"", file.c_str()), 0);
    EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  };
  std::setlocale(LC_ALL, "C");
  Editor asked(L"", L"");
  load(asked);
  for (const char* name : {"C", "", "C"}) {
    std::setlocale(LC_ALL, name);
    const int codeId = asked.GetClaccificatorCodeId(L"СТ");
    Editor fresh(L"", L"");
    std::setlocale(LC_ALL, "C");
    load(fresh);
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(codeId, fresh.GetClaccificatorCodeId(L"СТ")) << name;
  }
}

TEST(Surroundings, ChangeNoAnswerByTheCurrentFolder) {
  const RichSession session;
  const std::string expected = session.AnswersOfNewEditor();
  const TempFolder elsewhere;
  for (const fs::path& folder : {session.Path(), elsewhere.Path(), fs::path("/")}) {
    const CurrentFolder current(folder);
    EXPECT_TRUE(session.AnswersOfNewEditor() == expected) << folder;
  }
}

TEST(Surroundings, ChangeNoAnswerIfTheCurrentFolderChangesAfterALoad) {
  const RichSession session;
  const std::string expected = session.AnswersOfNewEditor();
  const TempFolder elsewhere;
  Editor editor(L"", L"");
  {
    const CurrentFolder current(session.Path());
    session.LoadInto(editor, L"");
  }
  for (const fs::path& folder : {elsewhere.Path(), fs::path("/")}) {
    const CurrentFolder current(folder);
    EXPECT_TRUE(session.AnswersAndExports(editor, elsewhere.Path()) == expected) << folder;
  }
}

TEST(Surroundings, ChangeNoAnswerByACurrentFolderThatIsGone) {
  const RichSession session;
  const std::string expected = session.AnswersOfNewEditor();
  const TempFolder folder;
  const fs::path gone = folder.Path() / "gone";
  fs::create_directory(gone);
  const CurrentFolder current(gone);
  std::error_code refused;  // because Windows refuses to remove a current folder
  fs::remove(gone, refused);
  EXPECT_TRUE(session.AnswersOfNewEditor() == expected);
}

// Removes the setting if `zone` is empty.
void SetZone(const char* zone) {
#ifdef _WIN32
  _putenv_s("TZ", zone);
  _tzset();
#else
  if (*zone) {
    setenv("TZ", zone, 1);
  } else {
    unsetenv("TZ");
  }
  tzset();
#endif
}

TEST(Surroundings, ChangeNoAnswerByTheTimeZone) {
  const std::string before = EnvironmentVariable("TZ");
  const RichSession session;
  const std::string expected = session.AnswersOfNewEditor();
  for (const char* zone : {"UTC0", "MSK-3", "EST5EDT", "Asia/Kathmandu", "no such zone", ""}) {
    SetZone(zone);
    EXPECT_TRUE(session.AnswersOfNewEditor() == expected) << zone;
  }
  SetZone(before.c_str());
}

TEST(Surroundings, SeeNothingPrinted) {
  const RichSession session;
  const TempFolder folder;
  const std::wstring malformed = folder.Write("malformed.json", "{Domen: {sName: [");
  const std::wstring intoMissing = folder.Wide() + L"/missing/a.json";
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  session.AnswersOfNewEditor();
  Editor editor(L"", L"");
  EXPECT_EQ(editor.CreateClassificator(L"S", L"", L"", L"no such file.txt"), -1);
  EXPECT_EQ(editor.CreateClassificator(L"S", L"", L"", folder.Wide().c_str()), 2);
  EXPECT_EQ(editor.CreateDomen(malformed.c_str()), 0);
  editor.ExportJson(L"malformed", intoMissing.c_str());
  const std::string errors = testing::internal::GetCapturedStderr();
  const std::string output = testing::internal::GetCapturedStdout();
  EXPECT_EQ(errors, "");
  EXPECT_EQ(output, "");
}

// The answers that the other tests compare with.
TEST(Surroundings, AreHeldAgainstTheAnswersOfTheNaiveForms) {
  const RichSession session;
  Editor editor(L"", L"");
  session.LoadInto(editor, session.Folder());
  EXPECT_TRUE(session.AgreesWithNaive(editor));
  EXPECT_GT(session.AnswersOfNewEditor().size(), 1000U);
}

}  // namespace
