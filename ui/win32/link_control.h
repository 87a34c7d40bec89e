// CLinkControl: a static control that looks and acts as a hyperlink. It is
// underlined and drawn in the link colour on the button-face background,
// shows the link cursor under the mouse, and calls its callback when it is
// clicked or when Space is released while it has the focus.
#pragma once

#include <windows.h>

#include "text/base/wide_string.h"
#include "text/message_ids.h"
#include "ui/win32/handle_traits.h"
#include "ui/win32/subclass.h"

namespace NScrivolt::Ui {

class CLinkControl;

class ILinkControlCallback {
 public:
  virtual ~ILinkControlCallback() = default;
  virtual void OnLinkActivated(CLinkControl& link) = 0;
};

// Opens an address with the shell; a failure is reported in a message box
// owned by the link's dialog.
class CShellExecuteLink : public ILinkControlCallback {
 public:
  // `errorMessage` gets [FILEPATH] and [ERROR] filled in; `title` is its box's title.
  CShellExecuteLink(WString address, MessageId errorMessage, MessageId title)
      : address_(std::move(address)), errorMessage_(errorMessage), title_(title) {}
  void OnLinkActivated(CLinkControl& link) override;

 private:
  WString address_;
  MessageId errorMessage_;
  MessageId title_;
};

class CLinkControl : public CSubclassedWindow {
 public:
  ~CLinkControl() override { Detach(); }

  // Turns the static control `control` into a link. The link cursor is the
  // cursor resource `cursorId` of `cursorModule` (the system's hand cursor
  // when it has none).
  bool Attach(HWND control, HMODULE cursorModule, WORD cursorId, ILinkControlCallback& callback);
  // Gives the control back its own font and window procedure.
  void Detach();

  HWND GetWindow() const { return control_; }
  bool HandleMessage(CMessage& message) override;

 private:
  bool HandleControlMessage(CMessage& message);
  bool HandleParentMessage(CMessage& message);
  void Activate();

  HWND control_ = nullptr;
  HWND parent_ = nullptr;
  ILinkControlCallback* callback_ = nullptr;
  HFONT originalFont_ = nullptr;
  CHandle<CGDIHandleTraits> underlinedFont_;
};

}  // namespace NScrivolt::Ui
