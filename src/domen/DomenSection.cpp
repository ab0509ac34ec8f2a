#include "domen/DomenSection.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "base/Text.h"
#include "domen/DomenStore.h"
#include "domen/FieldAdder.h"
#include "domen/Numbers.h"
#include "domen/PropertyType.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// The pieces of an entry at blanks, the last of them being all the rest, in which one blank stands
// where the entry may have more.
template <std::size_t limit>
class EntryPieces {
 public:
  explicit EntryPieces(std::wstring_view entry) {
    WordReader reader(entry);
    while (count < limit && reader.Next(pieces[count])) ++count;
    if (count < limit) return;
    for (std::wstring_view further; reader.Next(further);) Append(pieces[limit - 1], further);
  }
  EntryPieces(const EntryPieces&) = delete;
  EntryPieces& operator=(const EntryPieces&) = delete;

  std::size_t Count() const { return count; }
  std::wstring_view operator[](std::size_t index) const { return pieces[index]; }

 private:
  // Where one blank stands in the entry, the entry has the whole.
  void Append(std::wstring_view& last, std::wstring_view further) {
    if (rest.empty() && further.data() == last.data() + last.size() + 1) {
      last = {last.data(), last.size() + 1 + further.size()};
      return;
    }
    if (rest.empty()) rest = last;
    last = rest.append(L" ").append(further);
  }

  std::array<std::wstring_view, limit> pieces;
  std::size_t count = 0;
  std::wstring rest;
};

// What the entries of one section build on.
class DomenSectionParser {
 public:
  DomenSectionParser(DomenStore& target, FieldAdder& adder) : store(target), fields(adder) {}

  void ParseEntry(std::wstring_view entry) {
    switch (entry.front()) {
      case L'/':
      case L'!':
        return;
      case L'@':
        return ParseAtSign(entry);
      default:
        return AddField(entry);
    }
  }

 private:
  void ParseAtSign(std::wstring_view entry) {
    if (StartsWith(entry, L"@@@")) return OpenDomen(Trimmed(entry.substr(3)));
    if (StartsWith(entry, L"@@")) return SetObjectTypes(entry.substr(2));
    AddProperty(entry.substr(1));
  }

  // The id ends at the first blank; what stands behind it is read by nobody. The current property
  // stays: a field that follows goes to the new domain's property of the same id, if it has one.
  void OpenDomen(std::wstring_view text) {
    domenId = text.substr(0, text.find(L' '));
    if (domenId.empty()) return;
    store.AddDomen(domenId, Domen(domenId, domenId));
    store.activeDomenId = domenId;
  }

  // Changes the current domain, if there is one.
  template <class Change>
  void EditDomen(const Change& change) {
    if (domenId.empty()) return;
    store.domens.Edit([&](Domens::Map& map) {
      const auto found = map.find(domenId);
      if (found != map.end()) change(found->second);
    });
  }

  void SetObjectTypes(std::wstring_view text) {
    std::size_t count = 0;
    WordReader reader(text);
    for (std::wstring_view type; reader.Next(type); ++count) {
      if (count == objectTypes.size()) objectTypes.emplace_back();
      objectTypes[count] = type;
    }
    objectTypes.resize(count);
  }

  // Forgets the current property first, so that the fields behind a bad line go to none.
  void AddProperty(std::wstring_view text) {
    propertyId.clear();
    if (domenId.empty()) return;
    const EntryPieces<4> pieces(text);
    int unique = 0;
    int sortIndex = 0;
    if (pieces.Count() < 3 || !ParseInt(pieces[1], unique) || !ParseInt(pieces[2], sortIndex)) {
      return;
    }
    propertyId = pieces[0];
    const std::wstring_view name = pieces[pieces.Count() > 3 ? 3 : 0];
    const DomenProperty property(propertyId, std::wstring(name), objectTypes, unique == 1,
                                 sortIndex);
    EditDomen([&](Domen& domen) { domen.AddProperty(propertyId, property); });
  }

  void AddField(std::wstring_view text) {
    if (domenId.empty() || propertyId.empty()) return;
    const EntryPieces<5> pieces(text);
    if (pieces.Count() < 4) return;
    const int valueType = ParsePropertyType(pieces[1]);
    int flag = 0;
    if (valueType == -1 || !ParseInt(pieces[2], flag)) return;
    const std::wstring_view title = pieces[pieces.Count() > 4 ? 4 : 0];
    EditDomen([&](Domen& domen) {
      domen.AddPropertyField(propertyId, std::wstring(pieces[0]), std::wstring(title), valueType,
                             flag != 0, std::wstring(pieces[3]), fields);
    });
  }

  DomenStore& store;
  FieldAdder& fields;
  std::wstring domenId;     // empty if there is no current domain
  std::wstring propertyId;  // the same of the property
  std::vector<std::wstring> objectTypes;
};

}  // namespace

void ParseDomenSection(DomenStore& store, FieldAdder& fields, std::wstring_view body) {
  DomenSectionParser parser(store, fields);
  PieceReader entries = CutEntries(body, false);
  for (std::wstring_view entry; entries.Next(entry);) parser.ParseEntry(entry);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
