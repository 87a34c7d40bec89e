#include "engine/process.h"

#include <memory>
#include <utility>

#include "engine/current_directory_change.h"
#include "engine/syntax/error_report.h"
#include "engine/functions/function_factory.h"
#include "engine/syntax/parser.h"
#include "engine/syntax/unescape.h"
#include "text/file_io.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// Keeps the record on the context's stack for the lifetime of the object.
class CRecordPush {
 public:
  CRecordPush(CProcessContext& context, CFileRecord& record) : context_(context) {
    context_.records.push_back(&record);
  }
  ~CRecordPush() { context_.records.pop_back(); }
  CRecordPush(const CRecordPush&) = delete;
  CRecordPush& operator=(const CRecordPush&) = delete;

 private:
  CProcessContext& context_;
};

const WStringView kRunParams[] = {kInFileParam, kCurrentFileParam, kOutFileParam};

// What a processing puts back when it ends: everything for an isolated one,
// the three file parameters otherwise.
class CStateKeeper {
 public:
  CStateKeeper(CProcessContext& context, bool isolated) : context_(context), isolated_(isolated) {
    if (isolated_) {
      context.setAside = CParams();
      parameters_ = std::make_unique<CParams>(context.parameters);
      userFunctions_ = std::make_unique<CUserFunctions>(context.userFunctions);
    } else {
      for (size_t i = 0; i < std::size(kRunParams); ++i) kept_[i] = TopLevelValue(context, kRunParams[i]);
    }
  }
  ~CStateKeeper() {
    if (isolated_) {
      context_.setAside = context_.parameters;
      context_.parameters = *parameters_;
      context_.userFunctions = *userFunctions_;
    } else {
      for (size_t i = 0; i < std::size(kRunParams); ++i) SetTopLevelValue(context_, kRunParams[i], kept_[i]);
    }
  }
  CStateKeeper(const CStateKeeper&) = delete;
  CStateKeeper& operator=(const CStateKeeper&) = delete;

 private:
  CProcessContext& context_;
  bool isolated_;
  std::unique_ptr<CParams> parameters_;
  std::unique_ptr<CUserFunctions> userFunctions_;
  WString kept_[std::size(kRunParams)];
};

// Routes a processing's output to the keeper of its destination's encoded
// bytes for as long as the processing runs, and gives the enclosing
// processing its own back afterwards.
class COutputEncoding {
 public:
  COutputEncoding(CProcessContext& context, WString& output, CEncodedOutput* encoded)
      : context_(context), target_(context.encodedTarget), encoded_(context.encodedOutput) {
    context.encodedTarget = encoded != nullptr ? &output : nullptr;
    context.encodedOutput = encoded;
  }
  COutputEncoding(const COutputEncoding&) = delete;
  COutputEncoding& operator=(const COutputEncoding&) = delete;
  ~COutputEncoding() {
    context_.encodedTarget = target_;
    context_.encodedOutput = encoded_;
  }

 private:
  CProcessContext& context_;
  WString* target_;
  CEncodedOutput* encoded_;
};

// Hands a large output of the processing to its encoded keeper. Called
// between the parts of every evaluation; only the processing's own output
// is handed on, never a text that a call builds for itself.
void HandOnOutput(CProcessContext& context, WString& output) {
  if (&output == context.encodedTarget && output.size() >= CEncodedOutput::kTakeUnits) {
    context.encodedOutput->Take(output);
  }
}

// A template that is one text without escapes is its own output: its text is
// handed on instead of being copied, which spares a large text-only template
// a second copy of itself. Like any evaluation it takes a nesting level.
CErrorText EvaluateParsed(CParser& parser, CProcessContext& context, WString& output) {
  if (!parser.IsVerbatim()) return EvaluateParts(*parser.GetRoot(), context, output);
  CErrorText errorText = EnterNesting(context, *parser.GetRoot());
  if (!errorText.empty()) return errorText;
  LeaveNesting(context);
  output = parser.TakeText();
  return errorText;
}

// Parses and evaluates a template text with the file parameters set for the
// run, in the folder of the template's file. A text from memory keeps the
// current directory: the currentFile it inherits is relative to the folder
// that was current when the enclosing file was read, not to this one.
CErrorText EvaluateTemplate(CProcessContext& context, const CFileRecord& record, WString text, bool isolated,
                            WString& output) {
  CCurrentDirectoryChange directory;
  if (record.source->IsFile() && !record.currentFile.empty()) {
    directory.ToFolderOf(ResolveFilePath(record.currentFile, BaseFolder(context)));
  }
  CStateKeeper keeper(context, isolated);
  SetTopLevelValue(context, kInFileParam, record.inFile);
  SetTopLevelValue(context, kCurrentFileParam, record.currentFile);
  SetTopLevelValue(context, kOutFileParam, record.outFile);
  CParser parser;
  CErrorText errorText = parser.Parse(std::move(text), record.description);
  if (errorText.empty()) errorText = EvaluateParsed(parser, context, output);
  return errorText;
}

}  // namespace

CErrorText Process(CProcessContext& context, CContentSource& source, CContentDest& destination, Evaluation evaluation,
                   Isolation isolation) {
  CFileRecord record = context.CurrentRecord();
  record.source = &source;
  record.dest = &destination;
  CRecordPush push(context, record);
  source.Attach(context, record);
  destination.Attach(context, record);
  WString text;
  CErrorText errorText = source.Read(text);
  if (!errorText.empty()) return errorText;
  WString output;
  COutputEncoding encoding(context, output, evaluation == Evaluation::Evaluate ? destination.EncodedOutput() : nullptr);
  if (evaluation == Evaluation::Evaluate) {
    errorText = EvaluateTemplate(context, record, std::move(text), isolation == Isolation::Isolated, output);
  } else {
    output = std::move(text);
  }
  if (errorText.empty()) errorText = destination.Write(std::move(output));
  return errorText;
}

CErrorText EvaluateParts(const CParsePart& part, CProcessContext& context, WString& output) {
  CErrorText errorText = EnterNesting(context, part);
  if (!errorText.empty()) return errorText;
  for (const CParsePartRef& child : part.Children()) {
    if (child->Kind() == PartKind::Text) {
      if (child->HoldsEscapes()) {
        AppendUnescapedText(output, child->Value());
      } else {
        output.append(child->Value());
      }
      HandOnOutput(context, output);
      continue;
    }
    std::shared_ptr<CFunction> function;
    errorText = SetUpCall(*child, context, function);
    if (!errorText.empty()) break;
    // The call appends to the output in place; when it fails, the output is
    // abandoned with the whole processing.
    errorText = function->Execute(context, output);
    if (!errorText.empty()) {
      AddErrorAt(errorText, MsgErrorProcessingFunction, *child, {{u"[FUNC]", child->Name()}});
      break;
    }
    HandOnOutput(context, output);
  }
  LeaveNesting(context);
  return errorText;
}

}  // namespace NScrivolt
