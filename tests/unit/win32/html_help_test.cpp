#include <gtest/gtest.h>

#include "app/services/html_help.h"
#include "unit/scratch_folder.h"

namespace NScrivolt {
namespace {



// Without a help file the viewer is never asked: the caller shows its own
// message instead.
TEST(HtmlHelp, MissingFileIsReportedWithoutTheViewer) {
  Testing::CScratchFolder folder;
  CHTMLHelp help;
  EXPECT_TRUE(help.SetFile(folder.Path("Help\\Scrivolt_EN.chm")));
  EXPECT_EQ(help.ShowTopic(u"command-line-usage.html"), CHTMLHelp::kNoHelpFile);
  EXPECT_EQ(help.ShowTopic(u"command-line-usage.html", u"main"), CHTMLHelp::kNoHelpFile);
}

TEST(HtmlHelp, ExistingFileIsAccepted) {
  Testing::CScratchFolder folder;
  folder.Put("Scrivolt_EN.chm", "ITSF");
  CHTMLHelp help;
  EXPECT_FALSE(help.SetFile(folder.Path("Scrivolt_EN.chm")));
  // A later missing file replaces it.
  EXPECT_TRUE(help.SetFile(folder.Path("other.chm")));
  EXPECT_EQ(help.ShowTopic(u"introduction.html"), CHTMLHelp::kNoHelpFile);
}

}  // namespace
}  // namespace NScrivolt
