#include "app/services/se_handler.h"

#include <algorithm>

#include "app/services/exception_names.h"
#include "platform/win32/wide_cast.h"

namespace NScrivolt {

namespace {

// Room for a path of MAX_PATH characters and its terminating NUL.
constexpr DWORD kPathBufferSize = MAX_PATH + 1;
constexpr WStringView kUnknownModule = u"unknown module";

}  // namespace

CSEHandler::CSEHandler(const EXCEPTION_RECORD& record)
    : code_(record.ExceptionCode),
      flags_(record.ExceptionFlags),
      nested_(record.ExceptionRecord),
      address_(record.ExceptionAddress),
      parameterCount_(std::min<DWORD>(record.NumberParameters, EXCEPTION_MAXIMUM_PARAMETERS)),
      parameters_() {
  std::copy(record.ExceptionInformation, record.ExceptionInformation + parameterCount_, parameters_);
}

std::uintptr_t CSEHandler::Parameter(DWORD index) const {
  return index < parameterCount_ ? std::uintptr_t(parameters_[index]) : 0;
}

WString CSEHandler::GetName() const { return ExceptionName(code_); }

void* CSEHandler::AllocationBase() const {
  MEMORY_BASIC_INFORMATION region = {};
  if (VirtualQuery(address_, &region, sizeof(region)) == 0) return nullptr;
  return region.AllocationBase;
}

WString CSEHandler::GetModuleName() const {
  const HMODULE module = static_cast<HMODULE>(AllocationBase());
  wchar_t path[kPathBufferSize] = {};
  if (module == nullptr || GetModuleFileNameW(module, path, kPathBufferSize - 1) == 0) {
    return WString(kUnknownModule);
  }
  const WString name = Platform::FromWin(path);
  const size_t slash = name.rfind(u'\\');
  return slash == WString::npos ? name : name.substr(slash + 1);
}

std::uintptr_t CSEHandler::GetModuleOffset() const {
  return GetAddress() - reinterpret_cast<std::uintptr_t>(AllocationBase());
}

}  // namespace NScrivolt
