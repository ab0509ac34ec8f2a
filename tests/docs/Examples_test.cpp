// Runs the examples of the documents. An example is a block of a classificator file, any number of
// blocks of domain files, and a closing block. A domain file is a text file, or a block of the kind
// `text json NAME.json` with the file of that name. The closing block has either answers, with
// lines `description -> mapping string`, or colours, with a line `key -> number channel1 channel2
// channel3 percent` for each key text of the active Colorat.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "RevitMappingEditorDll.h"
#include "base/Utf8.h"
#include "support/Documents.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// An editor that has loaded the files of one example.
class Example {
 public:
  void LoadClassificator(const std::string& text) {
    ++classificators;
    const std::wstring file = folder.Write("classificator.txt", text);
    EXPECT_EQ(editor.CreateClassificator(L"c", L"c", L"Code", file.c_str()), 0);
    EXPECT_EQ(editor.SetActiveClassificator(L"c"), 0);
  }

  void LoadDomen(std::string_view name, const std::string& text) {
    const std::wstring file = folder.Write(name, text);
    EXPECT_EQ(editor.CreateDomen(file.c_str()), 0);
  }

  void CheckAnswers(const std::string& answers) {
    ASSERT_EQ(classificators, 1);
    ASSERT_FALSE(answers.empty());
    for (const std::string& answer : Lines(answers)) {
      const std::size_t arrow = answer.find(" -> ");
      ASSERT_NE(arrow, std::string::npos) << answer;
      const std::wstring description = DecodeUtf8(answer.substr(0, arrow));
      const std::wstring mapping = Take(editor.GetMappingStr(description.c_str(), 1, L"="));
      EXPECT_EQ(EncodeUtf8(mapping), answer.substr(arrow + 4)) << answer;
    }
  }

  void CheckColors(const std::string& colors) {
    ASSERT_EQ(classificators, 1);
    ASSERT_FALSE(colors.empty());
    int count = 0;
    const wchar_t** keys = nullptr;
    editor.GetColoratsIds(count, keys);
    std::string all;
    for (const std::wstring& key : TakeAll(count, keys)) all += ColorLine(key);
    EXPECT_EQ(all, colors);
  }

 private:
  std::string ColorLine(const std::wstring& key) {
    std::array<int, 5> values{};
    auto& [number, channel1, channel2, channel3, percent] = values;
    editor.GetColor(key.c_str(), number, channel1, channel2, channel3, percent);
    std::string line = EncodeUtf8(key).value() + " ->";
    for (const int value : values) line += " " + std::to_string(value);
    return line + "\n";
  }

  TempFolder folder;
  RevitMappingEditorDll editor{L"", L""};
  int classificators = 0;
};

int RunExamples(const std::string& document) {
  constexpr std::string_view json = "text json ";
  int examples = 0;
  auto example = std::make_unique<Example>();
  for (const Block& block : ReadBlocks(document)) {
    SCOPED_TRACE(document + ":" + std::to_string(block.line));
    if (block.kind == "text classificator") example->LoadClassificator(block.text);
    if (block.kind == "text domen") example->LoadDomen("domen.txt", block.text);
    if (block.kind.starts_with(json)) {
      example->LoadDomen(std::string_view(block.kind).substr(json.size()), block.text);
    }
    if (block.kind == "text answers") example->CheckAnswers(block.text);
    if (block.kind == "text colours") example->CheckColors(block.text);
    if (block.kind != "text answers" && block.kind != "text colours") continue;
    example = std::make_unique<Example>();
    ++examples;
  }
  return examples;
}

TEST(Documents, TheExamplesOfTheFormatsReturnTheirAnswers) {
  EXPECT_GE(RunExamples("docs/formats.md"), 30);
}

TEST(Documents, TheExamplesOfTheLookupReturnTheirAnswers) {
  EXPECT_GE(RunExamples("docs/lookup.md"), 1);
}

TEST(Documents, TheExamplesOfTheReadmeReturnTheirAnswers) {
  EXPECT_GE(RunExamples("README.md"), 1);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
