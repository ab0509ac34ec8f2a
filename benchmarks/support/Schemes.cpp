#include "support/Schemes.h"

#include <string_view>

#include "base/Utf8.h"
#include "support/Patterns.h"

using TolvenLibs::RevitMappingEditorDll::DecodeUtf8;
using TolvenLibs::RevitMappingEditorDll::EncodeUtf8;

namespace {

constexpr std::size_t patternsOfHeader = 8;

constexpr std::string_view itemDomain = R"(==DOMEN
@@@ Fabric
@ Fire 0 1 Fire resistance
Minutes int 1 0
Factor real 1 1
Criteria str 1 none
@ Load 0 2 Load bearing
Bearing int 1 0
Limit real 1 1
Role str 1 none
@ Size 0 3 Dimensions
Layers int 1 0
Thickness real 1 1
Unit str 1 m
@ Finish 0 4 Surface finish
Coats int 1 0
Cover real 1 1
Material str 1 none
)";

struct Item {
  std::string_view property;
  std::string count;
  std::string amount;
  std::string word;
};

std::vector<Item> MakeItems(std::size_t code) {
  std::vector<Item> items;
  for (const std::string_view property : {"Fire", "Load", "Size", "Finish"}) {
    items.push_back({property, std::to_string(code % 240), std::to_string(code % 37) + ".25",
                     "Grade" + std::to_string(code % 17)});
    code = code * 7 + 3;
  }
  return items;
}

std::string MakeHeader(std::size_t code, Headers headers) {
  const std::string header = "@C" + std::to_string(code);
  return headers == Headers::codes ? header + "\n" : header + " " + HeaderItems(code) + "\n";
}

}  // namespace

std::string HeaderItems(std::size_t code) {
  std::string text;
  for (const Item& item : MakeItems(code)) {
    if (!text.empty()) text += " ";
    text.append("{").append(item.property).append("=");
    text += item.count + "," + item.amount + "," + item.word + "}";
  }
  return text;
}

std::wstring MappedItems(std::size_t code) {
  std::string text;
  for (const Item& item : MakeItems(code)) {
    text.append(item.property).append("= ");
    text += item.count + " " + item.amount + " " + item.word + ";";
  }
  return DecodeUtf8(text);
}

std::string MakeMapText(const std::vector<std::wstring>& patterns, Headers headers) {
  std::string text = "@@ (Fabric)\n";
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    if (i % patternsOfHeader == 0) text += MakeHeader(i / patternsOfHeader, headers);
    text += EncodeUtf8(patterns[i]).value() + "\n";
  }
  return text;
}

std::string MakeScheme(const std::vector<std::wstring>& patterns, Headers headers) {
  return "==MAPTEXT\n" + MakeMapText(patterns, headers) + std::string(itemDomain);
}

SchemeFile MakeSchemeFile(std::size_t size) {
  Random random(size);
  const Vocabulary vocabulary;
  SchemeFile file;
  std::string& text = file.text;
  text.reserve(size + 100);
  text = "==CLASS\n@@@ Generated scheme (Bench Classification)\n==MAPTEXT\n";
  for (std::size_t i = 0; text.size() < size / 10 * 8; ++i, ++file.patternCount) {
    if (i % patternsOfHeader == 0) text += MakeHeader(i / patternsOfHeader, Headers::codesAndItems);
    text += EncodeUtf8(MakePattern(vocabulary, random)).value() + "\n";
  }
  text += "==PARAM\n";
  for (std::size_t i = 0; text.size() < size / 10 * 9; ++i) {
    text += "C" + std::to_string(i) + " " + HeaderItems(i) + "\n";
  }
  text += "==COLORAT\n@main Main colouring\n";
  for (; text.size() < size; ++file.colorCount) {
    text += EncodeUtf8(vocabulary.Any(random)).value() + std::to_string(file.colorCount);
    for (int i = 0; i < 4; ++i) text += " " + std::to_string(random.Below(101));
    text += "\n";
  }
  return file;
}
