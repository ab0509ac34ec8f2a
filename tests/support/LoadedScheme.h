#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "RevitMappingEditorDll.h"
#include "support/TempFolder.h"

// An editor that has loaded one classificator file, with its domains, and made it the active one.
// The parameter name is ClassCode.
struct LoadedScheme {
  explicit LoadedScheme(std::string_view text) : editor(L"", L"") {
    const std::wstring file = folder.Write("scheme.txt", text);
    EXPECT_EQ(editor.CreateClassificator(L"S", L"Scheme", L"ClassCode", file.c_str()), 0);
    EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  }

  TempFolder folder;
  TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll editor;
};
