// The engine's error lines: "- [ERROR] at line [LINE], column [COLUMN],
// [CONTEXT]", one per error, joined by a carriage return and a line feed.
#pragma once

#include "engine/syntax/template_source.h"
#include "text/text.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// Appends one error line for `message` (its own placeholders already filled)
// at `location`, after a line break when the error text already holds a line.
void AddError(WString& errorText, const CText& message, const ParseLocation& location);

}  // namespace NScrivolt
