// An add-in without its host: loads the sample data, makes every call of the library, destroys the
// editor, and only then reads and reports the results.
//
//   addin DATA_FOLDER

#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <type_traits>

#include "RevitMappingEditorDll.h"

namespace fs = std::filesystem;
using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

namespace {

// A string result, owned by the caller.
using Text = std::unique_ptr<const wchar_t[]>;

// The arrays of one call, owned by the caller with each of their strings. A call with no results
// doesn't write them.
struct Table {
  Table() = default;
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;
  ~Table() {
    for (const wchar_t** column : {ids, names, values}) {
      for (int i = 0; column != nullptr && i < count; ++i) delete[] column[i];
      delete[] column;
    }
    delete[] numbers;
    for (const bool* column : {flags, listFlags}) delete[] column;
  }

  int count = 0;
  const wchar_t **ids = nullptr, **names = nullptr, **values = nullptr;
  int* numbers = nullptr;
  bool *flags = nullptr, *listFlags = nullptr;
};

struct Answers {
  std::wstring loaded, selected, failed;
  Table classificators;
  Text paramName, russianDefault, startMark, endMark;
  Text code, defaultCode, params, mapping, copied, assigned;
  Table keys;
  int colorNumber = 0;
  std::wstring color;
  Table domens, domenNames;
  Text activeDomen;
  Table sorted, ofType, ofTypes, fields, checks, exported;
  std::string noClassificator, noCodeId, noColor, noProperty, refused;
  bool refusalExpected = false;
};

// Returns the exception that a call throws across the boundary of the library.
template <class Call>
std::string Caught(Call call) {
  try {
    call();
  } catch (const std::out_of_range& error) {
    return std::string("out_of_range, ") + error.what();
  } catch (const fs::filesystem_error&) {
    return "filesystem_error";
  } catch (const std::exception& error) {
    return std::string("another exception, ") + error.what();
  }
  return "nothing";
}

void Add(std::wstring& list, int number) {
  list += std::to_wstring(number) + L' ';
}

void Load(RevitMappingEditorDll& editor, Answers& to) {
  to.noClassificator = Caught([&] { editor.SetActiveColorat(L"group"); });
  Add(to.selected, editor.SetActiveClassificator(L"UF"));  // there is none to select
  Add(to.loaded, editor.CreateClassificator(L"UF", L"UniFormat", L"ClassCode", L"uniformat.txt"));
  Add(to.loaded, editor.CreateClassificator(L"RU", L"Russian", L"Code", L"classificator_ru.txt"));
  for (const wchar_t* file : {L"domens.txt", L"zones.json"}) {
    Add(to.loaded, editor.CreateDomen(file));
  }
  Add(to.failed, editor.CreateClassificator(L"NO", L"None", L"ClassCode", L"none.txt"));
  Add(to.failed, editor.CreateDomen(L"none.txt"));
  editor.GetClassificatorsNames(to.classificators.count, to.classificators.ids,
                                to.classificators.names);
}

// A path that the system refuses to resolve: a link to itself, or, if links can't be made, a name
// that is too long, which not every system refuses.
void AskRefusedPath(RevitMappingEditorDll& editor, Answers& to) {
  const fs::path link = fs::current_path() / "addin-link.txt";
  std::error_code error;
  fs::remove(link, error);
  fs::create_symlink(link, link, error);
  // Some systems report success without making one.
  to.refusalExpected = fs::is_symlink(fs::symlink_status(link, error));
  const std::wstring path = to.refusalExpected ? link.wstring() : std::wstring(40000, L'x');
  to.refused = Caught([&] { editor.CreateDomen(path.c_str()); });
  fs::remove(link, error);
}

void AskColors(RevitMappingEditorDll& editor, Answers& to) {
  Add(to.selected, editor.SetActiveColorat(L"discipline"));
  editor.GetColoratsIds(to.keys.count, to.keys.ids);
  to.colorNumber = editor.GetColorNum(L"B20");
  int number = 0, channel1 = 0, channel2 = 0, channel3 = 0, percent = 0;
  editor.GetColor(L"C10", number, channel1, channel2, channel3, percent);
  for (int part : {number, channel1, channel2, channel3, percent}) Add(to.color, part);
  to.noColor = Caught([&] { editor.GetColorNum(L"no such text"); });
}

void AskCodes(RevitMappingEditorDll& editor, Answers& to) {
  const wchar_t* element = L"Basic Wall:Exterior - Brick on CMU";
  const int codeId = editor.GetClaccificatorCodeId(element);
  to.code.reset(editor.GetClaccificatorCode(codeId));
  to.params.reset(editor.GetClaccificatorCodeParams(codeId, 1, L":"));
  to.noCodeId = Caught([&] { Text(editor.GetClaccificatorCode(-2)); });
  to.defaultCode.reset(editor.GetDefaultClaccificatorCode());
  editor.SetStartMark(L"<");
  editor.SetEndMark(L">");
  to.startMark.reset(editor.GetStartMark());
  to.endMark.reset(editor.GetEndMark());
  to.mapping.reset(editor.GetMappingStr(element, 1, L"="));
}

void AskDomens(RevitMappingEditorDll& editor, Answers& to) {
  to.domens.ids = editor.GetDomensIds(to.domens.count);
  to.domenNames.names = editor.GetDomensNames(to.domenNames.count);
  to.activeDomen.reset(editor.GetActiveDomenId());
  Add(to.selected, editor.SetActiveDomenId(L"Openings"));
  Add(to.selected, editor.SetActiveDomenByName(L"Services"));
  editor.GetPropertiesSortIndex(L"Furnishings", to.sorted.count, to.sorted.ids, to.sorted.numbers);
  editor.GetDomenPropertysByObjType(L"zones", L"Door", to.ofType.count, to.ofType.ids,
                                    to.ofType.names, to.ofType.numbers);
  const wchar_t* types[] = {L"Casework", L"Equipment"};
  editor.GetDomenPropertysByObjTypes(L"Furnishings", 2, types, to.ofTypes.count, to.ofTypes.ids,
                                     to.ofTypes.names, to.ofTypes.numbers);
  editor.GetDomenPropertyFieldsValues(L"zones", L"Area", to.fields.count, to.fields.ids,
                                      to.fields.names, to.fields.numbers, to.fields.flags,
                                      to.fields.values);
  editor.GetDomenPropertiesCheckInfo(L"Furnishings", to.checks.count, to.checks.ids,
                                     to.checks.flags, to.checks.numbers, to.checks.listFlags);
  to.noProperty = Caught([&] {
    Table none;
    editor.GetDomenPropertyFieldsValues(L"zones", L"none", none.count, none.ids, none.names,
                                        none.numbers, none.flags, none.values);
  });
}

// The third domain file is one that the library has written.
void ExportAndReload(RevitMappingEditorDll& editor, Answers& to) {
  const fs::path file = fs::current_path() / "addin-export.json";
  editor.ExportJson(L"zones", file.wstring().c_str());
  Add(to.loaded, editor.CreateDomen(file.wstring().c_str()));
  editor.GetPropertiesSortIndex(L"addin-export", to.exported.count, to.exported.ids,
                                to.exported.numbers);
  std::error_code ignored;
  fs::remove(file, ignored);
}

void CopyAndAssign(const RevitMappingEditorDll& editor, Answers& to) {
  RevitMappingEditorDll copy(editor);
  RevitMappingEditorDll other(L"", L"");
  other = copy;
  copy.SetActiveClassificator(L"RU");
  to.copied.reset(copy.GetMappingStr(L"Grade Beam:400 x 700", 1, L"="));
  to.assigned.reset(other.GetMappingStr(L"Grade Beam:400 x 700", 1, L"="));
}

// The editor is destroyed when this returns.
void AskAll(const fs::path& dataFolder, Answers& to) {
  RevitMappingEditorDll editor(dataFolder.wstring().c_str(), L"");
  Load(editor, to);
  AskRefusedPath(editor, to);
  Add(to.selected, editor.SetActiveClassificator(L"RU"));
  to.russianDefault.reset(editor.GetDefaultClaccificatorCode());
  to.paramName.reset(editor.GetActiveClassificatorParamName());
  Add(to.selected, editor.SetActiveClassificator(L"UF"));
  AskColors(editor, to);
  AskCodes(editor, to);
  AskDomens(editor, to);
  ExportAndReload(editor, to);
  CopyAndAssign(editor, to);
}

// Prints letters beyond ASCII as numbers, so that any console can show them.
std::string Printable(const std::wstring& text) {
  std::string printable;
  for (const wchar_t unit : text) {
    char number[16];
    std::snprintf(number, sizeof number, unit < 128 ? "%c" : "\\u%04X",
                  static_cast<unsigned>(unit));
    printable += number;
  }
  return printable;
}

// Prints results, and the expected ones where they differ.
class Report {
 public:
  bool Good() const { return good; }

  void Check(const char* what, const std::string& got, const std::string& expected) {
    std::cout << (got == expected ? "ok     " : "WRONG  ") << what << ": " << got << "\n";
    if (got == expected) return;
    std::cout << "       expected: " << expected << "\n";
    good = false;
  }

  void Check(const char* what, const std::wstring& got, const std::wstring& expected) {
    Check(what, Printable(got), Printable(expected));
  }

 private:
  bool good = true;
};

// Returns a column of a table as a line.
template <class Value>
std::wstring Join(int count, Value* column) {
  std::wstring joined;
  for (int i = 0; i < count; ++i) {
    if constexpr (std::is_same_v<Value, const wchar_t*>) {
      joined.append(column[i]) += L' ';
    } else {
      Add(joined, column[i]);
    }
  }
  return joined;
}

void ReportClassificators(const Answers& from, Report& report) {
  const Table& all = from.classificators;
  report.Check("statuses of loads", from.loaded, L"0 0 0 0 0 ");
  report.Check("statuses of loads of no file", from.failed, L"-1 -1 ");
  report.Check("statuses of selections", from.selected, L"1 0 0 0 0 0 ");
  report.Check("classificators", Join(all.count, all.ids) + Join(all.count, all.names),
               L"UF RU UniFormat Russian ");
  report.Check("parameter", from.paramName.get(), L"Code");
  report.Check("default codes", std::wstring(from.defaultCode.get()) + from.russianDefault.get(),
               L"Z9999\u041D\u041A.00.00");
  report.Check("code", from.code.get(), L"B2010");
  report.Check("marks", std::wstring(from.startMark.get()) + from.endMark.get(), L" <> ");
  report.Check("items", from.params.get(), L"Fire: 60 EI;Thermal: 0.21 4.6;Finish: metal grey 1;");
  report.Check("mapping string", from.mapping.get(),
               L"<ClassCode B2010;Fire= 60 EI;Thermal= 0.21 4.6;Finish= metal grey 1;>");
  report.Check("from the copy", from.copied.get(), L"<Code \u041D\u041A.00.00;>");
  report.Check("from the assigned one", from.assigned.get(),
               L"<ClassCode A1022;Load= 1 beam;Concrete= C30/37 40 XC1;>");
  report.Check("key texts with a colour", Join(from.keys.count, from.keys.ids).substr(0, 12),
               L"A10 A20 B10 ");
  report.Check("number of a colour", std::to_wstring(from.colorNumber), L"4");
  report.Check("colour", from.color, L"6 240 220 150 10 ");
}

void ReportDomens(const Answers& from, Report& report) {
  const Table& fields = from.fields;
  const Table& checks = from.checks;
  report.Check("domains", Join(from.domens.count, from.domens.ids),
               L"Elements Furnishings Openings Services zones \u041A\u043E\u043D\u0441\u0442"
               L"\u0440\u0443\u043A\u0446\u0438\u0438 \u0421\u0435\u0442\u0438 ");
  report.Check("first names of domains",
               Join(from.domenNames.count, from.domenNames.names).substr(0, 21),
               L"Elements Furnishings ");
  report.Check("active domain", from.activeDomen.get(), L"zones");
  report.Check("properties", Join(from.sorted.count, from.sorted.ids), L"Care Item Rooms Surface ");
  report.Check("sort indexes", Join(from.sorted.count, from.sorted.numbers), L"40 10 20 30 ");
  report.Check("properties of a type", Join(from.ofType.count, from.ofType.ids), L"Access Lease ");
  report.Check("properties of two types", Join(from.ofTypes.count, from.ofTypes.ids),
               L"Item Rooms ");
  report.Check("fields",
               Join(fields.count, fields.ids) + Join(fields.count, fields.numbers) +
                   Join(fields.count, fields.flags) + Join(fields.count, fields.values),
               L"NetArea AreaFactor 1 1 1 1 0 1 ");
  report.Check("fields to check",
               Join(checks.count, checks.numbers) + Join(checks.count, checks.flags) +
                   Join(checks.count, checks.listFlags),
               L"1 2 1 2 0 0 0 0 0 0 1 0 ");
  report.Check("properties of the export", std::to_wstring(from.exported.count), L"12");
}

void ReportFailures(const Answers& from, Report& report) {
  const std::string subscript = "out_of_range, invalid vector subscript";
  const std::string key = "out_of_range, invalid map<K, T> key";
  report.Check("colours without a classificator", from.noClassificator, subscript);
  report.Check("unknown code id", from.noCodeId, subscript);
  report.Check("unknown key text", from.noColor, key);
  report.Check("unknown property", from.noProperty, key);
  if (from.refusalExpected || from.refused != "nothing") {
    report.Check("refused path", from.refused, "filesystem_error");
  } else {
    std::cout << "       refused path: can't be provoked here\n";
  }
}

bool Run(const fs::path& dataFolder) {
  Answers answers;
  AskAll(dataFolder, answers);
  Report report;
  ReportClassificators(answers, report);
  ReportDomens(answers, report);
  ReportFailures(answers, report);
  return report.Good();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::cerr << "usage: addin DATA_FOLDER\n";
    return 2;
  }
  try {
    const bool good = Run(arguments[1]);
    std::cout << (good ? "All is as expected.\n" : "Something is not as expected.\n");
    return good ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "A call failed: " << error.what() << "\n";
    return 1;
  }
}
