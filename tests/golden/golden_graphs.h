#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>

/// The graph behind a stored block. What stands here is archived for good: a graph may be added,
/// none may change.
struct GoldenGraph {
  std::string name;
  std::function<OVRef<OVObject>()> make;

  friend void PrintTo(const GoldenGraph& graph, std::ostream* stream) { *stream << graph.name; }
};

/// One or more for each class that archives hold, and a whole book.
std::vector<GoldenGraph> goldenGraphs();

std::vector<GoldenGraph> goldenArchiveGraphs();
std::vector<GoldenGraph> goldenBookGraphs();
std::vector<GoldenGraph> goldenDatumGraphs();
std::vector<GoldenGraph> goldenValueGraphs();

/// A person with a value under each standard property.
OVRef<OVPersonGeneral> goldenPerson();
/// An address with all five fields and a country.
OVRef<OVObjectAddress> goldenAddress();
/// An account on a service that the library knows.
OVRef<OVObjectInstantMessage> goldenAccount();
/// A picture of one pixel.
OVRef<OVImage> goldenImage();
