// What all stores have in common: checks of keys and values, conversions, and the choice of the
// standard store.

#include <OVAddressBookSDK/user_defaults.h>

#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

#include <OVAddressBookSDK/number.h>

#include "platform/services/defaults_location.h"
#include "platform/services/fork_guard.h"
#include "platform/services/memory_defaults.h"
#include "platform/services/persistent_defaults.h"
#include "platform/services/shared_instance.h"
#include "platform/services/stored_value.h"

namespace {

/// The application that the default store belongs to; "" until the host has named one.
struct Application {
  Application() { ov::guardForever(mutex); }

  std::mutex mutex;
  std::string identifier;
};

Application& application();

OVRef<OVUserDefaults> makeDefaults() {
  std::string identifier;
  {
    const std::lock_guard lock(application().mutex);
    identifier = application().identifier;
  }
  if (identifier.empty()) identifier = ov::defaultApplicationIdentifier();
  return std::make_shared<ov::PersistentDefaults>(ov::defaultsDirectory(identifier));
}

ov::SharedInstance<OVUserDefaults>& theDefaults() {
  static auto& instance = *new ov::SharedInstance<OVUserDefaults>(&makeDefaults);
  return instance;
}

Application& application() {
  // Its mutex is taken under that of the shared instance.
  static_cast<void>(theDefaults());
  static auto& instance = *new Application();
  return instance;
}

bool truthOf(std::string_view text) {
  const auto skip = [&text](std::string_view characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
  };
  skip(" \t\n\v\f\r");
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  skip("0");
  return !text.empty() &&
         std::string_view("YyTt123456789").find(text.front()) != std::string_view::npos;
}

void requireKey(const OVString& key) {
  if (key.isNull()) {
    throw std::invalid_argument("OVUserDefaults: a value needs a key that is not null");
  }
}

}  // namespace

OVUserDefaults::~OVUserDefaults() = default;

OVRef<OVUserDefaults> OVUserDefaults::standardUserDefaults() { return theDefaults().get(); }

void OVUserDefaults::setStandardUserDefaults(OVRef<OVUserDefaults> defaults) {
  theDefaults().set(std::move(defaults));
}

void OVUserDefaults::setApplicationIdentifier(const OVString& identifier) {
  if (!ov::isApplicationIdentifier(identifier.view())) {
    throw std::invalid_argument(
        "OVUserDefaults: an application identifier names a folder: 1 to 200 bytes without \"/\" "
        "and control characters, not \".\" or \"..\"");
  }
  {
    const std::lock_guard lock(application().mutex);
    application().identifier = identifier.str();
  }
  theDefaults().forgetDefault();
}

OVRef<OVUserDefaults> OVUserDefaults::inMemory() { return std::make_shared<ov::MemoryDefaults>(); }

bool OVUserDefaults::boolForKey(const OVString& key) const {
  const OVRef<OVObject> object = key.isNull() ? nullptr : loadPreference(key);
  if (const auto number = ov::cast<OVNumber>(object)) return number->boolValue();
  return truthOf(ov::cast<OVString>(object).view());
}

OVString OVUserDefaults::stringForKey(const OVString& key) const {
  return key.isNull() ? OVString() : ov::cast<OVString>(loadPreference(key));
}

void OVUserDefaults::setBoolForKey(bool flag, const OVString& key) {
  setObjectForKey(OVNumber::numberWithBool(flag), key);
}

OVRef<OVObject> OVUserDefaults::objectForKey(const OVString& key) const {
  return key.isNull() ? nullptr : load(key);
}

void OVUserDefaults::setObjectForKey(const OVRef<OVObject>& object, const OVString& key) {
  requireKey(key);
  if (object != nullptr && !ov::isStorable(*object)) {
    throw std::invalid_argument(
        "OVUserDefaults: only an OVString, OVData, OVNumber or OVDate can be stored; archive other "
        "objects into an OVData first");
  }
  store(object, key);
}

OVRef<OVObject> OVUserDefaults::loadPreference(const OVString& key) const { return load(key); }

bool OVUserDefaults::synchronize() { return writeThrough(); }
