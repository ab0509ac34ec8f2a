// The ==DOMEN section of a text file.

#pragma once

#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;
class FieldAdder;
struct DomenStore;

// Adds the domains of the section's body to the store. The first characters of an entry tell its
// kind; one that fits no rule is left out silently:
//
//   / or !   comment
//   @@@      domain               @@@ Openings
//   @@       object types         @@ Door Room        for every property after it
//   @        property             @ Rating 1 10 Element rating class
//   else     value field          Class str 1 K30 Rating class
//
// The last domain becomes the active one. All sections of a file share the adder.
void ParseDomenSection(DomenStore& store, FieldAdder& fields, std::wstring_view body,
                       Account* account = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
