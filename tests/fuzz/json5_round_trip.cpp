// Harness for round trips: requests with any texts and numbers are made of a parser and saved. The
// file's tree must be that of the requests, and another parser of it must answer them all.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "CfgParser.h"
#include "JSON5Section.h"
#include "base/Buffers.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "naive/Json5.h"
#include "naive/TextFile.h"
#include "support/Program.h"
#include "support/TempFolder.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

using Kind = Json5Value::Kind;
using Texts = std::vector<std::wstring>;
using Value = std::variant<std::wstring, int, double, Texts>;
using Element = std::map<std::wstring, Value>;
using Elements = std::map<std::wstring, Element>;
using Sections = std::map<std::wstring, Elements>;

// Joins surrogate pairs, which are one unit here.
std::wstring WithPairsJoined(const std::wstring& text) {
  std::wstring joined;
  for (const wchar_t unit : text) {
    const bool pair = !joined.empty() && joined.back() >= 0xD800 && joined.back() <= 0xDBFF &&
                      unit >= 0xDC00 && unit <= 0xDFFF;
    if (pair) {
      joined.back() =
          static_cast<wchar_t>(0x10000 + (joined.back() - 0xD800) * 0x400 + unit - 0xDC00);
    } else {
      joined.push_back(unit);
    }
  }
  return joined;
}

std::wstring TextOf(Input& input) {
  return WithPairsJoined(input.Text());
}

// A request of a section, with a value that overrides the file's.
class Request {
 public:
  Request(JSON5Section& target, std::wstring requestedKey, std::wstring requestedComment)
      : section(target), key(std::move(requestedKey)), comment(std::move(requestedComment)) {}

  void operator()(const std::wstring& text) {
    Check(section.ParamString(key.c_str(), text.c_str(), found, comment.c_str(), true) == text,
          "a string that overrides is the result");
  }

  void operator()(int number) {
    Check(section.ParamInt(key.c_str(), number, found, comment.c_str(), true) == number,
          "an integer that overrides is the result");
  }

  void operator()(double number) {
    const double result = section.ParamDouble(key.c_str(), number, found, comment.c_str(), true);
    Check(result == number || (std::isnan(result) && std::isnan(number)),
          "a real that overrides is the result");
  }

  void operator()(const Texts& texts) {
    // The section takes over the strings, but not the array.
    std::vector<const wchar_t*> array;
    for (const std::wstring& text : texts) array.push_back(NewString(text));
    int count = -1;
    section.ParamStringArray(key.c_str(), count, array.data(), static_cast<int>(array.size()),
                             found, comment.c_str(), true);
    Check(count == static_cast<int>(texts.size()), "strings that override are the result");
  }

 private:
  JSON5Section& section;
  std::wstring key;
  std::wstring comment;
  bool found = true;
};

Value ValueOf(Input& input) {
  switch (input.Byte() % 4) {
    case 0:
      return TextOf(input);
    case 1:
      return input.Whole<int>();
    case 2:
      return input.Whole<double>();
    default:
      break;
  }
  Texts texts(input.Byte() % 5);
  for (std::wstring& text : texts) text = TextOf(input);
  return texts;
}

Sections MakeRequests(Input& input, CfgParser& parser) {
  Sections sections;
  while (!input.AtEnd()) {
    const std::wstring sectionName = TextOf(input);
    const std::wstring itemName = TextOf(input);
    bool found = true;
    const std::unique_ptr<JSON5Section> section(
        parser.Section(sectionName.c_str(), found, true, true, itemName.c_str()));
    Check(!found, "there is no file");
    Element& element = sections[sectionName][itemName];
    for (int count = input.Byte() % 8; count > 0; --count) {
      const std::wstring key = TextOf(input);
      const Value value = ValueOf(input);
      std::visit(Request(*section, key, input.Text()), value);
      element[key] = value;
    }
  }
  return sections;
}

// The tree of the requests

Naive::Json5 Of(Kind kind) {
  Naive::Json5 value;
  value.kind = kind;
  return value;
}

struct TreeOf {
  Naive::Json5 operator()(const std::wstring& text) const {
    Naive::Json5 value = Of(Kind::string);
    value.text = text;
    return value;
  }

  Naive::Json5 operator()(double number) const {
    if (!std::isfinite(number)) return Of(Kind::null);
    Naive::Json5 value = Of(Kind::number);
    value.number = number;
    return value;
  }

  Naive::Json5 operator()(int number) const { return (*this)(static_cast<double>(number)); }

  Naive::Json5 operator()(const Texts& texts) const {
    Naive::Json5 value = Of(Kind::array);
    for (const std::wstring& text : texts) value.elements.push_back((*this)(text));
    return value;
  }
};

Naive::Json5 TreeOfElement(const Element& element) {
  Naive::Json5 tree = Of(Kind::object);
  for (const auto& [key, value] : element) tree.members[key] = std::visit(TreeOf(), value);
  return tree;
}

Naive::Json5 TreeOfSections(const Sections& sections) {
  Naive::Json5 tree = Of(Kind::object);
  for (const auto& [name, elements] : sections) {
    const bool onlyItself = elements.size() == 1 && elements.count(L"") == 1;
    Naive::Json5 section = onlyItself ? TreeOfElement(elements.at(L"")) : Of(Kind::object);
    if (!onlyItself) {
      for (const auto& [item, element] : elements) section.members[item] = TreeOfElement(element);
    }
    tree.members[name] = section;
  }
  return tree;
}

// Checks that the file answers the request with the value.
struct Answers {
  bool operator()(const std::wstring& text) const {
    bool found = false;
    return section.ParamString(key.c_str(), L"no", found, L"", false) == text && found;
  }

  bool operator()(int number) const {
    bool found = false;
    return section.ParamInt(key.c_str(), ~number, found, L"", false) == number && found;
  }

  bool operator()(double number) const {
    bool found = false;
    const double answer = section.ParamDouble(key.c_str(), 0.5, found, L"", false);
    return std::isfinite(number) ? found && answer == number : !found && answer == 0.5;
  }

  bool operator()(const Texts& texts) const {
    bool found = false;
    int count = -1;
    const std::unique_ptr<const wchar_t*[]> array(
        section.ParamStringArray(key.c_str(), count, nullptr, 0, found, L"", false));
    return found && Texts(array.get(), array.get() + count) == texts;
  }

  JSON5Section& section;
  std::wstring key;
};

void CheckAnswers(CfgParser& parser, const Sections& sections) {
  for (const auto& [name, elements] : sections) {
    for (const auto& [item, element] : elements) {
      bool found = false;
      const std::unique_ptr<JSON5Section> section(
          parser.Section(name.c_str(), found, false, false, item.c_str()));
      Check(found, "the file has the section");
      for (const auto& [key, value] : element) {
        Check(std::visit(Answers{*section, key}, value), "the file has the value");
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  const std::filesystem::path path = folder.Path() / "requests.json";
  std::filesystem::remove(path);
  Input input(data, size);
  CfgParser written(path.wstring().c_str(), L"", L"RU");
  const Sections sections = MakeRequests(input, written);
  written.saveCfgParamsToJson5(path.wstring().c_str(), 2);

  const std::wstring text = Naive::DecodeUtf8(ReadBytes(path));
  const std::optional<Naive::Json5> tree = Naive::ParseJson5(text);
  Check(tree.has_value(), "what is written can be read");
  CheckSame("the tree", Naive::Describe(*tree), Naive::Describe(TreeOfSections(sections)));
  CfgParser read(path.wstring().c_str(), L"", L"RU");
  CheckAnswers(read, sections);
  return 0;
}
