#pragma once

#include <memory>
#include <unordered_map>
#include <unordered_set>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/tag_manager.h>

namespace ov::qt {

/// A general book, and what is shown of it beside its persons.
struct BlockContent : std::enable_shared_from_this<BlockContent> {
  OVRef<OVAddressBookGeneral> book;
  OVString id;
  OVRef<OVTagManager> tags;  // null until somebody asks for it
  /// What programs see of the groups, by ID; made when they are asked for.
  std::unordered_map<OVString, OVRef<IOVGroup>> groups;

  /// Null where the book has none.
  [[nodiscard]] OVRef<IOVGroup> group(const OVString& groupID);
  /// The ID of a group of this book; null for any other.
  [[nodiscard]] OVString idOf(const OVRef<IOVGroup>& group) const;
  /// Adds the ID, and those of all groups below it, each once.
  void addAllBelow(const OVString& groupID, std::unordered_set<OVString>& ids) const;
  [[nodiscard]] bool isInside(const OVString& inner, const OVString& outer) const;
  void removeFromGroups(const OVString& personID);

  void makeTags();
  /// Gives the persons the tags that the manager has.
  void writeTags();
};

/// The persons and groups of the book by ID; empty, and not the book's, where it has none.
[[nodiscard]] OVDictionary<OVPersonGeneral> personsOf(const BlockContent& content);
[[nodiscard]] OVDictionary<OVGroupGeneral> groupsOf(const BlockContent& content);

/// The texts under "Tags" of a person; null for none.
[[nodiscard]] OVList<OVString> tagsIn(const OVPersonGeneral& person);

[[nodiscard]] OVString randomID();

}  // namespace ov::qt
