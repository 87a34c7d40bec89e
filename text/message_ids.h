// Message ids as named constants, generated from the message list.
#pragma once

#include <cstdint>

namespace NScrivolt {

enum MessageId : std::uint32_t {
#define MESSAGE(id, name, text) Msg##name = id,
#include "text/message_list.h"
#undef MESSAGE
};

}  // namespace NScrivolt
