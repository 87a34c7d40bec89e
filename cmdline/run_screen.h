// IRunScreen: what a command-line run shows a person — message boxes and the
// help page. The processor goes through it so that tests can watch it.
#pragma once

#include <cstdint>

#include "platform/message_box.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class IRunScreen {
 public:
  virtual ~IRunScreen() = default;
  // A modal box without owner window; returns when the user has closed it.
  virtual void ShowMessage(WStringView text, WStringView title, Platform::MessageBoxIcon icon) = 0;
  // The help page whose name is message `topicId`, without owner window.
  virtual void ShowHelp(std::uint32_t topicId) = 0;
};

// The operating system's message boxes and help viewer.
IRunScreen& PlatformRunScreen();

}  // namespace NScrivolt
