// CHTMLHelp: one compiled-HTML help file and the help viewer that shows its
// pages. The viewer's entry point is loaded on first use from the help
// control library, so a system without it still runs everything else.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

class CHTMLHelp {
 public:
  enum ShowResult { kShown = 0, kNoHelpFile = 1, kViewerFailed = 2 };

  CHTMLHelp() = default;
  CHTMLHelp(const CHTMLHelp&) = delete;
  CHTMLHelp& operator=(const CHTMLHelp&) = delete;
  virtual ~CHTMLHelp() = default;

  // Remembers `path` when something can be accessed there; returns true when
  // the file does not exist.
  bool SetFile(const WString& path);

  // Asks the viewer for "<file>::/<page>", with ">" and the window name
  // appended when one is given, owned by the desktop window.
  ShowResult ShowTopic(const WString& page, const WString& windowName = WString());

  // The viewer's description of its last error; empty when it has none.
  WString GetLastErrorText() const;

 private:
  WString file_;
  bool fileExists_ = false;
};

}  // namespace NScrivolt
