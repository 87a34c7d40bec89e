// Template text as it is output: "<#<#" stands for "<#" and "#>#>" for "#>".
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

// Whether the text holds "<#<#" or "#>#>", so that its output differs from it.
bool HoldsEscapes(WStringView text);

// Each "<#<#" becomes "<#", then, in that result, each "#>#>" becomes "#>";
// both scan on behind each inserted text.
WString UnescapeText(WStringView text);

// Appends UnescapeText(text) to `output`; text without either pair is
// appended as it stands, with no intermediate copy.
void AppendUnescapedText(WString& output, WStringView text);

}  // namespace NScrivolt
