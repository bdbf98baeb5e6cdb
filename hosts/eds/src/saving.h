#pragma once

#include <string>
#include <vector>

#include "book_content.h"

namespace ov::eds {

/// Writes what has changed in a book.
class Saver {
 public:
  Saver(BookContent& book, const Call& call, const Progress& progress)
      : book_(book), call_(call), progress_(progress) {}
  Saver(const Saver&) = delete;
  Saver& operator=(const Saver&) = delete;
  ~Saver() = default;

  [[nodiscard]] std::error_code run();

 private:
  using Entry = ov::card::Store::Entry;
  enum class Kind { Add, Change, Remove };
  struct Item {
    std::string uid;
    Entry entry;       // of neither for a removal
    std::string base;  // "" for what is new
    std::string card;  // "" for a removal
  };
  using Items = std::vector<Item>;

  void collect();
  void collect(const Entry& entry, const std::string& uid, Items& added);
  [[nodiscard]] std::error_code writeAll(Kind kind, Items items);
  [[nodiscard]] std::error_code writeLot(Kind kind, Items items, bool isDoubtful);
  [[nodiscard]] Connection::Outcome request(Kind kind, const Items& items);
  [[nodiscard]] std::error_code writeOneByOne(Kind kind, Items items);
  [[nodiscard]] std::error_code giveUp(const Item& item, const Connection::Outcome& outcome);

  /// Leaves out what others have changed and what has been written already.
  [[nodiscard]] std::error_code check(Kind kind, Items& items);
  [[nodiscard]] bool isToBeWritten(Kind kind, Item& item, const std::string* current);
  void conflict(const Item& item, const std::string* current);
  void done(Kind kind, Items& items);
  void done(Kind kind, Item& item, const std::string* current);

  BookContent& book_;
  const Call& call_;
  const Progress& progress_;
  Items newPersons_;
  Items newGroups_;
  Items changes_;
  Items removals_;
  std::size_t count_ = 0;
  std::size_t finished_ = 0;
  std::error_code error_;
};

}  // namespace ov::eds
