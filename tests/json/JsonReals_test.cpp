// Tests that reals of `.json` files keep all their digits.

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "RevitMappingEditorDll.h"
#include "support/DomenRows.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// Returns the value of a field of this type with this default.
std::wstring ValueOf(const std::string& type, const std::string& number) {
  const TempFolder folder;
  const std::wstring file =
      folder.Write("d.json",
                   "{Domen: {asFuncsNames: ['P']}, Properties: {P: {asFuncsNames: ['F']}},"
                   " ArrayValueFields: {F: {sType: '" +
                       type + "', rDefault: " + number + "}}}");
  RevitMappingEditorDll editor(L"", L"");
  EXPECT_EQ(editor.CreateDomen(file.c_str()), 0);
  const FieldRows fields = Fields(editor, L"d", L"P");
  return fields.size() == 1 ? std::get<4>(fields[0]) : L"no field";
}

TEST(JsonReals, KeepAllDigitsThatADoubleHas) {
  struct Case {
    const char* number;
    const wchar_t* value;
  };
  const Case cases[] = {
      {"0.1", L"0.1"},
      {"-0.1", L"-0.1"},
      {"2.3", L"2.3"},
      {"16777217", L"16777217"},
      {"0.30000000000000004", L"0.30000000000000004"},
      {"123456789.125", L"123456789.125"},
      {"1e300", L"1e+300"},
      {"1e-300", L"1e-300"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ValueOf("r", one.number), one.value);
    EXPECT_EQ(ValueOf("ar", one.number), one.value);
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
