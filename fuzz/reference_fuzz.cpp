// Parses arbitrary text as a parameter reference: a parse either fails with
// a message and no components, or succeeds with components and no
// message; and a tree walked with the reference, creating what is missing,
// then has the node the reference names (when it names nodes by name: a
// number beyond the end creates the next child, which has another number).
#include "engine/params/param.h"
#include "engine/params/param_qualifier.h"
#include "fuzz_check.h"

using namespace NScrivolt;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = FuzzText(data, size);
  const CQualifierParse parse = ParseQualifierText(text, u"param");
  if (!parse.message.empty()) {
    Check(parse.qualifier.empty());
    return 0;
  }
  CParam root;
  CParam* made = root.FindParam(parse.qualifier, true);
  Check(made != nullptr);
  bool byName = true;
  for (const CParamId& component : parse.qualifier) byName = byName && !component.numbered;
  Check(!byName || root.ParamExists(parse.qualifier));
  return 0;
}
