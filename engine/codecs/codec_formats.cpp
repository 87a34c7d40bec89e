#include "engine/codecs/codec_formats.h"

#include <iterator>

#include "engine/codecs/json_params.h"
#include "engine/codecs/structured_codecs.h"
#include "engine/codecs/text_codecs.h"
#include "engine/codecs/xml_params.h"

namespace NScrivolt {

namespace {

// Adapters that give the structured conversions, which cannot fail, the
// shape of the table.
template <void (*Decode)(WStringView, CParam&)>
CErrorText DecodeInfallible(WStringView text, CParam& target) {
  Decode(text, target);
  return CErrorText();
}

template <WString (*Encode)(const CParam&)>
CErrorText EncodeInfallible(const CParam& source, WString& output) {
  output += Encode(source);
  return CErrorText();
}

const CCodecFormat kFormats[] = {
    {u"xml", XmlEncode, XmlDecode, nullptr, nullptr},
    {u"xmltree", nullptr, nullptr, EncodeXmlTree, DecodeXmlTree},
    {u"html", HtmlEncode, HtmlDecode, nullptr, nullptr, AppendHtmlEncoded},
    {u"url", UrlEncode, UrlDecode, nullptr, nullptr},
    {u"urlparams", nullptr, nullptr, EncodeInfallible<EncodeUrlParams>, DecodeInfallible<DecodeUrlParams>},
    {u"csv", CsvFieldEncode, CsvFieldDecode, nullptr, nullptr},
    {u"csvline", nullptr, nullptr, EncodeInfallible<EncodeCsvLine>, DecodeInfallible<DecodeCsvLine>},
    {u"csvlines", nullptr, nullptr, EncodeInfallible<EncodeCsvLines>, DecodeInfallible<DecodeCsvLines>},
    {u"tsv", TsvFieldEncode, TsvFieldDecode, nullptr, nullptr},
    {u"tsvline", nullptr, nullptr, EncodeInfallible<EncodeTsvLine>, DecodeInfallible<DecodeTsvLine>},
    {u"tsvlines", nullptr, nullptr, EncodeInfallible<EncodeTsvLines>, DecodeInfallible<DecodeTsvLines>},
    {u"json", nullptr, nullptr, EncodeJsonTree, DecodeJsonTree},
    {u"jsonstring", JsonStringEncode, JsonStringDecode, nullptr, nullptr},
    {u"rtf", RtfEncode, RtfDecode, nullptr, nullptr},
    {u"scrivoltscript", ScriptMarkersEncode, ScriptMarkersDecode, nullptr, nullptr},
    {u"scrivoltliteral", LiteralEncode, LiteralDecode, nullptr, nullptr},
};

}  // namespace

const CCodecFormat* FindCodecFormat(WStringView keyword) {
  for (const CCodecFormat& format : kFormats) {
    if (EqualsIgnoreCase(keyword, format.keyword)) return &format;
  }
  return nullptr;
}

}  // namespace NScrivolt
