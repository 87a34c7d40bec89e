// The engine's entry: evaluate a template from a content source into a
// content destination, and the evaluation of part lists.
#pragma once

#include "engine/content_stream.h"
#include "engine/process_context.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

class CParsePart;

// Whether a processing evaluates its text as a template or copies it as it is.
enum class Evaluation { CopyText, Evaluate };
// What a processing puts back when it ends: every change the template made
// to the parameters and user functions, or only _InFile, _CurrentFile and
// _OutFile.
enum class Isolation { KeepChanges, Isolated };

// Reads the source, parses and evaluates it (or copies it), and writes the
// whole output to the destination only when no error arose. Returns the
// error report (empty on success).
CErrorText Process(CProcessContext& context, CContentSource& source, CContentDest& destination, Evaluation evaluation,
                   Isolation isolation);

// Evaluates the children of `part` (a template, an argument's content or a
// user function's body) in order, appending their output to `output`.
// Returns the error text; on error the output is incomplete and must be dropped.
CErrorText EvaluateParts(const CParsePart& part, CProcessContext& context, WString& output);

}  // namespace NScrivolt
