// CParamValue: the text value of a parameter, held compactly inside the node.
//
// Forms (the first byte tells which):
// - short and narrow: up to kInlineUnits units, each below 0x100, one byte
//   each inside the value itself; the first byte is the length;
// - long and narrow: every unit below 0x100, one byte each, in a heap block
//   of its own (the length first, then the units);
// - wide: a unit of 0x100 or more somewhere, two bytes each in a heap block.
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

class alignas(4) CParamValue {
 public:
  static constexpr std::size_t kInlineUnits = 11;
  static constexpr std::size_t kPieceUnits = 4096;

  CParamValue() = default;
  explicit CParamValue(WStringView text) { Store(text); }
  CParamValue(const CParamValue& other);
  CParamValue(CParamValue&& other) noexcept;
  CParamValue& operator=(const CParamValue& other);
  CParamValue& operator=(CParamValue&& other) noexcept;
  ~CParamValue() { FreeBlock(); }

  // `text` may be a view of this value's own units (its wide form).
  void Assign(WStringView text);

  std::size_t Size() const;
  bool Empty() const { return bytes_[0] == 0; }
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
  const unsigned char* NarrowData() const { return bytes_[0] == kHeapWide ? nullptr : NarrowUnits(); }
  bool Equals(WStringView text) const;
  // A-Z folded to lower case on both sides.
  bool EqualsIgnoringCase(WStringView text) const;

 private:
  enum Form : std::uint8_t { kHeapNarrow = 0x80, kHeapWide = 0x81 };
  // The block of a heap form: the length, then the units.
  struct Block {
    std::size_t length;
  };

  bool OnHeap() const { return bytes_[0] >= kHeapNarrow; }
  const unsigned char* InlineUnits() const { return bytes_ + 1; }
  Block* GetBlock() const;
  void SetBlock(Block* block);
  const unsigned char* NarrowUnits() const;
  const WChar* WideUnits() const;
  bool StoreInline(WStringView text);
  void Store(WStringView text);
  void FreeBlock();
  template <typename Visit>
  auto VisitUnits(Visit&& visit) const;

  // [0] the form or the short length; [1..11] short units, or [4..11] the
  // block's address.
  unsigned char bytes_[12] = {};
};

static_assert(sizeof(CParamValue) == 12 && alignof(CParamValue) == 4);

}  // namespace NScrivolt
