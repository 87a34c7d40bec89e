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

// Something exists at `path`: a file or a folder.
bool FileExists(const WString& path);

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

// Writes a file under a temporary name in the target's folder and puts it in
// place of the target only when it is complete: until Commit succeeds the
// target is as it was, and a replacement that is not committed removes its
// temporary file when it ends.
class CFileReplacement {
 public:
  CFileReplacement();
  CFileReplacement(const CFileReplacement&) = delete;
  CFileReplacement& operator=(const CFileReplacement&) = delete;
  ~CFileReplacement();

  // Creates the temporary file. False when the target is a folder or
  // read-only, or no file can be made beside it.
  bool Open(const WString& path);
  // Appends to the temporary file; false when writing fails.
  bool Write(std::string_view bytes);
  // Closes the temporary file and renames it over the target; false, with
  // the target as it was and the temporary file gone, when that fails.
  bool Commit();

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
