// Script functions that decide what a template produces: the conditional
// "if", the loops "while", "until", "for" and "foreach", the "gate" sandbox,
// and the two functions that run content for its effects ("nooutput") or
// fail on purpose ("error").
//
// Loop bodies and branches are content evaluated anew each time they are
// used, so every round sees the parameters as the previous rounds left them.
// Loops have no iteration limit: a condition that never changes is the
// template's choice.
#pragma once

#include <vector>

#include "engine/functions/function.h"
#include "engine/functions/compare.h"
#include "engine/functions/sort_order.h"
#include "text/error_text.h"

namespace NScrivolt {

// if <condition> then: T [else: E] — outputs T when the condition holds,
// else E (or nothing). Only the branch taken is evaluated.
class CFunctionIf : public CFunctionCompare {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot then_ = nullptr;
  ArgumentSlot else_ = nullptr;
};

// How a conditional loop tests: "while" before each round and goes on while
// the condition holds, "until" after each round and goes on while it fails.
struct CLoopRule {
  enum class Test { BeforeRound, AfterRound } test;
  bool continueWhile;
};
constexpr CLoopRule kWhileRule{CLoopRule::Test::BeforeRound, true};
constexpr CLoopRule kUntilRule{CLoopRule::Test::AfterRound, false};

// The body and round counter of "while" and "until".
class CConditionalLoop : public CFunctionCompare {
 public:
  const CArgumentTable& Arguments() const override;

 protected:
  // Runs the loop: before each round the loop-number parameter (when
  // given) is set to the round's number; the condition is tested as `rule`
  // says.
  CErrorText RunLoop(CProcessContext& context, CLoopRule rule, WString& output) const;

 private:
  ArgumentSlot do_ = nullptr;
  ArgumentSlot loopNumber_ = nullptr;
};

// while <condition> do: D [loopnumber: N] — repeats D while the condition
// holds, testing before each round. N ends as the number of rounds plus one.
class CFunctionWhile : public CConditionalLoop {
 public:
  CErrorText Execute(CProcessContext& context, WString& output) override;
};

// until <condition> do: D [loopnumber: N] — repeats D until the condition
// holds, testing after each round. N ends as the number of rounds.
class CFunctionUntil : public CConditionalLoop {
 public:
  CErrorText Execute(CProcessContext& context, WString& output) override;
};

// for from: A to: B [step: S] [value: V] [loopnumber: N] do: D — runs D for
// A, A+S, ... as long as the value has not passed B (both bounds included).
class CFunctionFor : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot value_ = nullptr;
  ArgumentSlot from_ = nullptr;
  ArgumentSlot to_ = nullptr;
  ArgumentSlot step_ = nullptr;
  ArgumentSlot loopNumber_ = nullptr;
  ArgumentSlot do_ = nullptr;
};

// foreach in: P [value: V] [indexname: N] [indexnumber: I] [loopnumber: L]
// [orderby: O] do: D — runs D once per sub-parameter of P, walking a copy
// taken before the first round.
class CFunctionForEach : public CFunctionSortOrder {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot value_ = nullptr;
  ArgumentSlot indexName_ = nullptr;
  ArgumentSlot indexNumber_ = nullptr;
  ArgumentSlot loopNumber_ = nullptr;
  ArgumentSlot in_ = nullptr;
  ArgumentSlot do_ = nullptr;
};

// gate content: C [param: P ...] [allparams] [function: F ...]
// [allfunctions] — outputs C; afterwards every parameter and user function
// is put back as it was, except the listed ones (or all of a kind with
// allparams / allfunctions), which keep what C did to them.
class CFunctionGate : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  CErrorText EvaluateParams(CProcessContext& context, std::vector<CParamQualifier>& params) const;
  CErrorText EvaluateFunctionNames(CProcessContext& context, std::vector<WString>& names) const;

  ArgumentSlot content_ = nullptr;
  ArgumentList params_;
  ArgumentSlot allParams_ = nullptr;
  ArgumentList functions_;
  ArgumentSlot allFunctions_ = nullptr;
};

// nooutput content: C — evaluates C for its effects and drops its text.
class CFunctionNoOutput : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot content_ = nullptr;
};

// error text: T — fails the processing with T as a detail line.
class CFunctionError : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot text_ = nullptr;
};

}  // namespace NScrivolt
