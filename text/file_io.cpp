#include "text/file_io.h"

#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "text/error_text.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

bool IsRootRelative(const WString& path) {
  return path.size() >= 2 && path[0] == u'\\' && path[1] != u'\\';
}

WString BelowBasePath(const WString& path, const WString& basePath) {
  if (basePath.empty()) return path.substr(1);
  size_t end = basePath.size();
  while (end > 0 && Platform::IsPathSeparator(basePath[end - 1])) --end;
  return basePath.substr(0, end) + path;
}

void AddFileError(WString& errorText, MessageId id, const WString& path, WStringView encodingName = {}) {
  CText message(id);
  // The encoding name first: the path is the user's text and may hold anything.
  message.Replace(u"[ENCODING]", encodingName).Replace(u"[FILEPATH]", WStringView(path));
  AddErrorDetail(errorText, message.str());
}

// The bytes are decoded and released before the text is handed out, so the
// file's bytes and its text are held together only while decoding.
bool DecodeFile(std::string& bytes, WString& text, EncodingInfo& encoding, bool isExplicit) {
  encoding = isExplicit ? CheckBom(bytes, encoding.type) : DetectEncoding(bytes, encoding.type);
  DecodeResult decoded = DecodeBytes(bytes, encoding);
  std::string().swap(bytes);
  text = std::move(decoded.text);
  return decoded.ok;
}

}  // namespace

WString ResolveFilePath(const WString& path, const WString& basePath) {
  const WString located = IsRootRelative(path) ? BelowBasePath(path, basePath) : path;
  WString full;
  return Platform::FullPath(located, full) ? full : located;
}

bool ReadTextFile(const WString& path, WString& text, bool skipIfMissing, EncodingInfo& encoding,
                  bool isExplicit, WString& errorText) {
  text.clear();
  bool success = skipIfMissing;
  if (Platform::FileExists(path)) {
    std::string bytes;
    success = Platform::ReadWholeFile(path, bytes) && DecodeFile(bytes, text, encoding, isExplicit);
  }
  if (!success) AddFileError(errorText, MsgCannotReadFile, path);
  return success;
}

bool WriteTextFile(const WString& path, WStringView text, const EncodingInfo& encoding, bool isExplicit,
                   WString& errorText) {
  const WStringView encodingName = EncodingDisplayName(encoding.type);
  EncodeResult encoded = EncodeText(text, encoding);
  if (encoded.ok && encoded.usedDefaultChar) {
    if (isExplicit) {
      AddFileError(errorText, MsgNotRepresentable, path, encodingName);
      return false;
    }
    encoded = EncodeText(text, EncodingType::Utf8, true);
  }
  if (!encoded.ok) {
    AddFileError(errorText, MsgConversionError, path, encodingName);
    return false;
  }
  if (!Platform::WriteWholeFile(path, encoded.bytes)) {
    AddFileError(errorText, MsgCannotWriteFile, path);
    return false;
  }
  return true;
}

}  // namespace NScrivolt
