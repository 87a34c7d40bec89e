// The engine's entry: evaluate a template from a content source into a
// content destination, and the evaluation of part lists.
#pragma once

#include "engine/content_stream.h"
#include "engine/process_context.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParsePart;

// Reads the source, parses and evaluates it (when `evaluate`), and writes the
// whole output to the destination only when no error arose. `isolated`
// discards every change the template makes to the parameters and user
// functions; otherwise only _InFile, _CurrentFile and _OutFile are put back.
// Returns the error report (empty on success).
WString Process(CProcessContext& context, CContentSource& source, CContentDest& destination,
                bool evaluate, bool isolated);

// Evaluates the children of `part` (a template, an argument's content or a
// user function's body) in order, appending their output to `output`.
// Returns the error text; on error the output is incomplete and must be dropped.
WString EvaluateParts(const CParsePart& part, CProcessContext& context, WString& output);

}  // namespace NScrivolt
