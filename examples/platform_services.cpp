#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <string>

/// Opens nothing, but says what it was asked to open.
class TracingWorkspace : public OVWorkspace {
  bool open(const OVString& url) override {
    std::cout << "open " << url << "\n";
    return true;
  }
};

/// Keeps preferences for as long as the program runs. Any thread may ask, hence the lock.
class ShortDefaults : public OVUserDefaults {
  OVRef<OVObject> load(const OVString& key) const override {
    const std::lock_guard lock(mutex_);
    const auto at = values_.find(key.str());
    return at == values_.end() ? nullptr : at->second;
  }
  void store(const OVRef<OVObject>& object, const OVString& key) override {
    const std::lock_guard lock(mutex_);
    if (object == nullptr) {
      values_.erase(key.str());
    } else {
      values_[key.str()] = object;
    }
  }
  bool writeThrough() override { return true; }

  mutable std::mutex mutex_;
  std::map<std::string, OVRef<OVObject>> values_;
};

class StandardErrorLog : public OVLog {
  void write(const OVString& line) override { std::cerr << line << "\n"; }
};

int main() {
  OVWorkspace::setSharedWorkspace(std::make_shared<TracingWorkspace>());
  OVUserDefaults::setStandardUserDefaults(std::make_shared<ShortDefaults>());
  OVLog::setSharedLog(std::make_shared<StandardErrorLog>());
  OVLocale::setCurrentLocale(OVLocale::withIdentifier("pt_BR"));

  const auto observer = OVNotificationCenter::defaultCenter()->addObserver(
      OV_LastNmaeFrontChange_notification,
      [](const OVNotification& notification) { std::cout << notification.name << "\n"; });

  OVObjectPhone::initWithPhoneNumber("+55 (21) 5555-0172")->call();
  OVAddressBook::setlastNameInFront(true);
  std::cout << OVAddressBook::lastNameInFront() << " " << OVCountry::local()->name() << "\n";
}
