// The kinds of Windows handles that CHandle owns, each with its no-handle
// value and the call that closes it.
#pragma once

#include <windows.h>

#include "ui/handle.h"

namespace NScrivolt::Ui {

// One traits class per row: handle type, no-handle value, close call.
#define SCRIVOLT_HANDLE_TRAITS(Name, HandleType, NoHandle, CloseCall) \
  struct Name {                                                      \
    using Handle = HandleType;                                       \
    static Handle Invalid() { return NoHandle; }                     \
    static void Close(Handle handle) { CloseCall; }                  \
  };

SCRIVOLT_HANDLE_TRAITS(CFFHandleTraits, HANDLE, INVALID_HANDLE_VALUE, FindClose(handle))
SCRIVOLT_HANDLE_TRAITS(CGDIHandleTraits, HGDIOBJ, nullptr, DeleteObject(handle))
SCRIVOLT_HANDLE_TRAITS(CIHVHandleTraits, HANDLE, INVALID_HANDLE_VALUE, CloseHandle(handle))
SCRIVOLT_HANDLE_TRAITS(CRGNHandleTraits, HRGN, nullptr, DeleteObject(handle))
SCRIVOLT_HANDLE_TRAITS(CResHandleTraits, HGLOBAL, nullptr, FreeResource(handle))
SCRIVOLT_HANDLE_TRAITS(CIconHandleTraits, HICON, nullptr, DestroyIcon(handle))
SCRIVOLT_HANDLE_TRAITS(CMenuHandleTraits, HMENU, nullptr, DestroyMenu(handle))
SCRIVOLT_HANDLE_TRAITS(CMutexHandleTraits, HANDLE, nullptr, (ReleaseMutex(handle), CloseHandle(handle)))
SCRIVOLT_HANDLE_TRAITS(CCursorHandleTraits, HCURSOR, nullptr, DestroyCursor(handle))

#undef SCRIVOLT_HANDLE_TRAITS

}  // namespace NScrivolt::Ui
