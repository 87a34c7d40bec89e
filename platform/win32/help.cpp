#include "platform/help.h"

#include "platform/paths.h"
#include "platform/win32/html_help.h"
#include "platform/win32/wide_cast.h"
#include "text/text.h"

namespace NScrivolt::Platform {

namespace {

// The folder of the running executable, where the help folder is installed.
WString InstallFolder() {
  WString path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, AsWin(&path[0]), DWORD(path.size()));
    if (length == 0) return WString();
    if (length < path.size()) {
      path.resize(length);
      return FolderPart(path);
    }
    path.resize(path.size() * 2);
  }
}

void ShowHelpProblem(WindowHandle owner, const WString& text) {
  const CText title(MsgHelpPageErrorTitle);
  MessageBoxW(static_cast<HWND>(owner), AsWin(text), AsWin(title.str()), MB_OK | MB_ICONWARNING);
}

}  // namespace

void ShowHelpTopic(WindowHandle owner, std::uint32_t topicId) {
  CText file(MsgHelpFile);
  file.Replace(u"[INSTALLPATH]", InstallFolder());
  CHTMLHelp help;
  help.SetFile(file.str());
  switch (help.ShowTopic(CText(topicId).str())) {
    case CHTMLHelp::kShown:
      return;
    case CHTMLHelp::kNoHelpFile:
      ShowHelpProblem(owner, CText(MsgHelpFileMissing).str());
      return;
    case CHTMLHelp::kViewerFailed:
      ShowHelpProblem(owner, CText(MsgHelpPageError).Replace(u"[ERROR]", help.GetLastErrorText()).str());
      return;
  }
}

}  // namespace NScrivolt::Platform
