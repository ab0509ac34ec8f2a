#include "CfgParser.h"

#include "base/Files.h"
#include "json5/Json5Parser.h"
#include "json5/Json5Writer.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

// Returns an empty text if there is no file.
std::string ReadIfExists(const std::wstring& file) {
  return Exists(file) ? ReadWholeFile(file) : std::string();
}

}  // namespace

CfgParser::CfgParser(const wchar_t* file, const wchar_t* /*second*/, const wchar_t* /*language*/)
    : text_(ReadIfExists(file)) {
  if (ParseJson5(text_, tree_)) tree_.root = {};
}

CfgParser::~CfgParser() = default;

JSON5Section* CfgParser::Section(const wchar_t* sectionName, bool& found, bool /*first*/,
                                 bool /*last*/, const wchar_t* itemName) {
  const std::size_t item = record_.Open(sectionName, itemName);
  const Json5Value* value = nullptr;
  if (tree_.root.kind == Json5Value::Kind::object) {
    const Json5RecordItem& opened = record_.Items()[item];
    value = Find(record_.repeated.Bytes(opened.section), opened.name);
  }
  found = value != nullptr;
  return new JSON5Section(tree_, value, record_, item);
}

void CfgParser::saveCfgParamsToJson5(const wchar_t* file, int /*kind*/) {
  ReplaceWholeFile(file, [this](const TakeBytes& take) { WriteJson5(record_, take); });
}

const Json5Value* CfgParser::Find(std::string_view sectionName, std::string_view itemName) {
  const auto objectOr = [](const Json5Value* value, const Json5Value* other) {
    return value && value->kind == Json5Value::Kind::object ? value : other;
  };
  const Json5Value* section = objectOr(tree_.Find(tree_.root, sectionName), nullptr);
  if (!section) return nullptr;
  const Json5Value* item = tree_.FindNear(*section, itemName, places_[section]);
  return objectOr(item, itemName.empty() ? section : nullptr);
}
