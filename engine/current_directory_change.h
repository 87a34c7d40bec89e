// Makes a folder the process's current directory for the lifetime of the
// object and changes back afterwards, also when the work in between failed.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

class CCurrentDirectoryChange {
 public:
  CCurrentDirectoryChange() = default;
  CCurrentDirectoryChange(const CCurrentDirectoryChange&) = delete;
  CCurrentDirectoryChange& operator=(const CCurrentDirectoryChange&) = delete;
  ~CCurrentDirectoryChange();

  // Changes to the folder part of `filePath` (everything before its last
  // separator); a path without separator changes nothing.
  void ToFolderOf(const WString& filePath);

 private:
  WString previous_;
  bool changed_ = false;
};

}  // namespace NScrivolt
