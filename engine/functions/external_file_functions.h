// "input", "process" and "output": script functions that reach files other
// than the template's own input and output. All three move text through the
// content streams and Process, so reading, writing, encodings, path
// resolution and the file error messages are those of the file layer.
#pragma once

#include <memory>
#include <vector>

#include "engine/content_stream.h"
#include "engine/functions/function.h"
#include "text/encoding.h"
#include "text/error_text.h"

namespace NScrivolt {

// The shared "fileencoding" argument and its handling.
class CFunctionExternalFile : public CFunction {
 public:
  // "fileencoding"; deriving classes start their tables from it.
  const CArgumentTable& Arguments() const override;

 protected:
  // Absent or "auto": type Ascii, isExplicit false. A type keyword ("ascii",
  // "utf8", "utf16", "utf16le", "utf16be", ignoring case): that type, isExplicit
  // true. Anything else: error MsgUnknownOption at the argument, before any file is touched.
  CErrorText EvaluateFileEncoding(CProcessContext& context, EncodingType& type, bool& isExplicit) const;

  // Evaluates `file` (display name "File") and "fileencoding" into a source
  // that reads that file; MissingFile::EmptyText makes a missing file empty text.
  CErrorText MakeFileSource(CProcessContext& context, const CParsePart* file, MissingFile missingFile,
                            std::unique_ptr<CContentSource>& source) const;

 private:
  ArgumentSlot fileEncoding_ = nullptr;
};

// input file: F [skipifmissing] [fileencoding: E] — the file's text exactly as
// decoded; script markers in it stay literal.
class CFunctionInput : public CFunctionExternalFile {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot file_ = nullptr;
  ArgumentSlot skipIfMissing_ = nullptr;
};

// process file: F [skipifmissing] [fileencoding: E] | process content: C —
// evaluates a template file or text against the caller's parameters and user
// functions, which keep every change; only _InFile, _CurrentFile and _OutFile
// are put back. The produced text is the result.
class CFunctionProcess : public CFunctionExternalFile {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  // The source to evaluate: the file, or the evaluated content text.
  CErrorText MakeSource(CProcessContext& context, std::unique_ptr<CContentSource>& source) const;

  ArgumentSlot file_ = nullptr;
  ArgumentSlot content_ = nullptr;
  ArgumentSlot skipIfMissing_ = nullptr;
};

// output content: C [file: F]... [fileencoding: E] [screen] [functionresult] —
// writes C to every file in turn until one fails, shows it on the screen, and
// is C itself only with "functionresult". Screen and result happen even after
// a file failed.
class CFunctionOutput : public CFunctionExternalFile {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  CErrorText EvaluateFiles(CProcessContext& context, std::vector<WString>& paths) const;
  // Writes the content to each path in turn; the first failure ends it.
  static CErrorText WriteFiles(CProcessContext& context, const std::vector<WString>& paths, const WString& content,
                               EncodingType type, bool isExplicit);

  ArgumentSlot screen_ = nullptr;
  ArgumentList files_;
  ArgumentSlot functionResult_ = nullptr;
  ArgumentSlot content_ = nullptr;
};

}  // namespace NScrivolt
