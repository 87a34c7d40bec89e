// Template runs against real files: each case gets a fresh scratch folder as
// the current directory, files put there before the run, and a check of the
// output, the report and the files there afterwards.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "engine/current_directory_change.h"
#include "text/wide_string.h"
#include "unit/hex.h"
#include "unit/scratch_folder.h"
#include "unit/template_runner.h"

namespace NScrivolt::Testing {

struct FileEntry {
  std::string name;   // relative, "/" between folders; a trailing "/" makes a folder
  std::string bytes;
};

struct FileCase {
  const char* name;
  std::vector<FileEntry> before;  // the scratch folder's content before the run
  const WChar* text;              // the template
  const char* output;             // expected output when errors is empty
  const char* errors;             // expected report, lines joined by "\n"; "{DIR}" is the scratch
                                  // folder and "{/}" the system's path separator
  std::vector<FileEntry> after;   // files written by the run, with exactly these bytes; no others
};

class CFileCaseRun {
 public:
  CFileCaseRun() { directory_.ToFolderOf(folder_.Path("template.txt")); }

  void Put(const std::vector<FileEntry>& entries) const {
    for (const FileEntry& entry : entries) {
      std::filesystem::create_directories(folder_.Native(entry.name).parent_path());
      if (entry.name.back() != '/') folder_.Put(entry.name, entry.bytes);
    }
  }

  TemplateRun Run(const WChar* text) { return RunTemplate(context_, text); }

  void Check(const FileCase& c) {
    SCOPED_TRACE(c.name);
    Put(c.before);
    const TemplateRun run = Run(c.text);
    const WString separator = std::filesystem::path("/").make_preferred().u16string();
    const WString errors = ReplaceAll(ReplaceAll(Utf8ToWide(c.errors), u"{DIR}", folder_.Folder()), u"{/}", separator);
    EXPECT_EQ(Lines(run.errors), WideToUtf8(errors));
    if (run.errors.empty()) {
      EXPECT_EQ(WideToUtf8(run.output), c.output);
    }
    std::set<std::string> expected;
    for (const FileEntry& entry : c.before) {
      if (entry.name.back() != '/') expected.insert(entry.name);
    }
    for (const FileEntry& entry : c.after) {
      expected.insert(entry.name);
      EXPECT_EQ(Hex(folder_.Get(entry.name)), Hex(entry.bytes)) << entry.name;
    }
    EXPECT_EQ(Files(), expected);
  }

 private:
  // The files below the scratch folder, "/" between folders.
  std::set<std::string> Files() const {
    std::set<std::string> names;
    const std::filesystem::path root = folder_.Native("");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (entry.is_regular_file()) names.insert(entry.path().lexically_relative(root).generic_string());
    }
    return names;
  }

  CScratchFolder folder_;
  CCurrentDirectoryChange directory_;  // changed back before the folder goes
  CProcessContext context_;
};

}  // namespace NScrivolt::Testing
