#include "CheckSarif.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;
using Json = nlohmann::ordered_json;  // keys in the order in which they are put

std::string_view LevelOf(Severity severity) {
  return severity == Severity::hint ? "note" : NameOf(severity);
}

// A message has placeholders in braces, and so each of its own braces twice.
Json Message(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    escaped += character;
    if (character == '{' || character == '}') escaped += character;
  }
  return {{"text", escaped}};
}

bool IsLetterOrDigit(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9');
}

// A reference for a relative path, a URI for an absolute one.
std::string UriOf(std::string_view path) {
  constexpr const char* digits = "0123456789ABCDEF";
  std::string uri;
  for (char byte : path) {
#ifdef _WIN32
    if (byte == '\\') byte = '/';
#endif
    if (IsLetterOrDigit(byte) || std::string_view("/-._~").find(byte) != std::string_view::npos) {
      uri += byte;
      continue;
    }
    const auto code = static_cast<unsigned char>(byte);
    uri.append({'%', digits[code >> 4], digits[code & 15]});
  }
  const bool hasDrive = path.size() > 2 && path[1] == ':' && uri.find('/') == 4;
  if (hasDrive) return "file:///" + uri.substr(0, 1) + ":" + uri.substr(4);
  if (uri.starts_with("//")) return "file:" + uri;
  return uri.starts_with("/") ? "file://" + uri : uri;
}

Json LocationOf(const Report& report, const Place& place) {
  const Json region = {{"startLine", place.line},
                       {"startColumn", place.column},
                       {"endLine", place.endLine},
                       {"endColumn", place.endColumn}};
  return {{"physicalLocation",
           {{"artifactLocation", {{"uri", UriOf(report.files[place.file])}}}, {"region", region}}}};
}

// The sentence without what a finding puts into it.
Json RuleOf(const Check& check, Language language) {
  const std::vector<std::string> arguments(10, "…");
  return {{"id", std::to_string(check.number)},
          {"name", check.name},
          {"shortDescription", Message(Fill(check.sentence, language, arguments))},
          {"defaultConfiguration", {{"level", LevelOf(check.severity)}}}};
}

Json ResultOf(const Report& report, const Finding& finding, Language language) {
  const Check& check = CheckOf(finding.number);
  Json result = {{"ruleId", std::to_string(finding.number)},
                 {"ruleIndex", &check - AllChecks().data()},
                 {"level", LevelOf(check.severity)},
                 {"message", Message(Fill(check.sentence, language, finding.arguments))},
                 {"locations", Json::array({LocationOf(report, finding.place)})}};
  if (!finding.related.empty()) result["relatedLocations"] = Json::array();
  for (const Related& related : finding.related) {
    Json location = LocationOf(report, related.place);
    location["message"] = Message(Fill(SentenceOf(related.kind), language, {}));
    result["relatedLocations"].push_back(location);
  }
  return result;
}

}  // namespace

std::string FormatSarif(const Report& report, Language language) {
  Json rules = Json::array();
  for (const Check& check : AllChecks()) rules.push_back(RuleOf(check, language));
  Json results = Json::array();
  for (const Finding& finding : report.findings) {
    results.push_back(ResultOf(report, finding, language));
  }
  Json run = {
      {"tool",
       {{"driver", {{"name", "classify"}, {"version", CLASSIFY_VERSION}, {"rules", rules}}}}},
      {"language", language == Language::english ? "en" : "ru"},
      {"columnKind", "unicodeCodePoints"},
      {"results", results}};
  const Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                    {"version", "2.1.0"},
                    {"runs", Json::array({run})}};
  return log.dump(2) + "\n";
}
