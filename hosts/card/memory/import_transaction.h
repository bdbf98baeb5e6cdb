#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "codec/card.h"
#include "codec/problems.h"
#include "mapping/labels.h"
#include "store.h"

namespace ov::card {

class Membership;

/// Cards that come into a book together: all of them, or none.
class ImportTransaction {
 public:
  /// `origin` is kept as `Group::Place` with what the cards are read from. `text` holds their
  /// sources, except for those that have memory of their own.
  ImportTransaction(Store& book, OVString origin, std::shared_ptr<const std::string> text,
                    Problems& problems);
  ImportTransaction(const ImportTransaction&) = delete;
  ImportTransaction& operator=(const ImportTransaction&) = delete;
  ~ImportTransaction();

  /// Makes room for so many cards.
  void reserve(std::size_t count);
  void add(const Card& card);
  /// The same, but what the card says of a person is read when somebody first asks for it.
  void addUnread(const Card& card);
  /// Adds a person whose card has this UID, and has not been read. False, adding nothing, when the
  /// UID is in use.
  bool addUnread(const OVString& uid, CardSource source);
  /// The cards that are added from here on have their sources in this text.
  void setText(std::shared_ptr<const std::string> text) { text_ = std::move(text); }
  /// Has a group of the book, whose members are all missing, find them.
  void rejoin(std::shared_ptr<Group> group) { rejoining_.push_back(std::move(group)); }

  /// Does all that may fail, once everything has been added.
  void prepare();
  /// Puts everything into the book, and the members into the groups. Where the book has a tag
  /// manager, that has the tags of the new persons.
  void commit() noexcept;

  /// The groups that contained themselves, and lost one membership each.
  [[nodiscard]] const std::vector<Group::Place>& ringsCut() const { return rings_; }

 private:
  friend class Membership;

  /// What is to be undone for an ID that several cards want.
  struct Wish {
    Store::WantedID* wanted;
    std::size_t lastNumber;
    std::string content;
    std::string id;
    bool isFirst;  // no card wanted it before
  };

  [[nodiscard]] const Store::Entry* find(std::string_view id) const;
  /// Null for a card that is there already.
  [[nodiscard]] OVString idFor(const Card& card, const OVString& given);
  Store::WantedID& wishFor(const OVString& id);
  [[nodiscard]] CardSource sourceOf(const Card& card) const;
  /// False for the card of a person.
  bool addGroupOrNothing(const Card& card);
  void addPerson(const Card& card);
  /// False, keeping nothing, when another card has taken the ID.
  bool keep(const OVRef<Person>& person);
  void addGroup(const Card& card);
  void addTags();
  void forgetTags() noexcept;

  Store& book_;
  OVString origin_;
  std::shared_ptr<const std::string> text_;
  Problems& problems_;
  LabelReader labels_;
  std::vector<OVRef<Person>> persons_;
  std::vector<Store::GroupPlace> groups_;
  std::vector<std::shared_ptr<Group>> rejoining_;
  Store::ByText<Store::Entry> byID_;
  std::vector<Wish> wishes_;
  std::vector<Group::Place> rings_;
  std::uint64_t nextOrder_;
  std::unique_ptr<Membership> membership_;
  bool isCommitted_ = false;
};

}  // namespace ov::card
