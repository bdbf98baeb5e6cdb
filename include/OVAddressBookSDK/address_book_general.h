#pragma once

#include <memory>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/group_general.h>
#include <OVAddressBookSDK/person_general.h>

/// A neutral snapshot of any book, written whole into one data block and read back from it.
///
/// Its content is available through `personsDic` and `groupsDic` only: as an `OVAddressBook`, it is
/// empty. One thread at a time, except that atomic fields of its content may be set while it is
/// saved: those of groups, labels, single and multiple values, and an address's country code.
///
/// \code
/// auto book = OVAddressBookGeneral::init();
/// book->addPerson(OVPersonGeneral::initWithID("mira-1"));
/// auto block = book->saveToData();  // its bytes() go wherever you like
/// auto restored = OVAddressBookGeneral::addressBookWithData(block);
/// for (const auto& [ID, person] : ov::cast<OVAddressBookGeneral>(restored)->personsDic())
///   std::cout << ID << "\n";  // mira-1
/// \endcode
class OV_EXPORT OVAddressBookGeneral : public OVAddressBook,
                                       public std::enable_shared_from_this<OVAddressBookGeneral> {
 public:
  /// A new, empty book.
  [[nodiscard]] static OVRef<OVAddressBookGeneral> init();
  ~OVAddressBookGeneral() override;
  /// The root object of the archive in `data`, whatever its class: `ov::cast<OVAddressBookGeneral>`
  /// says whether it is a book. Throws `OVInvalidArchive` for data that is not an archive, and for
  /// null.
  [[nodiscard]] static OVRef<OVObject> addressBookWithData(const OVRef<OVData>& data);
  /// The archive with this book as its root object. The same content gives the same bytes. Throws
  /// `std::invalid_argument` when an object in it cannot be archived, naming the person, the
  /// property and the position, and `std::logic_error` for a book that no `OVRef` owns, such as one
  /// on the stack.
  [[nodiscard]] OVRef<OVData> saveToData() const;

  /// Converts the person and keeps the result under its ID, replacing an earlier one. Null does
  /// nothing. Throws `std::invalid_argument`, changing nothing, when the ID is null, and when
  /// `generalPersonWithPerson` does.
  void addPerson(const OVRef<IOVPerson>& person);
  /// Converts the group and keeps the result under its ID, replacing an earlier one. Throws
  /// `std::invalid_argument`, changing nothing, for null, when the ID is null, and when
  /// `generalGroupByGroup` does.
  void addGroup(const OVRef<IOVGroup>& group);

  /// Always a new person, with the ID of `person` and the same value objects for the properties of
  /// the standard catalogue; null for null. Tags and values under other names are not copied. What
  /// an archive held in the place of a value of an `OVPersonGeneral` is. Throws
  /// `std::invalid_argument` for one of `ov::personsToList`.
  [[nodiscard]] OVRef<OVPersonGeneral> generalPersonWithPerson(
      const OVRef<IOVPerson>& person) const;
  /// A new group of the IDs of the sub-groups and members of `group`; null for null. Sub-groups are
  /// not converted. Throws `std::invalid_argument` when one of them has no ID.
  [[nodiscard]] OVRef<OVGroupGeneral> generalGroupByGroup(const OVRef<IOVGroup>& group) const;

  /// The persons by ID, the groups by the ID of the group they were made from: the live
  /// dictionaries. Null when the book came from an archive without one; additions to such a book
  /// are silently ignored.
  [[nodiscard]] OVDictionary<OVPersonGeneral> personsDic() const {
    return ov::cast<OVDictionary<OVPersonGeneral>>(personDic_);
  }
  /// See `personsDic`.
  [[nodiscard]] OVDictionary<OVGroupGeneral> groupsDic() const {
    return ov::cast<OVDictionary<OVGroupGeneral>>(groupDic_);
  }

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVAddressBookGeneral();

 private:
  // An archive may hold objects of any class: they read as null, are kept and written back.
  OVRef<OVObject> personDic_;
  OVRef<OVObject> groupDic_;
};
