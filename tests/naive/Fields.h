// The value fields of properties, and what a copy makes of them.

#pragma once

#include <memory>
#include <string>

#include "domen/DomenStore.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

using Field = Properties::PropertyParameter;

// A stream reads the number, and nothing may be left behind it.
bool ParseInt(std::wstring text, int& number);
bool ParseReal(std::wstring text, double& number);

std::wstring FormatReal(double number);

// Null for a number that is no type.
std::unique_ptr<Field> MakeField(std::wstring name, std::wstring title, int valueType, bool flag);

bool SetValue(Field& field, std::wstring text);
std::wstring GetValue(Field& field);

int AddValueField(DomenProperty& property, std::wstring name, std::wstring title, int valueType,
                  bool flag, std::wstring defaultText);

// Each value goes through its text.
DomenProperty CopyOf(const DomenProperty& property);
DomenStore CopyOf(const DomenStore& store);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
