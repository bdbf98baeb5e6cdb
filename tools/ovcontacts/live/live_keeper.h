#pragma once

#include <QtCore/QObject>

#include <cstdint>
#include <memory>

#include <OVAddressBookQt/qt_book.h>

#include "live/live_book.h"

namespace ovcontacts {

class Mailbox;

/// Keeps a live book and its store the same, on a thread of its own: one thing at a time, and the
/// windows go on meanwhile. Nothing can be changed while the book is saved or what is new is shown.
class LiveKeeper : public QObject {
  Q_OBJECT

 public:
  LiveKeeper(std::shared_ptr<LiveBook> live, OVQtBook* book, QObject* parent = nullptr);
  /// Stops what is under way, and does not wait for it.
  ~LiveKeeper() override;

  /// Begin; `saved`, `refreshed` or `applied` has the result.
  /// @{
  void save();
  void refresh();
  void apply();
  /// @}
  /// Stops what is under way; its end is still reported.
  void stop();
  /// Whether something is under way.
  [[nodiscard]] bool isBusy() const { return job_ != nullptr; }
  [[nodiscard]] bool isSaving() const;

  [[nodiscard]] LiveBook& live() const { return *live_; }
  /// Decides a conflict; what it changes is to be saved.
  void resolve(const OVString& conflictID, LiveChoice choice);

 signals:
  /// The state, what is new, or what is under way.
  void changed();
  void progressed(quint64 done, quint64 all);
  /// What went wrong; "" when nothing did.
  void saved(const QString& wrong);
  void refreshed(const QString& wrong);
  /// `count` persons and groups are others now.
  void applied(qsizetype count, const QString& wrong);

 private:
  struct Job;
  enum class Task : std::uint8_t { None, Save, Refresh, Apply };
  void begin(Task task);
  void end(Task task, const QString& wrong, const LiveChanges& changes);
  void follow(const LiveChanges& changes);
  void run(const std::shared_ptr<Job>& job);

  const std::shared_ptr<LiveBook> live_;
  OVQtBook* book_;
  const std::shared_ptr<Mailbox> news_;
  std::shared_ptr<Job> job_;
  Task next_ = Task::None;
};

}  // namespace ovcontacts
