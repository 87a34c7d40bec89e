// CSEHandler: one structured exception as the system reported it, described
// for a person: its name, and the module and offset where it happened.
#pragma once

#include <windows.h>

#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt {

class CSEHandler {
 public:
  explicit CSEHandler(const EXCEPTION_RECORD& record);
  virtual ~CSEHandler() = default;

  std::uint32_t GetCode() const { return code_; }
  std::uintptr_t GetAddress() const { return reinterpret_cast<std::uintptr_t>(address_); }
  bool IsContinuable() const { return flags_ == 0; }

  // For an access violation: 0 for a read, non-zero for a write or an
  // execution, and the address that could not be reached. 0 when the
  // record does not hold them.
  std::uintptr_t GetAccessType() const { return Parameter(0); }
  std::uintptr_t GetAccessAddress() const { return Parameter(1); }

  WString GetName() const;
  // The file name, without its folder, of the module that holds the
  // exception address; "unknown module" when no module does.
  WString GetModuleName() const;
  // The exception address minus the start of the memory allocation that
  // holds it: for code in a module, its offset in the loaded module.
  std::uintptr_t GetModuleOffset() const;

 private:
  std::uintptr_t Parameter(DWORD index) const;
  // The start of the allocation that holds the exception address; null when
  // the address lies in no allocation.
  void* AllocationBase() const;

  std::uint32_t code_;
  DWORD flags_;
  EXCEPTION_RECORD* nested_;
  void* address_;
  DWORD parameterCount_;
  ULONG_PTR parameters_[EXCEPTION_MAXIMUM_PARAMETERS];
};

}  // namespace NScrivolt
