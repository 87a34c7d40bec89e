// CParamValue: the text value of a parameter, held compactly inside the node.
//
// Forms (the first byte tells which, beside the value's kind):
// - short and narrow: up to kInlineUnits units, each below 0x100, one byte
//   each inside the value itself; the first byte's low four bits are the
//   length;
// - long and narrow: every unit below 0x100, one byte each, in a block of
//   its own (see ValueBlocks);
// - wide: a unit of 0x100 or more somewhere, two bytes each in a block.
// The length of a value in a block is kept in the value up to
// kLengthInBlockFrom, so a block holds only the units; a value that long or
// longer keeps its length at the start of its block.
// Almost all data (and all of ASCII and Latin-1) is narrow, so a value takes
// half the bytes a UTF-16 text would, and one of up to 11 units no block.
// The value is 12 bytes aligned to 4, so a node can place 4 bytes of small
// fields of its own before it in one 16-byte stretch. Placed at 4 bytes past
// an 8-byte boundary, as a node places it, the block's address lies on an
// 8-byte boundary, where a leak checker looks for pointers.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt {

// What a value stands for beyond its text, for the data formats that tell
// a number or an empty collection apart from a text. Every change of the
// value makes it plain Text again.
enum class ValueKind : std::uint8_t {
  Text,         // text (every value set by a template)
  Literal,      // a number, true or false, the value being the literal as written
  Null,         // null; the value is empty
  EmptyObject,  // an object without members; no value, no children
  EmptyArray,   // an array without elements; no value, no children
};

class alignas(4) CParamValue {
 public:
  static constexpr std::size_t kInlineUnits = 11;
  static constexpr std::size_t kPieceUnits = 4096;
  static constexpr std::size_t kLengthInBlockFrom = 0xFFFFFF;

  CParamValue() = default;
  explicit CParamValue(WStringView text) { Store(text); }
  CParamValue(const CParamValue& other);
  CParamValue(CParamValue&& other) noexcept;
  CParamValue& operator=(const CParamValue& other);
  CParamValue& operator=(CParamValue&& other) noexcept;
  ~CParamValue() { FreeBlock(); }

  // `text` may be a view of this value's own units (its wide form).
  void Assign(WStringView text, ValueKind kind = ValueKind::Text);
  ValueKind Kind() const { return ValueKind((bytes_[0] & kKindBits) >> kKindShift); }

  std::size_t Size() const;
  bool Empty() const { return (bytes_[0] & kFormBits) == 0; }
  // The unit at `position`, which must be below Size().
  WChar At(std::size_t position) const;

  WString ToString() const;
  void AppendTo(WString& out) const;
  // The value as UTF-16: a view of its own units when it is wide, else its
  // units widened into `scratch` (whose earlier content is dropped). Valid
  // until this value or `scratch` changes.
  WStringView ViewIn(WString& scratch) const;
  // The units from `from` on as UTF-16: all of them as a view of its own
  // when the value is wide, else up to kPieceUnits of them widened into
  // `scratch`. Empty when `from` is Size(). For a reader that can take a
  // long value in pieces, so that it is never widened whole.
  WStringView PieceIn(std::size_t from, WString& scratch) const;
  // The units one byte each when the value is narrow (valid until the
  // value changes); null when it is wide.
  const unsigned char* NarrowData() const { return Wide() ? nullptr : NarrowUnits(); }
  bool Equals(WStringView text) const;
  // A-Z folded to lower case on both sides.
  bool EqualsIgnoringCase(WStringView text) const;

 private:
  // The first byte: the form (or the short length) in kFormBits, the kind
  // in kKindBits.
  enum Form : std::uint8_t { kHeapNarrow = 0x80, kHeapWide = 0x81 };
  static constexpr std::uint8_t kFormBits = 0x8F;
  static constexpr std::uint8_t kKindBits = 0x70;
  static constexpr int kKindShift = 4;

  std::uint8_t FormByte() const { return bytes_[0] & kFormBits; }
  bool OnHeap() const { return (bytes_[0] & kHeapNarrow) != 0; }
  bool Wide() const { return FormByte() == kHeapWide; }
  std::size_t UnitBytes() const { return Wide() ? 2 : 1; }
  const unsigned char* InlineUnits() const { return bytes_ + 1; }
  unsigned char* GetBlock() const;
  void SetBlock(unsigned char* block);
  // The length kept in bytes 1..3: the value's, or kLengthInBlockFrom.
  std::size_t KeptLength() const;
  std::size_t HeapLength() const;
  std::size_t BlockBytes() const;
  // A new block for `length` units of the form in the first byte, with the length
  // written down; returns where its units go.
  unsigned char* MakeBlock(std::size_t length);
  const unsigned char* BlockUnits() const;
  const unsigned char* NarrowUnits() const;
  const WChar* WideUnits() const;
  bool StoreInline(WStringView text);
  void Store(WStringView text);
  void FreeBlock();
  template <typename Visit>
  auto VisitUnits(Visit&& visit) const;

  // [0] the form or the short length, and the kind; [1..11] short units, or [1..3] the
  // length of a block's units and [4..11] the block's address.
  unsigned char bytes_[12] = {};
};

static_assert(sizeof(CParamValue) == 12 && alignof(CParamValue) == 4);

}  // namespace NScrivolt
