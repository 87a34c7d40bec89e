// Window subclassing: objects that see a window's messages before its own
// window procedure does. One process-wide controller replaces the window
// procedure of every subclassed window once and hands each message to the
// objects attached to that window; what none of them handles goes on to the
// window procedure that was there before.
#pragma once

#include <windows.h>

#include <optional>
#include <unordered_map>
#include <vector>

namespace NScrivolt::Ui {

// One message on its way through the subclassed windows of a window.
class CMessage {
 public:
  CMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, WNDPROC previous)
      : window(window), message(message), wParam(wParam), lParam(lParam), previous_(previous) {}

  // What the window's own procedure answers; it runs at most once per message.
  LRESULT GetDefaultResult();
  bool IsDefaultCalled() const { return defaultCalled_; }

  const HWND window;
  const UINT message;
  const WPARAM wParam;
  const LPARAM lParam;
  // The answer of a handler that handled the message.
  LRESULT result = 0;

 private:
  WNDPROC previous_;
  bool defaultCalled_ = false;
  LRESULT defaultResult_ = 0;
};

class CSubclassedWindow {
 public:
  CSubclassedWindow() = default;
  CSubclassedWindow(const CSubclassedWindow&) = delete;
  CSubclassedWindow& operator=(const CSubclassedWindow&) = delete;
  // Leaves every window it is still attached to.
  virtual ~CSubclassedWindow();

  // True when the message was handled; its answer is then message.result.
  virtual bool HandleMessage(CMessage& message) = 0;
};

class CSubclassController {
 public:
  static CSubclassController& Instance();

  // `handler` sees the messages of `window` from now on.
  bool Attach(HWND window, CSubclassedWindow& handler);
  // `handler` no longer sees them; the last to leave puts the window
  // procedure back.
  void Detach(HWND window, CSubclassedWindow& handler);
  void DetachEverywhere(CSubclassedWindow& handler);

 private:
  struct Subclass {
    WNDPROC previous = nullptr;
    std::vector<CSubclassedWindow*> handlers;
  };

  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Route(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void Restore(HWND window, WNDPROC previous);

  std::unordered_map<HWND, Subclass> windows_;
};

}  // namespace NScrivolt::Ui
