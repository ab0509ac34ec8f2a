#include "domen/DomenProperties.h"

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>

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
  std::vector<const DomenProperty*> applying;
  applying.reserve(named.size() + ofNoType.size());
  const auto addIfItApplies = [&](std::size_t place) {
    const DomenProperty& property = *all[place];
    const auto applies = [&property](const std::wstring& type) {
      return property.AppliesToObjectType(type);
    };
    if (std::all_of(objectTypes.begin(), objectTypes.end(), applies)) applying.push_back(&property);
  };
  auto next = ofNoType.begin();
  for (const std::size_t place : named) {
    for (; next != ofNoType.end() && *next < place; ++next) addIfItApplies(*next);
    addIfItApplies(place);
  }
  std::for_each(next, ofNoType.end(), addIfItApplies);
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

// A map can need memory to be moved, and never to be swapped.
static_assert(std::is_nothrow_swappable_v<DomenProperties>);

IndexedProperties& IndexedProperties::operator=(IndexedProperties&& other) noexcept {
  if (this == &other) return *this;
  index = std::move(other.index);
  properties.swap(other.properties);
  other.properties.clear();
  return *this;
}

std::vector<const DomenProperty*> IndexedProperties::ThatApplyTo(
    const std::vector<std::wstring>& objectTypes) const {
  if (!index) index = std::make_unique<const ObjectTypeIndex>(properties);
  return index->ThatApplyTo(objectTypes);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
