#include "engine/params/param_child_list.h"

#include <algorithm>
#include <utility>

#include "engine/params/fixed_size_pool.h"
#include "engine/params/param.h"

namespace NScrivolt {

// The class is final, so every request is for one of its own size.
void* CParamChildList::operator new(std::size_t) { return PoolFor<CParamChildList>().Allocate(); }

void CParamChildList::operator delete(void* list) { PoolFor<CParamChildList>().Free(list); }

CParamChildList::~CParamChildList() {
  if (!spilled_) return;
  delete storage_.heap.index;
  delete[] storage_.heap.slots;
}

// Called only for a list longer than kLinearScanLimit, so past its inline
// slots.
CParamKeyIndex& CParamChildList::Index() {
  CParamKeyIndex*& index = storage_.heap.index;
  if (index == nullptr) {
    index = new CParamKeyIndex(live_);
    for (std::size_t slot = 0; slot < size_; ++slot) {
      if (storage_.heap.slots[slot] != nullptr) index->Insert(storage_.heap.slots[slot]);
    }
  }
  return *index;
}

// The inline slots and the heap fields overlap: the old slots are copied
// before the fields are written.
void CParamChildList::MoveSlots(std::size_t capacity) {
  auto* moved = new CParam*[capacity];
  std::copy(Slots(), Slots() + size_, moved);
  if (spilled_) {
    delete[] storage_.heap.slots;
  } else {
    storage_.heap.index = nullptr;
    spilled_ = true;
  }
  storage_.heap.slots = moved;
  storage_.heap.capacity = std::uint32_t(capacity);
}

// A list that has just outgrown its inline slots mostly ends soon after (a
// JSON object of seven members), so its first heap array is not twice the
// inline room but kFirstHeapSlots: seven slots, 56 bytes, which with the
// general allocator's header fit a 64-byte block where eight would take an
// 80-byte one. Later arrays double.
void CParamChildList::MakeRoomForOne() {
  if (size_ == Capacity()) MoveSlots(spilled_ ? Capacity() * 2 : kFirstHeapSlots);
}

// A short list is scanned; it is compacted first, or the slots left by
// removals would pile up in a list that keeps gaining and losing children
// (the argument parameters of user-function calls) and every scan would
// grow with the removals done so far.
// Declared inline: both lookups take it in line, as they did when it was
// their own body.
inline CParam* CParamChildList::ScanForKey(const CKeyLookup& lookup) {
  Normalize();
  const std::uint8_t tag = Fold(lookup.tag);
  CParam* const* slots = Slots();
  for (std::size_t slot = 0; slot < size_; ++slot) {
    if (MayHaveKey(slot, tag, lookup) && slots[slot]->HasKey(lookup)) return slots[slot];
  }
  return nullptr;
}

CParam* CParamChildList::FindKey(WStringView key) {
  const CKeyLookup lookup(key);
  if (live_ > kLinearScanLimit) return Index().Find(lookup, CParamKeyIndex::Hash(lookup));
  return ScanForKey(lookup);
}

CParam* CParamChildList::FindKey(const CPreparedKey& key) {
  if (live_ > kLinearScanLimit) return Index().Find(key.lookup, key.hash);
  return ScanForKey(key.lookup);
}

std::uint8_t CParamChildList::TagOf(const CParam& node) {
  return node.HasAutomaticName() ? kAutomaticTag : Fold(KeyTag(node.GivenKey()));
}

// Names of that form are rare, so the lookup is seldom needed.
bool CParamChildList::HasNamedChildWithAutomaticKey(std::uint64_t number) {
  return mayHaveNamedWithAutomaticKey_ && FindKey(AutomaticKey(number)) != nullptr;
}

bool CParamChildList::IsNamedWithAutomaticKey(const CParam& node) {
  return !node.HasAutomaticName() && AutomaticNumberIn(node.GivenKey()) != 0;
}

CParam* CParamChildList::At(std::size_t position) {
  Normalize();
  return Slots()[position];
}

void CParamChildList::Take(CParam* node, std::size_t slot) {
  node->container_ = this;
  node->index_ = std::int32_t(slot);
  if (slot < kLinearScanLimit) tags_[slot] = TagOf(*node);
  ++live_;
  if (!mayHaveNamedWithAutomaticKey_ && IsNamedWithAutomaticKey(*node)) mayHaveNamedWithAutomaticKey_ = true;
  if (spilled_ && storage_.heap.index != nullptr) storage_.heap.index->Insert(node);
}

void CParamChildList::Append(CParam* node) {
  MakeRoomForOne();
  Slots()[size_] = node;
  Take(node, size_);
  ++size_;
}

void CParamChildList::InsertAt(std::size_t position, CParam* node) {
  Normalize();
  MakeRoomForOne();
  CParam** slots = Slots();
  std::copy_backward(slots + position, slots + size_, slots + size_ + 1);
  slots[position] = node;
  ++size_;
  Take(node, position);
  Renumber(position + 1);
}

void CParamChildList::Remove(CParam* node) {
  const std::size_t slot = std::size_t(node->index_);
  Slots()[slot] = nullptr;
  --live_;
  firstGap_ = std::min(firstGap_, std::uint32_t(slot));
  if (spilled_ && storage_.heap.index != nullptr) storage_.heap.index->Erase(node);
  node->container_ = nullptr;
  delete node;
}

// Moves the tags along with the nodes. The count is read once: the stores
// into the nodes and the tags could otherwise change it for the compiler.
void CParamChildList::Renumber(std::size_t from) {
  CParam* const* slots = Slots();
  const std::size_t size = size_;
  for (std::size_t i = from; i < size; ++i) {
    slots[i]->index_ = std::int32_t(i);
    if (i < kLinearScanLimit) tags_[i] = TagOf(*slots[i]);
  }
}

void CParamChildList::Normalize() {
  if (firstGap_ == kClean) return;
  CParam** slots = Slots();
  size_ = std::uint32_t(std::remove(slots + firstGap_, slots + size_, nullptr) - slots);
  Renumber(firstGap_);
  firstGap_ = kClean;
}

bool CParamChildList::IndexPending(const CParam& node) const {
  return firstGap_ != kClean && std::size_t(node.index_) >= firstGap_;
}

std::vector<CParam*> CParamChildList::Ordered(ParamOrder order, bool descending) {
  Normalize();
  std::vector<CParam*> nodes(Slots(), Slots() + size_);
  OrderParams(nodes, order, descending);
  return nodes;
}

void CParamChildList::Reorder(std::vector<CParam*> order) {
  Normalize();
  std::copy(order.begin(), order.end(), Slots());
  Renumber(0);
}

CParamChildList* CParamChildList::Clone(CParam* holder) {
  Normalize();
  auto* copy = new CParamChildList;
  copy->Reserve(live_);
  CParam* const* slots = Slots();
  for (std::size_t slot = 0; slot < size_; ++slot) copy->Append(new CParam(*slots[slot]));
  copy->owner_ = holder;
  return copy;
}

void CParamChildList::Release(CParamChildList* list, const CParam* holder) {
  if (list == nullptr) return;
  if (list->owner_ == holder) list->owner_ = nullptr;
  if (--list->refs_ > 0) return;
  std::vector<CParamChildList*> pending{list};
  while (!pending.empty()) {
    CParamChildList* dying = pending.back();
    pending.pop_back();
    CParam* const* slots = dying->Slots();
    const std::size_t size = dying->size_;
    for (std::size_t slot = 0; slot < size; ++slot) {
      CParam* node = slots[slot];
      if (node == nullptr) continue;
      CParamChildList* below = std::exchange(node->children_, nullptr);
      if (below != nullptr) {
        if (below->owner_ == node) below->owner_ = nullptr;
        if (--below->refs_ == 0) pending.push_back(below);
      }
      delete node;  // childless now: its destructor does no further work
    }
    delete dying;
  }
}

}  // namespace NScrivolt
