// URL decoding of arbitrary text, and the round trips through URL encoding:
// of the text itself, and of the names and values of the text read as URL
// parameters. Also runs the other text decoders over the input and checks
// that each of them reads back what its encoder wrote.
#include "engine/codecs/structured_codecs.h"
#include "engine/codecs/text_codecs.h"
#include "fuzz_check.h"

using namespace NScrivolt;

namespace {

struct Pair {
  WString (*encode)(WStringView);
  WString (*decode)(WStringView);
};

// RTF groups are not decoded, so RTF reads back only text below 128.
constexpr Pair kTextCodecs[] = {
    {XmlEncode, XmlDecode},         {HtmlEncode, HtmlDecode},
    {CsvFieldEncode, CsvFieldDecode}, {ScriptMarkersEncode, ScriptMarkersDecode},
    {LiteralEncode, LiteralDecode},
};

bool AllAscii(WStringView text) {
  for (WChar c : text) {
    if (c > 127) return false;
  }
  return true;
}

void CheckUrlParams(WStringView text) {
  CParam params;
  DecodeUrlParams(text, params);
  CParam again;
  DecodeUrlParams(EncodeUrlParams(params), again);
  const auto first = params.ListChildren();
  const auto second = again.ListChildren();
  Check(first.size() == second.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    Check(UrlDecode(second[i]->GetChildValue(u"Name")) == first[i]->GetChildValue(u"Name"));
    Check(UrlDecode(second[i]->GetChildValue(u"Value")) == first[i]->GetChildValue(u"Value"));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  Check(UrlDecode(text).size() <= text.size());
  Check(UrlDecode(UrlEncode(text)) == text);
  CheckUrlParams(text);
  for (const Pair& codec : kTextCodecs) {
    codec.decode(text);
    Check(codec.decode(codec.encode(text)) == text);
  }
  if (AllAscii(text)) Check(RtfDecode(RtfEncode(text)) == text);
  return 0;
}
