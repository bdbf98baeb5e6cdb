#include <OVAddressBookSDK/notification_center.h>

#include <stdexcept>
#include <utility>

#include "platform/services/in_process_center.h"
#include "platform/services/shared_instance.h"

namespace {

ov::SharedInstance<OVNotificationCenter>& theCenter() {
  static auto& instance =
      *new ov::SharedInstance<OVNotificationCenter>(&OVNotificationCenter::inProcess);
  return instance;
}

}  // namespace

OVNotificationObserver::OVNotificationObserver(std::function<void()> remove)
    : remove_(std::move(remove)) {}

OVNotificationObserver::OVNotificationObserver(OVNotificationObserver&& other) noexcept
    : remove_(std::exchange(other.remove_, nullptr)) {}

OVNotificationObserver& OVNotificationObserver::operator=(OVNotificationObserver&& other) noexcept {
  auto taken = std::exchange(other.remove_, nullptr);
  remove();
  remove_ = std::move(taken);
  return *this;
}

OVNotificationObserver::~OVNotificationObserver() { remove(); }

void OVNotificationObserver::remove() {
  const auto remove = std::exchange(remove_, nullptr);
  if (remove != nullptr) remove();
}

OVNotificationCenter::~OVNotificationCenter() = default;

OVRef<OVNotificationCenter> OVNotificationCenter::defaultCenter() { return theCenter().get(); }

void OVNotificationCenter::setDefaultCenter(OVRef<OVNotificationCenter> center) {
  theCenter().set(std::move(center));
}

OVRef<OVNotificationCenter> OVNotificationCenter::inProcess() {
  return std::make_shared<ov::InProcessCenter>();
}

OVNotificationObserver OVNotificationCenter::addObserver(const OVString& name, Callback callback) {
  if (callback == nullptr) {
    throw std::invalid_argument("OVNotificationCenter: an observer needs a callback");
  }
  return observe(name, std::move(callback));
}

void OVNotificationCenter::postNotificationName(const OVString& name, const OVRef<OVObject>& object,
                                                const OVDictionary<OVObject>& userInfo) {
  if (!name.isNull()) post({name, object, userInfo});
}
