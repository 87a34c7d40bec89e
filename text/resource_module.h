// The pair of modules from which message texts are loaded, and the
// process-wide current pair that every CText built from an id uses.
#pragma once

#include <cstddef>

#include "platform/resources.h"

namespace NScrivolt {

using Platform::ModuleHandle;

class CResourceModule {
 public:
  // Primary only, no fallback. A null primary means the executable.
  explicit CResourceModule(ModuleHandle primary = nullptr);
  // Primary and fallback; a fallback handle that is null means the executable.
  CResourceModule(ModuleHandle primary, ModuleHandle fallback);
  // Primary and an explicit "no fallback".
  CResourceModule(ModuleHandle primary, std::nullptr_t);
  virtual ~CResourceModule() = default;

  ModuleHandle Primary() const { return primary_; }
  ModuleHandle Fallback() const { return fallback_; }
  void SetPrimary(ModuleHandle primary);

 private:
  ModuleHandle primary_;
  ModuleHandle fallback_;
};

// The caller keeps the object alive while it is current. Before anything is
// set, the current module is the executable without fallback.
void SetCurrentResourceModule(CResourceModule* module);
CResourceModule* GetCurrentResourceModule();

}  // namespace NScrivolt
