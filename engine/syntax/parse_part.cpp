#include "engine/syntax/parse_part.h"

#include <iterator>
#include <utility>

#include "engine/syntax/unescape.h"

namespace NScrivolt {

CParsePart::CParsePart(PartKind kind, CRefCounter<CTemplateSource*> source, std::size_t position,
                       WStringView name)
    : kind_(kind), position_(position), source_(std::move(source)), name_(name) {}

// Releasing the children one by one would recurse as deep as the tree. The
// children whose last holder this part is hand their own children to a work
// list first, so each part is deleted with no children left to release.
CParsePart::~CParsePart() {
  std::vector<CParsePartRef> pending = std::move(children_);
  while (!pending.empty()) {
    CParsePartRef child = std::move(pending.back());
    pending.pop_back();
    if (child.UseCount() == 1) {
      std::vector<CParsePartRef>& grandchildren = child->children_;
      pending.insert(pending.end(), std::make_move_iterator(grandchildren.begin()),
                     std::make_move_iterator(grandchildren.end()));
      grandchildren.clear();
    }
  }
}

bool CParsePart::HoldsEscapes() const {
  if (escapes_ == Escapes::Unknown) escapes_ = NScrivolt::HoldsEscapes(value_) ? Escapes::Some : Escapes::None;
  return escapes_ == Escapes::Some;
}

void CParsePart::SetOwnValue(WString value) {
  ownValue_ = std::make_unique<WString>(std::move(value));
  value_ = *ownValue_;
}

CParsePart& CParsePart::AppendChild(PartKind kind, std::size_t position, WStringView name) {
  children_.push_back(CParsePartRef::Make(kind, source_, position, name));
  return *children_.back();
}

}  // namespace NScrivolt
