// Runs arbitrary text through every decode format and writes every tree it
// gives back with the same format: nothing may crash, and a failed
// structured decoding leaves its target empty.
#include <iterator>

#include "engine/codecs/codec_formats.h"
#include "fuzz_check.h"

using namespace NScrivolt;

namespace {

const WStringView kKeywords[] = {u"xml",      u"xmltree", u"html",   u"url",        u"urlparams",      u"csv",
                                 u"csvline",  u"csvlines", u"tsv",   u"tsvline",    u"tsvlines",       u"json",
                                 u"jsonstring", u"rtf",    u"scrivoltscript", u"scrivoltliteral"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  for (const WStringView keyword : kKeywords) {
    const CCodecFormat* format = FindCodecFormat(keyword);
    Check(format != nullptr);
    if (!format->IsStructured()) {
      format->encodeText(format->decodeText(text));
      continue;
    }
    CParam tree;
    CDecodedText decoded{WString(text)};
    if (!format->decodeTree(decoded, tree).empty()) {
      Check(tree.Count() == 0 && tree.GetValue().empty());
      continue;
    }
    WString written;
    static_cast<void>(format->encodeTree(tree, written));
  }
  return 0;
}
