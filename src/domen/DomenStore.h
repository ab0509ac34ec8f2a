// All loaded domains.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "domen/Domens.h"

namespace TolvenLibs::RevitMappingEditorDll {

// What the user interface checks of a property.
struct PropertyCheckInfo {
  bool isList;  // of the last of its fields
  int fieldCount;
  bool unique;
  std::wstring_view id;  // its key, a view into the domain
};

struct Account;
struct JsonAccount;
struct TextFile;

// The domains, in the order of their ids' code units. The store only grows: a load never removes
// what earlier files brought. A copy shares nothing with its source.
struct DomenStore {
  // Reads a domain file into the store. The extension, in lower case only, selects the reader,
  // whose status is returned; for any other extension returns -1 without opening the file.
  // `configText`, `file`, the sections of the file if they have been read already, and the account
  // of its kind are passed to the reader.
  int LoadDomen(const std::wstring& path, const std::wstring& configText,
                const std::shared_ptr<const TextFile>& file = nullptr, Account* account = nullptr,
                JsonAccount* jsonAccount = nullptr);

  // Reads the ==DOMEN sections of a text file. Returns 0 if it was read to its end, whatever its
  // contents, 2 if it can't be opened, 3 if an exception ended the reading. The exception isn't
  // passed on, and what had been stored stays.
  int LoadDomenText(const std::wstring& path, const std::shared_ptr<const TextFile>& file = nullptr,
                    Account* account = nullptr);

  // Reads a JSON5 file as one domain, whose id is the stem of the file's name. Returns 0 if the
  // file was read, even if it is malformed or empty: all missing keys have defaults. Returns 3 if
  // an exception ended the reading; the exception isn't passed on, and the store is unchanged.
  int LoadDomenJson(const std::wstring& path, const std::wstring& configText,
                    JsonAccount* account = nullptr);

  // Writes the domain as a JSON5 file, replacing the target. A reload yields a different domain:
  // types are shifted and values aren't written. This is required. Does nothing for an unknown
  // domain; any failure is silent and leaves the target as it was.
  void ExportDomenJson(const std::wstring& domenId, const std::wstring& target) const;

  // Moves the domain into the store unless the key is taken. Returns the position of the key's
  // entry and whether it was inserted.
  std::pair<Domens::const_iterator, bool> AddDomen(const std::wstring& key, Domen&& domen);

  // Returns copies of the properties with the given keys in the given domains. The first domain
  // that has a key wins; ids and keys that don't exist are ignored.
  DomenProperties CollectProperties(const std::vector<std::wstring>& domenIds,
                                    const std::vector<std::wstring>& propertyIds) const;

  // The queries. All lists are in the order of the ids' or keys' code units, whatever the order of
  // the files and the sort indexes. Answers for unknown domains are empty. Keys are views and
  // properties are pointers into the domain: with copies the rows `sort_index`, `by_type`,
  // `by_types`, `field_values` and `check_info` of docs/measured/performance.md would exceed their
  // bounds.

  std::vector<std::wstring> ListDomenIds() const;

  // The names, in the order of `ListDomenIds`.
  std::vector<std::wstring> ListDomenNames() const;

  // Makes a domain the active one and returns 0, or returns -1 if there is none of this id or name.
  // Of domains with the same name, the one with the least id is selected.
  int SelectDomenById(const std::wstring& domenId);
  int SelectDomenByName(const std::wstring& domenName);

  // The key and the sort index of each property.
  std::vector<std::pair<std::wstring_view, int>> SortIndexes(const std::wstring& domenId) const;

  // See `Domen::FilterByObjType`.
  std::vector<const DomenProperty*> PropertiesOfType(const std::wstring& domenId,
                                                     const std::wstring& objectType) const;
  std::vector<const DomenProperty*> PropertiesOfTypes(
      const std::wstring& domenId, const std::vector<std::wstring>& objectTypes) const;

  // Returns a copy of the property, or the blank one if the domain is unknown. A key that a known
  // domain lacks raises `out_of_range`, "invalid map<K, T> key": this is required.
  DomenProperty FindProperty(const std::wstring& domenId, const std::wstring& key) const;

  // The same without a copy: null if the domain is unknown.
  const DomenProperty* FindStoredProperty(const std::wstring& domenId,
                                          const std::wstring& key) const;

  // Returns an entry for each property. A property without fields raises `out_of_range`, "invalid
  // vector subscript": there are no partial answers.
  std::vector<PropertyCheckInfo> CheckInfos(const std::wstring& domenId) const;

  // Returns a token that is equal to an earlier one if and only if nothing in between may have
  // changed the domains. Which of them is active doesn't matter.
  std::shared_ptr<const void> State() const { return domens.State(); }

  // Returns whether the domains are still in this state. False for null.
  bool IsIn(const std::shared_ptr<const void>& state) const { return domens.IsIn(state); }

  std::wstring activeDomenId;
  Domens domens;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
