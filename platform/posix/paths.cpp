#include "platform/paths.h"

#include <vector>

#include "platform/current_directory.h"

namespace NScrivolt::Platform {

namespace {

// Splits on separators, dropping empty and "." parts and letting ".." remove
// the part before it.
std::vector<WStringView> NormalParts(WStringView path) {
  std::vector<WStringView> parts;
  size_t start = 0;
  while (start <= path.size()) {
    size_t end = start;
    while (end < path.size() && !IsPathSeparator(path[end])) ++end;
    const WStringView part = path.substr(start, end - start);
    if (part == u"..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != u".") {
      parts.push_back(part);
    }
    start = end + 1;
  }
  return parts;
}

}  // namespace

bool IsPathSeparator(WChar c) { return c == u'/' || c == u'\\'; }

bool FullPath(const WString& path, WString& full) {
  if (path.empty() || !IsWholePath(path)) return false;
  WString absolute;
  if (!IsPathSeparator(path[0])) {
    if (!CurrentDirectory(absolute)) return false;
    absolute += u'/';
  }
  absolute += path;
  full.clear();
  for (const WStringView part : NormalParts(absolute)) {
    full += u'/';
    full += part;
  }
  if (full.empty() || IsPathSeparator(path.back())) full += u'/';
  return true;
}

WString FolderPart(WStringView path) {
  size_t last = path.size();
  while (last > 0 && !IsPathSeparator(path[last - 1])) --last;
  if (last == 0) return WString();
  if (last == 1) return WString(u"/");
  return WString(path.substr(0, last - 1));
}

}  // namespace NScrivolt::Platform
