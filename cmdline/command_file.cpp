// Command files: more switches read from a file, run in that file's folder.
#include <utility>

#include "cmdline/cmd_line.h"
#include "cmdline/cmd_line_processor.h"
#include "engine/current_directory_change.h"
#include "text/file_io.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// Lines only continue the argument text: CR LF, a lone CR and a lone LF each
// become one space.
WString LineEndsToSpaces(const WString& text) {
  WString joined;
  joined.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const WChar c = text[i];
    if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    joined.push_back((c == u'\r' || c == u'\n') ? u' ' : c);
  }
  return joined;
}

// Counts one more open command file for the lifetime of the object.
class CNestingLevel {
 public:
  explicit CNestingLevel(int& depth) : depth_(depth) { ++depth_; }
  ~CNestingLevel() { --depth_; }
  CNestingLevel(const CNestingLevel&) = delete;
  CNestingLevel& operator=(const CNestingLevel&) = delete;

 private:
  int& depth_;
};

}  // namespace

bool CCmdLineProcessor::ProcessCommandFile(const WString& path, CErrorText& errorText) {
  if (commandFileDepth_ >= maxCommandFileNesting) {
    errorText = MessageError(MsgCommandFilesNestedTooDeep,
                             {{u"[NUMBER]", IntegerToText(maxCommandFileNesting)}, {u"[FILEPATH]", path}});
    AddFeedback(errorText.str(), true);
    return false;
  }
  const WString resolved = ResolveFilePath(path, BaseFolder(context_));
  const CEncodingChoice& choice = description_.commandFileEncoding;
  EncodingInfo encoding;
  if (choice.isExplicit) encoding.type = choice.type;
  WString text;
  CErrorText readError;
  if (!ReadTextFile(resolved, text, false, encoding, choice.isExplicit, readError)) {
    errorText = MessageError(MsgCommandFileReadError, {{u"[FILEPATH]", path}});
    AddFeedback(errorText.str(), true);
    return false;
  }
  CCmdLine commandLine(syntax_);
  commandLine.Parse(LineEndsToSpaces(text));
  WString().swap(text);

  CCurrentDirectoryChange directory;
  directory.ToFolderOf(resolved);
  const CNestingLevel level(commandFileDepth_);
  const bool succeeded = commandLine.Process(*this);
  errorText = commandLine.ErrorText();
  return succeeded;
}

}  // namespace NScrivolt
