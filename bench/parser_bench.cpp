// Parse throughput of the template parser on generated templates.
//
// Sizes and rates are in MB of UTF-16 template text (1 MB = 2^20 bytes, two
// bytes per code unit). Each figure is the best of several runs (more for the
// smaller template, whose runs are short enough to be upset by other load);
// the time to free the tree is shown apart, since a processing pays it too.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "engine/syntax/parser.h"
#include "text/base/utf8.h"

namespace {

using namespace NScrivolt;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kUnitsPerMB = (1u << 20) / sizeof(WChar);
constexpr int kRuns = 3;
constexpr int kSmallRuns = 10;

// A letter-like mix: prose, escaped markers, simple and nested calls with
// quoted, reference and content arguments, comments and several statements.
const char* const kMixedPieces[] = {
    "Dear <# use param: \"Name\" #>,\r\n\r\nThank you for your order of <# use param: Order.Date #>. "
    "We are happy to confirm the items below; prices include tax.\r\n",
    "<# if what: Customer.Type is: \"business\" then: (#>Attn. <# use param: Customer.Contact #>\r\n<#) "
    "else: (#>Private customer\r\n<#) #>",
    "<# {one line per item} foreach param: Order.Lines.#1 do: (#>  - <# use param: Item.Name #>: "
    "<# use param: Item.Price #> (<# use param: Item.Count #>x)\r\n<#) #>",
    "Templates write a literal <#<# as shown here, and #>#> for the closing marker.\r\n",
    "<# set param: \"Total\" to: \"0\"; set param: \"Quote\" to: \"He said \"\"thanks\"\" twice\" ; "
    "nooutput content: (set param: Seen to: Order.#2.Id) #>\r\n",
    "Kind regards,\r\nThe shop team\r\n\r\n",
};

const char* const kProse =
    "Plain running text without any script, as a long manual or a generated report would hold it; "
    "it has punctuation (even parentheses) and numbers like 12.50 and 3;4 but no markers.\r\n";

WString Repeat(const std::vector<WString>& pieces, std::size_t units) {
  WString text;
  text.reserve(units);
  for (std::size_t i = 0; text.size() + pieces[i % pieces.size()].size() <= units; ++i) {
    text += pieces[i % pieces.size()];
  }
  text.append(units - text.size(), u' ');
  return text;
}

std::vector<WString> Widen(const char* const* begin, const char* const* end) {
  std::vector<WString> pieces;
  for (const char* const* piece = begin; piece != end; ++piece) pieces.push_back(Utf8ToWide(*piece));
  return pieces;
}

std::size_t CountParts(const CParsePart& root) {
  std::size_t count = 0;
  std::vector<const CParsePart*> pending{&root};
  while (!pending.empty()) {
    const CParsePart* part = pending.back();
    pending.pop_back();
    ++count;
    for (const CParsePartRef& child : part->Children()) pending.push_back(child.Get());
  }
  return count;
}

double Seconds(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double>(to - from).count();
}

// Parses copies of `text` `runs` times, prints the best parse rate and
// returns it (0 when the text did not parse).
double Measure(const char* label, const WString& text, int runs = kRuns) {
  const double megabytes = double(text.size()) / double(kUnitsPerMB);
  double bestParse = 1e30;
  double bestFree = 1e30;
  std::size_t parts = 0;
  for (int run = 0; run < runs; ++run) {
    WString copy = text;
    auto parser = std::make_unique<CParser>();
    const Clock::time_point start = Clock::now();
    const CErrorText error = parser->Parse(std::move(copy), u"bench");
    const Clock::time_point parsed = Clock::now();
    if (!error.empty()) {
      std::printf("%s: unexpected error: %s\n", label, WideToUtf8(error.str()).c_str());
      return 0;
    }
    parts = CountParts(*parser->GetRoot());
    const Clock::time_point freeStart = Clock::now();
    parser.reset();
    const Clock::time_point freed = Clock::now();
    bestParse = std::min(bestParse, Seconds(start, parsed));
    bestFree = std::min(bestFree, Seconds(freeStart, freed));
  }
  std::printf("%-34s %8.1f MB  parse %7.3f s  %8.1f MB/s  free %6.3f s  %10zu parts\n", label, megabytes,
              bestParse, megabytes / bestParse, bestFree, parts);
  std::fflush(stdout);
  return megabytes / bestParse;
}

}  // namespace

int main() {
  std::printf("Template parser throughput, in MB of UTF-16 text (1 MB = 2^20 bytes), "
              "best of %d runs (%d for 10 MB)\n",
              kRuns, kSmallRuns);
  const std::vector<WString> mixed = Widen(std::begin(kMixedPieces), std::end(kMixedPieces));
  const std::vector<WString> prose{Utf8ToWide(kProse)};
  const double small = Measure("mixed template, 10 MB", Repeat(mixed, 10 * kUnitsPerMB), kSmallRuns);
  const double large = Measure("mixed template, 100 MB", Repeat(mixed, 100 * kUnitsPerMB));
  if (small > 0 && large > 0) std::printf("100 MB rate / 10 MB rate: %.2f\n", large / small);
  const double textOnly = Measure("text only, 100 MB", Repeat(prose, 100 * kUnitsPerMB));
  const std::vector<WString> block{u"<# f #> "};
  const double blocks = Measure("10,000,000 blocks \"<# f #> \"", Repeat(block, 10000000 * block[0].size()));
  return small > 0 && large > 0 && textOnly > 0 && blocks > 0 ? 0 : 1;
}
