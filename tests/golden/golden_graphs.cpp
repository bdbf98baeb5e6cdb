#include "golden/golden_graphs.h"

std::vector<GoldenGraph> goldenGraphs() {
  std::vector<GoldenGraph> graphs;
  for (const auto& part :
       {goldenArchiveGraphs(), goldenBookGraphs(), goldenDatumGraphs(), goldenValueGraphs()}) {
    graphs.insert(graphs.end(), part.begin(), part.end());
  }
  return graphs;
}
