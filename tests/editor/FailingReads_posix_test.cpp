// Tests of text files that can't be read to their end: the exports answer as the naive forms do for
// the part that was read.

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>

#include "RevitMappingEditorDll.h"
#include "fuzz/Answers.h"
#include "naive/Editor.h"
#include "support/FailingCalls.h"
#include "support/RichFiles.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// The rich files that are text files.
constexpr RichFile textFiles[] = {richFiles[0], richFiles[1]};

// The number of bytes that a call reads.
constexpr std::size_t portion = SLOW_BUILD ? 7 : 1;

// Loads the whole file while a system call fails, and the part that was read into the naive forms.
struct FailingLoad {
  FailingLoad(const RichFile& file, const Faults& planned, std::string_view part) {
    const std::wstring whole = folder.Write(file.fileName, file.bytes);
    outcome = With(planned, [&] { status = LoadRich(editor, file.fileName, whole); });
    EXPECT_EQ(LoadRich(naive, file.fileName, folder.Write(file.fileName, part)), 0);
  }

  bool SameAnswers() {
    return AnswersOf(editor, naive, richQuestions) == AnswersOf(naive, richQuestions);
  }

  TempFolder folder;
  RevitMappingEditorDll editor{L"", L""};
  Naive::Editor naive;
  int status = -1;
  FaultyWork outcome = {};
};

TEST(FailingReads, LeaveWhatWasReadBeforeThem) {
  for (const RichFile& file : textFiles) {
    std::size_t calls = 0;
    bool failed = true;
    for (int n = 1; failed; ++n) {
      const std::size_t read = (static_cast<std::size_t>(n) - 1) * portion;
      const Faults planned{.call = "read", .failIn = n, .portion = portion};
      FailingLoad load(file, planned, file.bytes.substr(0, read));
      ASSERT_EQ(load.status, 0) << file.fileName << ' ' << n;
      ASSERT_TRUE(load.SameAnswers()) << file.fileName << " fails after byte " << read;
      failed = load.outcome.callFailed;
      calls += failed;
    }
    EXPECT_EQ(calls, (file.bytes.size() + portion - 1) / portion + 1)
        << "the end takes a call, too";
  }
}

TEST(FailingReads, AreTheOnlyCallsThatCostAPartOfTheFile) {
  struct Case {
    std::string_view call;
    int failIn;
    int status;  // -1 if the load throws
    bool whole;
  };
  const Case cases[] = {{"stat", 1, -1, false}, {"stat", 2, 0, true},  {"open", 1, 2, false},
                        {"fstat", 1, 0, true},  {"read", 1, 0, false}, {"read", 2, 0, true},
                        {"close", 1, 0, true}};
  for (const RichFile& file : textFiles) {
    for (const auto& [call, failIn, status, whole] : cases) {
      const Faults planned{.call = call, .failIn = failIn};
      FailingLoad load(file, planned, whole ? file.bytes : "");
      EXPECT_TRUE(load.outcome.callFailed) << call << failIn;
      EXPECT_EQ(load.outcome.error, status == -1 ? EIO : 0) << call << failIn;
      ASSERT_EQ(load.status, status) << call << failIn;
      if (status == -1) continue;
      EXPECT_TRUE(load.SameAnswers()) << call << failIn;
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
