#include "CheckJson.h"

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;
using Json = nlohmann::ordered_json;  // keys in the order in which they are put

Json JsonOfPlace(const Report& report, const Place& place) {
  return {{"file", report.files[place.file]},
          {"line", place.line},
          {"column", place.column},
          {"endLine", place.endLine},
          {"endColumn", place.endColumn}};
}

Json JsonOf(const Report& report, const Related& related, Language language) {
  return {{"file", report.files[related.place.file]},
          {"line", related.place.line},
          {"column", related.place.column},
          {"message", Fill(SentenceOf(related.kind), language, {})}};
}

Json JsonOf(const Report& report, const Finding& finding, Language language) {
  const Check& check = CheckOf(finding.number);
  Json json = JsonOfPlace(report, finding.place);
  json["severity"] = NameOf(check.severity);
  json["number"] = finding.number;
  json["name"] = check.name;
  json["fate"] = NameOf(finding.fate);
  json["message"] = Fill(check.sentence, language, finding.arguments);
  json["related"] = Json::array();
  for (const Related& related : finding.related) {
    json["related"].push_back(JsonOf(report, related, language));
  }
  return json;
}

Json JsonOf(const Report& report, const Statement& statement) {
  Json json = JsonOfPlace(report, statement.place);
  json["section"] = report.sections[statement.section];
  json["fate"] = NameOf(statement.fate);
  return json;
}

}  // namespace

std::string FormatJson(const Report& report, Language language, bool all) {
  std::map<Severity, std::size_t> counts;
  Json json = {{"findings", Json::array()}};
  for (const Finding& finding : report.findings) {
    json["findings"].push_back(JsonOf(report, finding, language));
    ++counts[CheckOf(finding.number).severity];
  }
  if (all) json["statements"] = Json::array();
  for (const Statement& statement : report.statements) {
    if (all) json["statements"].push_back(JsonOf(report, statement));
  }
  json["summary"] = {{"errors", counts[Severity::error]},
                     {"warnings", counts[Severity::warning]},
                     {"hints", counts[Severity::hint]}};
  return json.dump(2) + "\n";
}
