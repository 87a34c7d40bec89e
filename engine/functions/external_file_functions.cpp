#include "engine/functions/external_file_functions.h"

#include <utility>

#include "engine/syntax/error_report.h"
#include "engine/functions/function_factory.h"
#include "engine/process.h"
#include "platform/message_box.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// Runs a source into the function's output: evaluated as a template against
// the caller's parameters and user functions, or copied as it is.
CErrorText ProcessIntoOutput(CProcessContext& context, CContentSource& source, Evaluation evaluation, WString& output) {
  WString text;
  CStringContentDest destination(&text);
  CErrorText errorText = Process(context, source, destination, evaluation, Isolation::KeepChanges);
  if (errorText.empty()) AppendResult(output, std::move(text));
  return errorText;
}

// "skipifmissing" given: a missing file reads as empty text.
MissingFile MissingFileFor(ArgumentSlot skipIfMissing) {
  return skipIfMissing != nullptr ? MissingFile::EmptyText : MissingFile::Error;
}

}  // namespace

CErrorText CFunctionExternalFile::EvaluateFileEncoding(CProcessContext& context, EncodingType& type,
                                                       bool& isExplicit) const {
  type = EncodingType::Ascii;
  isExplicit = false;
  if (fileEncoding_ == nullptr) return CErrorText();
  WString name;
  CErrorText errorText = EvaluateText(*this, fileEncoding_, u"FileEncoding", context, WithoutValue::IsError, name);
  if (!errorText.empty()) return errorText;
  if (!ParseEncodingName(name, type, isExplicit)) errorText = UnknownOptionError(*fileEncoding_, name);
  return errorText;
}

CErrorText CFunctionExternalFile::MakeFileSource(CProcessContext& context, const CParsePart* file,
                                                 MissingFile missingFile,
                                                 std::unique_ptr<CContentSource>& source) const {
  WString path;
  CErrorText errorText = EvaluateText(*this, file, u"File", context, WithoutValue::IsError, path);
  if (!errorText.empty()) return errorText;
  EncodingType type;
  bool isExplicit;
  errorText = EvaluateFileEncoding(context, type, isExplicit);
  if (errorText.empty()) {
    source = std::make_unique<CFileContentSource>(std::move(path), type, isExplicit, missingFile, InFileParam::Keep);
  }
  return errorText;
}

const CArgumentTable& CFunctionExternalFile::Arguments() const {
  static const CArgumentTable table{
      Single(u"fileencoding", &CFunctionExternalFile::fileEncoding_),
  };
  return table;
}

const CArgumentTable& CFunctionInput::Arguments() const {
  static const CArgumentTable table(CFunctionExternalFile::Arguments(), {
      Single(u"file", &CFunctionInput::file_),
      Single(u"skipifmissing", &CFunctionInput::skipIfMissing_),
  });
  return table;
}

CErrorText CFunctionInput::Execute(CProcessContext& context, WString& output) {
  std::unique_ptr<CContentSource> source;
  CErrorText errorText = MakeFileSource(context, file_, MissingFileFor(skipIfMissing_), source);
  if (errorText.empty()) errorText = ProcessIntoOutput(context, *source, Evaluation::CopyText, output);
  return errorText;
}

const CArgumentTable& CFunctionProcess::Arguments() const {
  static const CArgumentTable table(CFunctionExternalFile::Arguments(), {
      Single(u"file", &CFunctionProcess::file_),
      Single(u"content", &CFunctionProcess::content_),
      Single(u"skipifmissing", &CFunctionProcess::skipIfMissing_),
  });
  return table;
}

CErrorText CFunctionProcess::MakeSource(CProcessContext& context, std::unique_ptr<CContentSource>& source) const {
  if (file_ != nullptr) return MakeFileSource(context, file_, MissingFileFor(skipIfMissing_), source);
  WString text;
  CErrorText errorText = EvaluateText(*this, content_, u"Content", context, WithoutValue::IsError, text);
  if (errorText.empty()) source = std::make_unique<CStringContentSource>(std::move(text));
  return errorText;
}

CErrorText CFunctionProcess::Execute(CProcessContext& context, WString& output) {
  if (file_ == nullptr && content_ == nullptr) return ErrorAt(MsgFileOrContentMissing, CallPart());
  if (file_ != nullptr && content_ != nullptr) return ErrorAt(MsgFileAndContent, CallPart());
  std::unique_ptr<CContentSource> source;
  CErrorText errorText = MakeSource(context, source);
  if (errorText.empty()) errorText = ProcessIntoOutput(context, *source, Evaluation::Evaluate, output);
  return errorText;
}

const CArgumentTable& CFunctionOutput::Arguments() const {
  static const CArgumentTable table(CFunctionExternalFile::Arguments(), {
      Single(u"screen", &CFunctionOutput::screen_),
      Repeatable(u"file", &CFunctionOutput::files_),
      Single(u"functionresult", &CFunctionOutput::functionResult_),
      Single(u"content", &CFunctionOutput::content_),
  });
  return table;
}

CErrorText CFunctionOutput::EvaluateFiles(CProcessContext& context, std::vector<WString>& paths) const {
  paths.reserve(files_.size());
  for (const CParsePartRef& file : files_) {
    WString path;
    CErrorText errorText = EvaluateText(*this, file.Get(), u"File", context, WithoutValue::IsError, path);
    if (!errorText.empty()) return errorText;
    paths.push_back(std::move(path));
  }
  return CErrorText();
}

CErrorText CFunctionOutput::WriteFiles(CProcessContext& context, const std::vector<WString>& paths,
                                       const WString& content, EncodingType type, bool isExplicit) {
  CErrorText errorText;
  for (size_t i = 0; i < paths.size() && errorText.empty(); ++i) {
    // Each file gets its own source: a text source hands its text over when read.
    CStringContentSource source(content);
    CFileContentDest destination(paths[i], type, isExplicit, false);
    errorText = Process(context, source, destination, Evaluation::CopyText, Isolation::KeepChanges);
  }
  return errorText;
}

CErrorText CFunctionOutput::Execute(CProcessContext& context, WString& output) {
  std::vector<WString> paths;
  CErrorText errorText = EvaluateFiles(context, paths);
  WString content;
  if (errorText.empty()) errorText = EvaluateText(*this, content_, u"Content", context, WithoutValue::IsError, content);
  EncodingType type;
  bool isExplicit;
  if (errorText.empty()) errorText = EvaluateFileEncoding(context, type, isExplicit);
  if (!errorText.empty()) return errorText;
  errorText = WriteFiles(context, paths, content, type, isExplicit);
  if (screen_ != nullptr) {
    Platform::ShowMessageBox(content, CText(MsgIntermediateOutputTitle).str(), Platform::MessageBoxIcon::None);
  }
  if (functionResult_ != nullptr) AppendResult(output, std::move(content));
  return errorText;
}

CBuiltInFamily ExternalFileFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"input", Make<CFunctionInput>},
      {u"output", Make<CFunctionOutput>},
      {u"process", Make<CFunctionProcess>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
