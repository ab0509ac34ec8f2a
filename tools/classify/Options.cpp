#include "Options.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <utility>

#include "Failure.h"
#include "Wide.h"

namespace {

constexpr const char* description =
    "Classifies the elements of a building model.\n"
    "\n"
    "Prints one line for each element: description, code id, code, mapping string, separated by\n"
    "tabs, in UTF-8. Tabs and line breaks within them become blanks. A code id of -1 means that "
    "no\n"
    "pattern matches and the default code applies. A summary is written to standard error.\n"
    "\n"
    "With --colours or --list it prints the contents of the files instead, separated by tabs:\n"
    "  --colours          key text, number, three channels, percent\n"
    "  --list domens      id, name, \"active\" for the active domain\n"
    "  --list properties  domain, id, name, sort index, number of fields\n"
    "  --list fields      domain, property, name, title, type, flag, value\n"
    "With `export DOMEN-ID TARGET` it writes a domain as a JSON5 file.\n"
    "With `check` it says what the lines of the files come to: see classify check --help.";

constexpr const char* exitStatuses =
    "Exit status:\n"
    "  0  every element was classified, with or without a match\n"
    "  2  the arguments are invalid\n"
    "  3  the classificator could not be loaded\n"
    "  4  a domain file could not be loaded\n"
    "  5  the elements could not be read\n"
    "  6  the output could not be written\n"
    "  7  the domain could not be exported\n"
    "  8  any other error, such as exhausted memory\n"
    "Nothing is written to standard output before all elements are classified.";

CLI::Validator Utf8Text() {
  return {[](std::string& given) { return IsUtf8(given) ? "" : "is not UTF-8"; }, ""};
}

CLI::Option* AddText(CLI::App& app, const char* name, std::string& text, const char* kind,
                     const char* help) {
  return app.add_option(name, text, help)
      ->type_name(kind)
      ->check(Utf8Text())
      ->capture_default_str();
}

// Adds an option that may be repeated.
void AddTexts(CLI::App& app, const char* name, std::vector<std::string>& texts, const char* kind,
              const char* help) {
  app.add_option(name, texts, help)->type_name(kind)->check(Utf8Text())->allow_extra_args(false);
}

void DeclareClassifying(CLI::App& app, Options& options) {
  AddText(app, "--classificator", options.classificator, "FILE", "The classificator file");
  AddText(app, "--param", options.paramName, "NAME", "The parameter name in a mapping string");
  AddTexts(app, "--domen", options.domens, "FILE", "A domain file; may be repeated");
  app.add_option("--source", options.sourceKind, "1: items of ==MAPTEXT, 2: items of ==PARAM")
      ->type_name("1|2")
      ->check(CLI::IsMember({1, 2}).description(""))
      ->capture_default_str();
  AddText(app, "--suffix", options.nameSuffix, "TEXT", "The text after each property id");
  AddText(app, "--start-mark", options.startMark, "TEXT",
          "The mark at the start of a mapping string");
  AddText(app, "--end-mark", options.endMark, "TEXT", "The mark at the end of a mapping string");
  AddText(app, "--data-folder", options.dataFolder, "DIR",
          "The folder to search for files that aren't found");
  app.add_option("--column", options.column,
                 "The column with the description, if the file is a table")
      ->type_name("NUMBER")
      ->check(CLI::Range(1, 1000000).description(""));
  AddText(app, "ELEMENTS", options.elements, "",
          "A text file with one description per line, or - for\nstandard input");
}

void DeclareListing(CLI::App& app, Options& options) {
  app.add_flag("--colours", options.colours, "Print the colours of the active Colorat");
  app.add_option("--list", options.list, "Print the domains, their properties, or their fields")
      ->type_name("domens|properties|fields")
      ->check(CLI::IsMember({"domens", "properties", "fields"}).description(""));
  AddTexts(app, "--type", options.types, "TYPE",
           "List only what applies to this object type; may be repeated");
}

void DeclareExport(CLI::App& app, Options& options) {
  CLI::App* domenExport = app.add_subcommand("export", "Write a domain as a JSON5 file");
  AddText(*domenExport, "DOMEN-ID", options.exportDomen, "", "The id of a loaded domain")
      ->required();
  AddText(*domenExport, "TARGET", options.exportTarget, "",
          "The file to write; its name must end in .json")
      ->required();
}

// Checks the dependencies between options, which the declarations can't express.
void CheckTogether(const Options& options) {
  const bool onlyDomens =
      !options.colours && (!options.list.empty() || !options.exportDomen.empty());
  if (options.classificator.empty() && !onlyDomens) {
    throw Failure{failedArguments, "--classificator is required (see classify --help)"};
  }
  if (options.elements.empty() && !onlyDomens && !options.colours) {
    throw Failure{failedArguments, "ELEMENTS is required (see classify --help)"};
  }
}

}  // namespace

std::optional<Options> ParseOptions(std::vector<std::string> arguments) {
  Options options;
  CLI::App app(description, "classify");
  app.footer(exitStatuses);
  app.set_version_flag("--version", "classify " CLASSIFY_VERSION, "Print the version and exit");
  DeclareClassifying(app, options);
  DeclareListing(app, options);
  DeclareExport(app, options);
  try {
    // `parse` expects the arguments in reverse order.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::Success& helpOrVersion) {
    app.exit(helpOrVersion);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    throw Failure{failedArguments, std::string(error.what()) + " (see classify --help)"};
  }
  CheckTogether(options);
  return options;
}
