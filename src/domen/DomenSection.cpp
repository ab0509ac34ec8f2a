#include "domen/DomenSection.h"

#include <string>
#include <utility>
#include <vector>

#include "classificator/TextFile.h"
#include "domen/DomenStore.h"
#include "domen/Numbers.h"
#include "domen/PropertyType.h"
#include "editor/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// What the entries of one section build on.
class DomenSectionParser {
 public:
  explicit DomenSectionParser(DomenStore& target) : store(target) {}

  void ParseEntry(std::wstring_view entry) {
    if (entry.front() == L'/' || entry.front() == L'!') return;
    if (StartsWith(entry, L"@@@")) return OpenDomen(Trimmed(entry.substr(3)));
    if (StartsWith(entry, L"@@")) return SetObjectTypes(entry.substr(2));
    if (StartsWith(entry, L"@")) return AddProperty(entry.substr(1));
    AddField(entry);
  }

 private:
  // The id ends at the first blank; what stands behind it is read by nobody. The current property
  // stays: a field that follows goes to the new domain's property of the same id, if it has one.
  void OpenDomen(std::wstring_view text) {
    domenId = text.substr(0, text.find(L' '));
    if (domenId.empty()) return;
    store.AddDomen(domenId, Domen(domenId, domenId));
    store.activeDomenId = domenId;
  }

  void SetObjectTypes(std::wstring_view text) { objectTypes = SplitTrimmed(text, L" ", false); }

  // Forgets the current property first, so that the fields behind a bad line go to none.
  void AddProperty(std::wstring_view text) {
    propertyId.clear();
    Domen* domen = CurrentDomen();
    if (!domen) return;
    const std::vector<std::wstring> pieces = SplitTrimmed(text, L" ", false, 4);
    int unique = 0;
    int sortIndex = 0;
    if (pieces.size() < 3 || !ParseInt(pieces[1], unique) || !ParseInt(pieces[2], sortIndex))
      return;
    domen->AddProperty(
        pieces[0], DomenProperty(pieces[0], pieces.size() > 3 ? pieces[3] : pieces[0], objectTypes,
                                 unique == 1, sortIndex));
    propertyId = pieces[0];
  }

  void AddField(std::wstring_view text) {
    Domen* domen = CurrentDomen();
    if (!domen || propertyId.empty()) return;
    const std::vector<std::wstring> pieces = SplitTrimmed(text, L" ", false, 5);
    if (pieces.size() < 4) return;
    const int valueType = ParsePropertyType(pieces[1]);
    int flag = 0;
    if (valueType == -1 || !ParseInt(pieces[2], flag)) return;
    domen->AddPropertyField(propertyId, pieces[0], pieces.size() > 4 ? pieces[4] : pieces[0],
                            valueType, flag != 0, pieces[3]);
  }

  Domen* CurrentDomen() {
    const auto found = store.domens.find(domenId);
    return domenId.empty() || found == store.domens.end() ? nullptr : &found->second;
  }

  DomenStore& store;
  std::wstring domenId;
  std::vector<std::wstring> objectTypes;
  std::wstring propertyId;
};

}  // namespace

void ParseDomenSection(DomenStore& store, std::wstring_view body) {
  DomenSectionParser parser(store);
  PieceReader entries = CutEntries(body, false);
  for (std::wstring_view entry; entries.Next(entry);) parser.ParseEntry(entry);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
