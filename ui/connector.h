// CConnector: the bookkeeping that signals and slots share. Each end keeps the
// set of its peers; connecting and disconnecting always change both sets, and
// a connector that goes away first leaves all its peers, so no end ever holds
// a peer that no longer exists.
#pragma once

#include <cstddef>
#include <set>

namespace NScrivolt::Ui {

class CConnector {
 public:
  CConnector() = default;
  // A copy starts unconnected: connections belong to the object that made them.
  CConnector(const CConnector&) : CConnector() {}
  CConnector& operator=(const CConnector&) { return *this; }
  virtual ~CConnector();

  void DisconnectAll();
  bool IsConnectedTo(const CConnector& peer) const { return peers_.count(const_cast<CConnector*>(&peer)) != 0; }
  std::size_t PeerCount() const { return peers_.size(); }

 protected:
  // Typed ends (CSignal, CSlot) call these; only matching types connect.
  void Connect(CConnector& peer);
  void Disconnect(CConnector& peer);
  // Ordered by object identity, as the peers are visited when emitting.
  const std::set<CConnector*>& Peers() const { return peers_; }

 private:
  std::set<CConnector*> peers_;
};

}  // namespace NScrivolt::Ui
