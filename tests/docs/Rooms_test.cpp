// Compares the picture of the rooms in docs/architecture.md with the includes of the sources. A
// room is a folder of src/, or all of tools/ or benchmarks/; a public header belongs to the room of
// its source.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/Documents.h"

namespace {

namespace fs = std::filesystem;

using Arrow = std::pair<std::string, std::string>;  // from a room to one that it includes
using Arrows = std::set<Arrow>;

const fs::path project = SOURCE_FOLDER;
const std::vector<std::string> tops = {"src", "include", "tools", "benchmarks"};

bool IsSource(const fs::path& file) {
  return file.extension() == ".h" || file.extension() == ".cpp";
}

// Returns all sources of the project, as paths relative to its folder.
std::vector<fs::path> Sources() {
  std::vector<fs::path> sources;
  for (const std::string& top : tops) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(project / top)) {
      if (IsSource(entry.path())) sources.push_back(entry.path().lexically_relative(project));
    }
  }
  return sources;
}

std::string FolderRoom(const fs::path& file) {
  const fs::path top = *file.begin();
  if (top != "src") return top.generic_string();
  return file.parent_path().lexically_relative(top).generic_string();
}

// Returns the room of each file.
std::map<fs::path, std::string> Rooms(const std::vector<fs::path>& sources) {
  std::map<fs::path, std::string> roomOfName;
  for (const fs::path& file : sources) {
    if (file.extension() == ".cpp") roomOfName[file.stem()] = FolderRoom(file);
  }
  std::map<fs::path, std::string> rooms;
  for (const fs::path& file : sources) {
    rooms[file] = FolderRoom(file);
    if (rooms[file] != "include") continue;
    const auto source = roomOfName.find(file.stem());
    rooms[file] = source == roomOfName.end() ? "editor" : source->second;
  }
  return rooms;
}

std::vector<std::string> IncludesOf(const fs::path& file) {
  static const std::regex include("^#include [<\"]([^>\"]+)[>\"]");
  std::ifstream stream(project / file);
  std::vector<std::string> includes;
  std::smatch match;
  for (std::string line; std::getline(stream, line);) {
    if (std::regex_search(line, match, include)) includes.push_back(match[1]);
  }
  return includes;
}

// Returns the file of an include: a source whose path ends with it.
const fs::path* FileOf(const std::string& include, const std::vector<fs::path>& sources) {
  for (const fs::path& file : sources) {
    const std::string path = "/" + file.generic_string();
    if (path.ends_with("/" + include)) return &file;
  }
  return nullptr;
}

Arrows ArrowsOfTheSources() {
  const std::vector<fs::path> sources = Sources();
  const std::map<fs::path, std::string> rooms = Rooms(sources);
  Arrows arrows;
  for (const fs::path& file : sources) {
    for (const std::string& include : IncludesOf(file)) {
      const fs::path* included = FileOf(include, sources);
      if (!included || rooms.at(*included) == rooms.at(file)) continue;
      arrows.emplace(rooms.at(file), rooms.at(*included));
    }
  }
  return arrows;
}

Arrows ArrowsOfThePicture() {
  static const std::regex arrow("^ *([a-z0-9/]+) --> ([a-z0-9/]+)$");
  Arrows arrows;
  std::smatch match;
  for (const std::string& line : Lines(BlocksOfKind("docs/architecture.md", "mermaid"))) {
    if (std::regex_match(line, match, arrow)) arrows.emplace(match[1], match[2]);
  }
  return arrows;
}

Arrows Without(const Arrows& arrows, const Arrows& others) {
  Arrows rest;
  for (const Arrow& arrow : arrows) {
    if (!others.contains(arrow)) rest.insert(arrow);
  }
  return rest;
}

TEST(Rooms, IncludeNothingThatThePictureDoesNotShow) {
  const Arrows arrows = ArrowsOfTheSources();
  EXPECT_TRUE(arrows.contains({"textfile", "base"}));  // checks that includes are found at all
  EXPECT_EQ(Without(arrows, ArrowsOfThePicture()), Arrows());
}

TEST(Rooms, IncludeAllThatThePictureShows) {
  EXPECT_EQ(Without(ArrowsOfThePicture(), ArrowsOfTheSources()), Arrows());
}

// A topological sort: repeatedly removes a room that includes none of the others.
TEST(Rooms, OnlyLookDown) {
  Arrows left = ArrowsOfThePicture();
  for (bool shrinks = true; shrinks;) {
    std::set<std::string> looking;
    for (const auto& [room, included] : left) looking.insert(room);
    shrinks = std::erase_if(
                  left, [&](const Arrow& arrow) { return !looking.contains(arrow.second); }) != 0;
  }
  EXPECT_EQ(left, Arrows());
}

}  // namespace
