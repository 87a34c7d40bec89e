// The settings-file reader over arbitrary bytes. Writing drops what reading
// would not keep (nameless sections, empty keys, lines that read as headers),
// so the text written from what was read is read back unchanged after one
// more round.
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/settings/ini_file.h"

using namespace NScrivolt;

namespace {

void Check(bool condition) {
  if (!condition) std::abort();
}

// The bytes written after reading `bytes`; false when reading fails or the
// text has a character the encoding cannot hold.
bool RoundTrip(std::string_view bytes, std::string& written) {
  CINIFile ini;
  return ini.ReadBytes(bytes, EncodingType::Ascii) && ini.ToBytes(written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string first;
  if (!RoundTrip(std::string_view(reinterpret_cast<const char*>(data), size), first)) return 0;
  std::string second;
  Check(RoundTrip(first, second));
  std::string third;
  Check(RoundTrip(second, third));
  Check(third == second);
  return 0;
}
