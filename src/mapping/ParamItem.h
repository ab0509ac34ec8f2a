// The property items of a code, in the grammar shared by ==PARAM and ==MAPTEXT.

#pragma once

#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// One property that a code fills in.
struct ParamItem {
  std::wstring valueText;  // words separated by blanks; may be empty or begin with a blank
  std::wstring propertyId;
};

using ParamItemList = std::vector<ParamItem>;

// Returns the items of the tokens. Changes the tokens: trims them, after removing the braces at
// their ends if `stripBraces`, and cuts one in which an item ends.
//
//   GRADE=60,A        GRADE with "60 A"           an item in one token, values at commas
//   LEN:a=1,b=2       LEN with "a=1 b=2"          the same, named values after a colon
//   KIND red green;   KIND with " red green"      plain words up to a semicolon
//   NOTE x=1 y=2      NOTE with " x=1 y=2"        words of one "=" each, up to the first without
//   TAIL              TAIL with ""
//   A=1=2             A with ""
//
// The last token closes an item that is still open, unless it is empty once trimmed: then the item
// is lost. This is required: lone braces at the end of a ==PARAM statement drop its item.
//
// Adds to `lostValues`, if there is one, each token whose values are lost, as those of A=1=2 are.
ParamItemList ParseParamItems(std::vector<std::wstring>& tokens, bool stripBraces,
                              std::vector<std::wstring>* lostValues = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
