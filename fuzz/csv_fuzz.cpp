// Decodes arbitrary text as CSV records; the records encoded and decoded
// again must be the same records, and a single record read must stop at a
// line end or at the end of the text.
#include "engine/codecs/csv_scanner.h"
#include "engine/codecs/structured_codecs.h"
#include "fuzz_check.h"

using namespace NScrivolt;

namespace {

void CheckSingleRecord(WStringView text) {
  std::size_t fields = 0;
  const std::size_t consumed = ReadCsvRecord(text, [&fields](WString&&) { ++fields; });
  Check(fields >= 1);
  Check(consumed == text.size() || text[consumed] == u'\r' || text[consumed] == u'\n');
}

// Encoding joins records with line breaks and writes nothing after the last,
// so a last record of one empty field reads back as no record at all.
bool LastRecordIsOneEmptyField(const std::vector<std::vector<WString>>& records) {
  return !records.empty() && records.back().size() == 1 && records.back()[0].empty();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  CheckSingleRecord(text);
  CParam decoded;
  DecodeCsvLines(text, decoded);
  const auto records = Records(decoded);
  for (const auto& record : records) Check(!record.empty());
  CParam again;
  DecodeCsvLines(EncodeCsvLines(decoded), again);
  auto expected = records;
  if (LastRecordIsOneEmptyField(expected)) expected.pop_back();
  Check(Records(again) == expected);
  return 0;
}
