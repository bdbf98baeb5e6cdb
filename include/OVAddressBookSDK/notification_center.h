#pragma once

#include <functional>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// What an observer receives.
struct OVNotification {
  /// What the notification is about: one of `notification_names.h`, or the host's own.
  OVString name;
  /// Its subject; may be null.
  OVRef<OVObject> object;
  /// Details; may be null. Shared with the poster and the other observers.
  OVDictionary<OVObject> userInfo;
};

/// Keeps an observer registered for as long as it lives.
class OV_EXPORT OVNotificationObserver {
 public:
  /// Observes nothing.
  OVNotificationObserver() = default;
  /// Calls `remove`, once, when the observation is to end; it must not throw.
  explicit OVNotificationObserver(std::function<void()> remove);
  /// Takes over the other's observation; its own earlier one ends.
  /// @{
  OVNotificationObserver(OVNotificationObserver&& other) noexcept;
  OVNotificationObserver& operator=(OVNotificationObserver&& other) noexcept;
  /// @}
  ~OVNotificationObserver();

  /// Ends the observation: this thread no longer calls the callback. A delivery in progress on
  /// another thread may still do so. Calling it again has no effect.
  void remove();

 private:
  std::function<void()> remove_;
};

/// Broadcasts notifications by name.
///
/// The platform's default works within the process: a notification is delivered on the poster's
/// thread, before the post returns, to the observers in the order in which they were added. During
/// a delivery observers may be added, removed (themselves and each other) and notifications posted:
/// one that has been removed is no longer called, one that has just been added is not called for
/// that delivery. Any thread may do anything at any time; no lock is held while a callback runs.
///
/// \code
/// auto observer = OVNotificationCenter::defaultCenter()->addObserver(
///     OV_LastNmaeFrontChange_notification,
///     [](const OVNotification&) { std::cout << "draw the names again\n"; });
/// OVAddressBook::setlastNameInFront(true);  // prints: draw the names again
/// \endcode
///
/// A host with a bus of its own derives from this class and installs it:
///
/// \code
/// class HostCenter : public OVNotificationCenter {
///   OVNotificationObserver observe(const OVString& name, Callback callback) override {
///     const auto id = bus.subscribe(name, std::move(callback));
///     return OVNotificationObserver([id] { bus.unsubscribe(id); });
///   }
///   void post(const OVNotification& notification) override { bus.publish(notification); }
/// };
/// OVNotificationCenter::setDefaultCenter(std::make_shared<HostCenter>());
/// \endcode
class OV_EXPORT OVNotificationCenter {
 public:
  /// Called for each notification that is observed, on the thread that posts it.
  using Callback = std::function<void(const OVNotification&)>;

  OVNotificationCenter(const OVNotificationCenter&) = delete;
  OVNotificationCenter& operator=(const OVNotificationCenter&) = delete;
  virtual ~OVNotificationCenter();

  /// The centre that the library posts to; never null.
  [[nodiscard]] static OVRef<OVNotificationCenter> defaultCenter();
  /// Installs another centre; null restores the platform's default. Observers stay with the centre
  /// that they were added to.
  static void setDefaultCenter(OVRef<OVNotificationCenter> center);

  /// A new centre of the default's kind, to which nobody else posts.
  [[nodiscard]] static OVRef<OVNotificationCenter> inProcess();

  /// Calls `callback` for every notification of that name, of any name when `name` is null, until
  /// the result is destroyed. The observer may outlive the centre. Throws `std::invalid_argument`
  /// for an empty callback.
  [[nodiscard]] OVNotificationObserver addObserver(const OVString& name, Callback callback);

  /// Delivers a notification. A null name delivers nothing. An exception thrown by a callback
  /// reaches the caller, and later observers are not called.
  void postNotificationName(const OVString& name, const OVRef<OVObject>& object = nullptr,
                            const OVDictionary<OVObject>& userInfo = nullptr);

 protected:
  OVNotificationCenter() = default;

 private:
  /// Called with a callback that is not empty.
  virtual OVNotificationObserver observe(const OVString& name, Callback callback) = 0;
  /// Called with a name that is not null.
  virtual void post(const OVNotification& notification) = 0;
};
