// Throughput of text and codec functions as a template sees them: each
// figure runs a one-call template through the engine, with the input held
// in a parameter, so the cost of evaluating the call and storing the result
// is included.
//
// Sizes and rates are in MB of UTF-16 input text (1 MB = 2^20 bytes, two
// bytes per code unit). Each figure is the best of a few runs, each one in a
// process of its own (the benchmark runs itself with --run), so that every
// run takes its memory from the system as a real run does. Runs in one
// process would reuse what the run before them freed, more or less of it
// depending on the sizes, and the 5 MB and 50 MB figures would not compare.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "engine/process_context.h"
#include "text/base/utf8.h"

namespace {

using namespace NScrivolt;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kUnitsPerMB = (1u << 20) / sizeof(WChar);
constexpr int kRuns = 3;

using Generator = WString (*)(std::size_t units);

// Prose with the word to replace now and then.
WString Prose(std::size_t units) {
  WString text;
  text.reserve(units + 100);
  while (text.size() < units) {
    text += u"The quick brown fox jumps over the lazy dog; the Fox & the <hound> said \"hi\".\r\n";
  }
  return text;
}

// Records of plain, quoted and empty fields, some with a doubled quote or a
// line break inside quotes.
WString Csv(std::size_t units) {
  WString text;
  text.reserve(units + 100);
  for (std::size_t n = 0; text.size() < units; ++n) {
    const WString id = IntegerToText(std::int64_t(n));
    text += id + u",\"Smith, John\",  padded  ,\"said \"\"yes\"\"\",,\"two\r\nlines\",42.50\r\n";
  }
  return text;
}

// Elements with attributes, texts, entities and nested children.
WString Xml(std::size_t units) {
  WString text = u"<?xml version=\"1.0\"?>\n<catalog>\n";
  text.reserve(units + 200);
  for (std::size_t n = 0; text.size() < units; ++n) {
    const WString id = IntegerToText(std::int64_t(n));
    text += u"\t<item id=\"" + id + u"\" name=\"Item &amp; co\">\n\t\t<title>Title " + id +
            u"</title>\n\t\t<tags><tag>a</tag><tag>b</tag></tags>\n\t</item>\n";
  }
  return text + u"</catalog>\n";
}

struct Benchmark {
  const char* name;
  Generator generate;
  const WChar* templateText;  // reads the input from the parameter "Input"
};

const Benchmark kBenchmarks[] = {
    {"replace in text", Prose, u"<# replace what: \"fox\" by: \"cat\" in: Input #>"},
    {"decode from csvlines", Csv, u"<# decode what: Input from: \"csvlines\" to: \"Rows\" #>"},
    {"decode from xmltree", Xml, u"<# decode what: Input from: \"xmltree\" to: \"Tree\" #>"},
    {"encode for html", Prose, u"<# encode what: Input for: \"html\" #>"},
};

// Seconds for one processing of the template, or a negative number when it
// failed. The context, and with it any tree the call built, is freed outside
// the timing.
double RunOnce(const Benchmark& benchmark, const WString& input) {
  CProcessContext context;
  context.Root().GetChildByName(u"Input", true)->SetValue(input);
  WString output;
  CStringContentSource source{WString(benchmark.templateText)};
  CStringContentDest destination(&output);
  const Clock::time_point start = Clock::now();
  const CErrorText errors = Process(context, source, destination, Evaluation::Evaluate, Isolation::KeepChanges);
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  if (!errors.empty()) {
    std::printf("%s failed: %s\n", benchmark.name, WideToUtf8(errors.str()).c_str());
    return -1;
  }
  return seconds;
}

// The child: one run, then its megabytes and seconds on stdout.
int RunChild(const char* index, const char* megabytes) {
  const Benchmark& benchmark = kBenchmarks[std::strtoul(index, nullptr, 10) % std::size(kBenchmarks)];
  const WString input = benchmark.generate(std::strtoul(megabytes, nullptr, 10) * kUnitsPerMB);
  const double seconds = RunOnce(benchmark, input);
  if (seconds < 0) return 1;
  std::printf("%.6f %.6f\n", double(input.size()) / double(kUnitsPerMB), seconds);
  return 0;
}

void Measure(const char* self, std::size_t index, std::size_t megabytes) {
  const std::string command = std::string(self) + " --run " + std::to_string(index) + " " + std::to_string(megabytes);
  double mb = 0;
  double best = 1e30;
  for (int run = 0; run < kRuns; ++run) {
    std::FILE* pipe = popen(command.c_str(), "r");
    double seconds = 0;
    const bool read = pipe != nullptr && std::fscanf(pipe, "%lf %lf", &mb, &seconds) == 2;
    if (pipe == nullptr || pclose(pipe) != 0 || !read) {
      std::printf("%s: the run failed\n", kBenchmarks[index].name);
      return;
    }
    best = std::min(best, seconds);
  }
  std::printf("%-22s %6.1f MB  %8.3f s  %8.1f MB/s\n", kBenchmarks[index].name, mb, best, mb / best);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::strcmp(argv[1], "--run") == 0) return RunChild(argv[2], argv[3]);
  for (std::size_t index = 0; index < std::size(kBenchmarks); ++index) {
    for (std::size_t megabytes : {5, 50}) Measure(argv[0], index, megabytes);
  }
  return 0;
}
