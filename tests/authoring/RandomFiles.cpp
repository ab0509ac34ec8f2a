#include "authoring/RandomFiles.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Lines = std::vector<std::string>;

const Lines words = {"wall", "wa",   "basic", "b",    "door", "Door 1", "x",  "стена",
                     "сте",  "wall", "a;b",   "a\tb", "",     "c3",     "c1", "Стена"};
const Lines domenIds = {"D", "E", "D", "F"};
const Lines propertyIds = {"P", "Q", "R"};
const Lines fieldNames = {"n", "s", "nn"};
const Lines types = {"int", "real", "str", "ilist", "rlist", "slist", "Int"};
const Lines values = {"0", "5", "-7", "x", "2.5", "\"a\"", "1e400", ";", "K"};
const Lines keys = {"A1", "A2", "B1", "//", "!"};

std::string Words(Random& random, std::size_t most) {
  std::string text;
  for (std::size_t count = random.Between<std::size_t>(1, most); count > 0; --count) {
    text += random.OneOf(words) + (count > 1 ? " " : "");
  }
  return text;
}

std::string Comment(Random& random) {
  return (random.OneIn(2) ? "/" : "!") + Words(random, 5);
}

std::string Blocks(Random& random) {
  std::string text;
  for (std::size_t count = random.Below(3); count > 0; --count) {
    const bool open = random.OneIn(12);
    text += random.OneIn(8) ? " [" : " {";
    text += random.OneOf(propertyIds);
    text += random.OneIn(2) ? "=" : ":" + random.OneOf(fieldNames) + "=";
    text += random.OneOf(values) + (open ? "" : "}");
  }
  return text;
}

std::string MapTextStatement(Random& random) {
  static const Lines rare = {"@@ (D E)", "@@ (E)", "@@ (D",  "@@ D",    "@@ ()", "$ Z1",
                             "$",        "$ Z2 z", "@$ [ ]", "@$ [[ ]", "@$ [",  "@$ { }"};
  const std::size_t kind = random.Below(12);
  if (kind == 0) return Comment(random);
  if (kind <= 2) return random.OneOf(rare);
  if (kind <= 5) return "@C" + std::to_string(random.Below(40)) + Blocks(random);
  if (kind == 6) return "@ " + Blocks(random);
  return Words(random, 3);
}

std::string DomenStatement(Random& random) {
  const std::string& name = random.OneOf(fieldNames);
  switch (random.Below(12)) {
    case 0:
      return Comment(random);
    case 1:
    case 2:
      return "@@@ " + (random.OneIn(6) ? "" : random.OneOf(domenIds)) +
             (random.OneIn(4) ? " rest" : "");
    case 3:
      return random.OneIn(2) ? "@@ Door Room" : "@@";
    case 4:
    case 5:
    case 6:
      return "@ " + random.OneOf(propertyIds) + " " + std::to_string(random.Below(2)) +
             (random.OneIn(8)   ? ""
              : random.OneIn(8) ? " x"
              : random.OneIn(2) ? " 10 Title  of it"
                                : " -2");
    default:
      return name + " " + random.OneOf(types) + (random.OneIn(8) ? " x " : " 1 ") +
             (random.OneIn(8) ? "" : random.OneOf(values)) + (random.OneIn(3) ? " Title" : "");
  }
}

std::string ColoratStatement(Random& random) {
  switch (random.Below(8)) {
    case 0:
      return random.OneIn(2) ? Comment(random) : "// of five words here";
    case 1:
    case 2:
      return "@" + random.OneOf(domenIds) + (random.OneIn(6) ? "" : " Title of it");
    case 3:
      return random.OneOf(keys) + " a@b 3 4";
    default: {
      std::string line = random.OneOf(keys);
      for (std::size_t count = random.OneIn(6) ? 3 : 4; count > 0; --count) {
        line += " " + (random.OneIn(6) ? random.OneOf(values) : std::to_string(random.Below(300)));
      }
      return line;
    }
  }
}

std::string ParamStatement(Random& random) {
  return random.OneIn(4) ? Comment(random) : "C" + std::to_string(random.Below(4)) + " P=5";
}

std::string ClassStatement(Random& random) {
  return random.OneIn(2) ? Comment(random) : "@@@ Title (A B)";
}

struct Kind {
  const char* heading;
  std::string (*statement)(Random&);
};

constexpr Kind kinds[] = {{"==MAPTEXT", MapTextStatement}, {"==MAPTEXT", MapTextStatement},
                          {"==DOMEN", DomenStatement},     {"==DOMEN", DomenStatement},
                          {"==COLORAT", ColoratStatement}, {"==PARAM rest", ParamStatement},
                          {"==CLASS", ClassStatement},     {"==NOTES", MapTextStatement},
                          {"==maptext", MapTextStatement}, {"== DOMEN", DomenStatement}};

// How the statements of a section are separated.
std::string Separator(Random& random, std::size_t style) {
  switch (style) {
    case 0:
    case 1:
      return random.OneIn(10) ? "\n \n" : random.OneIn(10) ? "\r\n" : "\n";
    case 2:
      return ";\n";
    case 3:
      return random.OneIn(3) ? ";" : "; ";
    default:
      return random.OneIn(3) ? ";\n" : random.OneIn(3) ? ";" : random.OneIn(5) ? ";\n;" : "\n";
  }
}

std::string Section(Random& random, const Kind& kind) {
  std::string text = std::string(kind.heading) + "\n";
  const std::size_t style = random.Below(5);
  for (std::size_t count = random.Below(12); count > 0; --count) {
    text += (random.OneIn(10) ? "\t " : "") + kind.statement(random) + Separator(random, style);
  }
  // A heading begins a line.
  return text + (text.back() == '\n' ? "" : "\n");
}

std::string RandomFile(Random& random, std::size_t most) {
  std::string text = random.OneIn(4) ? "outside\n\n" : "";
  if (random.OneIn(30)) text = "\xEF\xBB\xBF" + text;
  for (std::size_t count = random.Between<std::size_t>(1, most); count > 0; --count) {
    text += Section(random, random.OneOf(kinds));
  }
  if (random.OneIn(20)) text += "\x1Arest\n==MAPTEXT\nrest";
  return text;
}

Lines LinesOf(const std::string& bytes) {
  Lines lines(1);
  for (const char byte : bytes) {
    lines.back() += byte;
    if (byte == '\n') lines.emplace_back();
  }
  return lines;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line;
  return text;
}

}  // namespace

std::string RandomClassificator(Random& random) {
  // Half of the files have what makes the rest of them matter.
  if (random.OneIn(2)) return RandomFile(random, 5);
  return "==DOMEN\n@@@ D\n@ P 0 1\nn int 0 5\n" + RandomFile(random, 2) +
         Section(random, {"==MAPTEXT\n@@ (D E)", MapTextStatement}) + RandomFile(random, 2);
}

std::string RandomDomens(Random& random) {
  return Section(random, {"==DOMEN", DomenStatement}) + RandomFile(random, 2);
}

std::wstring RandomDescription(Random& random) {
  static const std::vector<std::wstring> parts = {L"wall", L"walls", L"basic", L"door",  L"Door 12",
                                                  L"x",    L"стена", L"c3",    L"a;b c", L"b"};
  std::wstring text;
  for (std::size_t count = random.Between<std::size_t>(1, 4); count > 0; --count) {
    text += random.OneOf(parts) + (count > 1 ? L" " : L"");
  }
  return text;
}

std::string Damaged(std::string bytes, Random& random) {
  if (bytes.empty()) return "x";
  constexpr std::string_view signs("\n;@= {}()/!$\0\x1A\xFF", 15);
  Lines lines = LinesOf(bytes);
  const auto line = static_cast<std::ptrdiff_t>(random.Below(lines.size()));
  switch (random.Below(6)) {
    case 0:
      bytes[random.Below(bytes.size())] = random.OneOf(signs);
      return bytes;
    case 1:
      lines.erase(lines.begin() + line);
      return Joined(lines);
    case 2:
      lines.insert(lines.begin() + line, std::string(lines[static_cast<std::size_t>(line)]));
      return Joined(lines);
    case 3: {
      std::string& joined = lines[static_cast<std::size_t>(line)];
      if (!joined.empty() && joined.back() == '\n') joined.back() = ' ';
      return Joined(lines);
    }
    case 4:
      std::replace(bytes.begin(), bytes.end(), random.OneIn(2) ? ';' : ' ', '\n');
      return bytes;
    default: {
      const std::size_t start = random.Below(bytes.size());
      const std::size_t feed = bytes.find('\n', start);
      if (feed != bytes.npos) bytes.insert(feed, ";");
      return bytes;
    }
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
