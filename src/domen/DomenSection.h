// The ==DOMEN section of a text file.

#pragma once

#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

class FieldAdder;
struct DomenStore;

// Adds to the store what the section's body says. Each entry is one of these, told by how it
// begins; one that fits no rule is left out without a word:
//
//   / or !   comment
//   @@@      domain               @@@ Openings
//   @@       object types         @@ Door Room        for every property behind it
//   @        property             @ Rating 1 10 Element rating class
//   else     value field          Class str 1 K30 Rating class
//
// The last domain named becomes the active one. The adder is that of the sections of one file.
void ParseDomenSection(DomenStore& store, FieldAdder& fields, std::wstring_view body);

}  // namespace TolvenLibs::RevitMappingEditorDll
