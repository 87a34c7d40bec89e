#include "cmdline/run_screen.h"

#include "platform/help.h"

namespace NScrivolt {

namespace {

class CPlatformRunScreen : public IRunScreen {
 public:
  void ShowMessage(WStringView text, WStringView title, Platform::MessageBoxIcon icon) override {
    Platform::ShowMessageBox(text, title, icon);
  }
  void ShowHelp(std::uint32_t topicId) override { Platform::ShowHelpTopic(nullptr, topicId); }
};

}  // namespace

IRunScreen& PlatformRunScreen() {
  static CPlatformRunScreen screen;
  return screen;
}

}  // namespace NScrivolt
