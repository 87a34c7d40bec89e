#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "ui/handle.h"

namespace NScrivolt::Ui {
namespace {

std::vector<int> closed;

// Handles are small integers; -1 is the no-handle value.
struct CFakeTraits {
  using Handle = int;
  static Handle Invalid() { return -1; }
  static void Close(Handle handle) { closed.push_back(handle); }
};
using CFakeHandle = CHandle<CFakeTraits>;

class HandleTest : public ::testing::Test {
 protected:
  void SetUp() override { closed.clear(); }
};

TEST_F(HandleTest, ClosesOnceWhenTheLastCopyGoes) {
  {
    CFakeHandle first(7);
    {
      CFakeHandle second = first;
      CFakeHandle third;
      third = second;
      EXPECT_EQ(first.Owners(), 3u);
      EXPECT_EQ(third.Get(), 7);
    }
    EXPECT_TRUE(closed.empty());
    EXPECT_EQ(first.Owners(), 1u);
  }
  EXPECT_EQ(closed, std::vector<int>{7});
}

TEST_F(HandleTest, AssigningANewHandleLetsGoOfTheOldOne) {
  CFakeHandle handle(1);
  handle = 2;
  EXPECT_EQ(closed, std::vector<int>{1});
  CFakeHandle shared = handle;
  handle = 3;  // the copy still holds 2
  EXPECT_EQ(closed, std::vector<int>{1});
  EXPECT_EQ(shared.Get(), 2);
  handle = shared;  // 3 had no other owner
  EXPECT_EQ(closed, (std::vector<int>{1, 3}));
  EXPECT_EQ(handle.Owners(), 2u);
  handle = handle;
  EXPECT_EQ(handle.Owners(), 2u);
  shared.Reset();
  handle.Reset();
  EXPECT_EQ(closed, (std::vector<int>{1, 3, 2}));
  EXPECT_EQ(handle.Get(), -1);
}

TEST_F(HandleTest, MovingPassesOwnershipWithoutClosing) {
  CFakeHandle source(4);
  CFakeHandle target(5);
  target = std::move(source);
  EXPECT_EQ(closed, std::vector<int>{5});
  EXPECT_FALSE(source.IsValid());
  CFakeHandle moved(std::move(target));
  EXPECT_EQ(moved.Get(), 4);
  moved.Reset();
  EXPECT_EQ(closed, (std::vector<int>{5, 4}));
}

TEST_F(HandleTest, TheNoHandleValueIsNeverClosed) {
  {
    CFakeHandle invalid(-1);
    CFakeHandle copy = invalid;
    EXPECT_FALSE(copy.IsValid());
    copy = 8;
    copy = -1;
  }
  EXPECT_EQ(closed, std::vector<int>{8});
}

}  // namespace
}  // namespace NScrivolt::Ui
