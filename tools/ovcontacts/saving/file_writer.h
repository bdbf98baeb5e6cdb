#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

#include <OVAddressBookSDK/data.h>

namespace ovcontacts {

class Mailbox;

/// Writes a file on a thread of its own, whole or not at all.
class FileWriter : public QObject {
  Q_OBJECT

 public:
  explicit FileWriter(QObject* parent = nullptr);
  /// Does not wait; what has been begun is written all the same, unless the process ends.
  ~FileWriter() override;

  /// Not while something is being written.
  void start(const QString& path, OVRef<OVData> bytes);
  /// No longer waits for the end, which is not reported either.
  void forget();
  [[nodiscard]] bool isWriting() const { return mailbox_ != nullptr; }

 signals:
  /// What went wrong; "" when nothing did.
  void written(const QString& wrong);

 private:
  std::shared_ptr<Mailbox> mailbox_;
};

}  // namespace ovcontacts
