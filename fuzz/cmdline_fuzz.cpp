// Splits arbitrary text as a command file is split: every token is text of
// the source (quotes and escaping backslashes removed), none is empty, and
// splitting the same text again gives the same tokens.
#include "cmdline/cmd_line.h"
#include "fuzz_check.h"

using namespace NScrivolt;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  CCmdLine first(Platform::SwitchSyntax::Slash);
  first.Parse(text);
  std::size_t units = 0;
  for (const CCmdLineEntry& entry : first.Entries()) {
    Check(!entry.text.empty());
    units += entry.text.size();
  }
  Check(units <= text.size());
  CCmdLine second(Platform::SwitchSyntax::Slash);
  second.Parse(text);
  Check(second.Entries().size() == first.Entries().size());
  for (std::size_t i = 0; i < first.Entries().size(); ++i) Check(second.Entries()[i].text == first.Entries()[i].text);
  return 0;
}
