#include "mapping/MapTextRecord.h"

#include <cstddef>
#include <string>

#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::vector<ParamItemList> ReadItemLists(const MapTextRecord& record) {
  std::vector<ParamItemList> lists;
  if (!record.header) return lists;
  const auto& [texts, code, blocks, openMark, closeMark] = *record.header;
  for (std::size_t open = 0; open != blocks.npos;) {
    const std::size_t close = FindText(blocks, closeMark, open + openMark.size());
    if (close == blocks.npos) break;
    // Only the mark's first unit is skipped: the rest of a longer mark stays in the block. This is
    // required.
    std::vector<std::wstring> tokens =
        SplitTrimmed(blocks.substr(open + 1, close - open - 1), L" ", false);
    lists.push_back(ParseParamItems(tokens, false));
    open = FindText(blocks, openMark, close + closeMark.size());
  }
  return lists;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
