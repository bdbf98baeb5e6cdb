#pragma once

#include <OVAddressBookSDK/object.h>

#include "dump/graph_sink.h"

namespace ovbook {

/// Passes everything that can be reached from `root` to `sink`. What several places refer to is
/// passed once, under a number, and so is what is deep: nothing is nested more than some dozen
/// times, and rings and endless chains are harmless. Of fields with one name the first counts.
///
/// The graph is one of opaque objects, lists, dictionaries and leaves.
void walkGraph(const OVRef<OVObject>& root, GraphSink& sink);

}  // namespace ovbook
