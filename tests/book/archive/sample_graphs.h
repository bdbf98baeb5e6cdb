#pragma once

#include <functional>
#include <string>
#include <vector>

#include <OVAddressBookSDK/object.h>

/// A graph for each class that archives hold, a whole book, and graphs that call for references and
/// UIDs of every width.
struct SampleGraph {
  std::string name;
  std::function<OVRef<OVObject>()> make;
};

std::vector<SampleGraph> sampleGraphs();
