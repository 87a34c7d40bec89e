#include "ui/win32/link_control.h"

#include "ui/win32/shell_open.h"

namespace NScrivolt::Ui {

namespace {

constexpr COLORREF kLinkColour = RGB(0, 0, 204);
constexpr int kButtonFaceColour = COLOR_BTNFACE;  // colour index 15

// The link cursor, loaded once for the whole program at its default size.
HCURSOR LinkCursor(HMODULE module, WORD cursorId) {
  static const HCURSOR cursor = [&] {
    HCURSOR own = LoadCursorW(module, MAKEINTRESOURCEW(cursorId));
    return own != nullptr ? own : LoadCursorW(nullptr, MAKEINTRESOURCEW(32649) /* IDC_HAND */);
  }();
  return cursor;
}

HCURSOR& CurrentLinkCursor() {
  static HCURSOR cursor = nullptr;
  return cursor;
}

}  // namespace

void CShellExecuteLink::OnLinkActivated(CLinkControl& link) {
  OpenWithShell(GetParent(link.GetWindow()), u"open", address_, errorMessage_, title_);
}

bool CLinkControl::Attach(HWND control, HMODULE cursorModule, WORD cursorId, ILinkControlCallback& callback) {
  Detach();
  control_ = control;
  parent_ = GetParent(control);
  callback_ = &callback;
  CurrentLinkCursor() = LinkCursor(cursorModule, cursorId);
  CSubclassController& controller = CSubclassController::Instance();
  if (!controller.Attach(control_, *this) || !controller.Attach(parent_, *this)) return false;
  originalFont_ = reinterpret_cast<HFONT>(SendMessageW(control_, WM_GETFONT, 0, 0));
  LOGFONTW font = {};
  HGDIOBJ base = originalFont_ != nullptr ? HGDIOBJ(originalFont_) : GetStockObject(DEFAULT_GUI_FONT);
  if (GetObjectW(base, sizeof font, &font) != 0) {
    font.lfUnderline = TRUE;
    underlinedFont_ = CHandle<CGDIHandleTraits>(CreateFontIndirectW(&font));
    SendMessageW(control_, WM_SETFONT, reinterpret_cast<WPARAM>(underlinedFont_.Get()), TRUE);
  }
  return true;
}

void CLinkControl::Detach() {
  if (control_ == nullptr) return;
  if (IsWindow(control_)) SendMessageW(control_, WM_SETFONT, reinterpret_cast<WPARAM>(originalFont_), TRUE);
  CSubclassController::Instance().Detach(control_, *this);
  CSubclassController::Instance().Detach(parent_, *this);
  underlinedFont_.Reset();
  control_ = parent_ = nullptr;
  callback_ = nullptr;
}

bool CLinkControl::HandleMessage(CMessage& message) {
  if (message.window == control_) return HandleControlMessage(message);
  if (message.window == parent_) return HandleParentMessage(message);
  return false;
}

bool CLinkControl::HandleControlMessage(CMessage& message) {
  switch (message.message) {
    case WM_NCHITTEST:
      message.result = HTCLIENT;
      return true;
    case WM_SETCURSOR:
      SetCursor(CurrentLinkCursor());
      message.result = TRUE;
      return true;
    case WM_LBUTTONDOWN:
      SetFocus(control_);
      return false;
    case WM_LBUTTONUP: {
      RECT area;
      GetClientRect(control_, &area);
      const POINT point = {short(LOWORD(message.lParam)), short(HIWORD(message.lParam))};
      if (PtInRect(&area, point)) Activate();
      return false;
    }
    case WM_KEYUP:
      if (message.wParam == VK_SPACE) Activate();
      return false;
    case WM_GETDLGCODE:
      // Keeps Space for the link instead of the dialog's default button.
      message.result = message.GetDefaultResult() | DLGC_WANTCHARS;
      return true;
    case WM_DESTROY:
      Detach();
      return false;
    default:
      return false;
  }
}

bool CLinkControl::HandleParentMessage(CMessage& message) {
  if (message.message != WM_CTLCOLORSTATIC || reinterpret_cast<HWND>(message.lParam) != control_) return false;
  HDC context = reinterpret_cast<HDC>(message.wParam);
  SetTextColor(context, kLinkColour);
  SetBkColor(context, GetSysColor(kButtonFaceColour));
  message.result = reinterpret_cast<LRESULT>(GetSysColorBrush(kButtonFaceColour));
  return true;
}

void CLinkControl::Activate() {
  if (callback_ != nullptr) callback_->OnLinkActivated(*this);
}

}  // namespace NScrivolt::Ui
