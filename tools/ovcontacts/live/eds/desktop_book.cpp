// The windows know no error codes: what the desktop's service says becomes words for users here.

#include "live/eds/desktop_book.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <OVAddressBookQt/qt_text.h>

namespace ovcontacts {

namespace {

QString inWords(const char* text) { return QCoreApplication::translate("Live", text); }

ov::eds::Call callOf(const LiveCall& call) {
  ov::eds::Call ours;
  ours.stop = call.stop;
  ours.around = call.around;
  return ours;
}

}  // namespace

QString wordsFor(const std::error_code& error) {
  if (!error) return {};
  if (error == std::errc::operation_canceled) {
    return inWords(QT_TRANSLATE_NOOP("Live", "It was cancelled."));
  }
  if (error == std::errc::timed_out) {
    return inWords(QT_TRANSLATE_NOOP("Live", "It took too long."));
  }
  if (error.category() == ov::eds::errorCategory()) {
    switch (static_cast<OVEDSError>(error.value())) {
      case OVEDSError::NoService:
        return inWords(
            QT_TRANSLATE_NOOP("Live", "The desktop's service for address books does not answer."));
      case OVEDSError::NoBook:
        return inWords(QT_TRANSLATE_NOOP("Live", "The book has been removed."));
      case OVEDSError::ReadOnly:
        return inWords(QT_TRANSLATE_NOOP("Live", "The book is read-only."));
      case OVEDSError::Offline:
        return inWords(QT_TRANSLATE_NOOP("Live", "The server cannot be reached."));
      case OVEDSError::CredentialsNeeded:
        return inWords(QT_TRANSLATE_NOOP("Live", "The server asks for another password."));
      case OVEDSError::Conflict:
        return inWords(QT_TRANSLATE_NOOP("Live", "Others have changed the same contacts."));
      case OVEDSError::Refused:
        return inWords(QT_TRANSLATE_NOOP("Live", "The service rejected some of the changes."));
    }
  }
  return QString::fromStdString(error.message());
}

QString DesktopBook::save(const LiveCall& call) {
  const std::error_code error = book_->saveWithin(callOf(call), call.progress);
  QStringList lines{wordsFor(error)};
  if (error == OVEDSError::Refused) {
    for (const OVEDSProblem& problem : book_->problems()) lines += ov::qt::qString(problem.reason);
  }
  return lines.join(QLatin1Char('\n'));
}

QString DesktopBook::refresh(const LiveCall& call) {
  return wordsFor(book_->refresh(callOf(call)));
}

QString DesktopBook::apply(const LiveCall& call, LiveChanges& changes) {
  std::error_code error;
  const OVEDSChanges applied = book_->applyChanges(error, callOf(call));
  for (const auto& person : applied.changed) changes.persons.push_back(person);
  changes.hasGroups = !applied.groupsCameIn.empty() || !applied.groupsChanged.empty() ||
                      !applied.groupsWent.empty();
  changes.count = applied.cameIn.size() + applied.changed.size() + applied.went.size() +
                  applied.groupsCameIn.size() + applied.groupsChanged.size() +
                  applied.groupsWent.size();
  return wordsFor(error);
}

std::vector<LiveConflict> DesktopBook::conflicts() const {
  std::vector<LiveConflict> conflicts;
  for (const OVEDSConflict& each : book_->conflicts()) {
    conflicts.push_back({each.ID, each.ourCard, each.theirCard});
  }
  return conflicts;
}

void DesktopBook::resolve(const OVString& conflictID, LiveChoice choice) {
  constexpr OVEDSResolution kResolutions[]{OVEDSResolution::Theirs, OVEDSResolution::Ours,
                                           OVEDSResolution::Both};
  book_->resolve(conflictID, kResolutions[static_cast<std::size_t>(choice)]);
}

LiveState DesktopBook::state() const {
  switch (book_->state()) {
    case OVEDSState::Connected:
      break;
    case OVEDSState::Offline:
      return LiveState::Offline;
    case OVEDSState::CredentialsNeeded:
      return LiveState::Locked;
    case OVEDSState::ReadOnly:
      return LiveState::ReadOnly;
    case OVEDSState::Gone:
      return LiveState::Gone;
  }
  return LiveState::Connected;
}

void DesktopBook::setCallback(std::function<void()> callback) {
  book_->setWaitingCallback(std::move(callback));
}

}  // namespace ovcontacts
