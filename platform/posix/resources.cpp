#include "platform/resources.h"

#include <algorithm>
#include <iterator>

#include "platform/posix/string_table.h"

namespace NScrivolt::Platform {

namespace {

constexpr StringTableEntry kBuiltInEntries[] = {
#define MESSAGE(id, name, text) {id, text},
#include "text/message_list.h"
#undef MESSAGE
};

StringTable SortedBuiltInTable() {
  static StringTableEntry sorted[std::size(kBuiltInEntries)];
  std::copy(std::begin(kBuiltInEntries), std::end(kBuiltInEntries), sorted);
  std::sort(std::begin(sorted), std::end(sorted),
            [](const StringTableEntry& a, const StringTableEntry& b) { return a.id < b.id; });
  return {sorted, std::size(sorted)};
}

}  // namespace

ModuleHandle ExecutableModule() {
  static const StringTable table = SortedBuiltInTable();
  return &table;
}

int LoadStringResource(ModuleHandle module, std::uint32_t id, WChar* buffer, int bufferSize) {
  if (module == nullptr || buffer == nullptr || bufferSize <= 0) return 0;
  const auto* table = static_cast<const StringTable*>(module);
  const StringTableEntry* end = table->entries + table->count;
  const StringTableEntry* found = std::lower_bound(
      table->entries, end, id, [](const StringTableEntry& e, std::uint32_t key) { return e.id < key; });
  if (found == end || found->id != id) return 0;
  const WStringView text(found->text);
  const int copied = int(std::min<size_t>(text.size(), size_t(bufferSize - 1)));
  std::copy_n(text.data(), copied, buffer);
  buffer[copied] = 0;
  return copied;
}

}  // namespace NScrivolt::Platform
