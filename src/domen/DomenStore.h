#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "domen/Domens.h"

namespace TolvenLibs::RevitMappingEditorDll {

// What the interface checks of a property.
struct PropertyCheckInfo {
  bool isList;  // of the last of its fields
  int fieldCount;
  bool unique;
  std::wstring_view id;  // its key, see below
};

struct TextFile;

// All loaded domains, in the order of their ids' code units. The store only grows: loading a file
// never removes what earlier files brought. A copy shares nothing with its source.
struct DomenStore {
  // Reads a domain file into the store by the reader that its extension names, in small letters
  // alone. Gives that reader's status, or -1, without touching the file, for any other extension.
  // `configText` is handed on to the reader, and so are the sections of the file if a
  // `Classificator` has them already.
  int LoadDomen(const std::wstring& path, const std::wstring& configText,
                const std::shared_ptr<const TextFile>& file = nullptr);

  // Reads the ==DOMEN sections of a text file. Gives 0 when the file was read to its end, whatever
  // it held, 2 if it can't be opened, 3 if an exception ended the reading. The exception goes no
  // further, and what was stored until then stays.
  int LoadDomenText(const std::wstring& path,
                    const std::shared_ptr<const TextFile>& file = nullptr);

  // Reads a JSON5 file as one domain, whose id is the stem of the file's name. Gives 0 when the
  // reading ran to its end, which it also does for a file that is malformed or holds nothing: every
  // missing key has a default. Gives 3 if an exception ended it; it goes no further, and the store
  // is as it was.
  int LoadDomenJson(const std::wstring& path, const std::wstring& configText);

  // Writes the domain as a JSON5 file, in place of whatever the target held. What a reload makes of
  // it differs from the domain: types are shifted and values are not written, as has to be. An
  // unknown domain and any failure are passed over in silence, and leave the target as it was.
  void ExportDomenJson(const std::wstring& domenId, const std::wstring& target) const;

  // Moves the domain in, or drops it if the key is taken. Gives the position of the entry under the
  // key and whether it was inserted.
  std::pair<Domens::const_iterator, bool> AddDomen(const std::wstring& key, Domen&& domen);

  // Copies of the properties under the given keys out of the given domains. Of several domains that
  // hold a key the first one named wins; ids and keys that don't exist are passed over.
  DomenProperties CollectProperties(const std::vector<std::wstring>& domenIds,
                                    const std::vector<std::wstring>& propertyIds) const;

  // The queries. All lists are in the order of the ids' or keys' code units, whatever the order in
  // the files and the sort indexes. An unknown domain has empty answers. Keys are views into the
  // domain, and properties are pointers into it: with copies of them the rows `sort_index`,
  // `by_type`, `by_types`, `field_values` and `check_info` of docs/measured/performance.md would be
  // beyond their bounds.

  std::vector<std::wstring> ListDomenIds() const;

  // The domains' names, in the order of `ListDomenIds`.
  std::vector<std::wstring> ListDomenNames() const;

  // Makes a domain the active one. Gives 0, or -1 if there is none of this id or name, and the
  // selection stays. Of domains of one name that of the least id is selected.
  int SelectDomenById(const std::wstring& domenId);
  int SelectDomenByName(const std::wstring& domenName);

  // Of each property its key and its sort index.
  std::vector<std::pair<std::wstring_view, int>> SortIndexes(const std::wstring& domenId) const;

  // See `Domen::FilterByObjType`.
  std::vector<const DomenProperty*> PropertiesOfType(const std::wstring& domenId,
                                                     const std::wstring& objectType) const;
  std::vector<const DomenProperty*> PropertiesOfTypes(
      const std::wstring& domenId, const std::vector<std::wstring>& objectTypes) const;

  // A copy of the property, or the blank one of an unknown domain. A key that a known domain lacks
  // raises `out_of_range`, "invalid map<K, T> key", deliberately.
  DomenProperty FindProperty(const std::wstring& domenId, const std::wstring& key) const;

  // The same without the copy: null for an unknown domain.
  const DomenProperty* FindStoredProperty(const std::wstring& domenId,
                                          const std::wstring& key) const;

  // One entry for each property. A property without fields raises `out_of_range`, "invalid vector
  // subscript": there are no partial answers.
  std::vector<PropertyCheckInfo> CheckInfos(const std::wstring& domenId) const;

  // Equal to a state of before if and only if nothing has come in between that may have changed the
  // domains. Which of them is active doesn't matter.
  std::shared_ptr<const void> State() const { return domens.State(); }

  // Whether the domains are still in this state. They never are in null.
  bool IsIn(const std::shared_ptr<const void>& state) const { return domens.IsIn(state); }

  std::wstring activeDomenId;
  Domens domens;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
