#include "cmdline/run_screen.h"

namespace NScrivolt {

void CPlatformRunScreen::ShowMessage(WStringView text, WStringView title, Platform::MessageBoxIcon icon) {
  Platform::ShowMessageBox(text, title, icon);
}

}  // namespace NScrivolt
