// Decodes arbitrary text as JSON. A document that fails leaves the target
// empty; one that reads writes back, and what it writes reads back to the
// same document. The "jsonstring" conversion reads back what it wrote.
#include "engine/codecs/json_params.h"
#include "fuzz_check.h"

using namespace NScrivolt;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  Check(JsonStringDecode(JsonStringEncode(text)) == text);
  CParam decoded;
  if (!DecodeJsonTree(text, decoded).empty()) {
    Check(decoded.Count() == 0 && decoded.GetValue().empty());
    return 0;
  }
  WString written;
  if (!EncodeJsonTree(decoded, written).empty()) return 0;  // nested too deep to write
  CParam again;
  Check(DecodeJsonTree(written, again).empty());
  WString rewritten;
  Check(EncodeJsonTree(again, rewritten).empty());
  Check(rewritten == written);
  return 0;
}
