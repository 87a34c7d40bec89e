// ICmdLineProcessor: what the switch loop of CCmdLine hands each token to.
#pragma once

#include "cmdline/cmd_line_entry.h"
#include "text/error_text.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

struct SwitchResult {
  bool ok = true;
  unsigned optionsConsumed = 0;  // tokens taken behind the switch
  CErrorText errorText;          // the failure message; empty when ok
};

class ICmdLineProcessor {
 public:
  virtual ~ICmdLineProcessor() = default;

  // Handles the token at `current`, which may be a switch or an option, and
  // may take tokens behind it up to `end`.
  virtual SwitchResult ProcessSwitch(EntryIterator current, EntryIterator end) = 0;
};

}  // namespace NScrivolt
