// CFileRecord: what one running processing reads and writes. Each Process
// pushes a copy of the innermost record; the content objects attached to it
// fill the fields that concern them, so the others keep the enclosing values.
#pragma once

#include "text/encoding.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CContentSource;
class CContentDest;

struct CFileRecord {
  CContentSource* source = nullptr;  // not owning
  WString inFile;                    // the value of _InFile during the run
  EncodingInfo encoding;             // of the text being processed; mirrored by destinations without their own
  WString currentFile;               // the value of _CurrentFile during the run
  CContentDest* dest = nullptr;      // not owning
  WString outFile;                   // the value of _OutFile during the run
  WString description;               // what is being processed, the context of error lines
};

}  // namespace NScrivolt
