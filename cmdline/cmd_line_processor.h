// CCmdLineProcessor: one command-line run. It interprets the switches, keeps
// the run description, processes each input/output pair at "/go" through one
// engine context, and collects and delivers the feedback.
//
// Command files may name further command files. Each level is one more
// ProcessCommandFile on the stack, so their nesting is limited: a command
// file opened while maxCommandFileNesting files are open already fails the
// switch that names it, and with it every enclosing command file.
#pragma once

#include <vector>

#include "cmdline/cmd_line_entry.h"
#include "cmdline/run_description.h"
#include "cmdline/run_screen.h"
#include "cmdline/switch_processor.h"
#include "engine/process_context.h"
#include "platform/switch_syntax.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

// Command files open at once, the command line itself not counted.
constexpr int kMaxCommandFileNesting = 32;

class CCmdLineProcessor : public ICmdLineProcessor {
 public:
  explicit CCmdLineProcessor(IRunScreen& screen,
                             Platform::SwitchSyntax syntax = Platform::NativeSwitchSyntax());
  CCmdLineProcessor(const CCmdLineProcessor&) = delete;
  CCmdLineProcessor& operator=(const CCmdLineProcessor&) = delete;

  // The run driver: splits the argument text (or takes the split arguments),
  // runs every switch until one fails, reports "Nothing specified to
  // process" when nothing was reported at all, and delivers the feedback.
  // True when every switch succeeded.
  bool Run(WString argumentText);
  bool Run(const std::vector<WString>& arguments);

  SwitchResult ProcessSwitch(EntryIterator current, EntryIterator end) override;

  // Reads the command file at `path` (as typed) and runs its switches in the
  // file's folder. True when every switch in it succeeded; otherwise
  // `errorText` is the message that stopped it.
  bool ProcessCommandFile(const WString& path, CErrorText& errorText);

  // Offers a line to the feedback; the feedback mode decides whether it is kept.
  void AddFeedback(WStringView text, bool isError);
  // Delivers the kept lines to the current destination and clears them.
  void FlushFeedback();
  // Processes the current input file into the current output file; true when
  // no error was reported.
  bool ProcessPair();

  CProcessContext& Context() { return context_; }
  const CRunDescription& Description() const { return description_; }

  int maxCommandFileNesting = kMaxCommandFileNesting;

 private:
  // The tokens behind the switch being handled.
  struct CSwitchOptions {
    WStringView switchText;  // as typed
    EntryIterator next;
    EntryIterator end;

    bool Has(std::size_t i) const { return std::size_t(end - next) > i; }
    const WString& Text(std::size_t i) const { return next[std::ptrdiff_t(i)].text; }
    bool IsOption(std::size_t i) const { return Has(i) && !next[std::ptrdiff_t(i)].isSwitch; }
  };

  bool Finish(bool switchesSucceeded);
  SwitchResult Fail(CErrorText error);
  SwitchResult FailFor(MessageId messageId, const CSwitchOptions& options);
  SwitchResult FailInvalidName(const CSwitchOptions& options);
  CParam* FindOrCreateParam(const WString& name);

  SwitchResult ShowHelp();
  SwitchResult SetParam(const CSwitchOptions& options);
  SwitchResult SetSubParams(const CSwitchOptions& options);
  SwitchResult UnsetParam(const CSwitchOptions& options);
  SwitchResult SetBasePathSwitch(const CSwitchOptions& options);
  SwitchResult SetFile(const CSwitchOptions& options, WString& file, MessageId missingMessageId);
  SwitchResult RunCommandFile(const CSwitchOptions& options);
  SwitchResult SetFeedbackDest(const CSwitchOptions& options);
  SwitchResult SetFeedbackMode(const CSwitchOptions& options);
  SwitchResult SetEncoding(const CSwitchOptions& options, CEncodingChoice& encoding);
  SwitchResult Go();

  // ProcessPair's work: the error line it reported, empty on success.
  CErrorText ProcessPairReport();
  void WriteFeedbackFile();

  IRunScreen& screen_;
  Platform::SwitchSyntax syntax_;
  CProcessContext context_;
  CRunDescription description_;
  int commandFileDepth_ = 0;
};

}  // namespace NScrivolt
