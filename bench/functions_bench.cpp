// Prints how long the script functions take on large inputs, each at a size
// and at one tenth of it, so a cost per round that grows with the rounds
// already done shows as a ratio well above 10 (sorting: about 11.7 for
// n log n between 100,000 and 1,000,000).
//
//   foreach   over n sub-parameters, appending each value
//   calls     n calls of a user function with two arguments
//   sort      sortsubparams of n scrambled values
//   while     a while loop of n rounds
#include <chrono>
#include <cstdint>
#include <cstdio>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "engine/process_context.h"

using namespace NScrivolt;

namespace {

// Values in a scrambled order, so that sorting has work to do.
WString ScrambledValue(std::uint32_t i) {
  return u"v" + IntegerToText(std::int64_t((i * 2654435761u) % 1000003u));
}

void FillList(CProcessContext& context, std::size_t size) {
  CParam* list = context.Root().GetChildByName(u"list", true);
  for (std::size_t i = 0; i < size; ++i) list->AppendNumbered()->SetValue(ScrambledValue(std::uint32_t(i)));
}

// Runs a template against the context; returns the seconds taken, or a
// negative number after printing the error report.
double TimeTemplate(CProcessContext& context, const WString& text, std::size_t& outputSize) {
  WString output;
  CStringContentSource source{WString(text)};
  CStringContentDest destination(&output);
  const auto start = std::chrono::steady_clock::now();
  const CErrorText errors = Process(context, source, destination, Evaluation::Evaluate, Isolation::KeepChanges);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  outputSize = output.size();
  if (!errors.empty()) {
    std::printf("  error report of %zu units\n", errors.str().size());
    return -1;
  }
  return seconds;
}

using CaseRunner = double (*)(std::size_t size, std::size_t& outputSize);

double ForEach(std::size_t size, std::size_t& outputSize) {
  CProcessContext context;
  FillList(context, size);
  return TimeTemplate(context, u"<# foreach in: \"list\" value: \"v\" do: (use param: \"v\") #>", outputSize);
}

double Calls(std::size_t size, std::size_t& outputSize) {
  CProcessContext context;
  const WString text = u"<# makefunction name: \"f\" arg: \"a\" arg: \"b\" content: (use param: \"a\") #>"
                       u"<# for from: \"1\" to: \"" + IntegerToText(std::int64_t(size)) +
                       u"\" value: \"i\" do: (f a: i b: \"x\") #>";
  return TimeTemplate(context, text, outputSize);
}

double Sort(std::size_t size, std::size_t& outputSize) {
  CProcessContext context;
  FillList(context, size);
  return TimeTemplate(context, u"<# sortsubparams param: \"list\" #>", outputSize);
}

double While(std::size_t size, std::size_t& outputSize) {
  CProcessContext context;
  const WString text = u"<# while what: n isnot: \"" + IntegerToText(std::int64_t(size) + 1) +
                       u"\" loopnumber: \"n\" do: \"x\" #>";
  return TimeTemplate(context, text, outputSize);
}

struct CBenchCase {
  const char* name;
  std::size_t size;
  CaseRunner run;
};

}  // namespace

int main() {
  const CBenchCase cases[] = {
      {"foreach, appending each value", 1000000, ForEach},
      {"user function calls, two arguments", 100000, Calls},
      {"sortsubparams by value", 1000000, Sort},
      {"while rounds", 1000000, While},
  };
  std::printf("  %-36s %9s %11s %9s %11s %7s\n", "case", "n/10", "ms", "n", "ms", "ratio");
  for (const CBenchCase& c : cases) {
    std::size_t outputSize = 0;
    const double small = c.run(c.size / 10, outputSize);
    const double large = c.run(c.size, outputSize);
    std::printf("  %-36s %9zu %11.1f %9zu %11.1f %7.1f\n", c.name, c.size / 10, small * 1000.0, c.size,
                large * 1000.0, large / small);
  }
  return 0;
}
