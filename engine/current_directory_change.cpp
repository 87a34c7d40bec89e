#include "engine/current_directory_change.h"

#include "platform/current_directory.h"
#include "platform/paths.h"

namespace NScrivolt {

void CCurrentDirectoryChange::ToFolderOf(const WString& filePath) {
  const WString folder = Platform::FolderPart(filePath);
  if (folder.empty()) return;
  WString previous;
  if (!changed_ && !Platform::CurrentDirectory(previous)) return;
  if (!Platform::ChangeCurrentDirectory(folder)) return;
  if (!changed_) previous_ = std::move(previous);
  changed_ = true;
}

CCurrentDirectoryChange::~CCurrentDirectoryChange() {
  if (changed_) Platform::ChangeCurrentDirectory(previous_);
}

}  // namespace NScrivolt
