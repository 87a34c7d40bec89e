// Decodes arbitrary text as TSV records; encoding them and decoding again
// must give the same records (decoded fields hold no tab or line end).
#include "engine/codecs/structured_codecs.h"
#include "fuzz_check.h"

using namespace NScrivolt;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  CParam decoded;
  DecodeTsvLines(text, decoded);
  const auto records = Records(decoded);
  Check(!records.empty());
  for (const auto& record : records) {
    Check(!record.empty());
    for (const WString& field : record) Check(field.find_first_of(u"\t\r\n") == WString::npos);
  }
  CParam again;
  DecodeTsvLines(EncodeTsvLines(decoded), again);
  Check(Records(again) == records);
  return 0;
}
