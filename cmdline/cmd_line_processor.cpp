// The run driver, the processing of one input/output pair, and the feedback
// with its modes and its two destinations.
#include <utility>

#include "cmdline/cmd_line.h"
#include "cmdline/cmd_line_processor.h"
#include "engine/content_stream.h"
#include "engine/process.h"
#include "text/file_io.h"
#include "text/text.h"

namespace NScrivolt {

CCmdLineProcessor::CCmdLineProcessor(IRunScreen& screen, Platform::SwitchSyntax syntax)
    : screen_(screen), syntax_(syntax) {}

bool CCmdLineProcessor::Run(WString argumentText) {
  CCmdLine commandLine(syntax_);
  commandLine.Parse(std::move(argumentText));
  return Finish(commandLine.Process(*this));
}

bool CCmdLineProcessor::Run(const std::vector<WString>& arguments) {
  CCmdLine commandLine(syntax_);
  commandLine.SetArguments(arguments);
  return Finish(commandLine.Process(*this));
}

// MsgNothingToProcess is an error line but does not change the result.
bool CCmdLineProcessor::Finish(bool switchesSucceeded) {
  if (!description_.anythingReported) AddFeedback(CText(MsgNothingToProcess).str(), true);
  FlushFeedback();
  return switchesSucceeded;
}

bool CCmdLineProcessor::ProcessPair() { return ProcessPairReport().empty(); }

CErrorText CCmdLineProcessor::ProcessPairReport() {
  WString errorLine;
  if (description_.inFile.empty()) {
    errorLine = CText(MsgNoInputFile).str();
  } else if (description_.outFile.empty()) {
    errorLine = CText(MsgNoOutputFile).str();
  } else {
    const CRunDescription& d = description_;
    CFileContentSource source(d.inFile, d.inEncoding.type, d.inEncoding.isExplicit, MissingFile::Error,
                              InFileParam::Set);
    CFileContentDest destination(d.outFile, d.outEncoding.type, d.outEncoding.isExplicit, true);
    const CErrorText errors = Process(context_, source, destination, Evaluation::Evaluate, Isolation::Isolated);
    if (errors.empty()) {
      AddFeedback(CText(MsgProcessed).Fill({{u"[INFILEPATH]", d.inFile}, {u"[OUTFILEPATH]", d.outFile}}).str(), false);
      return CErrorText();
    }
    errorLine = CText(MsgErrorsOccurred).str() + errors.str();
  }
  AddFeedback(errorLine, true);
  return CErrorText(std::move(errorLine));
}

void CCmdLineProcessor::AddFeedback(WStringView text, bool isError) {
  CRunDescription& d = description_;
  const bool kept = isError ? d.feedbackMode != FeedbackMode::None : d.feedbackMode == FeedbackMode::All;
  if (kept) {
    if (!d.feedbackText.empty()) d.feedbackText += u"\r\n";
    d.feedbackText += text;
  }
  if (isError) d.errorOccurred = true;
  d.anythingReported = true;
}

void CCmdLineProcessor::FlushFeedback() {
  CRunDescription& d = description_;
  if (d.feedbackText.empty()) return;
  if (d.feedbackToFile) {
    WriteFeedbackFile();
  } else if (d.errorOccurred) {
    screen_.ShowMessage(d.feedbackText, CText(MsgErrorProcessingTitle).str(), Platform::MessageBoxIcon::Warning);
  } else {
    screen_.ShowMessage(d.feedbackText, CText(MsgDoneProcessingTitle).str(), Platform::MessageBoxIcon::None);
  }
  d.feedbackText.clear();
  d.errorOccurred = false;
}

// UTF-8 with a byte-order mark, replacing the whole file; the text is not
// kept for a later attempt when writing fails.
void CCmdLineProcessor::WriteFeedbackFile() {
  const WString path = ResolveFilePath(description_.feedbackFile, BaseFolder(context_));
  EncodingInfo encoding;
  encoding.type = EncodingType::Utf8;
  encoding.bom = true;
  CErrorText writeError;
  if (WriteTextFile(path, description_.feedbackText, encoding, false, writeError)) return;
  screen_.ShowMessage(CText(MsgFeedbackFileNotWritten).Replace(u"[FILEPATH]", description_.feedbackFile).str(),
                      CText(MsgFeedbackFileNotWrittenTitle).str(), Platform::MessageBoxIcon::Warning);
}

}  // namespace NScrivolt
