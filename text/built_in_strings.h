// The program's built-in message texts, handed to the platform layer, which
// serves them as the executable module's strings.
#pragma once

namespace NScrivolt {

// Installs the texts of text/message_list.h on first use; later calls do
// nothing. Every load of a message text calls it first.
void EnsureBuiltInStrings();

}  // namespace NScrivolt
