#pragma once

#include <span>
#include <vector>

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/text_field.h>

namespace ov::detail {

class ListedPerson;
struct StandardProperty;

}  // namespace ov::detail

/// The library's own person: an ID and a bag of values by property name.
///
/// Its archive holds the ID and the values under the names of the standard catalogue; values under
/// other names, tags and the extension object are not archived. One thread at a time, except for
/// `extend`.
///
/// \code
/// auto mira = OVPersonGeneral::initWithID("mira-1");
/// auto name = OVObjectPersonName::initWithFirstMiddleLast("Mira", nullptr, "Halonen");
/// mira->setValueByPropertyName(ov::labelled(name, "name", OVValueTypePersonName), OVProPertyName);
/// std::cout << mira->displayName() << "\n";  // Mira Halonen
/// \endcode
class OV_EXPORT OVPersonGeneral : public IOVPerson {
 public:
  /// A new person without values and tags. The ID is kept as given, null included.
  [[nodiscard]] static OVRef<OVPersonGeneral> initWithID(const OVString& ID);
  ~OVPersonGeneral() override;

  /// "" for a person from an archive without one, null for one whose archive held something that is
  /// not text: that is kept and written back, but such a person cannot be added to a book.
  [[nodiscard]] OVString ID() const override { return ID_.text(); }
  /// Always "": the person does not know its book.
  [[nodiscard]] OVString addressBookID() const override;
  /// The `displayString` of the name object under "Name"; "" without one.
  [[nodiscard]] OVString displayName() const override;

  /// Null for a null property.
  [[nodiscard]] OVRef<OVValue> valueByProperty(const OVRef<OVProperty>& property) const override;
  /// Null when there is none, and for a null name.
  [[nodiscard]] OVRef<OVValue> valueByPropertyName(const OVStringView& name) const override;
  /// Replaces an earlier value. Does nothing when value or property is null; use
  /// `removeValueByPropertyName` to remove a value.
  void setValueByProperty(const OVRef<OVValue>& value, const OVRef<OVProperty>& property) override;
  /// The same under any name; does nothing when value or name is null.
  void setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) override;

  /// Removes the value under the name. Does nothing if there is none, and for null.
  void removeValueByPropertyName(const OVStringView& name);

  [[nodiscard]] OVRef<OVImage> thumbnail() const override;
  /// Null keeps the old thumbnail.
  void setThumbnail(const OVRef<OVImage>& image) override;

  [[nodiscard]] OVRef<OVObjectPhone> mainPhone() const override;
  [[nodiscard]] OVRef<OVObjectEmail> mainEmail() const override;
  /// The main value of the multiple value under `name`; null when there is none.
  [[nodiscard]] OVRef<OVSingleValue> mainValueForProPertyName(const OVStringView& name) const;
  /// The datum of that main value; null when there is none.
  [[nodiscard]] OVRef<OVObject> valueOfMainValueForProPertyName(const OVStringView& name) const;

  /// Always a new empty list: membership lives in the groups.
  [[nodiscard]] OVList<IOVGroup> groups() const override;
  /// A new list, in no particular order, of the catalogue's properties whose value is not null.
  [[nodiscard]] OVList<OVProperty> notNullValueProperty() const override;

  /// The live list: changing it changes the person. Never null.
  [[nodiscard]] OVList<OVString> tagArray() const override;
  /// Appends the tag only when the person has it already.
  void addTag(const OVString& tag) override;
  /// Removes every occurrence.
  void removeTag(const OVString& tag) override;
  /// Merges: removes the tags that `tags` names, then appends `tags` in its order. Null does
  /// nothing.
  void setTags(const OVList<OVString>& tags) override;

  /// A general person does not distinguish organisations: this does nothing, and the next four
  /// return false or null.
  void setIsOrganization(bool isOrganization) override;
  /// Always false.
  [[nodiscard]] bool isOrganization() const override;
  /// Always null.
  [[nodiscard]] OVString showName() const override;
  /// Always null.
  [[nodiscard]] OVString companyName() const override;
  /// Always null.
  [[nodiscard]] OVString jobTitle() const override;

  /// A new single value around `rawValue`, which it shares; null for a null `rawValue`. The label
  /// may be null.
  [[nodiscard]] static OVRef<OVMutableSingleValue> singleValueByMacValueLabelType(
      const OVRef<OVObject>& rawValue, const OVRef<OVLabel>& label, OVValueType type);
  /// The same with the type of the property and a new label whose two texts are its display name;
  /// type 0 and a label without texts for a null property.
  [[nodiscard]] static OVRef<OVMutableSingleValue> singleValueByMacValueProperty(
      const OVRef<OVObject>& rawValue, const OVRef<OVProperty>& property);

  /// The host's own object, null until the host sets one. Any thread may call these two.
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
  /// A person without values and tags, and without an ID or with the one given, null included.
  /// @{
  OVPersonGeneral();
  explicit OVPersonGeneral(OVString ID);
  /// @}

 private:
  friend class OVAddressBookGeneral;
  friend class ov::detail::ListedPerson;
  struct Entry {
    OVString name;
    // An archive may hold an object of any class: it reads as null, is kept and written back.
    OVRef<OVObject> value;
  };

  void takeWhatReadsAsNull(const OVPersonGeneral& source);
  /// The ID, and the values under the names in rows of the catalogue, which are in its order.
  void readFields(OVKeyedUnarchiver& coder, std::span<const ov::detail::StandardProperty> rows);
  void setObject(OVRef<OVObject> object, const OVString& name);

  ov::detail::TextField ID_;
  std::vector<Entry> entries_;
  OVList<OVString> tags_;
  OVAtomic<OVRef<OVObject>> extend_;
};
