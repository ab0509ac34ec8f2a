#include "CheckText.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "Wide.h"
#include "authoring/JsonPlaces.h"
#include "authoring/Places.h"
#include "base/Utf8.h"

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;

// SGR sequences of the terminal.
constexpr const char* red = "\x1B[1;31m";
constexpr const char* yellow = "\x1B[1;33m";
constexpr const char* cyan = "\x1B[1;36m";
constexpr const char* reset = "\x1B[0m";

const char* ColourOf(Severity severity) {
  switch (severity) {
    case Severity::error:
      return red;
    case Severity::warning:
      return yellow;
    default:
      return cyan;
  }
}

// What runs over lines in the file, a code for instance, does not in a sentence; and names of a
// file may hold what moves the cursor of a terminal.
std::string OnOneLine(std::string text) {
  const auto isControl = [](char byte) {
    return static_cast<unsigned char>(byte) < ' ' || byte == '\x7F';
  };
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return text;
}

class TextFormatter {
 public:
  TextFormatter(const Report& report, const LoadedFiles& loaded, Language language, Markers markers)
      : report_(report), loaded_(loaded), language_(language), markers_(markers) {}

  void AddStatement(const Statement& statement) {
    AddPlace(statement.place);
    text_.append(NameOf(statement.fate)) += '\n';
  }

  void AddFinding(const Finding& finding) {
    const Check& check = CheckOf(finding.number);
    AddPlace(finding.place);
    AddColoured(NameOf(check.severity), ColourOf(check.severity));
    text_ += ": " + OnOneLine(Fill(check.sentence, language_, finding.arguments)) + " [" +
             std::to_string(finding.number) + "]\n";
    AddMarker(finding.place, ColourOf(check.severity));
    for (const Related& related : finding.related) {
      AddPlace(related.place);
      text_ += "note: " + Fill(SentenceOf(related.kind), language_, {}) + "\n";
      AddMarker(related.place, cyan);
    }
  }

  std::string Text() && { return std::move(text_); }

 private:
  // A line of a file, trimmed, and the column of its first character.
  struct Line {
    std::wstring text;
    std::size_t column;
  };

  static Line TextLine(const LoadedFile& file, const Place& place) {
    const std::vector<AccountLine>& lines = file.account.lines;
    const auto line = std::lower_bound(
        lines.begin(), lines.end(), place.line,
        [](const AccountLine& left, std::size_t number) { return left.number < number; });
    if (!file.text || line == lines.end() || line->number != place.line) return {};
    return {std::wstring(Places(file, place.file).TextOf(*line)), line->column};
  }

  static Line JsonLine(const LoadedFile& file, const Place& place) {
    const JsonPlaces places(*file.json, place.file);
    const std::wstring text = DecodeUtf8(places.TextOfLine(place.line));
    const std::size_t begin = std::min(text.find_first_not_of(L" \t"), place.column - 1);
    return {text.substr(std::min(begin, text.size())), begin + 1};
  }

  void AddPlace(const Place& place) {
    text_ += report_.files[place.file] + ":" + std::to_string(place.line) + ":" +
             std::to_string(place.column) + ": ";
  }

  void AddColoured(std::string_view text, const char* colour) {
    if (markers_ != Markers::coloured) {
      text_ += text;
      return;
    }
    text_.append(colour).append(text).append(reset);
  }

  // The line of the place, and below it a marker from its first column to its last on that line.
  void AddMarker(const Place& place, const char* colour) {
    if (markers_ == Markers::none) return;
    const LoadedFile& file = loaded_.files[place.file];
    const Line line = file.text || !file.json ? TextLine(file, place) : JsonLine(file, place);
    if (line.text.empty()) return;
    text_ += "  " + ToField(line.text) + "\n  ";
    text_.append(place.column - line.column, ' ');
    const bool endsHere = place.endLine == place.line && place.endColumn > place.column;
    AddColoured(std::string(endsHere ? place.endColumn - place.column : 1, '^'), colour);
    text_ += '\n';
  }

  const Report& report_;
  const LoadedFiles& loaded_;
  Language language_;
  Markers markers_;
  std::string text_;
};

}  // namespace

std::string FormatText(const Report& report, const LoadedFiles& loaded, Language language, bool all,
                       Markers markers) {
  TextFormatter formatter(report, loaded, language, markers);
  if (all) {
    for (const Statement& statement : report.statements) formatter.AddStatement(statement);
  }
  for (const Finding& finding : report.findings) formatter.AddFinding(finding);
  return std::move(formatter).Text();
}
