#include "engine/params/param_child_list.h"

#include <algorithm>
#include <utility>

#include "engine/params/fixed_size_pool.h"
#include "engine/params/param.h"

namespace NScrivolt {

// The class is final, so every request is for one of its own size.
void* CParamChildList::operator new(std::size_t) { return PoolFor<CParamChildList>().Allocate(); }

void CParamChildList::operator delete(void* list) { PoolFor<CParamChildList>().Free(list); }

CParamKeyIndex& CParamChildList::Index() {
  if (!index_) {
    index_ = std::make_unique<CParamKeyIndex>(live_);
    for (CParam* node : slots_) {
      if (node != nullptr) index_->Insert(node);
    }
  }
  return *index_;
}

// A short list is scanned; it is compacted first, or the slots left by
// removals would pile up in a list that keeps gaining and losing children
// (the argument parameters of user-function calls) and every scan would
// grow with the removals done so far.
CParam* CParamChildList::FindKey(WStringView key) {
  const CKeyLookup lookup(key);
  if (live_ > kLinearScanLimit) return Index().Find(lookup);
  Normalize();
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    if (MayHaveKey(slot, lookup) && slots_[slot]->HasKey(lookup)) return slots_[slot];
  }
  return nullptr;
}

std::uint16_t CParamChildList::TagOf(const CParam& node) {
  return node.HasAutomaticName() ? kAutomaticTag : node.keyTag_;
}

// Names of that form are rare, so the lookup is seldom needed.
bool CParamChildList::HasNamedChildWithAutomaticKey(std::uint64_t number) {
  return namedWithAutomaticKeys_ != 0 && FindKey(AutomaticKey(number)) != nullptr;
}

bool CParamChildList::IsNamedWithAutomaticKey(const CParam& node) {
  return !node.HasAutomaticName() && AutomaticNumberIn(node.GivenKey()) != 0;
}

CParam* CParamChildList::At(std::size_t position) {
  Normalize();
  return slots_[position];
}

void CParamChildList::Take(CParam* node, std::size_t slot) {
  node->container_ = this;
  node->index_ = std::int32_t(slot);
  if (slot < kLinearScanLimit) tags_[slot] = TagOf(*node);
  ++live_;
  if (IsNamedWithAutomaticKey(*node)) ++namedWithAutomaticKeys_;
  if (index_) index_->Insert(node);
}

// Most lists stay short; room for a few children at first spares them the
// growth steps of one, two and four.
void CParamChildList::Append(CParam* node) {
  if (slots_.empty()) slots_.reserve(kFirstCapacity);
  Take(node, slots_.size());
  slots_.push_back(node);
}

void CParamChildList::InsertAt(std::size_t position, CParam* node) {
  Normalize();
  slots_.insert(slots_.begin() + std::ptrdiff_t(position), node);
  Take(node, position);
  Renumber(position + 1);
}

void CParamChildList::Remove(CParam* node) {
  const std::size_t slot = std::size_t(node->index_);
  slots_[slot] = nullptr;
  --live_;
  if (IsNamedWithAutomaticKey(*node)) --namedWithAutomaticKeys_;
  firstGap_ = std::min(firstGap_, std::uint32_t(slot));
  if (index_) index_->Erase(node);
  node->container_ = nullptr;
  delete node;
}

// Moves the tags along with the nodes.
void CParamChildList::Renumber(std::size_t from) {
  for (std::size_t i = from; i < slots_.size(); ++i) {
    slots_[i]->index_ = std::int32_t(i);
    if (i < kLinearScanLimit) tags_[i] = TagOf(*slots_[i]);
  }
}

void CParamChildList::Normalize() {
  if (firstGap_ == kClean) return;
  auto kept = std::remove(slots_.begin() + std::ptrdiff_t(firstGap_), slots_.end(), nullptr);
  slots_.erase(kept, slots_.end());
  Renumber(firstGap_);
  firstGap_ = kClean;
}

bool CParamChildList::IndexPending(const CParam& node) const {
  return firstGap_ != kClean && std::size_t(node.index_) >= firstGap_;
}

std::vector<CParam*> CParamChildList::Ordered(ParamOrder order, bool descending) {
  Normalize();
  std::vector<CParam*> nodes(slots_);
  OrderParams(nodes, order, descending);
  return nodes;
}

void CParamChildList::Reorder(std::vector<CParam*> order) {
  Normalize();
  slots_ = std::move(order);
  Renumber(0);
}

CParamChildList* CParamChildList::Clone(CParam* holder) {
  Normalize();
  auto* copy = new CParamChildList;
  copy->slots_.reserve(live_);
  for (const CParam* node : slots_) copy->Append(new CParam(*node));
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
    for (CParam* node : dying->slots_) {
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
