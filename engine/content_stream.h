// Content streams: where the text of a processing comes from (a file or a
// text in memory) and where the produced text goes (a file or a text in
// memory). Process attaches a source and a destination to its file record,
// reads the source once and, when nothing failed, writes the destination once.
#pragma once

#include <memory>

#include "engine/file_record.h"
#include "text/encoded_output.h"
#include "text/encoding.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

class CProcessContext;

class CContent {
 public:
  virtual ~CContent() = default;

  // Remembers the context (for the base folder) and the record, then lets
  // the object fill the record fields that concern it.
  void Attach(CProcessContext& context, CFileRecord& record);

 protected:
  virtual void Prepare() = 0;

  CProcessContext* context_ = nullptr;  // not owning; null until attached
  CFileRecord* record_ = nullptr;       // not owning; null until attached
};

class CContentSource : public CContent {
 public:
  // Reads the whole text; returns the error text (empty on success).
  virtual CErrorText Read(WString& text) = 0;

  // A template read from a file is evaluated in that file's folder; a text
  // from memory stays in the folder of the template that produced it.
  virtual bool IsFile() const { return false; }

  // Replaces the standard description in the record when not empty.
  WString description;
};

// What reading a file that does not exist gives: an error, or empty text.
enum class MissingFile { Error, EmptyText };
// Whether the file becomes _InFile (the template of a command-line pair) or
// leaves it as it is (a file a template reads).
enum class InFileParam { Keep, Set };

class CFileContentSource : public CContentSource {
 public:
  CFileContentSource() = default;
  CFileContentSource(WString path, EncodingType type, bool isExplicit, MissingFile missingFile, InFileParam inFile);
  CErrorText Read(WString& text) override;
  bool IsFile() const override { return true; }

 protected:
  void Prepare() override;

 private:
  WString path_;  // as given, resolved only when read
  InFileParam inFile_ = InFileParam::Keep;
  EncodingType type_ = EncodingType::Ascii;
  bool explicit_ = false;
  MissingFile missingFile_ = MissingFile::Error;
};

class CStringContentSource : public CContentSource {
 public:
  CStringContentSource() = default;
  explicit CStringContentSource(WString text);
  CErrorText Read(WString& text) override;

 protected:
  void Prepare() override;

 private:
  WString text_;
};

class CContentDest : public CContent {
 public:
  // Writes the whole produced text; returns the error text (empty on success).
  // When EncodedOutput gave a keeper, `text` is what was not handed to it.
  virtual CErrorText Write(WString text) = 0;
  // A keeper for the output as encoded bytes, when this destination writes
  // them; null when it takes the text whole. Asked once the source was read.
  virtual CEncodedOutput* EncodedOutput() { return nullptr; }
};

class CFileContentDest : public CContentDest {
 public:
  CFileContentDest() = default;
  CFileContentDest(WString path, EncodingType type, bool isExplicit, bool setOutFile);
  CErrorText Write(WString text) override;
  CEncodedOutput* EncodedOutput() override;

 protected:
  void Prepare() override;

 private:
  EncodingInfo Encoding() const;

  WString path_;  // as given, resolved only when written
  std::unique_ptr<CEncodedOutput> encoded_;  // of the processing under way
  bool setOutFile_ = false;
  EncodingType type_ = EncodingType::Ascii;
  bool explicit_ = false;
};

class CStringContentDest : public CContentDest {
 public:
  CStringContentDest() = default;
  explicit CStringContentDest(WString* target);
  CErrorText Write(WString text) override;

 protected:
  void Prepare() override {}

 private:
  WString* target_ = nullptr;  // owned by the caller
};

}  // namespace NScrivolt
