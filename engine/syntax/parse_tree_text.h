// A compact one-line picture of a parse tree, for tests, fuzzers and
// debugging: text as T"...", a call as name(arguments), a flag as its name,
// quoted text as name="value", a reference as name=ref, content as
// name:[parts]; siblings are separated by ", " and a call's arguments by " ".
//
//   Hello <# use param: "Name" #>!   ->   T"Hello ", use(param="Name"), T"!"
#pragma once

#include <string>

#include "engine/syntax/parse_part.h"

namespace NScrivolt {

// UTF-8. Deep trees are walked without recursion.
std::string ParseTreeText(const CParsePart& root);

}  // namespace NScrivolt
