#include "CfgParser.h"

#include "base/Files.h"
#include "json5/Json5Parser.h"
#include "json5/Json5Writer.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

// The bytes of the file, or nothing if there is none.
std::string ReadIfThere(const std::wstring& file) {
  return Exists(file) ? ReadWholeFile(file) : std::string();
}

}  // namespace

CfgParser::CfgParser(const wchar_t* file, const wchar_t* /*second*/, const wchar_t* /*language*/)
    : text(ReadIfThere(file)) {
  if (ParseJson5(text, tree)) tree.root = {};
}

CfgParser::~CfgParser() = default;

JSON5Section* CfgParser::Section(const wchar_t* sectionName, bool& found, bool /*first*/,
                                 bool /*last*/, const wchar_t* itemName) {
  const std::size_t item = record.Open(sectionName, itemName);
  const Json5Value* value = nullptr;
  if (tree.root.kind == Json5Value::Kind::object) {
    const Json5RecordItem& opened = record.Items()[item];
    value = Find(record.repeated.Bytes(opened.section), opened.name);
  }
  found = value != nullptr;
  return new JSON5Section(tree, value, record, item);
}

void CfgParser::saveCfgParamsToJson5(const wchar_t* file, int /*kind*/) {
  ReplaceWholeFile(file, [this](const TakeBytes& take) { WriteJson5(record, take); });
}

const Json5Value* CfgParser::Find(std::string_view sectionName, std::string_view itemName) {
  const auto objectOr = [](const Json5Value* value, const Json5Value* other) {
    return value && value->kind == Json5Value::Kind::object ? value : other;
  };
  const Json5Value* section = objectOr(tree.Find(tree.root, sectionName), nullptr);
  if (!section) return nullptr;
  const Json5Value* item = tree.FindNear(*section, itemName, places[section]);
  return objectOr(item, itemName.empty() ? section : nullptr);
}
