#include "ui/win32/tab_control.h"

#include <commctrl.h>

#include <iterator>

#include "ui/win32/dll_loader.h"

namespace NScrivolt::Ui {

namespace {

// The visual-theme functions, looked up once; without the library (or
// without themes switched on) pages keep the plain dialog background.
class CThemeFunctions {
 public:
  static CThemeFunctions& Instance() {
    static CThemeFunctions functions;
    return functions;
  }

  void GiveTabBackground(HWND page) const {
    constexpr DWORD kEnableTabTexture = 6;  // ETDT_ENABLE | ETDT_USETABTEXTURE
    if (isAppThemed_ != nullptr && enableTexture_ != nullptr && isAppThemed_()) enableTexture_(page, kEnableTabTexture);
  }

 private:
  using IsAppThemedFunction = BOOL(WINAPI*)();
  using EnableTextureFunction = HRESULT(WINAPI*)(HWND, DWORD);

  CThemeFunctions() : library_(WString(u"UxTheme.dll")) {
    if (!library_.IsLoaded()) return;
    isAppThemed_ = reinterpret_cast<IsAppThemedFunction>(reinterpret_cast<void*>(library_.Function("IsAppThemed")));
    enableTexture_ = reinterpret_cast<EnableTextureFunction>(
        reinterpret_cast<void*>(library_.Function("EnableThemeDialogTexture")));
  }

  CDLLLoader library_;
  IsAppThemedFunction isAppThemed_ = nullptr;
  EnableTextureFunction enableTexture_ = nullptr;
};

}  // namespace

bool CTabControl::Attach(HWND tab) {
  tab_ = tab;
  parent_ = GetParent(tab);
  CSubclassController& controller = CSubclassController::Instance();
  return controller.Attach(tab_, *this) && controller.Attach(parent_, *this);
}

bool CTabControl::AddPage(CDialogWindow& page, CDialogParams params) {
  params.mode = DialogMode::Modeless;
  params.owner = parent_;
  if (!page.Create(params)) return false;
  wchar_t caption[128] = {};
  GetWindowTextW(page.GetWindow(), caption, int(std::size(caption)));
  TCITEMW item = {};
  item.mask = TCIF_TEXT;
  item.pszText = caption;
  const int index = GetPageCount();
  SendMessageW(tab_, TCM_INSERTITEMW, WPARAM(index), reinterpret_cast<LPARAM>(&item));
  pages_.push_back(&page);
  CThemeFunctions::Instance().GiveTabBackground(page.GetWindow());
  PlacePage(page.GetWindow());
  if (index == 0) SelectPage(0);
  return true;
}

void CTabControl::SelectPage(int index) {
  SendMessageW(tab_, TCM_SETCURSEL, WPARAM(index), 0);
  ShowSelectedPage();
}

int CTabControl::GetSelectedPage() const { return static_cast<int>(SendMessageW(tab_, TCM_GETCURSEL, 0, 0)); }

void CTabControl::ShowSelectedPage() {
  const int selected = GetSelectedPage();
  SetFocus(tab_);
  for (int index = 0; index < GetPageCount(); ++index) {
    ShowWindow(pages_[size_t(index)]->GetWindow(), index == selected ? SW_SHOW : SW_HIDE);
  }
  CNewTabSelectedEvent event;
  event.tabControl = this;
  event.page = selected;
  Emit(event);
}

// The page's top left corner goes to the top left corner of the display
// area, in the coordinates of the dialog that holds both; its size stays.
void CTabControl::PlacePage(HWND page) const {
  RECT area;
  GetClientRect(tab_, &area);
  SendMessageW(tab_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
  MapWindowPoints(tab_, parent_, reinterpret_cast<POINT*>(&area), 2);
  SetWindowPos(page, HWND_TOP, area.left, area.top, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

bool CTabControl::HandleMessage(CMessage& message) {
  if (message.window != parent_ || message.message != WM_NOTIFY) return false;
  const NMHDR* header = reinterpret_cast<const NMHDR*>(message.lParam);
  if (header->hwndFrom != tab_ || header->code != UINT(TCN_SELCHANGE)) return false;
  ShowSelectedPage();
  message.result = 0;
  return true;
}

}  // namespace NScrivolt::Ui
