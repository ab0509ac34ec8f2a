#include "domen/Revision.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::shared_ptr<const void> Revision::Get() const {
  if (!token_) token_ = std::make_shared<const char>('\0');
  return token_;
}

bool Revision::Is(const std::shared_ptr<const void>& other) const {
  return other && other == token_;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
