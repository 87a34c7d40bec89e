// CINIFile: a settings file of sections and "key=value" lines, read from and
// written back to disk in the encoding the file had. Sections and keys are
// found ignoring case and kept in the order of their lower-cased names; each
// keeps the spelling under which it was first read or created.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "text/base/wide_string.h"
#include "text/encoding.h"

namespace NScrivolt {

// Whether a lookup that finds nothing makes the missing entry.
enum class Lookup { FindOnly, Create };

class CINISetting {
 public:
  explicit CINISetting(WString key) : key_(std::move(key)) {}
  virtual ~CINISetting() = default;

  const WString& Key() const { return key_; }
  const WString& Value() const { return value_; }

  // The value, or `fallback` when the value is empty.
  WString GetText(WStringView fallback) const;
  // `fallback` when the value is empty; otherwise the leading decimal number
  // (optional blanks and sign first), 0 when there is none, clamped to the
  // type's range.
  std::int32_t GetInt(std::int32_t fallback) const;
  std::uint32_t GetUnsigned(std::uint32_t fallback) const;

  void SetText(WString value) { value_ = std::move(value); }
  void SetInt(std::int32_t value);

 private:
  WString key_;
  WString value_;
};

class CINISection {
 public:
  explicit CINISection(WString name) : name_(std::move(name)) {}
  virtual ~CINISection() = default;

  const WString& Name() const { return name_; }
  // The setting under `key` (ignoring case); null when there is none and
  // `lookup` is FindOnly.
  CINISetting* GetSetting(WStringView key, Lookup lookup);
  // The settings in the order they are written.
  const std::map<WString, std::unique_ptr<CINISetting>>& Settings() const { return settings_; }

 private:
  WString name_;
  std::map<WString, std::unique_ptr<CINISetting>> settings_;  // by lower-cased key
};

class CINIFile {
 public:
  CINIFile() = default;
  CINIFile(const CINIFile&) = delete;
  CINIFile& operator=(const CINIFile&) = delete;
  virtual ~CINIFile() = default;

  // Replaces the sections by those of the file at `path`, which is
  // remembered for Write. A byte-order mark decides the encoding; without
  // one the file is read as `hint`. False, with no sections, when the file
  // cannot be read or its bytes are not text in that encoding.
  bool Read(const WString& path, EncodingType hint);

  // Writes the sections to `path`, or to the remembered path when `path` is
  // null, in the remembered encoding, replacing the file only when all of it
  // is written. False when a character cannot be represented in the
  // encoding or the file cannot be written. A given path becomes the
  // remembered one on success.
  bool Write(const WString* path = nullptr);

  // Read and Write without the file: the sections of `bytes`, and the
  // bytes of the sections in the remembered encoding.
  bool ReadBytes(std::string_view bytes, EncodingType hint);
  bool ToBytes(std::string& bytes) const;

  // The section called `name` (ignoring case); null when there is none and
  // `lookup` is FindOnly.
  CINISection* GetSection(WStringView name, Lookup lookup);

  // The text Write puts in the file, before encoding.
  WString ToText() const;

  const WString& Path() const { return path_; }
  const EncodingInfo& Encoding() const { return encoding_; }

 private:
  void Parse(WStringView text);

  WString path_;
  EncodingInfo encoding_;  // Ascii without a mark until a file says otherwise
  std::map<WString, std::unique_ptr<CINISection>> sections_;  // by lower-cased name
};

}  // namespace NScrivolt
