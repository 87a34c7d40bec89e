// Prints how long the parameter tree's bulk operations take on wide nodes of
// 100,000 and 1,000,000 children, and how cheap repeated copies of a large
// tree are when each copy is changed once.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "engine/params/param.h"

using namespace NScrivolt;

namespace {

class CStopwatch {
 public:
  double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

void Report(const char* what, std::size_t size, const CStopwatch& watch) {
  std::printf("  %-44s %9zu  %9.3f ms\n", what, size, watch.Seconds() * 1000.0);
}

// Values in a scrambled order, so that sorting has work to do.
WString ScrambledValue(std::uint32_t i) {
  return u"v" + IntegerToText(std::int64_t((i * 2654435761u) % 1000003u));
}

void WideNode(std::size_t size) {
  CParam node;
  {
    CStopwatch watch;
    for (std::size_t i = 0; i < size; ++i) node.AppendNumbered()->SetValue(ScrambledValue(std::uint32_t(i)));
    Report("build (AppendNumbered + SetValue)", size, watch);
  }
  CParam copy;
  {
    CStopwatch watch;
    copy.CopyFrom(node);
    Report("copy (CopyFrom, shares the children)", size, watch);
  }
  {
    CStopwatch watch;
    copy.GetByNumber(0, false)->SetValue(u"changed");
    Report("first change below the copy (clones its list)", size, watch);
  }
  {
    CStopwatch watch;
    copy.SortChildren(ParamOrder::ByValue, false);
    Report("sort the copy by value", size, watch);
  }
  std::vector<WString> names;
  for (const CParam* child : std::as_const(node).ListChildren()) names.push_back(child->GetId().name);
  {
    CStopwatch watch;
    std::size_t found = 0;
    for (const WString& name : names) found += std::as_const(node).GetChildByName(name) != nullptr;
    Report("look up every child by name", found, watch);
  }
  {
    CStopwatch watch;
    for (std::size_t i = 0; i < names.size(); i += 2) {
      CParamId id;
      id.numbered = false;
      id.key = ToLowerAscii(names[i]);
      node.DeleteParam({id});
    }
    std::as_const(node).GetByNumber(0);  // closes the gaps the removals left
    Report("delete every other child by name", names.size() / 2, watch);
  }
  {
    CStopwatch watch;
    copy.Clear();
    Report("clear the sorted copy", size, watch);
  }
}

// A tree of `groups` top-level parameters with `leaves` children each; then
// `copies` times: copy the whole tree and change one leaf of the copy.
void CopiesOfLargeTree(std::size_t groups, std::size_t leaves, std::size_t copies) {
  CParams tree;
  for (std::size_t g = 0; g < groups; ++g) {
    CParam* group = tree.Root().AppendNumbered();
    for (std::size_t l = 0; l < leaves; ++l) group->AppendNumbered()->SetValueNumber(std::int32_t(l));
  }
  const std::size_t nodes = groups * (leaves + 1);
  CStopwatch watch;
  for (std::size_t i = 0; i < copies; ++i) {
    CParams copy(tree);
    copy.Root().GetByNumber(std::int32_t(i % groups))->GetByNumber(std::int32_t(i % leaves))->SetValue(u"x");
  }
  std::printf("  %zu copies of a %zu-node tree (%zu x %zu), one change each: %.3f ms (%.3f ms a copy)\n",
              copies, nodes, groups, leaves, watch.Seconds() * 1000.0, watch.Seconds() * 1000.0 / double(copies));
}

}  // namespace

int main() {
  std::printf("Parameter tree                                   children       time\n");
  for (std::size_t size : {std::size_t(100000), std::size_t(1000000)}) WideNode(size);
  CopiesOfLargeTree(1000, 999, 1000);
  return 0;
}
