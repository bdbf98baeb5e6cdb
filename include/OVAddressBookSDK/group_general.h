#pragma once

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>

/// The library's own record of a group: a title, and the IDs of its sub-groups and members.
///
/// Setters keep the object given; everything may be null, and is at first. The archive holds title,
/// sub-groups and members; the ID is only kept as the key of the group in its book. Any thread may
/// call the accessors.
class OV_EXPORT OVGroupGeneral : public OVObject {
 public:
  /// A new, empty group.
  [[nodiscard]] static OVRef<OVGroupGeneral> init();
  ~OVGroupGeneral() override;

  /// The key of the group in its book.
  [[nodiscard]] OVString ID() const { return ID_.load(); }
  /// Does not move the group in its book's dictionary.
  void setID(OVString ID) { ID_.store(std::move(ID)); }
  /// The name shown to the user.
  [[nodiscard]] OVString title() const { return title_.load().text(); }
  /// Null clears the title.
  void setTitle(OVString title) { title_.store(ov::detail::TextField(std::move(title))); }
  /// The IDs of the groups directly inside this one, in order.
  [[nodiscard]] OVList<OVString> subArray() const {
    return ov::cast<OVList<OVString>>(subArray_.load());
  }
  /// Keeps the list itself; null clears it.
  void setSubArray(OVList<OVString> subArray) { subArray_.store(std::move(subArray)); }
  /// The IDs of the members, in order.
  [[nodiscard]] OVList<OVString> persons() const {
    return ov::cast<OVList<OVString>>(persons_.load());
  }
  /// Keeps the list itself; null clears it.
  void setPersons(OVList<OVString> persons) { persons_.store(std::move(persons)); }
  /// The host's own object; never archived.
  [[nodiscard]] OVRef<OVObject> extend() const { return extend_.load(); }
  /// Keeps the object itself; null clears it.
  void setExtend(OVRef<OVObject> extend) { extend_.store(std::move(extend)); }

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVGroupGeneral() = default;

 private:
  OVAtomic<OVString> ID_;
  // An archive may hold objects of any class: they read as null, are kept and written back.
  OVAtomic<ov::detail::TextField> title_;
  OVAtomic<OVRef<OVObject>> subArray_;
  OVAtomic<OVRef<OVObject>> persons_;
  OVAtomic<OVRef<OVObject>> extend_;
};
