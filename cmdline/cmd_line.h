// CCmdLine: splits a command line or command file into tokens and runs the
// switch loop over them.
#pragma once

#include <vector>

#include "cmdline/cmd_line_entry.h"
#include "cmdline/switch_processor.h"
#include "platform/switch_syntax.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

class CCmdLine {
 public:
  explicit CCmdLine(Platform::SwitchSyntax syntax = Platform::NativeSwitchSyntax());
  CCmdLine(const CCmdLine&) = delete;
  CCmdLine& operator=(const CCmdLine&) = delete;
  virtual ~CCmdLine() = default;

  // Replaces the source text and splits it into tokens: blanks separate
  // tokens outside double quotes, a run of backslashes is literal unless a
  // double quote follows it. Empty tokens ("") are dropped.
  void Parse(WString text);

  // Takes tokens that are split already (a POSIX argv): one per element,
  // empty elements dropped, nothing unquoted.
  void SetArguments(const std::vector<WString>& arguments);

  // Hands the tokens to `processor` from the first on, skipping the options
  // each switch consumed, until one fails. True when none failed.
  bool Process(ICmdLineProcessor& processor);

  const WString& SourceText() const { return source_; }
  const CCmdLineEntries& Entries() const { return entries_; }
  bool Stopped() const { return stopped_; }
  // The message of the switch that stopped the loop; empty when none did.
  const CErrorText& ErrorText() const { return errorText_; }

 private:
  void Reset();
  void AddToken(WString& token);

  Platform::SwitchSyntax syntax_;
  WString source_;
  CCmdLineEntries entries_;
  bool stopped_ = false;
  CErrorText errorText_;
};

}  // namespace NScrivolt
