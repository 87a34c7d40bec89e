#include "platform/files.h"

namespace NScrivolt::Platform {

namespace {

constexpr std::size_t kReadPieceSize = 64 * 1024;

}  // namespace

bool ReadWholeFile(const WString& path, std::string& bytes) {
  bytes.clear();
  CFileReader reader;
  if (!reader.Open(path)) return false;
  bytes.reserve(std::size_t(reader.SizeHint()));
  char piece[kReadPieceSize];
  for (;;) {
    std::size_t count = 0;
    if (!reader.Read(piece, sizeof piece, count)) {
      std::string().swap(bytes);
      return false;
    }
    if (count == 0) return true;
    bytes.append(piece, count);
  }
}

bool WriteWholeFile(const WString& path, std::string_view bytes) {
  CFileReplacement replacement;
  return replacement.Open(path) && replacement.Write(bytes) && replacement.Commit();
}

}  // namespace NScrivolt::Platform
