// CDLLLoader: a module handle that is either owned (loaded here, freed at the
// end) or borrowed (given, never freed). It moves but is not copied, so a
// module is freed exactly once.
#pragma once

#include <windows.h>

#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt::Ui {

class CDLLLoader {
 public:
  CDLLLoader() = default;
  // Borrows `module`: the caller keeps it loaded and frees it.
  explicit CDLLLoader(HMODULE module) : module_(module) {}
  // Loads the module at `path`; IsLoaded() tells whether it worked.
  explicit CDLLLoader(const WString& path) { Load(path); }
  CDLLLoader(CDLLLoader&& other) noexcept;
  CDLLLoader& operator=(CDLLLoader&& other) noexcept;
  CDLLLoader(const CDLLLoader&) = delete;
  CDLLLoader& operator=(const CDLLLoader&) = delete;
  virtual ~CDLLLoader() { Free(); }

  // Frees what is held, then loads `path`; on failure keeps the error code.
  bool Load(const WString& path);
  // Frees an owned module; forgets a borrowed one.
  void Free();

  HMODULE Get() const { return module_; }
  bool IsLoaded() const { return module_ != nullptr; }
  bool Owns() const { return owned_; }
  // The Windows error code of the last failed Load, 0 when none failed.
  std::uint32_t ErrorCode() const { return error_; }
  // The address of an exported function, null when the module lacks it.
  FARPROC Function(const char* name) const;

 private:
  HMODULE module_ = nullptr;
  bool owned_ = false;
  std::uint32_t error_ = 0;
};

}  // namespace NScrivolt::Ui
