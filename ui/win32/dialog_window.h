// CDialogWindow: a dialog made from a dialog resource whose messages reach
// their handlers as events. A concrete dialog derives from it and from the
// slots it needs, and connects them to its own signals:
//
//   class CAboutDlg : public CDialogWindow, public CSlot<CDialogCommandEvent> {
//     CAboutDlg() { Signal<CDialogCommandEvent>().Connect(*this); }
//     bool Receive(CDialogCommandEvent& event) override { ... }
//   };
//
// Modal dialogs run their own loop inside Create; modeless ones return at
// once and are served by RunMessageLoop (top-level windows) or by the loop
// of the window they sit in (child pages).
#pragma once

#include <windows.h>

#include "text/base/wide_string.h"
#include "ui/signal.h"
#include "ui/win32/dialog_events.h"

namespace NScrivolt::Ui {

enum class DialogMode { Modeless, Modal };

struct CDialogParams {
  WORD resourceId = 0;
  HWND owner = nullptr;
  // The template is taken from the primary module, else from the fallback.
  HMODULE primaryModule = nullptr;
  HMODULE fallbackModule = nullptr;
  DialogMode mode = DialogMode::Modal;
  bool resizable = false;
  // Empty: the template's caption stays.
  WString caption;
  // Empty: the dialog manager's own class. Otherwise a class of that name is
  // registered once (a dialog class with the program's icon), so other
  // programs and instances can find the window by it.
  WString className;
};

class CDialogWindow : public CSignal<CDialogMessageEvent>,
                      public CSignal<CDialogCommandEvent>,
                      public CSignal<CDialogCCNotificationEvent>,
                      public CSignal<CDialogInitializeEvent>,
                      public CSignal<CDialogTerminateEvent> {
 public:
  CDialogWindow() = default;
  CDialogWindow(const CDialogWindow&) = delete;
  CDialogWindow& operator=(const CDialogWindow&) = delete;
  ~CDialogWindow() override;

  // Shows the dialog. Modal: returns when it has closed; modeless: returns
  // once the window exists. False when the template is in neither module
  // or the window could not be made; nothing is shown then.
  bool Create(const CDialogParams& params);

  // Serves the thread's messages until the quit message; returns its code.
  // Keys in `accelerators` (may be null) become commands of this dialog.
  int RunMessageLoop(HACCEL accelerators = nullptr);

  // Ends the dialog with the exit code set so far (0 unless changed).
  void Close();
  void SetExitCode(int exitCode) { exitCode_ = exitCode; }
  int GetExitCode() const { return exitCode_; }

  HWND GetWindow() const { return window_; }
  const CDialogParams& GetParams() const { return params_; }
  bool IsAlive() const { return created_ && !destroyed_; }

  template <typename E>
  CSignal<E>& Signal() {
    return *this;
  }

 protected:
  // Hooks for dialogs that need them; the base does nothing.
  virtual void OnInitialize() {}
  virtual bool OnSize(UINT /*sizeType*/) { return false; }
  virtual void OnInitialized() {}
  virtual bool OnSizing(UINT /*edge*/, RECT* /*rect*/) { return false; }

 private:
  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, std::optional<LRESULT>& result);
  void Initialize(HWND window);
  void Terminate();
  void EmitTerminateOnce();

  HWND window_ = nullptr;
  CDialogParams params_;
  int exitCode_ = 0;
  bool created_ = false;
  bool destroyed_ = false;
  bool terminateSent_ = false;
};

// The dialog of a window handle made by CDialogWindow, null for any other.
CDialogWindow* FindDialog(HWND window);

}  // namespace NScrivolt::Ui
