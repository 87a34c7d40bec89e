// Runs template texts through the engine for tests: the text is the source,
// the produced text and the error report are what a test looks at.
#pragma once

#include "engine/content_stream.h"
#include "engine/process.h"
#include "engine/process_context.h"
#include "text/base/utf8.h"

// The end of a report line about the template given as text, and the lines
// that the call at that place adds when its processing or its set-up fails.
#define AT(line, column) " at line " #line ", column " #column ", re-processed content"
#define CALL_FAILED(function, line, column) "\n- Error processing function \"" function "\"" AT(line, column)
#define SETUP_FAILED(function, line, column) "\n- Error setting up \"" function "\" functie" AT(line, column)
// The report of a call at line 1, column 4 that lacks an argument, or gets it
// as a flag at `column` where a value is needed.
#define ARG_MISSING(argument, function) "- Argument \"" argument "\" is missing" AT(1, 4) CALL_FAILED(function, 1, 4)
#define ARG_WITHOUT_VALUE(argument, column, function) \
  "- Argument \"" argument "\" is missing a value" AT(1, column) CALL_FAILED(function, 1, 4)

namespace NScrivolt {

struct TemplateRun {
  WString output;
  WString errors;
};

inline TemplateRun RunTemplate(CProcessContext& context, WStringView text,
                               Isolation isolation = Isolation::KeepChanges) {
  TemplateRun run;
  CStringContentSource source{WString(text)};
  CStringContentDest destination(&run.output);
  run.errors = Process(context, source, destination, Evaluation::Evaluate, isolation).str();
  return run;
}

inline TemplateRun RunTemplate(WStringView text) {
  CProcessContext context;
  return RunTemplate(context, text);
}

// The error report as UTF-8, lines joined by "\n", for readable failures.
inline std::string Lines(WStringView errors) {
  std::string text = WideToUtf8(errors);
  for (size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) text.replace(at, 2, "\n");
  return text;
}

}  // namespace NScrivolt
