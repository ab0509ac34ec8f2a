#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "json5/Json5Parser.h"
#include "support/PathTexts.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// Documents from other sources, which may be absent.
const std::filesystem::path documents = Utf8Path(SOURCE_FOLDER "/../shared/data/json5");

std::string ReadFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream) << file;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

// A line of the manifest.
struct Entry {
  std::filesystem::path file;
  bool valid;
  std::size_t size;
  std::string errorFile;  // "" if there is none
};

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  for (std::size_t start = 0; start <= line.size();) {
    const std::size_t end = std::min(line.find('\t', start), line.size());
    fields.push_back(line.substr(start, end - start));
    start = end + 1;
  }
  return fields;
}

std::vector<Entry> ReadManifest() {
  std::vector<Entry> entries;
  std::ifstream manifest(documents / "MANIFEST.tsv");
  for (std::string line; std::getline(manifest, line);) {
    std::vector<std::string> fields = Fields(line);
    EXPECT_GE(fields.size(), 5u) << line;
    fields.resize(6);
    EXPECT_TRUE(fields[1] == "valid" || fields[1] == "invalid") << line;
    entries.push_back({fields[0], fields[1] == "valid", std::stoul(fields[3]), fields[5]});
  }
  return entries;
}

std::optional<Json5Error> ErrorOf(const std::filesystem::path& file) {
  const std::string text = ReadFile(file);
  Json5Tree tree;
  return ParseJson5(text, tree);
}

class GatheredDocuments : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(documents)) GTEST_SKIP() << "no documents beside the project";
    entries = ReadManifest();
    ASSERT_FALSE(entries.empty());
  }

  std::vector<Entry> entries;
};

TEST_F(GatheredDocuments, AreAllInTheManifestAndWhole) {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(documents)) {
    const std::filesystem::path extension = entry.path().extension();
    files += entry.is_regular_file() && extension != ".tsv" && extension != ".errorSpec" ? 1 : 0;
  }
  EXPECT_EQ(entries.size(), files);
  for (const Entry& entry : entries) {
    EXPECT_EQ(ReadFile(documents / entry.file).size(), entry.size) << entry.file;
  }
}

TEST_F(GatheredDocuments, AreValidOrNotAsTheirManifestSays) {
  for (const Entry& entry : entries) {
    const std::optional<Json5Error> error = ErrorOf(documents / entry.file);
    EXPECT_EQ(!error, entry.valid) << entry.file << ": " << (error ? error->message : "no error");
  }
}

// Returns the number after a name in an object.
std::size_t NumberAfter(const std::string& name, const std::string& text) {
  std::smatch match;
  EXPECT_TRUE(std::regex_search(text, match, std::regex(name + ": *(\\d+)"))) << text;
  return match.empty() ? 0 : std::stoul(match[1]);
}

TEST_F(GatheredDocuments, HaveTheirErrorsOnTheLinesOfTheManifest) {
  std::size_t checked = 0;
  for (const Entry& entry : entries) {
    if (entry.errorFile.empty()) continue;
    const std::string expected = ReadFile(documents / entry.errorFile);
    const bool atLineEnd = NumberAfter("columnNumber", expected) == 0;
    const std::size_t line = NumberAfter("lineNumber", expected) - (atLineEnd ? 1 : 0);
    const std::optional<Json5Error> error = ErrorOf(documents / entry.file);
    ASSERT_TRUE(error) << entry.file;
    EXPECT_EQ(error->line, line) << entry.file;
    ++checked;
  }
  EXPECT_NE(checked, 0u);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
