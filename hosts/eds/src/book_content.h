#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <OVAddressBookEDS/eds_book.h>

#include "connection.h"
#include "list_card.h"
#include "memory/store.h"

namespace ov::eds {

/// What observers are to know about a person.
struct Notice {
  OVString name;
  OVString key;
  OVRef<IOVPerson> person;
  OVRef<OVObject> value;
};

/// A book: its persons and groups, what the service last said of them, and what is to be done.
struct BookContent {
  std::shared_ptr<Session> session;
  std::shared_ptr<Connection> connection;
  std::shared_ptr<ov::card::Store> store;
  /// The cards as the service has them, by UID, where they are read in another form: with the photo
  /// instead of the name of its file, and lists as groups.
  std::unordered_map<std::string, std::string> originals;
  /// The cards that the next save is to remove, by UID.
  std::map<std::string, std::string> removed;
  /// Those that this book has written, so that the news of them may be older than what is known.
  std::unordered_set<std::string> written;
  std::vector<OVEDSConflict> conflicts;
  std::vector<OVEDSProblem> readingProblems;
  std::vector<OVEDSProblem> saveProblems;
  std::error_code saveError;
  bool isLoaded = false;
  /// What has been applied since the program last asked.
  OVEDSChanges applied;
  std::vector<Notice> notices;

  using Entry = ov::card::Store::Entry;

  /// The card as the service last had it; "" for a person or group that is new.
  [[nodiscard]] std::string_view baseOf(const Entry& entry) const;
  [[nodiscard]] std::string_view baseOf(const std::string& uid) const;
  /// What is to be written; the same as `baseOf` where nothing has changed.
  [[nodiscard]] std::string cardOf(const Entry& entry) const;
  [[nodiscard]] bool isChanged(const Entry& entry) const;
  /// The text that a card is read from.
  [[nodiscard]] std::string readable(const std::string& uid, std::string card);
  /// Takes a card as the new base of somebody who says the same.
  void adopt(const Entry& entry, const std::string& card);
  [[nodiscard]] std::optional<Member> findMember(const OVString& id) const;
};

/// The book seen from inside.
struct BookMaker {
  [[nodiscard]] static OVRef<OVEDSBook> make(std::shared_ptr<BookContent> content) {
    return OVRef<OVEDSBook>(new OVEDSBook(std::move(content)));
  }
};

}  // namespace ov::eds
