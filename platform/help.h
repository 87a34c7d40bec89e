// Opening a page of the program's help in the compiled-HTML help viewer.
// Windows only: the POSIX program has no viewer, and its front end prints the
// usage text instead.
#pragma once

#include <cstdint>

namespace NScrivolt::Platform {

// A window that owns a message box; null for none. On Windows an HWND.
using WindowHandle = void*;

// `topicId` is the message id whose text is the page's name. A missing help
// file or a failing viewer is reported in a message box owned by `owner`.
void ShowHelpTopic(WindowHandle owner, std::uint32_t topicId);

}  // namespace NScrivolt::Platform
