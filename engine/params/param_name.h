// CParamName: what a node is called, in one word.
//
// A node has no name (a root), a name given to it (a CParamId shared with
// its copies and with the other nodes a decoder made of the same name, see
// CParamIdShare), or an automatic name ("Param17") kept as its number. An
// automatic name is written out as an id only when a reader asks for one;
// that id is the node's alone, kept in a block with the number.
//
// The three take one word, told apart by its two low bits, which an aligned
// address leaves free: a node of a decoded million-row file is that many
// times eight bytes smaller than with a number and an id side by side.
#pragma once

#include <cstdint>

#include "engine/params/param_automatic_name.h"
#include "engine/params/param_id.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParamName {
 public:
  CParamName() = default;
  explicit CParamName(const CParamIdShare& id) : word_(ShareOf(id)) {}
  // The name for a copy of a node: a given one is shared, an automatic one
  // is taken by its number alone.
  CParamName(const CParamName& other) {
    if (other.IsAutomatic()) {
      word_ = AutomaticWord(other.AutomaticNumber());
    } else if (other.word_ != 0) {
      word_ = AddShare(other.Address());
    }
  }
  CParamName& operator=(const CParamName&) = delete;
  ~CParamName() { Reset(); }

  bool IsAutomatic() const { return (word_ & kTagBits) != kGiven; }
  // 0 unless the name is automatic.
  std::uint64_t AutomaticNumber() const {
    if ((word_ & kTagBits) == kAutomatic) return word_ >> kTagWidth;
    return (word_ & kTagBits) == kWritten ? Written()->number : 0;
  }
  // The name given, or null for an automatic name or none.
  const CParamId* Given() const {
    return (word_ & kTagBits) == kGiven && word_ != 0 ? CParamIdShare::ObjectAt(Address()) : nullptr;
  }
  // The key of a name given; empty for an automatic name or none.
  WStringView GivenKey() const {
    const CParamId* id = Given();
    return id != nullptr ? WStringView(id->key) : WStringView();
  }

  void SetAutomatic(std::uint64_t number) {
    Reset();
    word_ = AutomaticWord(number);
  }
  // Drops the name; the node has none afterwards. In line: an automatic
  // name, what most nodes have, holds nothing to let go of.
  void Reset() {
    if ((word_ & kTagBits) != kAutomatic && word_ != 0) LetGo();
    word_ = 0;
  }
  // An id of this node's own to write its position into: a name given is
  // copied first when it is shared, an automatic one written out, and a
  // node without a name gets an empty id.
  CParamId& OwnId();

 private:
  static constexpr std::uintptr_t kTagBits = 3;
  static constexpr int kTagWidth = 2;
  static constexpr std::uintptr_t kGiven = 0;      // a CParamIdShare's address, or 0 for none
  static constexpr std::uintptr_t kAutomatic = 1;  // the number above the tag
  static constexpr std::uintptr_t kWritten = 2;    // a CWritten's address
  static_assert(sizeof(std::uintptr_t) == 8 && kAutomaticNumberEnd <= std::uint64_t(1) << (64 - kTagWidth),
                "an automatic number fits above the tag");

  // The number first: a lookup reads it, and nothing else of the block.
  struct CWritten {
    std::uint64_t number;
    CParamId id;
  };

  // The word for the holder `id`, or for another holder of the share at
  // `address`.
  static std::uintptr_t ShareOf(CParamIdShare id);
  static std::uintptr_t AddShare(void* address);
  static std::uintptr_t AutomaticWord(std::uint64_t number) { return std::uintptr_t(number) << kTagWidth | kAutomatic; }
  void* Address() const { return reinterpret_cast<void*>(word_ & ~kTagBits); }
  CWritten* Written() const { return static_cast<CWritten*>(Address()); }
  // Lets go of a given id's share or of a written-out id.
  void LetGo();

  std::uintptr_t word_ = 0;
};

static_assert(sizeof(CParamName) == sizeof(void*));

}  // namespace NScrivolt
