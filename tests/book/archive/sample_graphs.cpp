#include "book/archive/sample_graphs.h"

#include "book/archive/small_book.h"
#include "golden/golden_graphs.h"
#include "support/values.h"

namespace {

/// That many labels, each an object and a text.
OVRef<OVObject> labels(int count) {
  const auto list = OVList<OVObject>::list();
  for (int i = 0; i < count; ++i) list.push_back(labelOf(std::to_string(i)));
  return list;
}

}  // namespace

std::vector<SampleGraph> sampleGraphs() {
  std::vector<SampleGraph> graphs{
      {"small_book", [] { return smallBook(); }},
      {"wide_references", [] { return labels(300); }},
      {"widest_references", [] { return labels(17000); }},
  };
  for (const GoldenGraph& each : goldenGraphs()) graphs.push_back({each.name, each.make});
  return graphs;
}
