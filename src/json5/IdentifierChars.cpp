#include "json5/IdentifierChars.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "json5/IdentifierRanges.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

template <std::size_t Size>
bool IsIn(const CodeRange (&ranges)[Size], std::uint32_t code) {
  const CodeRange* found = std::lower_bound(
      std::begin(ranges), std::end(ranges), code,
      [](const CodeRange& range, std::uint32_t wanted) { return range.last < wanted; });
  return found != std::end(ranges) && found->first <= code;
}

bool IsAsciiLetter(std::uint32_t code) {
  return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
}

}  // namespace

bool IsIdentifierStart(std::uint32_t code) {
  if (code < 0x80) return IsAsciiLetter(code) || code == '$' || code == '_';
  return IsIn(identifierLetters, code);
}

bool IsIdentifierPart(std::uint32_t code) {
  constexpr std::uint32_t zeroWidthNonJoiner = 0x200C;
  constexpr std::uint32_t zeroWidthJoiner = 0x200D;
  if (code >= '0' && code <= '9') return true;
  return IsIdentifierStart(code) || IsIn(identifierMarks, code) || code == zeroWidthNonJoiner ||
         code == zeroWidthJoiner;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
