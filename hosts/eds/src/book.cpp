#include <OVAddressBookEDS/eds_book.h>

#include <OVAddressBookSDK/notification_names.h>

#include "applying.h"
#include "arriving.h"
#include "book_content.h"
#include "saving.h"

using ov::eds::BookContent;

namespace {

OVEDSChanges takeApplied(BookContent& book) {
  OVEDSChanges changes = std::exchange(book.applied, {});
  if (!changes.cameIn.empty() || !changes.went.empty()) {
    book.notices.push_back({OVPersonChangeAllPersonNotification, nullptr, nullptr, nullptr});
  }
  return changes;
}

}  // namespace

OVEDSBook::OVEDSBook(std::shared_ptr<BookContent> content) : content_(std::move(content)) {}

OVEDSBook::~OVEDSBook() { content_->connection->setNewsCallback({}); }

std::error_code OVEDSBook::load(const ov::eds::Progress& progress, const ov::eds::Call& call) {
  if (content_->isLoaded) return {};
  ov::eds::Connection::Cards cards;
  if (const auto outcome = content_->connection->fetchAll(cards, call); outcome.error) {
    return outcome.error;
  }
  ov::eds::arrive(*content_, std::move(cards), {}, progress);
  content_->isLoaded = true;
  return {};
}

std::error_code OVEDSBook::refresh(const ov::eds::Call& call) {
  return content_->connection->refresh(call).error;
}

OVEDSState OVEDSBook::state() const { return content_->connection->state(); }

bool OVEDSBook::waitsForServer() const { return content_->connection->waitsForServer(); }

bool OVEDSBook::hasChangesWaiting() const { return !content_->connection->inbox().empty(); }

void OVEDSBook::setWaitingCallback(WaitingCallback callback) {
  content_->connection->setNewsCallback(std::move(callback));
}

OVEDSChanges OVEDSBook::applyChanges(std::error_code& error, const ov::eds::Call& call) {
  error = content_->isLoaded ? ov::eds::applyNews(*content_, call) : std::error_code();
  OVEDSChanges changes = takeApplied(*content_);
  ov::eds::postNotices(*content_, shared_from_this());
  return changes;
}

std::vector<OVEDSConflict> OVEDSBook::conflicts() const { return content_->conflicts; }

std::vector<OVEDSProblem> OVEDSBook::problems() const {
  std::vector<OVEDSProblem> problems = content_->readingProblems;
  problems.insert(problems.end(), content_->saveProblems.begin(), content_->saveProblems.end());
  return problems;
}

std::error_code OVEDSBook::saveWithin(const ov::eds::Call& call,
                                      const ov::eds::Progress& progress) {
  content_->saveError = ov::eds::Saver(*content_, call, progress).run();
  return content_->saveError;
}

void OVEDSBook::save() { saveWithin({}); }

void OVEDSBook::saveDataBlock(const std::function<void()>& block) {
  save();
  if (block) block();
}

std::error_code OVEDSBook::saveError() const { return content_->saveError; }
