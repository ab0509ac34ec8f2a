// Tests that two editors can be used on two threads, because they share nothing that changes. The
// thread sanitizer checks them in a separate build.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "support/RichSession.h"

namespace {

using Editor = RichSession::Editor;

// Runs a session: loads, answers, exports, and a copy that outlives its source.
std::vector<std::string> Live(const RichSession& session, int times) {
  std::vector<std::string> answers;
  const TempFolder to;
  for (int i = 0; i < times; ++i) {
    Editor copy(L"", L"");
    {
      Editor editor(L"", L"");
      session.LoadInto(editor, session.Folder());
      answers.push_back(session.AnswersAndExports(editor, to.Path()));
      copy = editor;
    }
    Editor second(copy);
    answers.push_back(session.AnswersAndExports(second, to.Path()));
  }
  return answers;
}

TEST(Editors, WorkOnTwoThreadsAtOnce) {
  constexpr int times = 20;
  const RichSession first;
  const RichSession second;
  const std::vector<std::string> expected = Live(first, 1);
  std::vector<std::string> ofFirst;
  std::vector<std::string> ofSecond;
  std::thread other([&] { ofSecond = Live(second, times); });
  ofFirst = Live(first, times);
  other.join();
  ASSERT_EQ(ofFirst.size(), 2U * times);
  ASSERT_EQ(ofSecond.size(), 2U * times);
  for (std::size_t i = 0; i < ofFirst.size(); ++i) {
    EXPECT_TRUE(ofFirst[i] == expected[i % 2]) << i;
    EXPECT_TRUE(ofSecond[i] == expected[i % 2]) << i;
  }
}

// A copy shares immutable texts and indexes with its source.
TEST(Editors, WorkOnTwoThreadsAtOnceBesideTheirCopies) {
  const RichSession session;
  const TempFolder to;
  const TempFolder elsewhere;
  Editor source(L"", L"");
  session.LoadInto(source, session.Folder());
  for (const bool asked : {false, true}) {
    Editor copy(source);
    Editor alone(source);
    const std::string ofCopy = session.AnswersAndExports(alone, to.Path());
    std::string answers;
    std::thread other([&] { answers = session.AnswersAndExports(copy, to.Path()); });
    EXPECT_TRUE(session.AgreesWithNaive(source)) << asked;
    session.AnswersAndExports(source, elsewhere.Path());
    other.join();
    EXPECT_TRUE(answers == ofCopy) << asked;
  }
}

// Results belong to the caller, on whichever thread it is.
TEST(Editors, ReturnResultsThatAnotherThreadMayRelease) {
  const RichSession session;
  Editor editor(L"", L"");
  session.LoadInto(editor, session.Folder());
  const wchar_t* mapping = editor.GetMappingStr(L"DOORS", 1, L"=");
  std::thread other([mapping] { delete[] mapping; });
  EXPECT_TRUE(session.AgreesWithNaive(editor));
  other.join();
}

}  // namespace
