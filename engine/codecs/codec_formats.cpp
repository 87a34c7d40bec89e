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
CErrorText DecodeInfallible(CDecodedText& text, CParam& target) {
  Decode(text.View(), target);
  return CErrorText();
}

// For the decoders that read their text in order and give it back as they go.
template <void (*Decode)(WStringView, CParam&, CDecodedText*)>
CErrorText DecodeReleasing(CDecodedText& text, CParam& target) {
  Decode(text.View(), target, &text);
  return CErrorText();
}

template <CErrorText (*Decode)(WStringView, CParam&)>
CErrorText DecodeView(CDecodedText& text, CParam& target) {
  return Decode(text.View(), target);
}

template <WString (*Encode)(const CParam&)>
CErrorText EncodeInfallible(const CParam& source, WString& output) {
  output += Encode(source);
  return CErrorText();
}

const CCodecFormat kFormats[] = {
    {u"xml", XmlEncode, XmlDecode, nullptr, nullptr},
    {u"xmltree", nullptr, nullptr, EncodeXmlTree, DecodeView<DecodeXmlTree>},
    {u"html", HtmlEncode, HtmlDecode, nullptr, nullptr, AppendHtmlEncoded, AppendHtmlEncoded},
    {u"url", UrlEncode, UrlDecode, nullptr, nullptr},
    {u"urlparams", nullptr, nullptr, EncodeInfallible<EncodeUrlParams>, DecodeInfallible<DecodeUrlParams>},
    {u"csv", CsvFieldEncode, CsvFieldDecode, nullptr, nullptr},
    {u"csvline", nullptr, nullptr, EncodeInfallible<EncodeCsvLine>, DecodeInfallible<DecodeCsvLine>},
    {u"csvlines", nullptr, nullptr, EncodeInfallible<EncodeCsvLines>, DecodeReleasing<DecodeCsvLines>},
    {u"tsv", TsvFieldEncode, TsvFieldDecode, nullptr, nullptr},
    {u"tsvline", nullptr, nullptr, EncodeInfallible<EncodeTsvLine>, DecodeInfallible<DecodeTsvLine>},
    {u"tsvlines", nullptr, nullptr, EncodeInfallible<EncodeTsvLines>, DecodeReleasing<DecodeTsvLines>},
    {u"json", nullptr, nullptr, EncodeJsonTree, DecodeView<DecodeJsonTree>},
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
