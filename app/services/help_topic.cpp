#include "app/services/help_topic.h"

#include "app/services/html_help.h"
#include "app/services/install_path.h"
#include "text/text.h"
#include "ui/win32/message_box.h"

namespace NScrivolt {

namespace {

void ShowHelpProblem(HWND owner, const CText& text) {
  Ui::ShowMessage(owner, text, MsgHelpPageErrorTitle, MB_OK | MB_ICONWARNING);
}

}  // namespace

void ShowHelpTopic(HWND owner, MessageId topicId) {
  CText file(MsgHelpFile);
  file.Replace(u"[INSTALLPATH]", InstallPath());
  CHTMLHelp help;
  help.SetFile(file.str());
  switch (help.ShowTopic(CText(topicId).str())) {
    case CHTMLHelp::kShown:
      return;
    case CHTMLHelp::kNoHelpFile:
      ShowHelpProblem(owner, CText(MsgHelpFileMissing));
      return;
    case CHTMLHelp::kViewerFailed:
      ShowHelpProblem(owner, CText(MsgHelpPageError).Replace(u"[ERROR]", help.GetLastErrorText()));
      return;
  }
}

}  // namespace NScrivolt
