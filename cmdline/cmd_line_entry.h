// One token of a command line or command file.
#pragma once

#include <vector>

#include "text/base/wide_string.h"

namespace NScrivolt {

struct CCmdLineEntry {
  bool isSwitch = false;  // otherwise an option
  WString text;           // never empty; quotes and escape backslashes removed
};

using CCmdLineEntries = std::vector<CCmdLineEntry>;
using EntryIterator = CCmdLineEntries::const_iterator;

}  // namespace NScrivolt
