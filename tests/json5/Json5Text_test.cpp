#include "json5/Json5Text.h"

#include <gtest/gtest.h>

#include <string>

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

TEST(WideSize, IsTheNumberOfUnitsOfTheWideForm) {
  const std::wstring texts[] = {L"",       L"a",          L"Стена",
                                L"\uFFFD", L"\U0001F600", L"a Ж\u20AC\U0001F600"};
  for (const std::wstring& text : texts) {
    const std::string bytes = ToJson5Text(text);
    EXPECT_EQ(WideSize(bytes), text.size());
    EXPECT_EQ(ToWideText(bytes), text);
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
