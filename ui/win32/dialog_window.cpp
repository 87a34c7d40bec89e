#include "ui/win32/dialog_window.h"

#include <unordered_map>

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Ui {

namespace {

// The dialogs whose windows exist, by window handle. Only the user-interface
// thread makes and uses dialogs, so the map needs no lock.
std::unordered_map<HWND, CDialogWindow*>& Dialogs() {
  static std::unordered_map<HWND, CDialogWindow*> dialogs;
  return dialogs;
}

struct DialogTemplate {
  HMODULE module = nullptr;
  const DLGTEMPLATE* data = nullptr;
};

DialogTemplate LoadTemplate(HMODULE module, WORD resourceId) {
  if (module == nullptr) return {};
  HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(resourceId), MAKEINTRESOURCEW(5) /* RT_DIALOG */);
  if (resource == nullptr) return {};
  HGLOBAL loaded = LoadResource(module, resource);
  if (loaded == nullptr) return {};
  return {module, static_cast<const DLGTEMPLATE*>(LockResource(loaded))};
}

// A dialog class of the given name: the dialog manager's window procedure
// with the room it keeps per window. The class is global, so a template
// from a language module (another module than the executable) finds it.
void RegisterDialogClass(const WString& className) {
  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = CS_GLOBALCLASS;
  windowClass.lpfnWndProc = DefDlgProcW;
  windowClass.cbWndExtra = DLGWINDOWEXTRA;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512) /* IDC_ARROW */);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = Platform::AsWin(className);
  RegisterClassExW(&windowClass);  // fails harmlessly when it exists already
}

bool IsTopLevel(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0; }

}  // namespace

CDialogWindow* FindDialog(HWND window) {
  auto found = Dialogs().find(window);
  return found == Dialogs().end() ? nullptr : found->second;
}

CDialogWindow::~CDialogWindow() {
  if (IsAlive()) {
    Dialogs().erase(window_);
    destroyed_ = true;
    DestroyWindow(window_);
  }
}

bool CDialogWindow::Create(const CDialogParams& params) {
  params_ = params;
  exitCode_ = 0;
  created_ = destroyed_ = terminateSent_ = false;
  DialogTemplate found = LoadTemplate(params.primaryModule, params.resourceId);
  if (found.data == nullptr) found = LoadTemplate(params.fallbackModule, params.resourceId);
  if (found.data == nullptr) return false;
  if (!params.className.empty()) RegisterDialogClass(params.className);
  const LPARAM self = reinterpret_cast<LPARAM>(this);
  if (params.mode == DialogMode::Modal) {
    const INT_PTR result = DialogBoxIndirectParamW(found.module, found.data, params.owner, DialogProcedure, self);
    return result != -1 && created_;
  }
  return CreateDialogIndirectParamW(found.module, found.data, params.owner, DialogProcedure, self) != nullptr;
}

int CDialogWindow::RunMessageLoop(HACCEL accelerators) {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    // Accelerators come before the dialog's keyboard navigation, which
    // would otherwise take their keys (F1) as its own.
    if (accelerators != nullptr && IsAlive() && TranslateAcceleratorW(window_, accelerators, &message)) continue;
    if (IsAlive() && IsDialogMessageW(window_, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

void CDialogWindow::Close() {
  if (destroyed_) return;
  EmitTerminateOnce();
  if (!created_ || window_ == nullptr) return;
  destroyed_ = true;
  if (params_.mode == DialogMode::Modal) {
    EndDialog(window_, exitCode_);
  } else {
    DestroyWindow(window_);
  }
}

void CDialogWindow::EmitTerminateOnce() {
  if (terminateSent_) return;
  terminateSent_ = true;
  CDialogTerminateEvent event;
  event.window = window_;
  Signal<CDialogTerminateEvent>().Emit(event);
}

void CDialogWindow::Initialize(HWND window) {
  window_ = window;
  created_ = true;
  Dialogs()[window] = this;
  if (params_.resizable) {
    SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) | WS_THICKFRAME);
  }
  if (!params_.caption.empty()) SetWindowTextW(window, Platform::AsWin(params_.caption));
  OnInitialize();
  CDialogInitializeEvent event;
  event.window = window;
  Signal<CDialogInitializeEvent>().Emit(event);
  OnInitialized();
}

void CDialogWindow::Terminate() {
  EmitTerminateOnce();
  Dialogs().erase(window_);
  destroyed_ = true;
  // A top-level modeless dialog ends the thread's message loop; a page
  // inside another dialog leaves it to its host.
  if (params_.mode == DialogMode::Modeless && IsTopLevel(window_)) PostQuitMessage(exitCode_);
}

bool CDialogWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, std::optional<LRESULT>& result) {
  bool handled = false;
  switch (message) {
    case WM_SIZE:
      handled = OnSize(UINT(wParam));
      break;
    case WM_SIZING:
      handled = OnSizing(UINT(wParam), reinterpret_cast<RECT*>(lParam));
      break;
    case WM_COMMAND: {
      CDialogCommandEvent event;
      event.window = window_;
      event.id = LOWORD(wParam);
      event.code = HIWORD(wParam);
      event.control = reinterpret_cast<HWND>(lParam);
      handled = Signal<CDialogCommandEvent>().Emit(event);
      break;
    }
    case WM_NOTIFY: {
      CDialogCCNotificationEvent event;
      event.window = window_;
      event.header = reinterpret_cast<NMHDR*>(lParam);
      handled = Signal<CDialogCCNotificationEvent>().Emit(event);
      if (handled) result = event.result;
      break;
    }
    default:
      break;
  }
  if (handled) return true;
  CDialogMessageEvent event;
  event.window = window_;
  event.message = message;
  event.wParam = wParam;
  event.lParam = lParam;
  handled = Signal<CDialogMessageEvent>().Emit(event);
  if (handled) result = event.result;
  return handled;
}

INT_PTR CALLBACK CDialogWindow::DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<CDialogWindow*>(lParam)->Initialize(window);
    return TRUE;  // the dialog manager gives the focus to the first control
  }
  CDialogWindow* dialog = FindDialog(window);
  if (dialog == nullptr) return FALSE;
  if (message == WM_DESTROY) {
    dialog->Terminate();
    return TRUE;
  }
  std::optional<LRESULT> result;
  const bool handled = dialog->HandleMessage(message, wParam, lParam, result);
  if (handled && result) SetWindowLongPtrW(window, DWLP_MSGRESULT, *result);
  return handled ? TRUE : FALSE;
}

}  // namespace NScrivolt::Ui
