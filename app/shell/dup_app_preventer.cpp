#include "app/shell/dup_app_preventer.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt {

CDupAppPreventer::CDupAppPreventer(WString mutexName, WString windowClassName, CheckNow checkNow,
                                   CreateIfAbsent createIfAbsent)
    : mutexName_(std::move(mutexName)), windowClassName_(std::move(windowClassName)) {
  if (checkNow == CheckNow::Yes) Check(createIfAbsent);
}

bool CDupAppPreventer::Check(CreateIfAbsent createIfAbsent) {
  if (owner_) return false;
  mutex_ = OpenMutexW(MUTEX_ALL_ACCESS, TRUE, Platform::AsWin(mutexName_));
  if (!mutex_.IsValid() && createIfAbsent == CreateIfAbsent::Yes) {
    mutex_ = CreateMutexW(nullptr, FALSE, Platform::AsWin(mutexName_));
    owner_ = mutex_.IsValid();
    otherWindow_ = nullptr;
  }
  if (!owner_) otherWindow_ = FindWindowW(Platform::AsWin(windowClassName_), nullptr);
  return otherWindow_ != nullptr;
}

}  // namespace NScrivolt
