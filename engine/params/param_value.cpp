#include "engine/params/param_value.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "engine/params/value_blocks.h"

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
  const std::size_t blockBytes = other.BlockBytes();
  auto* block = static_cast<unsigned char*>(ValueBlocks::Allocate(blockBytes));
  std::memcpy(block, other.GetBlock(), blockBytes);
  std::memcpy(bytes_, other.bytes_, kAddressAt);
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
void CParamValue::Assign(WStringView text, ValueKind kind) {
  if (OnHeap()) {
    *this = CParamValue(text);
  } else {
    Store(text);
  }
  bytes_[0] = static_cast<unsigned char>(bytes_[0] | std::uint8_t(kind) << kKindShift);
}

unsigned char* CParamValue::GetBlock() const {
  unsigned char* block;
  std::memcpy(&block, bytes_ + kAddressAt, sizeof block);
  return block;
}

void CParamValue::SetBlock(unsigned char* block) { std::memcpy(bytes_ + kAddressAt, &block, sizeof block); }

std::size_t CParamValue::KeptLength() const {
  return std::size_t(bytes_[1]) | std::size_t(bytes_[2]) << 8 | std::size_t(bytes_[3]) << 16;
}

std::size_t CParamValue::HeapLength() const {
  const std::size_t kept = KeptLength();
  if (kept < kLengthInBlockFrom) return kept;
  std::size_t length;
  std::memcpy(&length, GetBlock(), sizeof length);
  return length;
}

std::size_t CParamValue::BlockBytes() const {
  const std::size_t header = KeptLength() < kLengthInBlockFrom ? 0 : sizeof(std::size_t);
  return header + HeapLength() * UnitBytes();
}

unsigned char* CParamValue::MakeBlock(std::size_t length) {
  const std::size_t kept = std::min(length, kLengthInBlockFrom);
  const std::size_t header = kept < kLengthInBlockFrom ? 0 : sizeof(std::size_t);
  auto* block = static_cast<unsigned char*>(ValueBlocks::Allocate(header + length * UnitBytes()));
  if (header != 0) std::memcpy(block, &length, sizeof length);
  bytes_[1] = static_cast<unsigned char>(kept);
  bytes_[2] = static_cast<unsigned char>(kept >> 8);
  bytes_[3] = static_cast<unsigned char>(kept >> 16);
  SetBlock(block);
  return block + header;
}

const unsigned char* CParamValue::BlockUnits() const {
  return GetBlock() + (KeptLength() < kLengthInBlockFrom ? 0 : sizeof(std::size_t));
}

const unsigned char* CParamValue::NarrowUnits() const { return OnHeap() ? BlockUnits() : InlineUnits(); }

const WChar* CParamValue::WideUnits() const { return reinterpret_cast<const WChar*>(BlockUnits()); }

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
  bytes_[0] = narrow ? kHeapNarrow : kHeapWide;
  unsigned char* units = MakeBlock(text.size());
  if (narrow) {
    Narrow(text, units);
  } else {
    std::memcpy(units, text.data(), text.size() * sizeof(WChar));
  }
}

void CParamValue::FreeBlock() {
  if (OnHeap()) ValueBlocks::Free(GetBlock(), BlockBytes());
}

// Calls visit(units, count) with the units as one-byte or two-byte ones.
template <typename Visit>
auto CParamValue::VisitUnits(Visit&& visit) const {
  if (Wide()) return visit(WideUnits(), HeapLength());
  return visit(NarrowUnits(), Size());
}

std::size_t CParamValue::Size() const { return OnHeap() ? HeapLength() : FormByte(); }

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
    const std::size_t count = FormByte();
    for (std::size_t i = 0; i < count; ++i) units[i] = InlineUnits()[i];
    out.append(units, count);
    return;
  }
  if (Wide()) {
    out.append(WideUnits(), HeapLength());
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
  if (Wide()) return WStringView(WideUnits(), HeapLength());
  scratch.clear();
  AppendTo(scratch);
  return scratch;
}

WStringView CParamValue::PieceIn(std::size_t from, WString& scratch) const {
  if (Wide()) return WStringView(WideUnits(), HeapLength()).substr(from);
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
