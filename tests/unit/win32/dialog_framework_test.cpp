#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <type_traits>

#include "ui/win32/dialog_window.h"
#include "ui/win32/link_control.h"
#include "ui/win32/subclass.h"
#include "ui/win32/tab_control.h"

namespace NScrivolt::Ui {
namespace {

constexpr WORD kTestDialog = 900;
constexpr WORD kPageDialog = 910;
constexpr int kButton = 901;
constexpr int kStatic = 902;
constexpr int kTabs = 903;

// A dialog that counts the events it receives; slots of other objects can
// be connected to it as well.
class CCountingDialog : public CDialogWindow,
                        public CSlot<CDialogInitializeEvent>,
                        public CSlot<CDialogTerminateEvent> {
 public:
  CCountingDialog() {
    Signal<CDialogInitializeEvent>().Connect(*this);
    Signal<CDialogTerminateEvent>().Connect(*this);
  }
  bool Receive(CDialogInitializeEvent&) override {
    ++initialized;
    if (closeAtOnce) {
      SetExitCode(7);
      Close();
    }
    return false;
  }
  bool Receive(CDialogTerminateEvent&) override {
    ++terminated;
    return false;
  }
  int initialized = 0;
  int terminated = 0;
  bool closeAtOnce = false;
};

template <typename E>
class CAnswer : public CSlot<E> {
 public:
  explicit CAnswer(bool answer) : answer_(answer) {}
  bool Receive(E& event) override {
    ++calls;
    if constexpr (std::is_same_v<E, CDialogMessageEvent>) {
      if (event.message != WM_USER + 1) return false;
      event.result = 42;
    }
    return answer_;
  }
  int calls = 0;

 private:
  bool answer_;
};

CDialogParams TestDialog(DialogMode mode, HMODULE primary = GetModuleHandleW(nullptr)) {
  CDialogParams params;
  params.resourceId = kTestDialog;
  params.primaryModule = primary;
  params.fallbackModule = GetModuleHandleW(nullptr);
  params.mode = mode;
  return params;
}

// The exit code of a quit message waiting in the queue; -1 when none waits.
int PostedQuit() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) return int(message.wParam);
  }
  return -1;
}

TEST(DialogWindow, ModelessFromTheFallbackModuleLivesUntilClosed) {
  CCountingDialog dialog;
  // kernel32 has no dialog 900: the template comes from the fallback.
  ASSERT_TRUE(dialog.Create(TestDialog(DialogMode::Modeless, GetModuleHandleW(L"kernel32.dll"))));
  EXPECT_EQ(dialog.initialized, 1);
  EXPECT_TRUE(dialog.IsAlive());
  EXPECT_EQ(FindDialog(dialog.GetWindow()), &dialog);
  const HWND window = dialog.GetWindow();
  dialog.SetExitCode(5);
  dialog.Close();
  dialog.Close();  // a second close changes nothing
  EXPECT_EQ(dialog.terminated, 1);
  EXPECT_FALSE(dialog.IsAlive());
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(FindDialog(window), nullptr);
  EXPECT_EQ(PostedQuit(), 5);
}

TEST(DialogWindow, ATemplateInNeitherModuleShowsNothing) {
  CCountingDialog dialog;
  CDialogParams params = TestDialog(DialogMode::Modeless);
  params.resourceId = 999;
  EXPECT_FALSE(dialog.Create(params));
  EXPECT_EQ(dialog.initialized, 0);
  params.mode = DialogMode::Modal;
  EXPECT_FALSE(dialog.Create(params));
  EXPECT_EQ(dialog.initialized, 0);
}

TEST(DialogWindow, ModalReturnsWhenClosed) {
  CCountingDialog dialog;
  dialog.closeAtOnce = true;
  EXPECT_TRUE(dialog.Create(TestDialog(DialogMode::Modal)));
  EXPECT_EQ(dialog.initialized, 1);
  EXPECT_EQ(dialog.terminated, 1);
  EXPECT_EQ(dialog.GetExitCode(), 7);
  EXPECT_FALSE(dialog.IsAlive());
}

TEST(DialogWindow, CommandsReachEverySlotAndAnswersCombineWithOr) {
  CCountingDialog dialog;
  ASSERT_TRUE(dialog.Create(TestDialog(DialogMode::Modeless)));
  CAnswer<CDialogCommandEvent> yes(true), no(false);
  CAnswer<CDialogMessageEvent> raw(true);
  dialog.Signal<CDialogCommandEvent>().Connect(yes);
  dialog.Signal<CDialogCommandEvent>().Connect(no);
  dialog.Signal<CDialogMessageEvent>().Connect(raw);
  SendMessageW(dialog.GetWindow(), WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED), 0);
  EXPECT_EQ(yes.calls, 1);
  EXPECT_EQ(no.calls, 1);
  EXPECT_EQ(raw.calls, 0);  // handled as a command: no raw message event
  // A message no specific event covers arrives raw; its slot's result is
  // what the window answers.
  EXPECT_EQ(SendMessageW(dialog.GetWindow(), WM_USER + 1, 0, 0), 42);
  EXPECT_GE(raw.calls, 1);
  dialog.Close();
  PostedQuit();
}

TEST(DialogWindow, ASlotDestroyedFirstLeavesNoConnection) {
  CCountingDialog dialog;
  ASSERT_TRUE(dialog.Create(TestDialog(DialogMode::Modeless)));
  {
    CAnswer<CDialogCommandEvent> shortLived(true);
    dialog.Signal<CDialogCommandEvent>().Connect(shortLived);
    EXPECT_EQ(dialog.Signal<CDialogCommandEvent>().PeerCount(), 1u);
  }
  EXPECT_EQ(dialog.Signal<CDialogCommandEvent>().PeerCount(), 0u);
  SendMessageW(dialog.GetWindow(), WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED), 0);  // must not crash
  dialog.Close();
  PostedQuit();
}

class CCountingHandler : public CSubclassedWindow {
 public:
  CCountingHandler(UINT takes) : takes_(takes) {}
  bool HandleMessage(CMessage& message) override {
    if (message.message != WM_USER + 2) return false;
    ++seen;
    if (message.message != takes_) return false;
    message.result = 99;
    return true;
  }
  int seen = 0;

 private:
  UINT takes_;
};

TEST(Subclassing, HandlersSeeMessagesFirstAndLeaveTheWindowAsItWas) {
  CCountingDialog dialog;
  ASSERT_TRUE(dialog.Create(TestDialog(DialogMode::Modeless)));
  const HWND control = GetDlgItem(dialog.GetWindow(), kStatic);
  const LONG_PTR original = GetWindowLongPtrW(control, GWLP_WNDPROC);
  {
    CCountingHandler passes(0), takes(WM_USER + 2);
    CSubclassController& controller = CSubclassController::Instance();
    ASSERT_TRUE(controller.Attach(control, passes));
    ASSERT_TRUE(controller.Attach(control, takes));
    EXPECT_EQ(SendMessageW(control, WM_USER + 2, 0, 0), 99);
    EXPECT_EQ(passes.seen, 1);
    EXPECT_EQ(takes.seen, 1);
    // What no handler takes reaches the control's own procedure.
    SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"changed"));
    wchar_t text[16] = {};
    GetWindowTextW(control, text, 16);
    EXPECT_STREQ(text, L"changed");
  }
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_WNDPROC), original);
  dialog.Close();
  PostedQuit();
}

class CCountingCallback : public ILinkControlCallback {
 public:
  void OnLinkActivated(CLinkControl&) override { ++activations; }
  int activations = 0;
};

bool IsUnderlined(HWND control) {
  LOGFONTW font = {};
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font, &font);
  return font.lfUnderline != 0;
}

TEST(LinkControl, UnderlinesClaimsTheMouseAndCallsBack) {
  CCountingDialog dialog;
  ASSERT_TRUE(dialog.Create(TestDialog(DialogMode::Modeless)));
  const HWND control = GetDlgItem(dialog.GetWindow(), kStatic);
  const LRESULT originalFont = SendMessageW(control, WM_GETFONT, 0, 0);
  CCountingCallback callback;
  CLinkControl link;
  ASSERT_TRUE(link.Attach(control, GetModuleHandleW(nullptr), 401, callback));
  EXPECT_TRUE(IsUnderlined(control));
  EXPECT_EQ(SendMessageW(control, WM_NCHITTEST, 0, 0), HTCLIENT);
  SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(1, 1));
  SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(30000, 1));  // released outside: nothing
  SendMessageW(control, WM_KEYUP, VK_SPACE, 0);
  SendMessageW(control, WM_KEYUP, VK_RETURN, 0);
  EXPECT_EQ(callback.activations, 2);
  // The parent paints the link on the button face.
  HDC context = GetDC(control);
  EXPECT_EQ(SendMessageW(dialog.GetWindow(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                         reinterpret_cast<LPARAM>(control)),
            reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE)));
  ReleaseDC(control, context);
  link.Detach();
  EXPECT_EQ(SendMessageW(control, WM_GETFONT, 0, 0), originalFont);
  dialog.Close();
  PostedQuit();
}

// Whether the page itself is shown (its dialog, hidden in the tests, is not).
bool Shown(HWND page) { return (GetWindowLongPtrW(page, GWL_STYLE) & WS_VISIBLE) != 0; }

class CTabWatcher : public CSlot<CNewTabSelectedEvent> {
 public:
  bool Receive(CNewTabSelectedEvent& event) override {
    lastPage = event.page;
    return false;
  }
  int lastPage = -1;
};

TEST(TabControl, ShowsOnlyTheSelectedPage) {
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES};
  InitCommonControlsEx(&controls);
  CCountingDialog dialog;
  ASSERT_TRUE(dialog.Create(TestDialog(DialogMode::Modeless)));
  CTabControl tabs;
  CTabWatcher watcher;
  tabs.Connect(watcher);
  ASSERT_TRUE(tabs.Attach(GetDlgItem(dialog.GetWindow(), kTabs)));
  CCountingDialog first, second;
  CDialogParams page = TestDialog(DialogMode::Modeless);
  page.resourceId = kPageDialog;
  ASSERT_TRUE(tabs.AddPage(first, page));
  ASSERT_TRUE(tabs.AddPage(second, page));
  EXPECT_EQ(tabs.GetPageCount(), 2);
  EXPECT_EQ(watcher.lastPage, 0);
  EXPECT_TRUE(Shown(first.GetWindow()));
  EXPECT_FALSE(Shown(second.GetWindow()));
  tabs.SelectPage(1);
  EXPECT_EQ(watcher.lastPage, 1);
  EXPECT_FALSE(Shown(first.GetWindow()));
  EXPECT_TRUE(Shown(second.GetWindow()));
  // A page is no top-level window: closing it leaves the thread's loop alone.
  second.Close();
  EXPECT_EQ(PostedQuit(), -1);
  dialog.Close();
  PostedQuit();
}

}  // namespace
}  // namespace NScrivolt::Ui
