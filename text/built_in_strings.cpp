#include "text/built_in_strings.h"

#include <iterator>

#include "platform/resources.h"

namespace NScrivolt {

namespace {

constexpr Platform::BuiltInString kBuiltInStrings[] = {
#define MESSAGE(id, name, text) {id, text},
#include "text/message_list.h"
#undef MESSAGE
};

}  // namespace

void EnsureBuiltInStrings() {
  static const bool installed = (Platform::InstallBuiltInStrings(kBuiltInStrings, std::size(kBuiltInStrings)), true);
  (void)installed;
}

}  // namespace NScrivolt
