#include "ui/connector.h"

namespace NScrivolt::Ui {

CConnector::~CConnector() { DisconnectAll(); }

void CConnector::Connect(CConnector& peer) {
  if (&peer == this) return;
  peers_.insert(&peer);
  peer.peers_.insert(this);
}

void CConnector::Disconnect(CConnector& peer) {
  peers_.erase(&peer);
  peer.peers_.erase(this);
}

void CConnector::DisconnectAll() {
  while (!peers_.empty()) Disconnect(**peers_.begin());
}

}  // namespace NScrivolt::Ui
