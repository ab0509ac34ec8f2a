// Prints the trees of documents, to compare them with those of another reader.
//
// The standard input is a sequence of documents, each as the number of its bytes in decimal, a line
// feed, and the bytes. Prints a line for each: `error`, or the tree. Strings and keys are printed
// as hexadecimal UTF-16 units of four digits, and members are sorted by these digits, so that the
// output doesn't depend on the width of `wchar_t`. Numbers are the bits of the double; all NaNs are
// equal.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "json5/Json5Parser.h"
#include "json5/Json5Text.h"

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;

using Kind = Json5Value::Kind;

void AppendHex(std::string& line, std::uint64_t number, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    line += "0123456789abcdef"[(number >> shift) & 0xF];
  }
}

std::string Units(std::wstring_view text) {
  std::string units;
  for (const wchar_t unit : text) {
    const auto code = static_cast<std::uint32_t>(unit);
    if (code > 0xFFFF) {
      AppendHex(units, 0xD7C0 + (code >> 10), 4);
      AppendHex(units, 0xDC00 + (code & 0x3FF), 4);
    } else {
      AppendHex(units, code, 4);
    }
  }
  return units;
}

std::uint64_t Bits(double number) {
  return std::isnan(number) ? 0x7FF8000000000000 : std::bit_cast<std::uint64_t>(number);
}

// The depth of the tree is bounded, and with it the depth of the recursion.
void AppendTree(std::string& line, const Json5Tree& tree, const Json5Value& value);

void AppendArray(std::string& line, const Json5Tree& tree, const Json5Value& array) {
  line += '[';
  for (const Json5Member& element : tree.Members(array)) {
    AppendTree(line, tree, element.value);
    line += ',';
  }
  line += ']';
}

void AppendObject(std::string& line, const Json5Tree& tree, const Json5Value& object) {
  std::vector<std::pair<std::string, const Json5Value*>> members;
  for (const Json5Member& member : tree.Members(object)) {
    members.emplace_back(Units(ToWideText(member.key)), &member.value);
  }
  std::sort(members.begin(), members.end(),
            [](const auto& left, const auto& right) { return left.first < right.first; });
  line += '{';
  for (const auto& [key, value] : members) {
    line += key + ':';
    AppendTree(line, tree, *value);
    line += ',';
  }
  line += '}';
}

void AppendTree(std::string& line, const Json5Tree& tree, const Json5Value& value) {
  switch (value.kind) {
    case Kind::null:
      line += "null";
      break;
    case Kind::boolean:
      line += value.boolean ? "true" : "false";
      break;
    case Kind::number:
      line += '#';
      AppendHex(line, Bits(value.number), 16);
      break;
    case Kind::string:
      line += '"' + Units(ToWideText(value.text)) + '"';
      break;
    case Kind::array:
      AppendArray(line, tree, value);
      break;
    case Kind::object:
      AppendObject(line, tree, value);
      break;
  }
}

std::string LineOf(std::string_view document) {
  Json5Tree tree;
  if (ParseJson5(document, tree)) return "error";
  std::string line;
  AppendTree(line, tree, tree.root);
  return line;
}

}  // namespace

int main() {
  std::ios::sync_with_stdio(false);
  std::string document;
  for (std::size_t size = 0; std::cin >> size;) {
    std::cin.get();
    document.resize(size);
    if (!std::cin.read(document.data(), static_cast<std::streamsize>(size))) {
      std::cerr << "a document is cut short\n";
      return 1;
    }
    std::cout << LineOf(document) << '\n';
  }
  return 0;
}
