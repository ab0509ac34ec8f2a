#include "CheckCommand.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "CheckJson.h"
#include "CheckSarif.h"
#include "CheckText.h"
#include "Environment.h"
#include "Failure.h"
#include "Printing.h"
#include "Terminal.h"
#include "Wide.h"
#include "authoring/Check.h"
#include "authoring/Checks.h"
#include "authoring/LoadedFiles.h"

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;

constexpr const char* description =
    "Says what each line of classificators and domain files comes to, and what is wrong with it.\n"
    "\n"
    "Each finding is a line FILE:LINE:COLUMN: SEVERITY: sentence [NUMBER]; docs/checks.md "
    "explains\n"
    "the numbers. With --all, the fate of every statement is told as well.";

constexpr const char* exitStatuses =
    "Exit status:\n"
    "  0  nothing of the severity of --fail-on was found\n"
    "  1  something was\n"
    "  2  the arguments are wrong\n"
    "  3  a file isn't there";

constexpr int foundSomething = 1;
constexpr int fileMissing = 3;

struct CheckOptions {
  FileList files;
  std::string format = "text";
  bool all = false;
  std::string failOn = "error";
  std::string language;
};

std::vector<std::wstring> ToWideAll(const std::vector<std::string>& texts) {
  std::vector<std::wstring> wide;
  for (const std::string& text : texts) wide.push_back(ToWide(text));
  return wide;
}

CLI::Validator OneOf(std::vector<std::string> choices) {
  return CLI::IsMember(std::move(choices)).description("");
}

// Nothing if only the help was asked for.
std::optional<CheckOptions> ParseCheckOptions(std::vector<std::string> arguments) {
  CheckOptions options;
  std::vector<std::string> classificators;
  std::vector<std::string> domens;
  std::string dataFolder = ".";
  CLI::App app(description, "classify check");
  app.footer(exitStatuses);
  app.add_option("--classificator", classificators, "A classificator; may be given several times")
      ->type_name("FILE")
      ->allow_extra_args(false);
  app.add_option("--domen", domens, "A domain file; may be given several times")
      ->type_name("FILE")
      ->allow_extra_args(false);
  app.add_option("--data-folder", dataFolder, "Where files are sought that aren't found")
      ->type_name("DIR")
      ->capture_default_str();
  app.add_option("--format", options.format, "How findings are written")
      ->type_name("text|json|sarif")
      ->check(OneOf({"text", "json", "sarif"}))
      ->capture_default_str();
  app.add_flag("--all", options.all, "Tell the fate of every statement, in text and json");
  app.add_option("--fail-on", options.failOn, "The least severity that makes the exit status 1")
      ->type_name("error|warning|hint|never")
      ->check(OneOf({"error", "warning", "hint", "never"}))
      ->capture_default_str();
  app.add_option("--language", options.language, "The language of the findings")
      ->type_name("en|ru")
      ->check(OneOf({"en", "ru"}));
  try {
    // The parser takes them from the back.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::Success& help) {
    app.exit(help);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    throw Failure{failedArguments, std::string(error.what()) + " (see classify check --help)"};
  }
  if (classificators.empty() && domens.empty()) {
    throw Failure{failedArguments,
                  "--classificator or --domen is required (see classify check --help)"};
  }
  options.files = {ToWideAll(classificators), ToWideAll(domens), ToWide(dataFolder)};
  return options;
}

// Of the first variable that is set, as the system's own programs do it.
Language LanguageOfEnvironment() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string value = EnvironmentVariable(name);
    if (!value.empty()) return value.starts_with("ru") ? Language::russian : Language::english;
  }
  return Language::english;
}

Language LanguageOf(const CheckOptions& options) {
  if (options.language.empty()) return LanguageOfEnvironment();
  return options.language == "ru" ? Language::russian : Language::english;
}

// Where colours aren't wanted, by https://no-color.org, markers do without them.
Markers MarkersOfTerminal() {
  if (!StandardOutputIsTerminal()) return Markers::none;
  const bool plain =
      !EnvironmentVariable("NO_COLOR").empty() || EnvironmentVariable("TERM") == "dumb";
  return plain ? Markers::plain : Markers::coloured;
}

std::string Format(const Report& report, const LoadedFiles& loaded, const CheckOptions& options) {
  const Language language = LanguageOf(options);
  if (options.format == "json") return FormatJson(report, language, options.all);
  if (options.format == "sarif") return FormatSarif(report, language);
  return FormatText(report, loaded, language, options.all, MarkersOfTerminal());
}

bool Fails(const Report& report, const std::string& failOn) {
  const std::map<std::string, Severity> severities = {
      {"error", Severity::error}, {"warning", Severity::warning}, {"hint", Severity::hint}};
  const auto least = severities.find(failOn);
  if (least == severities.end()) return false;
  return std::any_of(report.findings.begin(), report.findings.end(), [&](const Finding& finding) {
    return CheckOf(finding.number).severity >= least->second;
  });
}

}  // namespace

int RunCheckCommand(std::vector<std::string> arguments) {
  const std::optional<CheckOptions> options = ParseCheckOptions(std::move(arguments));
  if (!options) return 0;
  LoadedFiles loaded;
  if (const std::optional<std::wstring> missing = LoadFiles(options->files, loaded)) {
    throw Failure{fileMissing, "\"" + ToUtf8(*missing) + "\" is not there, or can't be read."};
  }
  const Report report = CheckFiles(loaded);
  Print(Format(report, loaded, *options));
  return Fails(report, options->failOn) ? foundSomething : 0;
}
