#include "platform/resources.h"

#include <algorithm>
#include <vector>

#include "platform/posix/string_table.h"

namespace NScrivolt::Platform {

namespace {

std::vector<StringTableEntry>& BuiltInEntries() {
  static std::vector<StringTableEntry> entries;
  return entries;
}

StringTable& BuiltInTable() {
  static StringTable table{nullptr, 0};
  return table;
}

}  // namespace

void InstallBuiltInStrings(const BuiltInString* entries, std::size_t count) {
  std::vector<StringTableEntry>& sorted = BuiltInEntries();
  sorted.clear();
  for (std::size_t i = 0; i < count; ++i) sorted.push_back({entries[i].id, entries[i].text});
  std::sort(sorted.begin(), sorted.end(),
            [](const StringTableEntry& a, const StringTableEntry& b) { return a.id < b.id; });
  BuiltInTable() = {sorted.data(), sorted.size()};
}

ModuleHandle ExecutableModule() { return &BuiltInTable(); }

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
