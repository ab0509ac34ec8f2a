#pragma once

#include <memory>

namespace TolvenLibs::RevitMappingEditorDll {

// Tells whether something is still as it was. A copy is something else, and so is what is assigned
// to or moved from.
class Revision {
 public:
  Revision() = default;
  Revision(const Revision& /*other*/) noexcept {}
  Revision(Revision&& other) noexcept { other.Change(); }
  Revision& operator=(const Revision& /*other*/) noexcept {
    Change();
    return *this;
  }
  Revision& operator=(Revision&& other) noexcept {
    Change();
    other.Change();
    return *this;
  }
  ~Revision() = default;

  void Change() noexcept { token.reset(); }

  // Two equal tokens mean that nothing has changed in between. A token that is kept keeps its
  // address from being that of a later one.
  std::shared_ptr<const void> Get() const;

  // Whether this is the token of now. Null never is.
  bool Is(const std::shared_ptr<const void>& other) const;

 private:
  mutable std::shared_ptr<const char> token;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
