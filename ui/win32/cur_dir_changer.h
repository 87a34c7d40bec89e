// CCurDirChanger: changes the process's current directory for its lifetime
// and changes it back at its end.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Ui {

class CCurDirChanger {
 public:
  CCurDirChanger() = default;
  CCurDirChanger(const CCurDirChanger&) = delete;
  CCurDirChanger& operator=(const CCurDirChanger&) = delete;
  // Changes back to the directory remembered by the first change, if any.
  virtual ~CCurDirChanger();

  // Remembers the current directory (the first time only) and makes `folder`
  // current; returns whether the change worked.
  bool ChangeTo(const WString& folder);
  // The same for the folder part of `filePath` (before its last backslash);
  // a path without backslash changes nothing and returns false.
  bool ChangeToFolderOf(const WString& filePath);

 private:
  WString remembered_;
  bool hasRemembered_ = false;
};

}  // namespace NScrivolt::Ui
