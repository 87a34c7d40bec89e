// Decoding the same records from JSON and from CSV: each record has an id,
// a name with a comma, a text with quotes, an empty field, a text with a
// line break, a price and a flag. JSON gives each record as an object with
// keys, CSV as a line. The figures show what the keys cost and that time
// grows linearly with the number of records.
//
// Each figure is the best of a few runs, each in a process of its own (the
// benchmark runs itself with --run), so every run takes its memory from the
// system as a real run does.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "engine/process_context.h"
#include "text/base/utf8.h"

namespace {

using namespace NScrivolt;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 3;

WString JsonRecords(std::size_t records) {
  WString text = u"[\n";
  for (std::size_t n = 0; n < records; ++n) {
    if (n > 0) text += u",\n";
    text += u"  {\"id\": " + IntegerToText(std::int64_t(n)) +
            u", \"name\": \"Smith, John\", \"note\": \"said \\\"yes\\\"\", \"empty\": \"\", "
            u"\"address\": \"two\\nlines\", \"price\": 42.50, \"active\": true}";
  }
  return text + u"\n]\n";
}

WString CsvRecords(std::size_t records) {
  WString text;
  for (std::size_t n = 0; n < records; ++n) {
    text += IntegerToText(std::int64_t(n)) + u",\"Smith, John\",\"said \"\"yes\"\"\",,\"two\nlines\",42.50,true\r\n";
  }
  return text;
}

struct Format {
  const char* name;
  WString (*generate)(std::size_t records);
  const WChar* templateText;
};

const Format kFormats[] = {
    {"json", JsonRecords, u"<# decode what: Input from: \"json\" to: \"Rows\" #>"},
    {"csvlines", CsvRecords, u"<# decode what: Input from: \"csvlines\" to: \"Rows\" #>"},
};

int RunChild(const Format& format, std::size_t records) {
  CProcessContext context;
  const WString input = format.generate(records);
  context.Root().GetChildByName(u"Input", true)->SetValue(input);
  WString output;
  CStringContentSource source{WString(format.templateText)};
  CStringContentDest destination(&output);
  const Clock::time_point start = Clock::now();
  const CErrorText errors = Process(context, source, destination, Evaluation::Evaluate, Isolation::KeepChanges);
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  if (!errors.empty()) return 1;
  std::printf("%.6f %.6f\n", double(input.size()) * sizeof(WChar) / 2 / double(1 << 20), seconds);
  return 0;
}

// Best seconds of kRuns child runs; prints the line of the figure.
double Measure(const char* self, std::size_t index, std::size_t records) {
  const std::string command = std::string(self) + " --run " + std::to_string(index) + " " + std::to_string(records);
  double best = 1e30;
  double mb = 0;
  for (int run = 0; run < kRuns; ++run) {
    std::FILE* pipe = popen(command.c_str(), "r");
    double seconds = 0;
    const bool read = pipe != nullptr && std::fscanf(pipe, "%lf %lf", &mb, &seconds) == 2;
    if (pipe == nullptr || pclose(pipe) != 0 || !read) {
      std::printf("%s: the run failed\n", kFormats[index].name);
      return -1;
    }
    best = std::min(best, seconds);
  }
  std::printf("%-9s %8zu records  %6.1f MB as UTF-8  %8.3f s  %6.2f us/record\n", kFormats[index].name, records, mb,
              best, best * 1e6 / double(records));
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::strcmp(argv[1], "--run") == 0) {
    return RunChild(kFormats[std::strtoul(argv[2], nullptr, 10) % std::size(kFormats)],
                    std::strtoul(argv[3], nullptr, 10));
  }
  for (std::size_t records : {20000, 200000}) {
    const double json = Measure(argv[0], 0, records);
    const double csv = Measure(argv[0], 1, records);
    if (json > 0 && csv > 0) std::printf("json / csvlines time: %.2f\n", json / csv);
  }
  return 0;
}
