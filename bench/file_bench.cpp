// Reading and writing a large text file through ReadTextFile and WriteTextFile,
// against a plain byte copy of the same file through the platform layer.
//
//   file_bench [folder] [megabytes] [repeats]
//
// Writes two files (UTF-8 without mark and UTF-16 LE with mark, mostly ASCII
// with some other characters) into the folder (default: the system's
// temporary folder), copies each one both ways, keeps the fastest of the
// repeats, checks that the text round trip gave back the same bytes, and
// removes what it wrote.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/process_memory.h"
#include "text/encoding.h"
#include "text/file_io.h"

namespace {

using namespace NScrivolt;
using Clock = std::chrono::steady_clock;

constexpr WStringView kLine =
    u"Dear <# use param: \"Name\" #>, caf\u00E9 na\u00EFve \u20AC 12,50 \u2014 the quick brown fox.\r\n";
constexpr double kMegabyte = 1024.0 * 1024.0;

// The line in the given form, repeated up to `size` bytes, behind the mark.
std::string MakeContent(EncodingType type, bool bom, size_t size) {
  const std::string line = EncodeText(kLine, type, false).bytes;
  std::string bytes(bom ? ByteOrderMark(type) : std::string_view());
  bytes.reserve(size + line.size());
  while (bytes.size() < size) bytes += line;
  return bytes;
}

double Seconds(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double ByteCopy(const WString& from, const WString& to) {
  const Clock::time_point start = Clock::now();
  std::string bytes;
  if (!Platform::ReadWholeFile(from, bytes) || !Platform::WriteWholeFile(to, bytes)) {
    std::fprintf(stderr, "byte copy failed\n");
    std::exit(1);
  }
  return Seconds(start);
}

double TextCopy(const WString& from, const WString& to) {
  const Clock::time_point start = Clock::now();
  CErrorText errorText;
  {
    WString text;
    EncodingInfo encoding;
    if (ReadTextFile(from, text, false, encoding, false, errorText)) {
      WriteTextFile(to, text, encoding, false, errorText);
    }
  }
  const double seconds = Seconds(start);
  if (!errorText.empty()) {
    std::fprintf(stderr, "text copy failed\n");
    std::exit(1);
  }
  return seconds;
}

bool SameBytes(const WString& a, const WString& b) {
  std::string first;
  std::string second;
  return Platform::ReadWholeFile(a, first) && Platform::ReadWholeFile(b, second) && first == second;
}

void Run(const char* name, const std::filesystem::path& folder, EncodingType type, bool bom, size_t size,
         int repeats) {
  const WString in = (folder / "bench-in.txt").u16string();
  const WString out = (folder / "bench-out.txt").u16string();
  if (!Platform::WriteWholeFile(in, MakeContent(type, bom, size))) {
    std::fprintf(stderr, "cannot write the input file\n");
    std::exit(1);
  }
  double copy = 1e30;
  double text = 1e30;
  for (int k = 0; k < repeats; ++k) {
    copy = std::min(copy, ByteCopy(in, out));
    text = std::min(text, TextCopy(in, out));
  }
  const double peak = double(Platform::PeakResidentBytes());
  const double megabytes = double(size) / kMegabyte;
  std::printf("%-22s %6.0f MB  text read+write %7.1f ms = %6.0f MB/s   byte copy %7.1f ms = %6.0f MB/s"
              "   ratio %4.2f   peak resident so far %5.0f MB (%.1f x file)   round trip %s\n",
              name, megabytes, text * 1000, megabytes / text, copy * 1000, megabytes / copy, text / copy,
              peak / kMegabyte, peak / double(size), SameBytes(in, out) ? "exact" : "DIFFERENT");
  std::filesystem::remove(folder / "bench-in.txt");
  std::filesystem::remove(folder / "bench-out.txt");
}

}  // namespace

int main(int argc, char** argv) {
  const std::filesystem::path folder = argc > 1 ? argv[1] : std::filesystem::temp_directory_path();
  const size_t size = size_t(argc > 2 ? std::atof(argv[2]) * kMegabyte : 100 * kMegabyte);
  const int repeats = argc > 3 ? std::max(1, std::atoi(argv[3])) : 3;
  Run("UTF-8 without mark", folder, EncodingType::Utf8, false, size, repeats);
  Run("UTF-16 LE with mark", folder, EncodingType::Utf16, true, size, repeats);
  return 0;
}
