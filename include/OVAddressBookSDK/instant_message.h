#pragma once

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>
#include <OVAddressBookSDK/text_view.h>

/// A messaging service: a stable key, which archives store, and a name to show. Immutable; any
/// thread may read it.
///
/// Ten services are supported. Their descriptors are shared by the whole process, so that two
/// accounts of one supported service hold the same object. A descriptor of any other name is made
/// again on every look-up and belongs to its caller alone.
class OV_EXPORT OVInstantMessageServer : public OVObject {
 public:
  /// The shared list of the supported services. The first call builds it; several threads may make
  /// it at once.
  [[nodiscard]] static OVList<const OVInstantMessageServer> supportServer();

  /// The shared dictionary from key to supported service. Holds the objects of `supportServer`.
  [[nodiscard]] static OVDictionary<const OVInstantMessageServer> StandardServerDictionary();

  /// The supported service with exactly this key. For any other name, null included: a new
  /// descriptor that has it as key and as display name. Never null.
  [[nodiscard]] static OVRef<OVInstantMessageServer> serverWithName(const OVStringView& name);

  /// The first supported service shown under this name, whatever the case of its letters. For any
  /// other name, null included: a new descriptor that has it as key and as display name. Never
  /// null.
  ///
  /// The supported services are searched only after something else has built their list
  /// (`supportServer`, `StandardServerDictionary`, `serverWithName`, reading an account from an
  /// archive). Before that, every name gives a new descriptor.
  [[nodiscard]] static OVRef<OVInstantMessageServer> serverWithDisplayName(
      const OVStringView& displayName);

  /// The key under which accounts store the service, such as "AIMInstant".
  [[nodiscard]] OVString name() const { return name_.text(); }
  /// The name shown to the user.
  [[nodiscard]] OVString displayName() const { return displayName_; }

  /// Always null.
  [[nodiscard]] OVList<OVInstantMessageServer> allArray() const { return nullptr; }

 protected:
  /// The lookups above make descriptors.
  OVInstantMessageServer(OVString name, OVString displayName);

 private:
  friend struct ov::detail::Maker;
  friend class OVObjectInstantMessage;

  /// What an account has stored in the place of a key, when that is not text.
  explicit OVInstantMessageServer(ov::detail::TextField name);
  [[nodiscard]] static OVRef<OVInstantMessageServer> serverWithStoredName(
      ov::detail::TextField name);

  ov::detail::TextField name_;
  OVString displayName_;
};

/// One account: a user name on a messaging service. Immutable; any thread may read it.
class OV_EXPORT OVObjectInstantMessage : public OVObject {
 public:
  /// Keeps both as they are, null included.
  [[nodiscard]] static OVRef<OVObjectInstantMessage> initWithUserNameServer(
      OVString userName, OVRef<OVInstantMessageServer> server);

  /// The name on the service, as it was given or archived; may be null.
  [[nodiscard]] OVString userName() const { return userName_.text(); }
  /// Never null in an account that was read from an archive: without a stored key it is a
  /// descriptor without key and display name.
  [[nodiscard]] OVRef<OVInstantMessageServer> server() const { return server_; }

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  OVObjectInstantMessage() = default;
  /// For derived classes: keeps both as they are, null included.
  OVObjectInstantMessage(OVString userName, OVRef<OVInstantMessageServer> server);

 private:
  friend struct ov::detail::Maker;

  ov::detail::TextField userName_;
  OVRef<OVInstantMessageServer> server_;
};
