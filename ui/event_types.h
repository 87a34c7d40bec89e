// The result policies of events. Emitting an event resets it, combines the
// answer of every slot into it and returns its result.
#pragma once

namespace NScrivolt::Ui {

template <typename Result>
class CEventTypeBase {
 public:
  virtual ~CEventTypeBase() = default;
  virtual void Reset() = 0;
  virtual void Combine(Result slotResult) = 0;
  virtual Result GetResult() const = 0;
};

// "Was it handled?": true once any slot answered true.
class CEventTypeBoolOr : public CEventTypeBase<bool> {
 public:
  void Reset() override { handled_ = false; }
  void Combine(bool slotResult) override { handled_ = handled_ || slotResult; }
  bool GetResult() const override { return handled_; }

 private:
  bool handled_ = false;
};

// A notice that nobody answers: the slots' answers are ignored.
class CEventTypeNoResult : public CEventTypeBase<bool> {
 public:
  void Reset() override {}
  void Combine(bool) override {}
  bool GetResult() const override { return false; }
};

}  // namespace NScrivolt::Ui
