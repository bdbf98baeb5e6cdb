#pragma once

#include <OVAddressBookSDK/object.h>

#include "dump/graph_sink.h"

namespace ovbook {

/// Tells `sink` of everything that can be reached from `root`. What several places refer to is told
/// of once, under a number, and so is what lies deep: nothing is nested more than some dozen times,
/// and rings and endless chains are harmless. Of fields with one name the first counts.
///
/// The graph is one of opaque objects, lists, dictionaries and leaves.
void walkGraph(const OVRef<OVObject>& root, GraphSink& sink);

}  // namespace ovbook
