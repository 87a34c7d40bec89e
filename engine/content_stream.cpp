#include "engine/content_stream.h"

#include <utility>

#include "engine/process_context.h"
#include "platform/files.h"
#include "text/file_io.h"
#include "text/text.h"

namespace NScrivolt {

void CContent::Attach(CProcessContext& context, CFileRecord& record) {
  context_ = &context;
  record_ = &record;
  Prepare();
}

CFileContentSource::CFileContentSource(WString path, EncodingType type, bool isExplicit, MissingFile missingFile,
                                       InFileParam inFile)
    : path_(std::move(path)), inFile_(inFile), type_(type), explicit_(isExplicit), missingFile_(missingFile) {}

void CFileContentSource::Prepare() {
  if (inFile_ == InFileParam::Set) record_->inFile = path_;
  record_->currentFile = path_;
  if (!description.empty()) {
    record_->description = description;
  } else if (Platform::IsStandardStream(path_)) {
    record_->description = CText(MsgStandardInputDescription).str();
  } else {
    record_->description = CText(MsgFileDescription).Replace(u"[FILEPATH]", WStringView(path_)).str();
  }
  record_->encoding = EncodingInfo{};
  if (explicit_) record_->encoding.type = type_;
}

CErrorText CFileContentSource::Read(WString& text) {
  CErrorText errorText;
  const WString resolved = ResolveFilePath(path_, BaseFolder(*context_));
  ReadTextFile(resolved, text, missingFile_ == MissingFile::EmptyText, record_->encoding, explicit_, errorText);
  return errorText;
}

CStringContentSource::CStringContentSource(WString text) : text_(std::move(text)) {}

void CStringContentSource::Prepare() {
  record_->description = !description.empty() ? description : CText(MsgReprocessedContent).str();
}

CErrorText CStringContentSource::Read(WString& text) {
  text = std::move(text_);  // a source is read once
  return CErrorText();
}

CFileContentDest::CFileContentDest(WString path, EncodingType type, bool isExplicit, bool setOutFile)
    : path_(std::move(path)), setOutFile_(setOutFile), type_(type), explicit_(isExplicit) {}

// A new processing starts: bytes kept for one that failed are dropped.
void CFileContentDest::Prepare() {
  encoded_.reset();
  if (setOutFile_) record_->outFile = path_;
}

EncodingInfo CFileContentDest::Encoding() const {
  if (!explicit_) return record_->encoding;
  EncodingInfo encoding;
  encoding.type = type_;
  encoding.bom = true;
  return encoding;
}

// The path is resolved now, as Write resolves it: the template may change
// the current folder while it runs, and the bytes go into the file's
// replacement as they come.
CEncodedOutput* CFileContentDest::EncodedOutput() {
  const EncodingInfo encoding = Encoding();
  encoded_ = std::make_unique<CEncodedOutput>(encoding.type, ResolveFilePath(path_, BaseFolder(*context_)),
                                              encoding.bom);
  return encoded_.get();
}

CErrorText CFileContentDest::Write(WString text) {
  CErrorText errorText;
  const WString resolved = ResolveFilePath(path_, BaseFolder(*context_));
  if (encoded_ != nullptr) {
    WriteEncodedTextFile(resolved, *encoded_, std::move(text), Encoding(), explicit_, errorText);
    encoded_.reset();
  } else {
    WriteTextFile(resolved, text, Encoding(), explicit_, errorText);
  }
  return errorText;
}

CStringContentDest::CStringContentDest(WString* target) : target_(target) {}

CErrorText CStringContentDest::Write(WString text) {
  if (target_ != nullptr) *target_ = std::move(text);
  return CErrorText();
}

}  // namespace NScrivolt
