#include "domen/DomenProperties.h"

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

std::vector<std::size_t> Intersection(const std::vector<std::size_t>& left,
                                      const std::vector<std::size_t>& right) {
  std::vector<std::size_t> common;
  std::set_intersection(left.begin(), left.end(), right.begin(), right.end(),
                        std::back_inserter(common));
  return common;
}

}  // namespace

ObjectTypeIndex::ObjectTypeIndex(const DomenProperties& properties) {
  all_.reserve(properties.size());
  for (const auto& [key, property] : properties) {
    const std::size_t place = all_.size();
    all_.push_back(&property);
    if (property.objectTypes.empty()) ofNoType_.push_back(place);
    for (const std::wstring& type : property.objectTypes) {
      Places& places = byType_[type];
      // A property may name a type twice.
      if (places.empty() || places.back() != place) places.push_back(place);
    }
  }
}

std::vector<const DomenProperty*> ObjectTypeIndex::ThatApplyTo(
    const std::vector<std::wstring>& objectTypes) const {
  if (objectTypes.empty()) return all_;
  const Places named = ThatNameAll(objectTypes);
  std::vector<const DomenProperty*> applying;
  applying.reserve(named.size() + ofNoType_.size());
  const auto addIfItApplies = [&](std::size_t place) {
    const DomenProperty& property = *all_[place];
    const auto applies = [&property](const std::wstring& type) {
      return property.AppliesToObjectType(type);
    };
    if (std::all_of(objectTypes.begin(), objectTypes.end(), applies)) applying.push_back(&property);
  };
  auto next = ofNoType_.begin();
  for (const std::size_t place : named) {
    for (; next != ofNoType_.end() && *next < place; ++next) addIfItApplies(*next);
    addIfItApplies(place);
  }
  std::for_each(next, ofNoType_.end(), addIfItApplies);
  return applying;
}

// Returns the properties that name all of the types. REQUIRES: there is at least one type.
ObjectTypeIndex::Places ObjectTypeIndex::ThatNameAll(
    const std::vector<std::wstring>& objectTypes) const {
  Places named;
  for (const std::wstring& type : objectTypes) {
    const auto found = byType_.find(type);
    if (found == byType_.end()) return {};
    named = &type == &objectTypes.front() ? found->second : Intersection(named, found->second);
  }
  return named;
}

// Moving a map can allocate; swapping can't.
static_assert(std::is_nothrow_swappable_v<DomenProperties>);

IndexedProperties& IndexedProperties::operator=(IndexedProperties&& other) noexcept {
  if (this == &other) return *this;
  index_ = std::move(other.index_);
  properties_.swap(other.properties_);
  other.properties_.clear();
  return *this;
}

std::vector<const DomenProperty*> IndexedProperties::ThatApplyTo(
    const std::vector<std::wstring>& objectTypes) const {
  if (!index_) index_ = std::make_unique<const ObjectTypeIndex>(properties_);
  return index_->ThatApplyTo(objectTypes);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
