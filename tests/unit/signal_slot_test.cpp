#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "ui/event_types.h"
#include "ui/signal.h"

namespace NScrivolt::Ui {
namespace {

struct CHandledEvent : CEventTypeBoolOr {
  int id = 0;
};
struct CNoticeEvent : CEventTypeNoResult {};

// Answers every event with a fixed result and counts what it received.
template <typename E>
struct CFixedSlot : CSlot<E> {
  explicit CFixedSlot(bool answer = false) : answer(answer) {}
  bool Receive(E&) override {
    ++received;
    return answer;
  }
  bool answer;
  int received = 0;
};

TEST(Signal, CombinesTheSlotsAnswersByThePolicy) {
  struct Case {
    std::vector<bool> answers;
    bool handled;
  };
  const Case cases[] = {
      {{}, false},           {{false}, false},       {{true}, true},
      {{false, false}, false}, {{true, true}, true}, {{false, true, false}, true},
  };
  for (const Case& c : cases) {
    CSignal<CHandledEvent> handledSignal;
    CSignal<CNoticeEvent> noticeSignal;
    std::vector<std::unique_ptr<CFixedSlot<CHandledEvent>>> handledSlots;
    std::vector<std::unique_ptr<CFixedSlot<CNoticeEvent>>> noticeSlots;
    for (bool answer : c.answers) {
      handledSlots.push_back(std::make_unique<CFixedSlot<CHandledEvent>>(answer));
      handledSignal.Connect(*handledSlots.back());
      noticeSlots.push_back(std::make_unique<CFixedSlot<CNoticeEvent>>(answer));
      noticeSignal.Connect(*noticeSlots.back());
    }
    CHandledEvent handled;
    CNoticeEvent notice;
    EXPECT_EQ(handledSignal.Emit(handled), c.handled) << c.answers.size() << " slots";
    EXPECT_FALSE(noticeSignal.Emit(notice)) << "a notice has no result";
    // Emitting again starts from a reset event, not from the last result.
    if (c.handled) {
      for (auto& slot : handledSlots) slot->answer = false;
      EXPECT_FALSE(handledSignal.Emit(handled));
    }
    for (auto& slot : handledSlots) EXPECT_EQ(slot->received, c.handled ? 2 : 1);
    for (auto& slot : noticeSlots) EXPECT_EQ(slot->received, 1);
  }
}

TEST(Signal, ConnectingTwiceDeliversOnce) {
  CSignal<CHandledEvent> signal;
  CFixedSlot<CHandledEvent> slot;
  signal.Connect(slot);
  slot.Connect(signal);
  CHandledEvent event;
  signal.Emit(event);
  EXPECT_EQ(slot.received, 1);
  EXPECT_EQ(signal.PeerCount(), 1u);
}

TEST(Signal, DisconnectingRemovesBothEnds) {
  CSignal<CHandledEvent> signal;
  CFixedSlot<CHandledEvent> slot(true), other(true);
  signal.Connect(slot);
  signal.Connect(other);
  slot.Disconnect(signal);
  EXPECT_FALSE(signal.IsConnectedTo(slot));
  EXPECT_FALSE(slot.IsConnectedTo(signal));
  other.DisconnectAll();
  CHandledEvent event;
  EXPECT_FALSE(signal.Emit(event));
  EXPECT_EQ(slot.received + other.received, 0);
}

TEST(Signal, EitherEndDestroyedFirstLeavesNoPeerBehind) {
  CSignal<CHandledEvent> signal;
  CFixedSlot<CHandledEvent> survivor(true);
  signal.Connect(survivor);
  {
    CFixedSlot<CHandledEvent> shortLived(true);
    signal.Connect(shortLived);
    EXPECT_EQ(signal.PeerCount(), 2u);
  }
  EXPECT_EQ(signal.PeerCount(), 1u);
  CHandledEvent event;
  EXPECT_TRUE(signal.Emit(event));
  EXPECT_EQ(survivor.received, 1);

  CFixedSlot<CHandledEvent> slot;
  {
    CSignal<CHandledEvent> shortSignal;
    shortSignal.Connect(slot);
    signal.Connect(slot);
    EXPECT_EQ(slot.PeerCount(), 2u);
  }
  EXPECT_EQ(slot.PeerCount(), 1u);
  EXPECT_TRUE(slot.IsConnectedTo(signal));
}

// A dialog is a signal and a slot of several event types at once, connected
// to itself and to others.
struct CDialogLike : CSignal<CHandledEvent>, CSignal<CNoticeEvent>, CSlot<CHandledEvent> {
  CDialogLike() { CSignal<CHandledEvent>::Connect(static_cast<CSlot<CHandledEvent>&>(*this)); }
  bool Receive(CHandledEvent&) override {
    ++received;
    return false;
  }
  int received = 0;
};

TEST(Signal, DestroyedDialogLeavesNoConnectionElsewhere) {
  CFixedSlot<CHandledEvent> watcher(true);
  CFixedSlot<CNoticeEvent> noticeWatcher;
  CSignal<CHandledEvent> outsideSignal;
  {
    auto dialog = std::make_unique<CDialogLike>();
    static_cast<CSignal<CHandledEvent>&>(*dialog).Connect(watcher);
    static_cast<CSignal<CNoticeEvent>&>(*dialog).Connect(noticeWatcher);
    static_cast<CSlot<CHandledEvent>&>(*dialog).Connect(outsideSignal);
    CHandledEvent event;
    EXPECT_TRUE(static_cast<CSignal<CHandledEvent>&>(*dialog).Emit(event));
    EXPECT_EQ(dialog->received, 1);
    EXPECT_EQ(watcher.received, 1);
  }
  EXPECT_EQ(watcher.PeerCount(), 0u);
  EXPECT_EQ(noticeWatcher.PeerCount(), 0u);
  EXPECT_EQ(outsideSignal.PeerCount(), 0u);
  CHandledEvent event;
  EXPECT_FALSE(outsideSignal.Emit(event));
}

// Destroys another slot when it receives an event, as a handler that closes
// a window destroys the objects of that window.
struct CDestroyingSlot : CSlot<CHandledEvent> {
  bool Receive(CHandledEvent&) override {
    victim.reset();
    return false;
  }
  std::unique_ptr<CFixedSlot<CHandledEvent>> victim;
};

TEST(Signal, SlotDestroyedDuringEmitIsNotCalled) {
  CSignal<CHandledEvent> signal;
  CDestroyingSlot first;
  CDestroyingSlot second;
  first.victim = std::make_unique<CFixedSlot<CHandledEvent>>(true);
  second.victim = std::make_unique<CFixedSlot<CHandledEvent>>(true);
  for (CSlot<CHandledEvent>* slot :
       {static_cast<CSlot<CHandledEvent>*>(&first), static_cast<CSlot<CHandledEvent>*>(&second),
        static_cast<CSlot<CHandledEvent>*>(first.victim.get()),
        static_cast<CSlot<CHandledEvent>*>(second.victim.get())}) {
    signal.Connect(*slot);
  }
  CHandledEvent event;
  // Whichever order the peers come in, a victim is called only if its killer
  // comes later; both victims are gone afterwards and only they could answer true.
  signal.Emit(event);
  EXPECT_EQ(signal.PeerCount(), 2u);
  EXPECT_FALSE(signal.Emit(event));
}

}  // namespace
}  // namespace NScrivolt::Ui
