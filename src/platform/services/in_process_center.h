#pragma once

#include <OVAddressBookSDK/notification_center.h>

namespace ov {

/// Delivers on the poster's thread.
class InProcessCenter final : public OVNotificationCenter {
 public:
  InProcessCenter();

 private:
  class Observers;

  OVNotificationObserver observe(const OVString& name, Callback callback) override;
  void post(const OVNotification& notification) override;

  // Shared with the observers' handles, which may outlive the centre.
  const OVRef<Observers> observers_;
};

}  // namespace ov
