// The property items of a code, in the grammar that ==PARAM and ==MAPTEXT share.

#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// One property that a code fills in.
struct ParamItem {
  std::wstring valueText;  // words with blanks between them; may be empty or begin with a blank
  std::wstring propertyId;
};

using ParamItemList = std::vector<ParamItem>;

// Where item lists come from: a text, and the function that reads them out of it, or the lists
// themselves if there is no such function.
struct ItemSource {
  std::vector<ParamItemList> (*read)(const ItemSource& source) = nullptr;
  std::wstring_view text;
  std::wstring_view openMark;  // in front of each block of items, where a text has blocks
  std::wstring_view closeMark;
  std::vector<ParamItemList> lists;
};

// The item lists of one code header or statement, one for each item block. Those of a file are read
// each time that they are asked for: most codes of a scheme never are. A value that changes only as
// a whole, so that its copies can share what they hold: a header's items cost the same however many
// pattern lines stand below it.
class ItemLists {
 public:
  ItemLists() = default;
  ItemLists(std::vector<ParamItemList> lists);
  ItemLists(std::initializer_list<ParamItemList> lists);

  // The pointer may keep the texts that the source looks at.
  explicit ItemLists(std::shared_ptr<const ItemSource> itemSource);

  std::vector<ParamItemList> Lists() const;

 private:
  std::shared_ptr<const ItemSource> source;  // null for none
};

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
