#pragma once

#include <cstdint>
#include <vector>

#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/text.h>

/// The state of a book's connection to its store.
enum class OVEDSState : std::uint8_t {
  Connected,
  /// The server cannot be reached; the book shows what is kept here.
  Offline,
  /// The server waits for credentials. What is saved meanwhile is kept by the service.
  CredentialsNeeded,
  /// Connected, and the book may only be read.
  ReadOnly,
  /// The book has been removed.
  Gone,
};

/// What others did to a book, once it has been applied.
struct OVEDSChanges {
  OVList<IOVPerson> cameIn = OVList<IOVPerson>::list();
  OVList<IOVPerson> changed = OVList<IOVPerson>::list();
  /// They belong to no book any more.
  OVList<IOVPerson> went = OVList<IOVPerson>::list();
  OVList<IOVGroup> groupsCameIn = OVList<IOVGroup>::list();
  OVList<IOVGroup> groupsChanged = OVList<IOVGroup>::list();
  OVList<IOVGroup> groupsWent = OVList<IOVGroup>::list();

  [[nodiscard]] bool empty() const {
    return cameIn.empty() && changed.empty() && went.empty() && groupsCameIn.empty() &&
           groupsChanged.empty() && groupsWent.empty();
  }
};

/// A card that was changed here and elsewhere. The book shows the other's; ours is kept until the
/// program has decided.
struct OVEDSConflict {
  /// Of the person or group.
  OVString ID;
  bool isGroup = false;
  /// Ours was to remove it.
  bool weRemoved = false;
  /// The other's removed it.
  bool theyRemoved = false;
  /// Our card, as a vCard 3.0; null when ours was to remove it.
  OVString ourCard;
  /// The other's card; null when it was removed.
  OVString theirCard;
};

enum class OVEDSResolution : std::uint8_t {
  /// Forgets ours.
  Theirs,
  /// Puts ours in place of theirs; the next save writes it.
  Ours,
  /// Adds ours as a person or group of its own; the next save writes it.
  Both,
};

/// Something that the service refused, or that could not be read verbatim.
struct OVEDSProblem {
  /// Of the person or group; null for the book as a whole.
  OVString ID;
  /// One sentence in English, or in the service's own words.
  OVString reason;
};
