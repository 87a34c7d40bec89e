// CSignal<E> sends events of type E to every CSlot<E> connected to it.
//
//   class CButtonWatcher : public CSlot<CClickEvent> {
//     bool Receive(CClickEvent& event) override { ...; return true; }
//   };
//   signal.Connect(watcher);   // both ends now know each other
//   signal.Emit(event);        // true when any slot answered true (CEventTypeBoolOr)
//
// Either end may be destroyed first; it leaves the other. A slot may
// disconnect or destroy slots while an event is being emitted: the slots are
// visited from a copy of the peer set, and a slot that has left by its turn
// is skipped.
#pragma once

#include <vector>

#include "ui/connector.h"

namespace NScrivolt::Ui {

template <typename E>
class CSignal;

template <typename E>
class CSlot : public CConnector {
 public:
  virtual bool Receive(E& event) = 0;

  void Connect(CSignal<E>& signal) { CConnector::Connect(signal); }
  void Disconnect(CSignal<E>& signal) { CConnector::Disconnect(signal); }
};

template <typename E>
class CSignal : public CConnector {
 public:
  void Connect(CSlot<E>& slot) { CConnector::Connect(slot); }
  void Disconnect(CSlot<E>& slot) { CConnector::Disconnect(slot); }

  bool Emit(E& event) {
    event.Reset();
    const std::vector<CConnector*> slots(Peers().begin(), Peers().end());
    for (CConnector* peer : slots) {
      if (!IsConnectedTo(*peer)) continue;
      event.Combine(static_cast<CSlot<E>*>(peer)->Receive(event));
    }
    return event.GetResult();
  }
};

}  // namespace NScrivolt::Ui
