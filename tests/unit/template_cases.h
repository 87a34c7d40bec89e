// Table-driven template tests: each case is a template, run against a fresh
// context, with either its exact output or its exact error report.
#pragma once

#include <gtest/gtest.h>

#include "template_runner.h"

namespace NScrivolt {

struct TemplateCase {
  const char* name;
  const WChar* text;
  const char* output;  // expected output when errors is empty
  const char* errors;  // expected report, lines joined by "\n"
};

template <std::size_t N>
void ExpectTemplateCases(const TemplateCase (&cases)[N]) {
  for (const TemplateCase& c : cases) {
    const TemplateRun run = RunTemplate(c.text);
    EXPECT_EQ(Lines(run.errors), c.errors) << c.name;
    if (run.errors.empty()) {
      EXPECT_EQ(WideToUtf8(run.output), c.output) << c.name;
    } else {
      EXPECT_TRUE(run.output.empty()) << c.name << ": nothing is written after an error";
    }
  }
}

}  // namespace NScrivolt
