#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "engine/params/fixed_size_pool.h"

namespace NScrivolt {
namespace {

// Fills every live slot with a pattern of its own and checks that no slot
// handed out overlaps another, across block boundaries and after slots were
// freed and handed out again.
class CPoolCheck {
 public:
  explicit CPoolCheck(std::size_t slotBytes) : pool_(slotBytes), bytes_(slotBytes) {}
  CPoolCheck(const CPoolCheck&) = delete;
  CPoolCheck& operator=(const CPoolCheck&) = delete;
  ~CPoolCheck() {
    for (const CLive& live : live_) pool_.Free(live.slot);
  }

  void Allocate(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      void* slot = pool_.Allocate();
      ASSERT_NE(slot, nullptr);
      ASSERT_EQ(reinterpret_cast<std::uintptr_t>(slot) % alignof(void*), 0u);
      std::memset(slot, int(++stamp_ & 0xFF), bytes_);
      live_.push_back({slot, static_cast<unsigned char>(stamp_ & 0xFF)});
    }
  }

  // Frees every other live slot.
  void FreeHalf() {
    std::vector<CLive> kept;
    for (std::size_t i = 0; i < live_.size(); ++i) {
      if (i % 2 == 0) {
        pool_.Free(live_[i].slot);
      } else {
        kept.push_back(live_[i]);
      }
    }
    live_ = std::move(kept);
  }

  void ExpectIntact() const {
    for (const CLive& live : live_) {
      const auto* bytes = static_cast<const unsigned char*>(live.slot);
      for (std::size_t b = 0; b < bytes_; ++b) ASSERT_EQ(bytes[b], live.pattern) << "slot of " << bytes_;
    }
  }

 private:
  struct CLive {
    void* slot;
    unsigned char pattern;
  };

  CFixedSizePool pool_;
  std::size_t bytes_;
  std::vector<CLive> live_;
  std::size_t stamp_ = 0;
};

TEST(FixedSizePool, SlotsNeverOverlapAcrossBlocksAndReuse) {
  const std::size_t slotSizes[] = {1, 8, 13, 72, 4096, CFixedSizePool::kBlockBytes / 4};
  for (std::size_t slotBytes : slotSizes) {
    SCOPED_TRACE(slotBytes);
    CPoolCheck check(slotBytes);
    const std::size_t moreThanTwoBlocks = 2 * CFixedSizePool::kBlockBytes / slotBytes + 5;
    check.Allocate(std::min<std::size_t>(moreThanTwoBlocks, 300000));
    check.ExpectIntact();
    check.FreeHalf();
    check.Allocate(1000);
    check.ExpectIntact();
  }
}

}  // namespace
}  // namespace NScrivolt
