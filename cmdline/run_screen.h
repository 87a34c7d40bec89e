// IRunScreen: what a command-line run shows a person — message boxes and the
// help page. The processor goes through it so that tests can watch it.
#pragma once

#include <cstdint>

#include "platform/message_box.h"
#include "text/base/wide_string.h"
#include "text/message_ids.h"

namespace NScrivolt {

class IRunScreen {
 public:
  virtual ~IRunScreen() = default;
  // A modal box without owner window; returns when the user has closed it.
  virtual void ShowMessage(WStringView text, WStringView title, Platform::MessageBoxIcon icon) = 0;
  // The help page whose name is message `topicId`, without owner window.
  virtual void ShowHelp(MessageId topicId) = 0;
};

// Opens the help page whose name is message `topicId`. Each front end brings
// its own: the Windows program opens its help file, the POSIX program prints
// the usage text.
using HelpOpener = void (*)(MessageId topicId);

// The operating system's message boxes and the front end's help opener.
class CPlatformRunScreen : public IRunScreen {
 public:
  explicit CPlatformRunScreen(HelpOpener openHelp) : openHelp_(openHelp) {}
  void ShowMessage(WStringView text, WStringView title, Platform::MessageBoxIcon icon) override;
  void ShowHelp(MessageId topicId) override { openHelp_(topicId); }

 private:
  HelpOpener openHelp_;
};

}  // namespace NScrivolt
