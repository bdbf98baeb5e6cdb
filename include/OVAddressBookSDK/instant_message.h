#pragma once

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// A messaging service: a stable key, which archives store, and a name to show. Immutable; any
/// thread may read it.
///
/// Ten services are supported. Their descriptors are shared by the whole process, so that two
/// accounts of one supported service hold the same object. A descriptor of any other name is made
/// anew on every look-up and belongs to its caller alone.
class OV_EXPORT OVInstantMessageServer : public OVObject {
 public:
  /// The shared list of the supported services. The first call builds it; threads may come first
  /// together.
  [[nodiscard]] static OVList<const OVInstantMessageServer> supportServer();

  /// The shared dictionary from key to supported service. Holds the objects of `supportServer`.
  [[nodiscard]] static OVDictionary<const OVInstantMessageServer> StandardServerDictionary();

  /// The supported service with exactly this key. For any other name, null included: a new
  /// descriptor that has it as key and as display name. Never null.
  [[nodiscard]] static OVRef<OVInstantMessageServer> serverWithName(const OVString& name);

  /// The first supported service shown under this name, whatever the case of its letters. For any
  /// other name, null included: a new descriptor that has it as key and as display name. Never
  /// null.
  ///
  /// The supported services are searched once something else has built their list
  /// (`supportServer`, `StandardServerDictionary`, `serverWithName`, reading an account from an
  /// archive). Before that, every name gives a new descriptor.
  [[nodiscard]] static OVRef<OVInstantMessageServer> serverWithDisplayName(
      const OVString& displayName);

  /// The key under which accounts store the service, such as "AIMInstant".
  [[nodiscard]] OVString name() const { return name_; }
  /// What is shown for the service.
  [[nodiscard]] OVString displayName() const { return displayName_; }

  /// Always null: nothing ever fills it.
  [[nodiscard]] OVList<OVInstantMessageServer> allArray() const { return nullptr; }

 protected:
  /// The lookups above make descriptors.
  OVInstantMessageServer(OVString name, OVString displayName);

 private:
  friend struct ov::detail::Maker;

  OVString name_;
  OVString displayName_;
};

/// One account: a user name on a messaging service. Immutable; any thread may read it.
class OV_EXPORT OVObjectInstantMessage : public OVObject {
 public:
  /// Keeps both as they are, null included.
  [[nodiscard]] static OVRef<OVObjectInstantMessage> initWithUserNameServer(
      OVString userName, OVRef<OVInstantMessageServer> server);

  /// The name on the service, as it was given or archived; may be null.
  [[nodiscard]] OVString userName() const { return userName_; }
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

 private:
  friend struct ov::detail::Maker;

  OVString userName_;
  OVRef<OVInstantMessageServer> server_;
};
