// Change detection.

#pragma once

#include <memory>

namespace TolvenLibs::RevitMappingEditorDll {

// A member of a class whose changes it detects. A copy has a revision of its own; being assigned to
// or moved from is a change.
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

  void Change() noexcept { token_.reset(); }

  // Returns a token of the current state. Equal tokens mean that nothing has changed in between: a
  // token that is kept keeps its address from being reused.
  std::shared_ptr<const void> Get() const;

  // Returns whether this is the token of the current state. False for null.
  bool Is(const std::shared_ptr<const void>& other) const;

 private:
  mutable std::shared_ptr<const char> token_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
