// Template runs against real files: each case gets a fresh scratch folder as
// the current directory, files put there before the run, and a check of the
// output, the report and every file left afterwards.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "engine/current_directory_change.h"
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
  const WChar* text;              // the template; "{DIR}" is the scratch folder
  const char* output;             // expected output when errors is empty
  const char* errors;             // expected report, lines joined by "\n"; "{DIR}", "{/}" as in Expand
  std::vector<FileEntry> after;   // files that must then exist with exactly these bytes
};

class CFileCaseRun {
 public:
  CFileCaseRun() { directory_.ToFolderOf(folder_.Path("template.txt")); }

  // "{DIR}" becomes the scratch folder, "{/}" the system's path separator.
  std::string Expand(std::string text) const {
    const std::string folder = WideToUtf8(folder_.Folder());
    const std::string separator = std::filesystem::path("/").make_preferred().string();
    ReplaceEach(text, "{DIR}", folder);
    ReplaceEach(text, "{/}", separator);
    return text;
  }

  void Put(const std::vector<FileEntry>& entries) const {
    for (const FileEntry& entry : entries) {
      std::filesystem::create_directories(folder_.Native(entry.name).parent_path());
      if (entry.name.back() != '/') folder_.Put(entry.name, entry.bytes);
    }
  }

  TemplateRun Run(const WChar* text) { return RunTemplate(context_, Utf8ToWide(Expand(WideToUtf8(text)))); }

  // Puts the files, runs the template, and checks output, report and files:
  // exactly the files before and after are there, none half-written, no
  // temporary one.
  void Check(const FileCase& c) {
    SCOPED_TRACE(c.name);
    Put(c.before);
    const TemplateRun run = Run(c.text);
    EXPECT_EQ(Lines(run.errors), Expand(c.errors));
    if (run.errors.empty()) {
      EXPECT_EQ(WideToUtf8(run.output), c.output);
    }
    std::set<std::string> expectedNames;
    for (const FileEntry& entry : c.before) AddWithFolders(expectedNames, entry.name);
    for (const FileEntry& entry : c.after) {
      AddWithFolders(expectedNames, entry.name);
      EXPECT_EQ(Hex(folder_.Get(entry.name)), Hex(entry.bytes)) << entry.name;
    }
    EXPECT_EQ(AllNames(), expectedNames);
  }

  const CScratchFolder& Folder() const { return folder_; }
  CProcessContext& Context() { return context_; }

 private:
  static void ReplaceEach(std::string& text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
      text.replace(at, from.size(), to);
    }
  }

  static void AddWithFolders(std::set<std::string>& names, const std::string& name) {
    for (size_t slash = name.find('/'); slash != std::string::npos; slash = name.find('/', slash + 1)) {
      names.insert(name.substr(0, slash + 1));
    }
    names.insert(name);
  }

  // Every file and folder below the scratch folder, folders with a trailing "/".
  std::set<std::string> AllNames() const {
    std::set<std::string> names;
    const std::filesystem::path root = folder_.Native("");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      std::string name = entry.path().lexically_relative(root).generic_string();
      if (entry.is_directory()) name += '/';
      names.insert(name);
    }
    return names;
  }

  CScratchFolder folder_;
  CCurrentDirectoryChange directory_;  // changed back before the folder goes
  CProcessContext context_;
};

}  // namespace NScrivolt::Testing
