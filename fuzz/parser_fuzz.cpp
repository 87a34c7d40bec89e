// Feeds arbitrary bytes, read as UTF-16 little-endian code units, to the
// template parser and checks what every parse must hold: at most one error
// line, and parts that stand where their names and values were written.
// fuzz/parser_fuzz.dict holds the script markers as UTF-16 units:
//   build/fuzz/fuzz/parser_fuzz CORPUS -dict=fuzz/parser_fuzz.dict
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "engine/syntax/char_class.h"
#include "engine/syntax/parser.h"
#include "engine/syntax/unescape.h"

namespace {

using namespace NScrivolt;

void Require(bool condition) {
  if (!condition) std::abort();
}

void CheckErrorText(const WString& errorText) {
  if (errorText.empty()) return;
  Require(errorText.compare(0, 2, u"- ") == 0);
  Require(errorText.find(u"\r\n") == WString::npos);  // exactly one line
}

void CheckPart(const CParsePart& part, WStringView text) {
  Require(part.Position() <= text.size());
  Require(part.Location().line >= 1);
  switch (part.Kind()) {
    case PartKind::Template:
      break;
    case PartKind::Text:
      Require(!part.Value().empty());
      Require(text.substr(part.Position(), part.Value().size()) == part.Value());
      UnescapeText(part.Value());
      break;
    default:
      Require(IsValidName(part.Name()));
      Require(text.substr(part.Position(), part.Name().size()) == part.Name());
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WString text(size / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) text[i] = WChar(data[2 * i] | (data[2 * i + 1] << 8));
  const WString copy = text;

  CParser parser;
  CheckErrorText(parser.Parse(std::move(text), u"fuzz").str());
  std::vector<const CParsePart*> pending{parser.GetRoot().Get()};
  while (!pending.empty()) {
    const CParsePart* part = pending.back();
    pending.pop_back();
    CheckPart(*part, copy);
    for (const CParsePartRef& child : part->Children()) pending.push_back(child.Get());
  }
  return 0;
}
