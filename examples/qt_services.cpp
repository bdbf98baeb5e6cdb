#include <QDesktopServices>
#include <QGuiApplication>
#include <QMutex>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <QUrl>

#include <OVAddressBookSDK/OVAddressBookSDK.h>

namespace {

QString textOf(const OVString& text) {
  return QString::fromUtf8(text.c_str(), static_cast<int>(text.size()));
}

/// Opens URLs as Qt does, on the thread that Qt's windows belong to.
class QtWorkspace : public OVWorkspace {
  bool open(const OVString& url) override {
    QMetaObject::invokeMethod(
        qApp, [address = QUrl(textOf(url))] { QDesktopServices::openUrl(address); },
        Qt::QueuedConnection);
    return true;
  }
};

/// Keeps the library's preferences in the program's settings: every object as a data block.
class QtDefaults : public OVUserDefaults {
 public:
  explicit QtDefaults(const QString& path) : settings_(path, QSettings::IniFormat) {}

 private:
  OVRef<OVObject> load(const OVString& key) const override {
    const QMutexLocker lock(&mutex_);
    const QByteArray block = settings_.value(textOf(key)).toByteArray();
    if (block.isEmpty()) return nullptr;
    try {
      return OVKeyedUnarchiver::unarchiveObjectWithData(
          OVData::dataWithText({block.constData(), static_cast<std::size_t>(block.size())}));
    } catch (const OVInvalidArchive&) {
      return nullptr;
    }
  }
  void store(const OVRef<OVObject>& object, const OVString& key) override {
    const QMutexLocker lock(&mutex_);
    if (object == nullptr) {
      settings_.remove(textOf(key));
      return;
    }
    const auto block = OVKeyedArchiver::archivedDataWithRootObject(object);
    settings_.setValue(textOf(key),
                       QByteArray(block->text().data(), static_cast<int>(block->size())));
  }
  bool writeThrough() override {
    const QMutexLocker lock(&mutex_);
    settings_.sync();
    return settings_.status() == QSettings::NoError;
  }

  mutable QMutex mutex_;
  QSettings settings_;
};

}  // namespace

int main(int count, char** arguments) {
  const QGuiApplication application(count, arguments);
  const QTemporaryDir folder;
  const QString path = folder.filePath("settings.ini");
  OVWorkspace::setSharedWorkspace(std::make_shared<QtWorkspace>());
  OVUserDefaults::setStandardUserDefaults(std::make_shared<QtDefaults>(path));

  OVAddressBook::setlastNameInFront(true);
  OVUserDefaults::standardUserDefaults()->synchronize();
  OVUserDefaults::setStandardUserDefaults(
      std::make_shared<QtDefaults>(path));  // as after a restart
  QTextStream(stdout) << "last name in front: " << OVAddressBook::lastNameInFront() << "\n";

  QTimer::singleShot(0, qApp, &QGuiApplication::quit);
  return QGuiApplication::exec();
}
