#include "Elements.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

#include "Failure.h"
#include "Wide.h"

namespace {

std::string ReadStream(std::istream& stream, const std::string& name) {
  std::string bytes;
  char chunk[1 << 16];
  while (stream.read(chunk, sizeof chunk), stream.gcount() > 0) {
    bytes.append(chunk, static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad()) throw Failure{failedElements, name + " could not be read to its end."};
  return bytes;
}

std::string ReadAll(const std::string& file, const std::string& name) {
  if (file == "-") return ReadStream(std::cin, name);
  const auto* utf8 = reinterpret_cast<const char8_t*>(file.c_str());
  std::ifstream stream(std::filesystem::path(utf8), std::ios::binary);
  if (!stream) throw Failure{failedElements, name + " can't be opened."};
  return ReadStream(stream, name);
}

// Returns the text of a column of a line. Columns are numbered from 1.
std::string_view Column(std::string_view line, int column, const std::string& place) {
  for (int passed = 1; passed < column; ++passed) {
    const std::size_t tab = line.find('\t');
    if (tab == line.npos) {
      throw Failure{failedElements, place + " has " + std::to_string(passed) +
                                        (passed == 1 ? " column" : " columns") + ", but column " +
                                        std::to_string(column) + " was requested."};
    }
    line.remove_prefix(tab + 1);
  }
  return line.substr(0, line.find('\t'));
}

std::wstring Description(std::string_view line, int column, const std::string& place) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  if (!IsUtf8(line)) throw Failure{failedElements, place + " is not UTF-8."};
  if (line.find('\0') != line.npos) throw Failure{failedElements, place + " contains a NUL."};
  return ToWide(column == 0 ? line : Column(line, column, place));
}

}  // namespace

std::vector<std::wstring> ReadElements(const std::string& file, int column) {
  const std::string name = file == "-" ? "Standard input" : "Elements file \"" + file + "\"";
  const std::string bytes = ReadAll(file, name);
  std::string_view rest = bytes;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);

  std::vector<std::wstring> descriptions;
  while (!rest.empty()) {
    const std::string place = name + ", line " + std::to_string(descriptions.size() + 1) + ",";
    const std::size_t end = rest.find('\n');
    descriptions.push_back(Description(rest.substr(0, end), column, place));
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  }
  return descriptions;
}
