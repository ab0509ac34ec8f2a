#include "mapping/MapTextRecord.h"

#include <cstddef>
#include <string>

#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

ItemBlocks CutItemBlocks(const CodeHeader& header) {
  const auto& [texts, code, blocks, openMark, closeMark] = header;
  ItemBlocks cut;
  for (std::size_t open = 0; open != blocks.npos;) {
    const std::size_t close = FindText(blocks, closeMark, open + openMark.size());
    if (close == blocks.npos) {
      cut.open = blocks.substr(open);
      break;
    }
    cut.closed.push_back(blocks.substr(open + 1, close - open - 1));
    open = FindText(blocks, openMark, close + closeMark.size());
  }
  return cut;
}

std::vector<ParamItemList> ReadItemLists(const MapTextRecord& record,
                                         std::vector<std::wstring>* lostValues) {
  std::vector<ParamItemList> lists;
  if (!record.header) return lists;
  for (const std::wstring_view block : CutItemBlocks(*record.header).closed) {
    std::vector<std::wstring> tokens = SplitTrimmed(block, L" ", false);
    lists.push_back(ParseParamItems(tokens, false, lostValues));
  }
  return lists;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
