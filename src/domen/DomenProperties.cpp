#include "domen/DomenProperties.h"

#include <algorithm>
#include <iterator>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

std::vector<std::size_t> InBoth(const std::vector<std::size_t>& left,
                                const std::vector<std::size_t>& right) {
  std::vector<std::size_t> both;
  std::set_intersection(left.begin(), left.end(), right.begin(), right.end(),
                        std::back_inserter(both));
  return both;
}

}  // namespace

ObjectTypeIndex::ObjectTypeIndex(const DomenProperties& properties) {
  all.reserve(properties.size());
  for (const auto& [key, property] : properties) {
    const std::size_t place = all.size();
    all.push_back(&property);
    if (property.objectTypes.empty()) ofNoType.push_back(place);
    for (const std::wstring& type : property.objectTypes) {
      Places& places = byType[type];
      // A property may name a type twice.
      if (places.empty() || places.back() != place) places.push_back(place);
    }
  }
}

std::vector<const DomenProperty*> ObjectTypeIndex::ThatApplyTo(
    const std::vector<std::wstring>& objectTypes) const {
  if (objectTypes.empty()) return all;
  const Places named = ThatName(objectTypes);
  Places places;
  places.reserve(named.size() + ofNoType.size());
  std::merge(named.begin(), named.end(), ofNoType.begin(), ofNoType.end(),
             std::back_inserter(places));
  std::vector<const DomenProperty*> applying;
  applying.reserve(places.size());
  for (const std::size_t place : places) applying.push_back(all[place]);
  return applying;
}

// Those that name all of the types, of which there is one at least.
ObjectTypeIndex::Places ObjectTypeIndex::ThatName(
    const std::vector<std::wstring>& objectTypes) const {
  Places named;
  for (const std::wstring& type : objectTypes) {
    const auto found = byType.find(type);
    if (found == byType.end()) return {};
    named = &type == &objectTypes.front() ? found->second : InBoth(named, found->second);
  }
  return named;
}

std::vector<const DomenProperty*> IndexedProperties::ThatApplyTo(
    const std::vector<std::wstring>& objectTypes) const {
  if (!index) index = std::make_unique<const ObjectTypeIndex>(properties);
  return index->ThatApplyTo(objectTypes);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
