#include "ui/win32/subclass.h"

#include <algorithm>

namespace NScrivolt::Ui {

LRESULT CMessage::GetDefaultResult() {
  if (!defaultCalled_) {
    defaultCalled_ = true;
    defaultResult_ = CallWindowProcW(previous_, window, message, wParam, lParam);
  }
  return defaultResult_;
}

CSubclassedWindow::~CSubclassedWindow() { CSubclassController::Instance().DetachEverywhere(*this); }

CSubclassController& CSubclassController::Instance() {
  static CSubclassController controller;
  return controller;
}

bool CSubclassController::Attach(HWND window, CSubclassedWindow& handler) {
  if (window == nullptr) return false;
  auto found = windows_.find(window);
  if (found == windows_.end()) {
    const LONG_PTR previous = SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure));
    if (previous == 0) return false;
    found = windows_.emplace(window, Subclass{reinterpret_cast<WNDPROC>(previous), {}}).first;
  }
  std::vector<CSubclassedWindow*>& handlers = found->second.handlers;
  if (std::find(handlers.begin(), handlers.end(), &handler) == handlers.end()) handlers.push_back(&handler);
  return true;
}

void CSubclassController::Detach(HWND window, CSubclassedWindow& handler) {
  auto found = windows_.find(window);
  if (found == windows_.end()) return;
  std::vector<CSubclassedWindow*>& handlers = found->second.handlers;
  handlers.erase(std::remove(handlers.begin(), handlers.end(), &handler), handlers.end());
  if (!handlers.empty()) return;
  const WNDPROC previous = found->second.previous;
  windows_.erase(found);
  Restore(window, previous);
}

void CSubclassController::DetachEverywhere(CSubclassedWindow& handler) {
  std::vector<HWND> attached;
  for (const auto& [window, subclass] : windows_) {
    if (std::find(subclass.handlers.begin(), subclass.handlers.end(), &handler) != subclass.handlers.end()) {
      attached.push_back(window);
    }
  }
  for (HWND window : attached) Detach(window, handler);
}

// Puts the old procedure back, unless someone subclassed the window after us
// (then ours stays and passes everything on, having no handlers left).
void CSubclassController::Restore(HWND window, WNDPROC previous) {
  if (!IsWindow(window)) return;
  if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) == WindowProcedure) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
  }
}

LRESULT CSubclassController::Route(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto found = windows_.find(window);
  if (found == windows_.end()) return DefWindowProcW(window, message, wParam, lParam);
  CMessage routed(window, message, wParam, lParam, found->second.previous);
  // A handler may detach itself or others while the message travels.
  const std::vector<CSubclassedWindow*> handlers = found->second.handlers;
  bool handled = false;
  for (CSubclassedWindow* handler : handlers) {
    auto still = windows_.find(window);
    if (still == windows_.end()) break;
    const auto& current = still->second.handlers;
    if (std::find(current.begin(), current.end(), handler) == current.end()) continue;
    handled = handler->HandleMessage(routed);
    if (handled) break;
  }
  const LRESULT result = handled ? routed.result : routed.GetDefaultResult();
  // The window is gone after its last message: forget it.
  if (message == WM_NCDESTROY) windows_.erase(window);
  return result;
}

LRESULT CALLBACK CSubclassController::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return Instance().Route(window, message, wParam, lParam);
}

}  // namespace NScrivolt::Ui
