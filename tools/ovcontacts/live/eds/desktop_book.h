#pragma once

#include <OVAddressBookEDS/eds_book.h>

#include "live/live_book.h"

namespace ovcontacts {

/// A book of the desktop's address-book service.
class DesktopBook final : public LiveBook {
 public:
  explicit DesktopBook(OVRef<OVEDSBook> book) : book_(std::move(book)) {}

  [[nodiscard]] QString save(const LiveCall& call) override;
  [[nodiscard]] QString refresh(const LiveCall& call) override;
  [[nodiscard]] QString apply(const LiveCall& call, LiveChanges& changes) override;
  [[nodiscard]] std::vector<LiveConflict> conflicts() const override;
  void resolve(const OVString& conflictID, LiveChoice choice) override;
  [[nodiscard]] LiveState state() const override;
  [[nodiscard]] bool hasNews() const override { return book_->hasChangesWaiting(); }
  [[nodiscard]] bool waitsForServer() const override { return book_->waitsForServer(); }
  void setCallback(std::function<void()> callback) override;

 private:
  const OVRef<OVEDSBook> book_;
};

/// What an error of the service means, in words for people; "" for none.
[[nodiscard]] QString wordsFor(const std::error_code& error);

}  // namespace ovcontacts
