// The argument text of a Windows process: its command line without the
// program name.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

// A name in double quotes runs to the next double quote, two in a row
// belonging to the name (no closing quote: no arguments); an unquoted name
// runs to the first blank or line break, which is skipped. Blanks and line
// breaks behind the name are skipped too; the rest is returned as it stands.
WString GetCommandLineArguments(WStringView commandLine);

}  // namespace NScrivolt
