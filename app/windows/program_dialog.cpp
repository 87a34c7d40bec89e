#include "app/windows/program_dialog.h"

#include "text/resource_module.h"

namespace NScrivolt {

Ui::CDialogParams ProgramDialog(WORD resourceId, HWND owner, Ui::DialogMode mode) {
  Ui::CDialogParams params;
  params.resourceId = resourceId;
  params.owner = owner;
  params.primaryModule = static_cast<HMODULE>(const_cast<void*>(GetCurrentResourceModule()->Primary()));
  params.fallbackModule = GetModuleHandleW(nullptr);
  params.mode = mode;
  return params;
}

}  // namespace NScrivolt
