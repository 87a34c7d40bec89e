// Template runs against real files: a fresh scratch folder is the current
// directory, with the files a test puts there, and the runs share one context.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "engine/current_directory_change.h"
#include "text/base/wide_string.h"
#include "unit/scratch_folder.h"
#include "unit/template_runner.h"

namespace NScrivolt::Testing {

struct FileEntry {
  std::string name;  // relative, "/" between folders
  std::string bytes;
};

class CScratchFolderRun {
 public:
  CScratchFolderRun() { directory_.ToFolderOf(folder_.Path("template.txt")); }

  void Put(const std::vector<FileEntry>& entries) const {
    for (const FileEntry& entry : entries) {
      std::filesystem::create_directories(folder_.Native(entry.name).parent_path());
      folder_.Put(entry.name, entry.bytes);
    }
  }

  TemplateRun Run(const WChar* text) { return RunTemplate(context_, text); }

 private:
  CScratchFolder folder_;
  CCurrentDirectoryChange directory_;  // changed back before the folder goes
  CProcessContext context_;
};

}  // namespace NScrivolt::Testing
