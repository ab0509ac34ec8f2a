// The value fields of properties, and their copies.

#pragma once

#include <memory>
#include <string>

#include "domen/DomenStore.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

using Field = Properties::PropertyParameter;

// Reads the number by a stream. Returns whether the text is a number and nothing else.
bool ParseInt(std::wstring text, int& number);
bool ParseReal(std::wstring text, double& number);

std::wstring FormatReal(double number);

// Returns null if there is no such type.
std::unique_ptr<Field> MakeField(std::wstring name, std::wstring title, int valueType, bool flag);

bool SetValue(Field& field, std::wstring text);
std::wstring GetValue(Field& field);

int AddValueField(DomenProperty& property, std::wstring name, std::wstring title, int valueType,
                  bool flag, std::wstring defaultText);

// Copies each value through its text form.
DomenProperty CopyOf(const DomenProperty& property);
DomenStore CopyOf(const DomenStore& store);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
