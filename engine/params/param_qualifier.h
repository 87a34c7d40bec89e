// Parameter references: the text that names a parameter ("Customer",
// "Lines.#3.Price", "Lines.#-1") parsed into a CParamQualifier.
//
// The engine reports a bad reference through its error report: its
// ParseQualifier calls ParseQualifierText and, when the message is not empty,
// adds it with AddError at the location of the argument that held the text.
// This layer knows nothing of locations, so the command line and tests use
// it directly.
#pragma once

#include "engine/params/param_id.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

struct CQualifierParse {
  CParamQualifier qualifier;  // the components; empty when parsing failed
  WString message;            // the filled-in error message; empty on success
};

// `argName` only fills the [ARG] of the error messages: the argument's name
// as written, or whatever names the source of the text (such as a switch).
CQualifierParse ParseQualifierText(WStringView text, WStringView argName);

}  // namespace NScrivolt
