// The switches: which tokens each one takes, what it changes, how it fails.
#include <iterator>
#include <utility>

#include "cmdline/cmd_line_processor.h"
#include "cmdline/switch_table.h"
#include "engine/params/param_qualifier.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

SwitchResult Consumed(unsigned options) { return {true, options, CErrorText()}; }

}  // namespace

SwitchResult CCmdLineProcessor::Fail(CErrorText error) {
  AddFeedback(error.str(), true);
  return {false, 0, std::move(error)};
}

SwitchResult CCmdLineProcessor::FailFor(MessageId messageId, const CSwitchOptions& options) {
  return Fail(MessageError(messageId, {{u"[SWITCH]", options.switchText}}));
}

SwitchResult CCmdLineProcessor::ProcessSwitch(EntryIterator current, EntryIterator end) {
  if (!current->isSwitch) return Fail(MessageError(MsgLoneOption, {{u"[OPTION]", current->text}}));
  const CSwitchOptions options{current->text, current + 1, end};
  switch (FindSwitch(SwitchNameOf(current->text))) {
    case SwitchKind::Question:
    case SwitchKind::Help: return ShowHelp();
    case SwitchKind::Set: return SetParam(options);
    case SwitchKind::SetSubParams: return SetSubParams(options);
    case SwitchKind::Unset: return UnsetParam(options);
    case SwitchKind::BasePath: return SetBasePathSwitch(options);
    case SwitchKind::In: return SetFile(options, description_.inFile, MsgInputFileNotSpecified);
    case SwitchKind::Out: return SetFile(options, description_.outFile, MsgOutputFileNotSpecified);
    case SwitchKind::CommandFile: return RunCommandFile(options);
    case SwitchKind::FeedbackDest: return SetFeedbackDest(options);
    case SwitchKind::FeedbackMode: return SetFeedbackMode(options);
    case SwitchKind::InEncoding: return SetEncoding(options, description_.inEncoding);
    case SwitchKind::OutEncoding: return SetEncoding(options, description_.outEncoding);
    case SwitchKind::CommandFileEncoding: return SetEncoding(options, description_.commandFileEncoding);
    case SwitchKind::Go: return Go();
    case SwitchKind::Unknown: break;
  }
  return FailFor(MsgUnknownSwitch, options);
}

SwitchResult CCmdLineProcessor::ShowHelp() {
  screen_.ShowHelp(MsgHelpTopicCommandLine);
  return Consumed(0);
}

SwitchResult CCmdLineProcessor::FailInvalidName(const CSwitchOptions& options) {
  return Fail(MessageError(MsgParamNameInvalid, {{u"[PARAM]", options.Text(0)}, {u"[SWITCH]", options.switchText}}));
}

// Null when the name is no valid parameter reference.
CParam* CCmdLineProcessor::FindOrCreateParam(const WString& name) {
  const CQualifierParse parse = ParseQualifierText(name, WStringView());
  if (!parse.message.empty()) return nullptr;
  return context_.Root().FindParam(parse.qualifier, true);
}

// "/set" NAME [VALUE]
SwitchResult CCmdLineProcessor::SetParam(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgParamNameNotSpecified, options);
  CParam* param = FindOrCreateParam(options.Text(0));
  if (param == nullptr) {
    return FailInvalidName(options);
  }
  if (!options.IsOption(1)) return Consumed(1);
  param->SetValue(options.Text(1));
  return Consumed(2);
}

// "/setsubparams" NAME VALUE*
SwitchResult CCmdLineProcessor::SetSubParams(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgParamNameNotSpecified, options);
  CParam* param = FindOrCreateParam(options.Text(0));
  if (param == nullptr) {
    return FailInvalidName(options);
  }
  param->ClearChildren();
  unsigned consumed = 1;
  for (; options.IsOption(consumed); ++consumed) param->AppendNumbered()->SetValue(options.Text(consumed));
  return Consumed(consumed);
}

// "/unset" NAME
SwitchResult CCmdLineProcessor::UnsetParam(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgParamNameNotSpecified, options);
  const CQualifierParse parse = ParseQualifierText(options.Text(0), WStringView());
  if (!parse.message.empty()) {
    return FailInvalidName(options);
  }
  context_.Root().DeleteParam(parse.qualifier);
  return Consumed(1);
}

// "/basepath" FOLDER
SwitchResult CCmdLineProcessor::SetBasePathSwitch(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgBasePathNotSpecified, options);
  SetBasePath(context_, options.Text(0));
  return Consumed(1);
}

// "/in" FILE, "/out" FILE
SwitchResult CCmdLineProcessor::SetFile(const CSwitchOptions& options, WString& file, MessageId missingMessageId) {
  if (!options.Has(0)) return FailFor(missingMessageId, options);
  file = options.Text(0);
  return Consumed(1);
}

// "/commandfile" FILE
SwitchResult CCmdLineProcessor::RunCommandFile(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgCommandFileNotSpecified, options);
  CErrorText errorText;
  if (ProcessCommandFile(options.Text(0), errorText)) return Consumed(1);
  // The message that stopped the file is in the feedback already.
  return {false, 1, std::move(errorText)};
}

// "/feedbackdest" ("screen" | "file" FILE)
SwitchResult CCmdLineProcessor::SetFeedbackDest(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgFeedbackDestNotSpecified, options);
  const WString& destination = options.Text(0);
  if (EqualsIgnoreCase(destination, u"screen")) {
    FlushFeedback();
    description_.feedbackToFile = false;
    return Consumed(1);
  }
  if (!EqualsIgnoreCase(destination, u"file")) {
    return Fail(MessageError(MsgUnknownFeedbackDest, {{u"[DEST]", destination}, {u"[SWITCH]", options.switchText}}));
  }
  if (!options.Has(1)) return FailFor(MsgFeedbackFileNotSpecified, options);
  FlushFeedback();
  description_.feedbackToFile = true;
  description_.feedbackFile = options.Text(1);
  return Consumed(2);
}

// "/feedbackmode" ("all" | "error" | "none")
SwitchResult CCmdLineProcessor::SetFeedbackMode(const CSwitchOptions& options) {
  if (!options.Has(0)) return FailFor(MsgFeedbackModeNotSpecified, options);
  // Indexed by FeedbackMode.
  const WStringView names[] = {u"all", u"error", u"none"};
  for (std::size_t mode = 0; mode < std::size(names); ++mode) {
    if (EqualsIgnoreCase(options.Text(0), names[mode])) {
      description_.feedbackMode = FeedbackMode(mode);
      return Consumed(1);
    }
  }
  return Fail(MessageError(MsgUnknownFeedbackMode, {{u"[MODE]", options.Text(0)}, {u"[SWITCH]", options.switchText}}));
}

// "/inencoding", "/outencoding", "/commandfileencoding" ENCODING
SwitchResult CCmdLineProcessor::SetEncoding(const CSwitchOptions& options, CEncodingChoice& encoding) {
  if (!options.Has(0)) return FailFor(MsgEncodingNotSpecified, options);
  CEncodingChoice parsed = encoding;
  if (!ParseEncodingName(options.Text(0), parsed.type, parsed.isExplicit)) {
    return Fail(MessageError(MsgUnknownEncoding, {{u"[TYPE]", options.Text(0)}, {u"[SWITCH]", options.switchText}}));
  }
  encoding = parsed;
  return Consumed(1);
}

// "/go"
SwitchResult CCmdLineProcessor::Go() {
  CErrorText errorLine = ProcessPairReport();
  if (errorLine.empty()) return Consumed(0);
  return {false, 0, std::move(errorLine)};
}

}  // namespace NScrivolt
