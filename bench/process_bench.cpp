// End-to-end processing of a large text-only template, file to file, the way
// a "/go" runs it: read, decode, parse, evaluate, encode, write.
//
//   process_bench [megabytes] [folder]
//
// For a UTF-8 file without mark and a UTF-16 LE file with mark it prints the
// throughput, the ratio of the time to that of `cp` on the same file, and the
// peak memory of a process that does only the processing (the benchmark runs
// itself as that process, so generating the input does not count).
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "platform/process_memory.h"
#include "text/encoding.h"

namespace {

using namespace NScrivolt;
using Clock = std::chrono::steady_clock;
constexpr double kMegabyte = 1024.0 * 1024.0;

constexpr WStringView kLine = u"Dear reader, caf\u00E9 na\u00EFve \u20AC 12,50, the quick brown fox jumps.\r\n";

void WriteInput(const std::filesystem::path& path, EncodingType type, bool bom, size_t size) {
  const std::string line = EncodeText(kLine, type, false).bytes;
  std::ofstream file(path, std::ios::binary);
  if (bom) file << ByteOrderMark(type);
  for (size_t written = 0; written < size; written += line.size()) file << line;
}

double Seconds(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

// The child: one processing, then its time and peak memory on stdout.
int ProcessOnce(const char* in, const char* out) {
  CProcessContext context;
  CFileContentSource source(std::filesystem::path(in).u16string(), EncodingType::Ascii, false, MissingFile::Error,
                            InFileParam::Set);
  CFileContentDest destination(std::filesystem::path(out).u16string(), EncodingType::Ascii, false, true);
  const Clock::time_point start = Clock::now();
  const CErrorText errors = Process(context, source, destination, Evaluation::Evaluate, Isolation::Isolated);
  const double seconds = Seconds(start);
  if (!errors.empty()) {
    std::fprintf(stderr, "processing failed\n");
    return 1;
  }
  std::printf("%.6f %llu\n", seconds, static_cast<unsigned long long>(Platform::PeakResidentBytes()));
  return 0;
}

bool Measure(const std::string& command, double& seconds, unsigned long long& peak) {
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return false;
  const bool read = std::fscanf(pipe, "%lf %llu", &seconds, &peak) == 2;
  return pclose(pipe) == 0 && read;
}

double TimeCopy(const std::filesystem::path& in, const std::filesystem::path& out) {
  const Clock::time_point start = Clock::now();
  const std::string command = "cp '" + in.string() + "' '" + out.string() + "'";
  if (std::system(command.c_str()) != 0) std::exit(1);
  return Seconds(start);
}

void Run(const char* self, const char* name, const std::filesystem::path& folder, EncodingType type, bool bom,
         size_t size) {
  const std::filesystem::path in = folder / "process-bench-in.txt";
  const std::filesystem::path out = folder / "process-bench-out.txt";
  WriteInput(in, type, bom, size);
  const double megabytes = double(std::filesystem::file_size(in)) / kMegabyte;
  double best = 1e9;
  unsigned long long peak = 0;
  for (int round = 0; round < 3; ++round) {
    double seconds = 0;
    unsigned long long roundPeak = 0;
    if (!Measure(std::string(self) + " --process '" + in.string() + "' '" + out.string() + "'", seconds, roundPeak)) {
      std::fprintf(stderr, "%s: processing failed\n", name);
      std::exit(1);
    }
    if (seconds < best) best = seconds, peak = roundPeak;
  }
  double copy = 1e9;
  for (int round = 0; round < 3; ++round) copy = std::min(copy, TimeCopy(in, out));
  std::printf("%-28s %7.1f MB  %7.3f s  %7.1f MB/s  %5.1fx cp  peak %6.0f MB (%.1fx file)\n", name, megabytes, best,
              megabytes / best, best / copy, double(peak) / kMegabyte, double(peak) / kMegabyte / megabytes);
  std::filesystem::remove(in);
  std::filesystem::remove(out);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::strcmp(argv[1], "--process") == 0) return ProcessOnce(argv[2], argv[3]);
  const size_t megabytes = argc > 1 ? size_t(std::atoi(argv[1])) : 100;
  const std::filesystem::path folder = argc > 2 ? std::filesystem::path(argv[2]) : std::filesystem::temp_directory_path();
  std::printf("Text-only template processed file to file (a /go run):\n");
  Run(argv[0], "UTF-8 without mark", folder, EncodingType::Utf8, false, megabytes << 20);
  Run(argv[0], "UTF-16 LE with mark", folder, EncodingType::Utf16, true, megabytes << 20);
  return 0;
}
