// The settings and the collected feedback of one command-line run. Every
// field keeps its value until a later switch changes it, so a later "/go"
// reuses whatever the earlier switches left.
#pragma once

#include "text/encoding.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// Stored as numbers, so the values are fixed.
enum class FeedbackMode { All = 0, Error = 1, None = 2 };

// Not explicit means "auto": a byte-order mark decides, `type` is what is
// assumed without one.
struct CEncodingChoice {
  EncodingType type = EncodingType::Ascii;
  bool isExplicit = false;
};

struct CRunDescription {
  WString inFile;
  CEncodingChoice inEncoding;
  WString outFile;
  CEncodingChoice outEncoding;
  CEncodingChoice commandFileEncoding;
  bool feedbackToFile = false;  // otherwise the screen
  WString feedbackFile;         // as given
  FeedbackMode feedbackMode = FeedbackMode::All;
  WString feedbackText;         // kept lines, joined by CR LF
  bool errorOccurred = false;   // an error was offered since the last delivery
  bool anythingReported = false;  // anything was offered during the run; never cleared
};

}  // namespace NScrivolt
