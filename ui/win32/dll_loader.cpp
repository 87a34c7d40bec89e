#include "ui/win32/dll_loader.h"

#include <utility>

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Ui {

CDLLLoader::CDLLLoader(CDLLLoader&& other) noexcept
    : module_(std::exchange(other.module_, nullptr)),
      owned_(std::exchange(other.owned_, false)),
      error_(other.error_) {}

CDLLLoader& CDLLLoader::operator=(CDLLLoader&& other) noexcept {
  if (this != &other) {
    Free();
    module_ = std::exchange(other.module_, nullptr);
    owned_ = std::exchange(other.owned_, false);
    error_ = other.error_;
  }
  return *this;
}

bool CDLLLoader::Load(const WString& path) {
  Free();
  module_ = LoadLibraryW(Platform::AsWin(path));
  if (module_ == nullptr) {
    error_ = GetLastError();
    return false;
  }
  owned_ = true;
  error_ = 0;
  return true;
}

void CDLLLoader::Free() {
  if (owned_ && module_ != nullptr) FreeLibrary(module_);
  module_ = nullptr;
  owned_ = false;
}

FARPROC CDLLLoader::Function(const char* name) const {
  return module_ != nullptr ? GetProcAddress(module_, name) : nullptr;
}

}  // namespace NScrivolt::Ui
