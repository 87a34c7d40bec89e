// Parses and evaluates arbitrary text as a template, in a scratch folder of
// its own. The fuzz build bounds loops and nesting, so every template ends.
// Templates that could write files or evaluate text they compute (they name
// "output" or "process") are skipped: the fuzzer must not write outside its
// folder. A run either succeeds or reports errors as "- " lines.
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "engine/process_context.h"
#include "fuzz_check.h"

using namespace NScrivolt;

namespace {

bool NamesAWriter(WString text) {
  for (WChar& c : text) {
    if (c >= u'A' && c <= u'Z') c = WChar(c - u'A' + u'a');
  }
  return text.find(u"output") != WString::npos || text.find(u"process") != WString::npos;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  char folder[] = "/tmp/scrivolt-template-fuzz-XXXXXX";
  if (mkdtemp(folder) == nullptr || chdir(folder) != 0) std::abort();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WString text = FuzzText(data, size);
  if (NamesAWriter(text)) return 0;
  CProcessContext context;
  WString output;
  CStringContentSource source{std::move(text)};
  CStringContentDest destination(&output);
  const WString errors = Process(context, source, destination, Evaluation::Evaluate, Isolation::KeepChanges).str();
  Check(errors.empty() || errors.compare(0, 2, u"- ") == 0 || errors.compare(0, 4, u"\r\n- ") == 0);
  return 0;
}
