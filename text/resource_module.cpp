#include "text/resource_module.h"

namespace NScrivolt {

namespace {
ModuleHandle OrExecutable(ModuleHandle module) {
  return module != nullptr ? module : Platform::ExecutableModule();
}
}  // namespace

CResourceModule::CResourceModule(ModuleHandle primary)
    : primary_(OrExecutable(primary)), fallback_(nullptr) {}

CResourceModule::CResourceModule(ModuleHandle primary, ModuleHandle fallback)
    : primary_(OrExecutable(primary)), fallback_(OrExecutable(fallback)) {}

CResourceModule::CResourceModule(ModuleHandle primary, std::nullptr_t)
    : primary_(OrExecutable(primary)), fallback_(nullptr) {}

void CResourceModule::SetPrimary(ModuleHandle primary) { primary_ = OrExecutable(primary); }

namespace {
CResourceModule& StartModule() {
  static CResourceModule module;
  return module;
}
CResourceModule* g_current = nullptr;
}  // namespace

void SetCurrentResourceModule(CResourceModule* module) { g_current = module; }

CResourceModule* GetCurrentResourceModule() { return g_current != nullptr ? g_current : &StartModule(); }

}  // namespace NScrivolt
