// The property items of a code, in the grammar that ==PARAM and ==MAPTEXT share.

#pragma once

#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// One property that a code fills in.
struct ParamItem {
  std::wstring valueText;  // words with blanks between them; may be empty or begin with a blank
  std::wstring propertyId;
};

using ParamItemList = std::vector<ParamItem>;

// The items that a run of tokens writes down. The tokens are changed: trimmed, with the braces at
// their ends removed first if `stripBraces` is set, and cut where an item ends within one.
//
//   GRADE=60,A        GRADE with "60 A"           an item in one token, values at commas
//   LEN:a=1,b=2       LEN with "a=1 b=2"          the same, named values behind a colon
//   KIND red green;   KIND with " red green"      plain words up to a semicolon
//   NOTE x=1 y=2      NOTE with " x=1 y=2"        words of one "=" each, up to the first without
//   TAIL              TAIL with ""
//   A=1=2             A with ""
//
// An item that is still open is closed by the last token; but a last token that is empty once it is
// trimmed closes nothing, and the open item is lost with it. This is required: braces that stand
// alone at the end of a ==PARAM statement drop its item.
ParamItemList ParseParamItems(std::vector<std::wstring>& tokens, bool stripBraces);

}  // namespace TolvenLibs::RevitMappingEditorDll
