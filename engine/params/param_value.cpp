#include "engine/params/param_value.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>

namespace NScrivolt {

namespace {

constexpr std::size_t kAddressAt = 4;

// One pass that the compiler turns into vector instructions.
bool AllNarrow(WStringView text) {
  unsigned bits = 0;
  for (WChar unit : text) bits |= unit;
  return bits < 0x100;
}

// The copies between one-byte and two-byte units go through a local block
// of 16: a one-byte pointer may alias anything, so the compiler could not
// otherwise load and store more than one unit at a time.
constexpr std::size_t kBlockUnits = 16;

void Narrow(WStringView text, unsigned char* out) {
  std::size_t i = 0;
  for (; i + kBlockUnits <= text.size(); i += kBlockUnits) {
    unsigned char block[kBlockUnits];
    for (std::size_t k = 0; k < kBlockUnits; ++k) block[k] = static_cast<unsigned char>(text[i + k]);
    std::memcpy(out + i, block, sizeof block);
  }
  for (; i < text.size(); ++i) out[i] = static_cast<unsigned char>(text[i]);
}

void Widen(const unsigned char* units, std::size_t count, WChar* out) {
  std::size_t i = 0;
  for (; i + kBlockUnits <= count; i += kBlockUnits) {
    WChar block[kBlockUnits];
    for (std::size_t k = 0; k < kBlockUnits; ++k) block[k] = units[i + k];
    std::memcpy(out + i, block, sizeof block);
  }
  for (; i < count; ++i) out[i] = units[i];
}

}  // namespace

CParamValue::CParamValue(const CParamValue& other) {
  if (!other.OnHeap()) {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    return;
  }
  const std::size_t unitBytes = other.bytes_[0] == kHeapWide ? sizeof(WChar) : 1;
  const std::size_t blockBytes = sizeof(Block) + other.GetBlock()->length * unitBytes;
  auto* block = static_cast<Block*>(::operator new(blockBytes));
  std::memcpy(block, other.GetBlock(), blockBytes);
  bytes_[0] = other.bytes_[0];
  SetBlock(block);
}

CParamValue::CParamValue(CParamValue&& other) noexcept {
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  other.bytes_[0] = 0;
}

CParamValue& CParamValue::operator=(const CParamValue& other) {
  if (this != &other) *this = CParamValue(other);
  return *this;
}

CParamValue& CParamValue::operator=(CParamValue&& other) noexcept {
  if (this == &other) return *this;
  FreeBlock();
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  other.bytes_[0] = 0;
  return *this;
}

// A value without a block is overwritten in place (no text can lie in its
// bytes); one with a block gets the new units before the block is freed, as
// `text` may lie in it.
void CParamValue::Assign(WStringView text) {
  if (OnHeap()) {
    *this = CParamValue(text);
  } else {
    Store(text);
  }
}

CParamValue::Block* CParamValue::GetBlock() const {
  Block* block;
  std::memcpy(&block, bytes_ + kAddressAt, sizeof block);
  return block;
}

void CParamValue::SetBlock(Block* block) { std::memcpy(bytes_ + kAddressAt, &block, sizeof block); }

const unsigned char* CParamValue::NarrowUnits() const {
  return OnHeap() ? reinterpret_cast<const unsigned char*>(GetBlock() + 1) : InlineUnits();
}

const WChar* CParamValue::WideUnits() const { return reinterpret_cast<const WChar*>(GetBlock() + 1); }

// A short text is narrowed and checked in one pass.
bool CParamValue::StoreInline(WStringView text) {
  if (text.size() > kInlineUnits) return false;
  unsigned bits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    bits |= text[i];
    bytes_[1 + i] = static_cast<unsigned char>(text[i]);
  }
  if (bits >= 0x100) return false;
  bytes_[0] = static_cast<unsigned char>(text.size());
  return true;
}

void CParamValue::Store(WStringView text) {
  if (StoreInline(text)) return;
  const bool narrow = AllNarrow(text);
  const std::size_t unitBytes = narrow ? 1 : sizeof(WChar);
  auto* block = static_cast<Block*>(::operator new(sizeof(Block) + text.size() * unitBytes));
  block->length = text.size();
  if (narrow) {
    Narrow(text, reinterpret_cast<unsigned char*>(block + 1));
  } else {
    std::memcpy(block + 1, text.data(), text.size() * sizeof(WChar));
  }
  bytes_[0] = narrow ? kHeapNarrow : kHeapWide;
  SetBlock(block);
}

void CParamValue::FreeBlock() {
  if (OnHeap()) ::operator delete(GetBlock());
}

// Calls visit(units, count) with the units as one-byte or two-byte ones.
template <typename Visit>
auto CParamValue::VisitUnits(Visit&& visit) const {
  if (bytes_[0] == kHeapWide) return visit(WideUnits(), GetBlock()->length);
  return visit(NarrowUnits(), Size());
}

std::size_t CParamValue::Size() const { return OnHeap() ? GetBlock()->length : bytes_[0]; }

WChar CParamValue::At(std::size_t position) const {
  return VisitUnits([position](const auto* units, std::size_t) { return WChar(units[position]); });
}

WString CParamValue::ToString() const {
  WString text;
  AppendTo(text);
  return text;
}

// Narrow units are widened through a small local block: appending a range
// of bytes would build a temporary text, and growing `out` first would fill
// its new room with zeros in a pass of its own. The room is made at once, so
// a long value does not grow `out` step by step, and at least doubled, so
// that many short values appended one after another do not either.
void CParamValue::AppendTo(WString& out) const {
  if (!OnHeap()) {
    WChar units[kInlineUnits];
    for (std::size_t i = 0; i < bytes_[0]; ++i) units[i] = InlineUnits()[i];
    out.append(units, bytes_[0]);
    return;
  }
  if (bytes_[0] == kHeapWide) {
    out.append(WideUnits(), GetBlock()->length);
    return;
  }
  const unsigned char* units = NarrowUnits();
  const std::size_t count = Size();
  if (out.capacity() - out.size() < count) out.reserve(std::max(out.size() + count, 2 * out.capacity()));
  WChar block[256];
  for (std::size_t from = 0; from < count; from += std::size(block)) {
    const std::size_t length = std::min(count - from, std::size(block));
    Widen(units + from, length, block);
    out.append(block, length);
  }
}

WStringView CParamValue::ViewIn(WString& scratch) const {
  if (bytes_[0] == kHeapWide) return WStringView(WideUnits(), GetBlock()->length);
  scratch.clear();
  AppendTo(scratch);
  return scratch;
}

WStringView CParamValue::PieceIn(std::size_t from, WString& scratch) const {
  if (bytes_[0] == kHeapWide) return WStringView(WideUnits(), GetBlock()->length).substr(from);
  const std::size_t count = std::min(Size() - from, kPieceUnits);
  scratch.resize(count);
  Widen(NarrowUnits() + from, count, &scratch[0]);
  return scratch;
}

bool CParamValue::Equals(WStringView text) const {
  return VisitUnits([text](const auto* units, std::size_t count) {
    if (count != text.size()) return false;
    for (std::size_t i = 0; i < count; ++i) {
      if (units[i] != text[i]) return false;
    }
    return true;
  });
}

bool CParamValue::EqualsIgnoringCase(WStringView text) const {
  return VisitUnits([text](const auto* units, std::size_t count) {
    if (count != text.size()) return false;
    for (std::size_t i = 0; i < count; ++i) {
      if (LowerAscii(WChar(units[i])) != LowerAscii(text[i])) return false;
    }
    return true;
  });
}

}  // namespace NScrivolt
