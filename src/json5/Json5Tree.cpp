#include "json5/Json5Tree.h"

#include <algorithm>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Kind = Json5Value::Kind;

bool IsKeyLess(const Json5Member& member, std::string_view key) {
  return IsKeyBefore(member.key, key);
}

// Galloping search: returns the range of sorted members that contains the lower bound of `key`,
// found by doubling steps from `place`.
Json5Members Gallop(std::span<const Json5Member> all, std::string_view key, std::size_t place) {
  std::size_t first = std::min(place, all.size());
  std::size_t end = first;
  for (std::size_t step = 1; end < all.size() && IsKeyLess(all[end], key); step *= 2) {
    first = end + 1;
    end = std::min(end + step, all.size());
  }
  for (std::size_t step = 1; first > 0 && !IsKeyLess(all[first - 1], key); step *= 2) {
    end = first - 1;
    first -= std::min(step, first);
  }
  return {first, end - first};
}

}  // namespace

std::span<const Json5Member> Json5Tree::Members(const Json5Value& value) const {
  if (value.kind != Kind::array && value.kind != Kind::object) return {};
  return std::span(members).subspan(value.members.first, value.members.count);
}

const Json5Value* Json5Tree::Find(const Json5Value& object, std::string_view key) const {
  if (object.kind != Kind::object) return nullptr;
  constexpr std::size_t few = 8;
  std::size_t place = object.members.count / 2;
  if (object.members.count > few) return FindNear(object, key, place);
  for (const Json5Member& member : Members(object)) {
    if (member.key == key) return &member.value;
  }
  return nullptr;
}

const Json5Value* Json5Tree::FindNear(const Json5Value& object, std::string_view key,
                                      std::size_t& place) const {
  if (object.kind != Kind::object) return nullptr;
  const std::span<const Json5Member> all = Members(object);
  const Json5Members range = Gallop(all, key, place);
  const auto near = all.subspan(range.first, range.count);
  const auto found = std::lower_bound(near.begin(), near.end(), key, IsKeyLess);
  place = range.first + static_cast<std::size_t>(found - near.begin());
  return place < all.size() && all[place].key == key ? &all[place].value : nullptr;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
