// Runs a Windows program and works its windows from a script, as a person
// would: it waits for a window by its caption, reads its controls and menu,
// chooses menu items, presses buttons, picks list entries, presses keys,
// answers message boxes and takes pictures of windows. Everything it reads
// goes to standard output, one line per fact, so a test compares the whole
// transcript with what it expects.
//
//   win_driver.exe [--timeout SECONDS] SCRIPT PROGRAM [ARGUMENT...]
//
// Script lines (blank lines and lines starting with # are skipped):
//   window CAPTION      wait for a window of the program with this caption; it becomes current
//   describe            print the current window's class, client size and controls (dialog units)
//   menu                print the current window's menu
//   choose A>B          choose menu item B of menu A ("&" and accelerator texts left out)
//   menufrom FILE ID    read menus from resource ID of FILE (a bare name: beside the program)
//                       when the window's own cannot be read
//   press TEXT          press the button of the current window with this text ("&" left out)
//   select ID TEXT      pick the entry TEXT of the drop-down list ID
//   read ID             print the text of control ID
//   entries ID          print the entries of the drop-down list ID, in their order
//   place               print the current window's top left corner on the screen (pixels)
//   state ID            print whether control ID is enabled
//   key NAME            press and release a key (F1, SPACE, ESCAPE, RETURN) in the focused window
//   box [BUTTON]        wait for a message box, print its title and text; it becomes
//                       current; with BUTTON, press that button
//   openmenu LETTER     open the menu whose mnemonic is LETTER (ESCAPE keys close it)
//   shot FILE           save a picture of the current window and its open menus as a BMP file
//   close               ask the current window to close (as its close box does)
//   exit                wait for the program to end and print its exit code
//   end                 end the program at once (what was to be seen has been seen)
// The driver stops at the first step that times out, prints why, and ends the program.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "driver_common.h"

namespace {

using namespace driver;

constexpr int kScriptFailedExitCode = 3;

struct Session {
  PROCESS_INFORMATION process{};
  // Where the menu is read when the window's own cannot be: another
  // process's menus are out of reach under some systems (Wine).
  std::wstring menuFile;
  std::wstring programFolder;  // with its last backslash
  int menuId = 0;
  HWND current = nullptr;
  std::set<HWND> known;  // windows made current or answered, never taken for a new box
  DWORD timeoutMs = 20000;
};

void Print(const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

std::wstring Widen(const std::string& text) {
  if (text.empty()) return std::wstring();
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), nullptr, 0);
  std::wstring wide(size_t(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), &wide[0], size);
  return wide;
}

// A label as a person reads it: without "&" and without the key after a tab.
std::wstring Plain(std::wstring label) {
  const size_t tab = label.find(L'\t');
  if (tab != std::wstring::npos) label.resize(tab);
  std::wstring plain;
  for (size_t i = 0; i < label.size(); ++i) {
    if (label[i] == L'&' && i + 1 < label.size()) ++i;
    plain.push_back(label[i]);
  }
  return plain;
}

std::vector<HWND> ProgramWindows(DWORD processId) {
  struct Search {
    DWORD processId;
    std::vector<HWND> found;
  } search{processId, {}};
  EnumWindows(
      [](HWND window, LPARAM data) -> BOOL {
        auto* s = reinterpret_cast<Search*>(data);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == s->processId && IsWindowVisible(window)) s->found.push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// Polls `found` until it gives a window or the time is up.
template <typename Finder>
HWND WaitFor(Session& session, Finder found) {
  for (DWORD waited = 0; waited < session.timeoutMs; waited += kPollMilliseconds) {
    if (HWND window = found()) return window;
    if (WaitForSingleObject(session.process.hProcess, 0) == WAIT_OBJECT_0) return nullptr;
    Sleep(kPollMilliseconds);
  }
  return nullptr;
}

// Pixels per four horizontal and eight vertical dialog units, read from a
// dialog of the driver's own in the font all the program's dialogs use: the
// program's own windows cannot be asked from another process.
RECT BaseUnits() {
  static const RECT base = [] {
    std::vector<WORD> dialogTemplate(64, 0);
    auto* header = reinterpret_cast<DLGTEMPLATE*>(dialogTemplate.data());
    header->style = DS_SETFONT | WS_POPUP;
    header->cx = header->cy = 10;
    WORD* next = dialogTemplate.data() + sizeof(DLGTEMPLATE) / sizeof(WORD) + 3;  // no menu, class, title
    *next++ = 8;
    for (const wchar_t* face = L"MS Shell Dlg"; *face != 0; ++face) *next++ = WORD(*face);
    RECT units = {0, 0, 4, 8};
    HWND probe = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), header, nullptr,
                                            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    if (probe != nullptr) {
      MapDialogRect(probe, &units);
      DestroyWindow(probe);
    }
    return units;
  }();
  return base;
}

int DialogUnitsX(HWND, int pixels) { return MulDiv(pixels, 4, BaseUnits().right); }

int DialogUnitsY(HWND, int pixels) { return MulDiv(pixels, 8, BaseUnits().bottom); }

// What a person reads on a control: a drop-down list shows its selected entry.
std::wstring ControlText(HWND control) {
  if (ClassName(control) != L"ComboBox") return WindowText(control);
  const LRESULT index = SendMessageW(control, CB_GETCURSEL, 0, 0);
  if (index == CB_ERR) return std::wstring();
  std::wstring entry(size_t(SendMessageW(control, CB_GETLBTEXTLEN, WPARAM(index), 0)) + 1, L'\0');
  entry.resize(size_t(SendMessageW(control, CB_GETLBTEXT, WPARAM(index), reinterpret_cast<LPARAM>(&entry[0]))));
  return entry;
}

void DescribeControl(HWND dialog, HWND control) {
  RECT place;
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
  const std::wstring kind = ClassName(control);
  std::ostringstream line;
  line << "  " << Utf8(kind) << " " << GetDlgCtrlID(control) << " \"" << Utf8(ControlText(control)) << "\" at "
       << DialogUnitsX(dialog, place.left) << "," << DialogUnitsY(dialog, place.top) << " size "
       << DialogUnitsX(dialog, place.right - place.left);
  if (kind != L"ComboBox") line << "x" << DialogUnitsY(dialog, place.bottom - place.top);
  if (!IsWindowEnabled(control)) line << " disabled";
  if (!IsWindowVisible(control)) line << " hidden";
  Print(line.str());
}

void Describe(HWND window) {
  RECT client;
  GetClientRect(window, &client);
  Print("class " + Utf8(ClassName(window)) + ", caption \"" + Utf8(WindowText(window)) + "\", client " +
        std::to_string(DialogUnitsX(window, client.right)) + "x" + std::to_string(DialogUnitsY(window, client.bottom)));
  std::vector<HWND> children;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    children.push_back(child);
  }
  for (HWND child : children) {
    DescribeControl(window, child);
    // A page inside the dialog (a dialog of its own): its controls follow.
    if (ClassName(child) == L"#32770") {
      for (HWND inner = GetWindow(child, GW_CHILD); inner != nullptr; inner = GetWindow(inner, GW_HWNDNEXT)) {
        std::printf("  ");
        DescribeControl(child, inner);
      }
    }
  }
}

std::wstring MenuItemText(HMENU menu, int index) {
  wchar_t text[256] = {};
  GetMenuStringW(menu, UINT(index), text, 256, MF_BYPOSITION);
  return text;
}

void PrintMenu(HMENU menu, const std::string& indent) {
  for (int index = 0; index < GetMenuItemCount(menu); ++index) {
    const UINT state = GetMenuState(menu, UINT(index), MF_BYPOSITION);
    if (state & MF_SEPARATOR) {
      Print(indent + "-");
      continue;
    }
    std::string text = Utf8(MenuItemText(menu, index));
    for (size_t tab; (tab = text.find('\t')) != std::string::npos;) text.replace(tab, 1, "\\t");
    HMENU sub = GetSubMenu(menu, index);
    if (sub != nullptr) {
      Print(indent + text);
      PrintMenu(sub, indent + "  ");
    } else {
      Print(indent + text + " (" + std::to_string(GetMenuItemID(menu, index)) + ")");
    }
  }
}

// The id of the menu item at "A>B", -1 when there is none.
int FindMenuItem(HMENU menu, const std::wstring& path) {
  const size_t split = path.find(L'>');
  const std::wstring first = path.substr(0, split);
  for (int index = 0; index < GetMenuItemCount(menu); ++index) {
    if (Plain(MenuItemText(menu, index)) != first) continue;
    HMENU sub = GetSubMenu(menu, index);
    if (split == std::wstring::npos) return sub == nullptr ? int(GetMenuItemID(menu, index)) : -1;
    if (sub != nullptr) return FindMenuItem(sub, path.substr(split + 1));
  }
  return -1;
}

// The current window's menu when it can be read from here, else the menu
// resource named by "menufrom" (a window without a menu has neither).
HMENU ReadableMenu(Session& session) {
  HMENU live = GetMenu(session.current);
  if (live == nullptr) return nullptr;
  if (GetMenuItemCount(live) > 0 || session.menuFile.empty()) return live;
  HMODULE module = LoadLibraryExW(session.menuFile.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  return module != nullptr ? LoadMenuW(module, MAKEINTRESOURCEW(session.menuId)) : nullptr;
}

HWND FindChildByText(HWND window, const std::wstring& text) {
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (Plain(WindowText(child)) == text) return child;
    if (HWND inner = FindChildByText(child, text)) return inner;
  }
  return nullptr;
}

HWND FindControl(HWND window, int id) {
  if (HWND direct = GetDlgItem(window, id)) return direct;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (HWND inner = FindControl(child, id)) return inner;
  }
  return nullptr;
}

WORD KeyCode(const std::string& name) {
  if (name == "F1") return VK_F1;
  if (name == "SPACE") return VK_SPACE;
  if (name == "ESCAPE") return VK_ESCAPE;
  if (name == "RETURN") return VK_RETURN;
  if (name == "TAB") return VK_TAB;
  return 0;
}

HWND FocusedWindow(Session& session) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(session.process.dwThreadId, &info);
  return info.hwndFocus != nullptr ? info.hwndFocus : session.current;
}

// The current window with the menus it has open.
RECT ShownArea(Session& session) {
  RECT area;
  GetWindowRect(session.current, &area);
  for (HWND window : ProgramWindows(session.process.dwProcessId)) {
    if (ClassName(window) != L"#32768") continue;
    RECT menu;
    GetWindowRect(window, &menu);
    UnionRect(&area, &area, &menu);
  }
  return area;
}

bool SaveBitmap(const RECT& place, const std::wstring& path) {
  const int width = place.right - place.left, height = place.bottom - place.top;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP picture = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ old = SelectObject(memory, picture);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, old);
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = height;
  header.biPlanes = 1;
  header.biBitCount = 24;
  const DWORD rowSize = DWORD((width * 3 + 3) & ~3);
  std::vector<char> pixels(size_t(rowSize) * size_t(height));
  GetDIBits(memory, picture, 0, UINT(height), pixels.data(), reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS);
  DeleteObject(picture);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof header;
  file.bfSize = DWORD(file.bfOffBits + pixels.size());
  FILE* out = _wfopen(path.c_str(), L"wb");
  if (out == nullptr) return false;
  bool written = std::fwrite(&file, sizeof file, 1, out) == 1 && std::fwrite(&header, sizeof header, 1, out) == 1 &&
                 std::fwrite(pixels.data(), 1, pixels.size(), out) == pixels.size();
  return std::fclose(out) == 0 && written;
}

bool Fail(const std::string& why) {
  Print("FAILED: " + why);
  return false;
}

// Carries out one script line; false stops the script.
bool Step(Session& session, const std::string& command, const std::string& argument) {
  const DWORD processId = session.process.dwProcessId;
  if (command == "window") {
    const std::wstring caption = Widen(argument);
    // A window not seen before wins over one that was: a dialog opened again
    // is the new one, not the old one on its way out.
    HWND found = WaitFor(session, [&]() -> HWND {
      HWND seen = nullptr;
      for (HWND window : ProgramWindows(processId)) {
        if (WindowText(window) != caption) continue;
        if (!session.known.count(window)) return window;
        seen = window;
      }
      return seen;
    });
    if (found == nullptr) return Fail("no window \"" + argument + "\"");
    session.current = found;
    session.known.insert(found);
    Print("window \"" + argument + "\"");
    return true;
  }
  if (session.current == nullptr && command != "box" && command != "exit" && command != "sleep" &&
      command != "menufrom" && command != "end") return Fail("no current window");
  // Reading starts with a message through the window's thread: the program
  // then has done what it was doing (a modal loop whose box was just closed
  // returns only at its next message).
  DWORD_PTR ignored = 0;
  SendMessageTimeoutW(session.current, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, session.timeoutMs, &ignored);
  if (command == "describe") {
    Describe(session.current);
  } else if (command == "menu") {
    HMENU menu = ReadableMenu(session);
    if (menu == nullptr) return Fail("the window has no menu");
    PrintMenu(menu, "  ");
  } else if (command == "choose") {
    const int id = FindMenuItem(ReadableMenu(session), Widen(argument));
    if (id < 0) return Fail("no menu item " + argument);
    PostMessageW(session.current, WM_COMMAND, MAKEWPARAM(id, 0), 0);
  } else if (command == "press") {
    HWND button = FindChildByText(session.current, Widen(argument));
    if (button == nullptr) return Fail("no button \"" + argument + "\"");
    PostMessageW(button, BM_CLICK, 0, 0);
  } else if (command == "select") {
    const size_t space = argument.find(' ');
    const int id = std::stoi(argument.substr(0, space));
    HWND list = FindControl(session.current, id);
    const std::wstring entry = Widen(argument.substr(space + 1));
    if (list == nullptr) return Fail("no control " + std::to_string(id));
    const LRESULT index = SendMessageW(list, CB_FINDSTRINGEXACT, WPARAM(-1), reinterpret_cast<LPARAM>(entry.c_str()));
    if (index == CB_ERR) return Fail("no entry \"" + argument.substr(space + 1) + "\"");
    SendMessageW(list, CB_SETCURSEL, WPARAM(index), 0);
    PostMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
  } else if (command == "entries") {
    HWND list = FindControl(session.current, std::stoi(argument));
    if (list == nullptr) return Fail("no control " + argument);
    const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index) {
      std::wstring entry(size_t(SendMessageW(list, CB_GETLBTEXTLEN, WPARAM(index), 0)) + 1, L'\0');
      entry.resize(size_t(SendMessageW(list, CB_GETLBTEXT, WPARAM(index), reinterpret_cast<LPARAM>(&entry[0]))));
      Print("  entry \"" + Utf8(entry) + "\"");
    }
  } else if (command == "read" || command == "state") {
    HWND control = FindControl(session.current, std::stoi(argument));
    if (control == nullptr) return Fail("no control " + argument);
    if (command == "read") {
      Print("read " + argument + " \"" + Utf8(ControlText(control)) + "\"");
    } else {
      Print("state " + argument + (IsWindowEnabled(control) ? " enabled" : " disabled"));
    }
  } else if (command == "key") {
    const WORD key = KeyCode(argument);
    if (key == 0) return Fail("unknown key " + argument);
    HWND focus = FocusedWindow(session);
    PostMessageW(focus, WM_KEYDOWN, key, 1);
    PostMessageW(focus, WM_KEYUP, key, LPARAM(0xC0000001));
  } else if (command == "box") {
    HWND box = WaitFor(session, [&]() -> HWND {
      for (HWND window : ProgramWindows(processId)) {
        if (ClassName(window) == L"#32770" && !session.known.count(window)) return window;
      }
      return nullptr;
    });
    if (box == nullptr) return Fail("no message box");
    session.known.insert(box);
    session.current = box;
    Print("box \"" + Utf8(WindowText(box)) + "\"");
    Print(Utf8(BoxText(box)));
    if (argument.empty()) return true;
    HWND button = FindChildByText(box, Widen(argument));
    if (button == nullptr) return Fail("the box has no button \"" + argument + "\"");
    PostMessageW(button, BM_CLICK, 0, 0);
  } else if (command == "shot") {
    Sleep(300);  // let the window finish painting
    if (!SaveBitmap(ShownArea(session), Widen(argument))) return Fail("cannot write " + argument);
  } else if (command == "close") {
    PostMessageW(session.current, WM_CLOSE, 0, 0);
  } else if (command == "sleep") {
    Sleep(DWORD(std::stoi(argument)));
  } else if (command == "openmenu") {
    PostMessageW(session.current, WM_SYSCOMMAND, SC_KEYMENU, LPARAM(argument.empty() ? 0 : argument[0]));
    Sleep(300);
  } else if (command == "place") {
    RECT place;
    GetWindowRect(session.current, &place);
    Print("place " + std::to_string(place.left) + "," + std::to_string(place.top));
  } else if (command == "end") {
    TerminateProcess(session.process.hProcess, kTimedOutExitCode);
    WaitForSingleObject(session.process.hProcess, session.timeoutMs);
  } else if (command == "menufrom") {
    const size_t space = argument.rfind(' ');
    session.menuFile = Widen(argument.substr(0, space));
    if (session.menuFile.find(L'\\') == std::wstring::npos) session.menuFile = session.programFolder + session.menuFile;
    session.menuId = std::stoi(argument.substr(space + 1));
  } else if (command == "exit") {
    if (WaitForSingleObject(session.process.hProcess, session.timeoutMs) != WAIT_OBJECT_0) {
      return Fail("the program did not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(session.process.hProcess, &code);
    Print("exit " + std::to_string(code));
  } else {
    return Fail("unknown command " + command);
  }
  Sleep(100);  // give the program a moment to act on what was done
  return true;
}

bool RunScript(Session& session, std::istream& script) {
  std::string line;
  while (std::getline(script, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const size_t space = line.find(' ');
    const std::string command = line.substr(0, space);
    const std::string argument = space == std::string::npos ? std::string() : line.substr(space + 1);
    if (!Step(session, command, argument)) return false;
  }
  return true;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  _setmode(_fileno(stdout), _O_BINARY);
  Session session;
  int first = 1;
  if (argc > 2 && std::wstring(argv[1]) == L"--timeout") {
    session.timeoutMs = DWORD(_wtoi(argv[2])) * 1000;
    first = 3;
  }
  if (first + 1 >= argc) {
    std::fprintf(stderr, "usage: win_driver [--timeout SECONDS] SCRIPT PROGRAM [ARGUMENT...]\n");
    return 2;
  }
  std::ifstream script(argv[first]);
  if (!script) {
    std::fprintf(stderr, "win_driver: cannot read the script\n");
    return 2;
  }
  wchar_t programPath[MAX_PATH] = {};
  GetFullPathNameW(argv[first + 1], MAX_PATH, programPath, nullptr);
  session.programFolder = programPath;
  session.programFolder.resize(session.programFolder.rfind(L'\\') + 1);
  std::wstring commandLine;
  for (int i = first + 1; i < argc; ++i) commandLine += (i > first + 1 ? L" " : L"") + Quote(argv[i]);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  if (!CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &session.process)) {
    std::fprintf(stderr, "win_driver: cannot start the program (error %lu)\n", GetLastError());
    return 2;
  }
  const bool completed = RunScript(session, script);
  if (WaitForSingleObject(session.process.hProcess, 0) != WAIT_OBJECT_0) {
    TerminateProcess(session.process.hProcess, kTimedOutExitCode);
    if (completed) Print("FAILED: the program still runs after the script");
  }
  CloseHandle(session.process.hThread);
  CloseHandle(session.process.hProcess);
  return completed ? 0 : kScriptFailedExitCode;
}
