// The engine's error lines, located in a template: MsgErrorLine around the
// message, one per error, joined by a carriage return and a line feed.
//
// Every error located in a template is built here: the parser, the
// evaluation and the functions name the message (MsgArgumentMissing, ...) and
// the part it points at, and these helpers fill the placeholders and add the
// line. Errors without a place in a template (the detail lines of files and
// decoded formats, the switch failures) come from text/error_text.h, the
// home of the error type.
#pragma once

#include <initializer_list>

#include "engine/syntax/parse_part.h"
#include "engine/syntax/template_source.h"
#include "text/error_text.h"
#include "text/text.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// Appends one error line for `message` (its own placeholders already filled)
// at `location`, after a line break when the error text already holds a line.
void AddError(CErrorText& errorText, const CText& message, const ParseLocation& location);

// Appends message `id` with its placeholders filled, at the part `at`.
void AddErrorAt(CErrorText& errorText, MessageId id, const CParsePart& at,
                std::initializer_list<CText::Filler> values = {});
// The same message as a new error text of one line.
CErrorText ErrorAt(MessageId id, const CParsePart& at, std::initializer_list<CText::Filler> values = {});

// MsgArgumentMissing at the call: the argument `displayName` is missing.
CErrorText ArgumentMissingError(const CParsePart& call, WStringView displayName);

// MsgUnknownOption at `argument`: its evaluated text `text` names no option.
CErrorText UnknownOptionError(const CParsePart& argument, WStringView text);

// MsgParamNotSet for a parameter that a function looked for and did not
// find: [PARAM] is the evaluated text, [ARG] the argument's written name,
// located at the argument.
CErrorText ParamNotSetError(const CParsePart& argument, WStringView evaluatedText);

}  // namespace NScrivolt
