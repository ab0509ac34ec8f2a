// Runs the examples of docs/checks.md, and that of the README. An example is a row of blocks of
// files, `text classificator NAME` or `text domen NAME`, and blocks of what the check prints for
// them: `text findings`, or `text all` for what it prints with --all. Blocks of files that begin
// with `text corrected` follow, for which it prints nothing. Bytes in hexadecimal are in angle
// brackets.

#include "authoring/Checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "classify/CheckText.h"
#include "support/CheckedFiles.h"
#include "support/Documents.h"
#include "support/PathTexts.h"
#include "support/Program.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

constexpr const char* document = "docs/checks.md";

struct Heading {
  int line;
  int number;
  std::string text;
};

// Those of the checks.
std::vector<Heading> Headings() {
  static const std::regex chapter("### ([0-9]+) (.*)");
  std::vector<Heading> headings;
  int line = 0;
  std::smatch match;
  for (const std::string& text : Lines(ReadBytes(Utf8Path(SOURCE_FOLDER) / document))) {
    ++line;
    if (std::regex_match(text, match, chapter)) headings.push_back({line, stoi(match[1]), text});
  }
  return headings;
}

std::string HeadingOf(const Check& check) {
  return "### " + std::to_string(check.number) + " " + std::string(check.name) + " (" +
         std::string(NameOf(check.severity)) + ")";
}

std::string BytesOf(const std::string& text) {
  static const std::regex shown("<([0-9A-F]{2}( [0-9A-F]{2})*)>");
  std::string bytes;
  std::size_t from = 0;
  for (std::sregex_iterator found(text.begin(), text.end(), shown), end; found != end; ++found) {
    bytes += text.substr(from, static_cast<std::size_t>(found->position()) - from);
    const std::string digits = found->str(1);
    for (std::size_t i = 0; i < digits.size(); i += 3) {
      bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    from = static_cast<std::size_t>(found->position() + found->length());
  }
  return bytes + text.substr(from);
}

// Nothing if the block is no file.
std::optional<GivenFile> FileOf(std::string_view kind, const std::string& text) {
  for (const std::string_view loadedAs : {"text classificator ", "text domen "}) {
    if (!kind.starts_with(loadedAs)) continue;
    return GivenFile{loadedAs == "text classificator ", std::string(kind.substr(loadedAs.size())),
                     BytesOf(text)};
  }
  return std::nullopt;
}

std::string Printed(const CheckedFiles& files, bool all) {
  return FormatText(files.report, files.loaded, Language::english, all, Markers::none);
}

class Examples {
 public:
  void Take(const Block& block) {
    constexpr std::string_view prefix = "text corrected ";
    if (block.kind.starts_with(prefix)) {
      const std::string kind = "text " + block.kind.substr(prefix.size());
      return correctedFiles_.push_back(FileOf(kind, block.text).value());
    }
    CheckCorrected();
    if (block.kind == "text findings" || block.kind == "text all") return CheckFindings(block);
    const std::optional<GivenFile> file = FileOf(block.kind, block.text);
    if (!file) return;
    if (wasChecked_) files_.clear();
    wasChecked_ = false;
    files_.push_back(*file);
  }

  void CheckCorrected() {
    if (correctedFiles_.empty()) return;
    EXPECT_EQ(Printed(CheckedFiles(correctedFiles_), false), "");
    correctedFiles_.clear();
    corrected.insert(chapter);
  }

  int chapter = 0;
  int runs = 0;
  std::set<int> provoked;   // the chapters whose findings an example has
  std::set<int> corrected;  // the chapters with a corrected example

 private:
  void CheckFindings(const Block& block) {
    const CheckedFiles files(files_);
    EXPECT_EQ(Printed(files, block.kind == "text all"), block.text);
    for (const Finding& finding : files.report.findings) {
      if (finding.number == chapter) provoked.insert(chapter);
    }
    wasChecked_ = true;
    ++runs;
  }

  std::vector<GivenFile> files_;
  bool wasChecked_ = false;
  std::vector<GivenFile> correctedFiles_;
};

TEST(ChecksPage, HasAChapterForEachCheckAndNoOther) {
  std::vector<std::string> chapters;
  for (const Heading& heading : Headings()) chapters.push_back(heading.text);
  std::vector<std::string> checks;
  for (const Check& check : AllChecks()) checks.push_back(HeadingOf(check));
  EXPECT_EQ(chapters, checks);
}

TEST(ChecksPage, ItsExamplesHaveTheirFindingsAndNoneOnceCorrected) {
  const std::vector<Heading> headings = Headings();
  auto next = headings.begin();
  std::set<int> numbers;
  Examples examples;
  for (const Block& block : ReadBlocks(document)) {
    SCOPED_TRACE(std::string(document) + ":" + std::to_string(block.line));
    for (; next != headings.end() && next->line < block.line; ++next) {
      examples.CheckCorrected();
      examples.chapter = next->number;
      numbers.insert(next->number);
    }
    examples.Take(block);
  }
  examples.CheckCorrected();
  EXPECT_EQ(examples.provoked, numbers);
  EXPECT_EQ(examples.corrected, numbers);
}

TEST(Documents, TheCheckOfTheReadmeFindsWhatStandsBelowTheFile) {
  Examples examples;
  for (const Block& block : ReadBlocks("README.md")) examples.Take(block);
  EXPECT_EQ(examples.runs, 1);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
