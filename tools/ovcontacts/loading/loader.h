#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

#include "loading/book_source.h"

namespace ovcontacts {

/// Opens a book on a thread of its own, and tells on ours how it went.
class Loader : public QObject {
  Q_OBJECT

 public:
  explicit Loader(QObject* parent = nullptr);
  /// Cancels what is being opened, and does not wait for it.
  ~Loader() override;

  /// Cancels what is being opened, and opens another.
  void start(std::shared_ptr<BookSource> source);
  void cancel();
  [[nodiscard]] bool isLoading() const { return job_ != nullptr; }

 signals:
  /// 0 of 0 for what is not known.
  void progressed(quint64 done, quint64 all);
  void opened(const ovcontacts::OpenedBook& book);
  void failed(const QString& name, const QString& reason);
  void cancelled();

 private:
  struct Job;
  void run(const std::shared_ptr<Job>& job);

  std::shared_ptr<Job> job_;
};

}  // namespace ovcontacts
