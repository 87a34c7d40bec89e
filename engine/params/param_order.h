// The orders in which the children of a parameter can be listed and sorted.
#pragma once

#include <vector>

namespace NScrivolt {

class CParam;

enum class ParamOrder {
  ByNumber,  // their positions
  ByName,    // ascending key
  ByValue,   // ascending lower-cased value; equal values keep number order
};

// Puts children given in number order into `order`; descending walks the
// ascending order backwards, so equal values then come in reverse number
// order. Keys and values compare by UTF-16 code unit ("10" before "9").
void OrderParams(std::vector<CParam*>& nodes, ParamOrder order, bool descending);

}  // namespace NScrivolt
