// Files: existence, reading from start to end, and writing without ever
// leaving a half-written file. Paths are wide text; POSIX turns them into
// UTF-8 at the call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

// Something exists at `path`: a file or a folder. Standard input and output
// always exist.
bool FileExists(const WString& path);

// True for "-" on Linux, the name of standard input when read and of
// standard output when written. The Windows program has no such name.
bool IsStandardStream(WStringView path);

// Reads one file from its start to its end, piece by piece.
class CFileReader {
 public:
  CFileReader();
  CFileReader(const CFileReader&) = delete;
  CFileReader& operator=(const CFileReader&) = delete;
  ~CFileReader();

  // False when the file cannot be opened for reading; a folder is not a file.
  bool Open(const WString& path);
  // The size the system gives for the open file. Only a hint: it is 0 for
  // files whose size the system does not know, and a file may change.
  std::uint64_t SizeHint() const;
  // Reads the next bytes into buffer[0, capacity); `count` is 0 at the end of
  // the file. False when reading fails.
  bool Read(char* buffer, std::size_t capacity, std::size_t& count);

 private:
  struct CState;
  std::unique_ptr<CState> state_;
};

// Replaces the content of a file and nothing else: a symbolic link is
// followed and stays a link; an existing file keeps its owner, group,
// permissions and hard links; a device, pipe or terminal is written as it is.
// Until Commit succeeds the target is as it was, and a replacement that is
// not committed leaves nothing behind. Where the platform can, the new
// content is written beside the target and moved over it at once; where it
// cannot (devices, files with several links, folders that take no new file)
// the text is collected and written into the target at Commit.
class CFileReplacement {
 public:
  CFileReplacement();
  CFileReplacement(const CFileReplacement&) = delete;
  CFileReplacement& operator=(const CFileReplacement&) = delete;
  ~CFileReplacement();

  // Prepares the writing. False when the target is a folder, is read-only,
  // or does not exist and cannot be created.
  bool Open(const WString& path);
  // Appends to the temporary file; false when writing fails.
  bool Write(std::string_view bytes);
  // Puts the new content in place; false when that fails, with the target
  // as it was wherever the failure shows before the target is touched.
  bool Commit();
  // Whether what is written goes into the new file beside the target as it
  // comes, rather than being collected in memory for the target itself.
  bool WritesToNewFile() const;
  // Gives up the replacement, which leaves nothing behind, and hands back
  // the bytes written so far; false when they cannot be read back.
  bool TakeBack(std::string& bytes);

 private:
  struct CState;
  std::unique_ptr<CState> state_;
};

// The whole content of the file replaces `bytes`. False, with `bytes` empty,
// when the file cannot be opened or read.
bool ReadWholeFile(const WString& path, std::string& bytes);

// Replaces the file with `bytes` in one piece, as CFileReplacement does.
bool WriteWholeFile(const WString& path, std::string_view bytes);

}  // namespace NScrivolt::Platform
