#include "app/shell/app.h"

#include "app/services/install_path.h"

namespace NScrivolt {

CApp* CApp::current_ = nullptr;

CApp::CApp(HINSTANCE instance) : instance_(instance != nullptr ? instance : GetModuleHandleW(nullptr)) {
  current_ = this;
}

CApp::~CApp() {
  if (current_ == this) current_ = nullptr;
}

const WString& CApp::GetExePath() {
  if (exePath_.empty()) exePath_ = ExecutablePath();
  return exePath_;
}

const WString& CApp::GetInstallPath() {
  if (installPath_.empty()) installPath_ = InstallPath();
  return installPath_;
}

}  // namespace NScrivolt
