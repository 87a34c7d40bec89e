// CFileFinder: the names of the files in one folder that match a pattern
// ("Scrivolt_*.dll"), one at a time. Folders that match are skipped.
//
//   CFileFinder finder(installFolder, u"Scrivolt_*.dll");
//   WString name;
//   while (finder.Next(name)) ...;
//   if (finder.Failed()) ... finder.ErrorCode() ...
#pragma once

#include <windows.h>

#include <cstdint>

#include "text/base/wide_string.h"
#include "ui/win32/handle_traits.h"

namespace NScrivolt::Ui {

class CFileFinder {
 public:
  CFileFinder(const WString& folder, const WString& pattern);
  virtual ~CFileFinder() = default;

  // The next matching file name (without folder); false when there is none
  // left or the enumeration failed.
  bool Next(WString& name);

  // True when the enumeration failed; no matching file at all is no failure.
  bool Failed() const { return error_ != 0; }
  // The Windows error code of the failure, 0 when there was none.
  std::uint32_t ErrorCode() const { return error_; }

 private:
  bool Advance();

  WString search_;
  CHandle<CFFHandleTraits> find_;
  WIN32_FIND_DATAW data_{};
  bool started_ = false;
  std::uint32_t error_ = 0;
};

}  // namespace NScrivolt::Ui
