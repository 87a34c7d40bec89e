#include <gtest/gtest.h>

#include "engine/ref_counter.h"

namespace NScrivolt {
namespace {

struct Tracked {
  explicit Tracked(int& live) : live(live) { ++live; }
  ~Tracked() { --live; }
  int& live;
};

TEST(RefCounter, DeletesTheObjectWithItsLastHolder) {
  int live = 0;
  CRefCounter<Tracked*> first = CRefCounter<Tracked*>::Make(live);
  EXPECT_EQ(live, 1);
  EXPECT_EQ(first.UseCount(), 1u);
  {
    CRefCounter<Tracked*> second = first;
    CRefCounter<Tracked*> third;
    third = second;
    EXPECT_EQ(first.UseCount(), 3u);
    EXPECT_EQ(third.Get(), first.Get());
  }
  EXPECT_EQ(first.UseCount(), 1u);
  CRefCounter<Tracked*> moved = std::move(first);
  EXPECT_FALSE(first);
  EXPECT_EQ(moved.UseCount(), 1u);
  EXPECT_EQ(live, 1);
  moved = moved;  // self-assignment keeps the object
  EXPECT_EQ(live, 1);
  moved = CRefCounter<Tracked*>();
  EXPECT_EQ(live, 0);
  EXPECT_EQ(moved.Get(), nullptr);
}

}  // namespace
}  // namespace NScrivolt
