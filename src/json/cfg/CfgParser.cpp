#include "CfgParser.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "editor/Files.h"
#include "editor/Utf8.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

// The whole text of the file, or nothing if there is none or it isn't UTF-8.
std::optional<std::wstring> ReadWholeText(const std::wstring& file) {
  if (!Exists(file)) return std::nullopt;
  const std::optional<std::string> bytes = ReadFile(file);
  if (!bytes) throw std::system_error(std::make_error_code(std::errc::io_error));
  return DecodeWholeUtf8(*bytes);
}

}  // namespace

CfgParser::CfgParser(const wchar_t* file, const wchar_t* /*second*/, const wchar_t* /*language*/) {
  std::optional<std::wstring> whole = ReadWholeText(file);
  if (!whole) return;
  text = std::move(*whole);
  if (ParseJson5(text, tree)) tree.root = {};
}

CfgParser::~CfgParser() = default;

JSON5Section* CfgParser::Section(const wchar_t* sectionName, bool& found, bool /*first*/,
                                 bool /*last*/, const wchar_t* itemName) {
  const Json5Value* value = Find(sectionName, itemName);
  found = value != nullptr;
  return new JSON5Section(tree, value, record, record.Item(sectionName, itemName));
}

void CfgParser::saveCfgParamsToJson5(const wchar_t* file, int /*kind*/) {
  ReplaceWholeFile(file, FormatJson5(record));
}

const Json5Value* CfgParser::Find(std::wstring_view sectionName, std::wstring_view itemName) const {
  const auto objectOf = [this](const Json5Value& parent, std::wstring_view key) {
    const Json5Value* value = tree.Find(parent, key);
    return value && value->kind == Json5Value::Kind::object ? value : nullptr;
  };
  const Json5Value* section = objectOf(tree.root, sectionName);
  const Json5Value* item = section ? objectOf(*section, itemName) : nullptr;
  return itemName.empty() && !item ? section : item;
}
