#pragma once

#include <cstdint>
#include <functional>

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/notification_names.h>
#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/text.h>

class OVTagManager;

/// A contacts store of any kind. Hosts derive their books from it and override what they support;
/// every operation has a body that does nothing and returns an empty or neutral result.
///
/// One thread at a time, except for the five images and the name order.
///
/// \code
/// struct StaffList : OVAddressBook {
///   OVString name() const override { return "Staff"; }
///   bool canOprate() const override { return false; }  // others keep the list
/// };
/// const OVRef<OVAddressBook> book = std::make_shared<StaffList>();
/// std::cout << book->name() << " " << book->allPersons().size() << "\n";  // Staff 0
/// \endcode
class OV_EXPORT OVAddressBook : public OVObject {
 public:
  /// A plain book: it holds nothing and accepts nothing.
  [[nodiscard]] static OVRef<OVAddressBook> init();
  ~OVAddressBook() override;

  /// Whether person names are shown last name first: one preference for all books, kept in the user
  /// defaults and looked up on every call; a choice made in another process takes effect some
  /// milliseconds later. False at first. Any thread may call these two.
  [[nodiscard]] static bool lastNameInFront();
  /// Stores the preference, then posts `OV_LastNmaeFrontChange_notification`, without object and
  /// user information, on the caller's thread before it returns; also when nothing changed.
  static void setlastNameInFront(bool flag);

  /// Null by default.
  [[nodiscard]] virtual OVString ID() const;
  /// Null by default.
  [[nodiscard]] virtual OVString name() const;
  /// True by default, like the next two.
  [[nodiscard]] virtual bool canCreateGroup() const;
  /// Whether groups may contain groups.
  [[nodiscard]] virtual bool canCreateSubGroup() const;
  /// Whether the book's content may be changed.
  [[nodiscard]] virtual bool canOprate() const;

  /// Reads the book from `data`, which may be null. Does nothing by default.
  virtual void loadWithData(const OVRef<OVData>& data);
  /// Null by default.
  [[nodiscard]] virtual OVRef<OVData> saveData();

  /// The properties that the book can store; a new empty list by default.
  [[nodiscard]] virtual OVList<OVProperty> supportProperty() const;
  /// The properties that the book shows by default; a new empty list by default.
  [[nodiscard]] virtual OVList<OVProperty> commonProperty() const;

  /// 0 by default.
  [[nodiscard]] virtual std::uint64_t allPersonsCount() const;
  /// A new empty list by default.
  [[nodiscard]] virtual OVList<IOVPerson> allPersons() const;
  /// 0 by default.
  [[nodiscard]] virtual std::uint64_t rootGroupsCount() const;
  /// A new empty list by default.
  [[nodiscard]] virtual OVList<IOVGroup> rootGroups() const;

  /// The new group; null by default.
  virtual OVRef<IOVGroup> addGroupByName(const OVString& name);
  /// True by default.
  virtual bool removeGroup(const OVRef<IOVGroup>& group);
  /// Removes the persons from the book. Does nothing by default.
  virtual void removePersons(const OVList<IOVPerson>& persons);
  /// Null by default.
  virtual OVRef<IOVPerson> newPerson();
  /// Makes what was changed permanent. Does nothing by default.
  virtual void save();
  /// Null by default.
  [[nodiscard]] virtual OVRef<OVTagManager> tagManager() const;
  /// Copies a person of another book; returns the person of this book, null by default.
  virtual OVRef<IOVPerson> addOneFromOtherPerson(const OVRef<IOVPerson>& person);
  /// Null by default.
  [[nodiscard]] virtual OVList<IOVPerson> personsForIDs(const OVList<OVString>& personIDs) const;
  /// Null by default.
  [[nodiscard]] virtual OVRef<IOVGroup> groupByID(const OVString& groupID) const;

  /// `progressBlock` may be empty. The library never calls it.
  virtual void loadWithDataProgressBlock(const OVRef<OVData>& data,
                                         const std::function<void()>& progressBlock);
  /// `block` may be empty. The library never calls it.
  virtual void saveDataBlock(const std::function<void()>& block);

  /// Called before any number of `addOneFromOtherPerson` calls, as `addPersonEnd` is after them.
  virtual void addPersonStart();
  /// Called after the `addOneFromOtherPerson` calls that `addPersonStart` announced.
  virtual void addPersonEnd();
  /// Opens a bulk import of `count` persons: one `addBatchPersonForOther` each, then
  /// `addBatchPersonEnd`.
  virtual void addBatchPersonStart(std::int64_t count);
  /// Null by default.
  virtual OVRef<IOVPerson> addBatchPersonForOther(const OVRef<IOVPerson>& person);
  /// Ends the bulk import that `addBatchPersonStart` opened.
  virtual void addBatchPersonEnd();

  /// The book's small picture, and logos of the book's kind: null unless the concrete book set
  /// them. Any thread may call these.
  /// @{
  [[nodiscard]] virtual OVRef<OVImage> thumbnail() const;
  [[nodiscard]] virtual OVRef<OVImage> logo1() const;
  [[nodiscard]] virtual OVRef<OVImage> logo2() const;
  [[nodiscard]] virtual OVRef<OVImage> logo3() const;
  [[nodiscard]] virtual OVRef<OVImage> logo4() const;
  /// @}

  /// Names this class as the superclass of books that archive; a plain book does not archive.
  [[nodiscard]] static const OVClass& archivedClass();

 protected:
  friend struct ov::detail::Maker;
  OVAddressBook() = default;

  /// For the concrete book: keep the image given; null clears it. Any thread may call these.
  /// @{
  void setThumbnail(OVRef<OVImage> image) { thumbnail_.store(std::move(image)); }
  void setLogo1(OVRef<OVImage> image) { logo1_.store(std::move(image)); }
  void setLogo2(OVRef<OVImage> image) { logo2_.store(std::move(image)); }
  void setLogo3(OVRef<OVImage> image) { logo3_.store(std::move(image)); }
  void setLogo4(OVRef<OVImage> image) { logo4_.store(std::move(image)); }
  /// @}

 private:
  OVAtomic<OVRef<OVImage>> thumbnail_;
  OVAtomic<OVRef<OVImage>> logo1_;
  OVAtomic<OVRef<OVImage>> logo2_;
  OVAtomic<OVRef<OVImage>> logo3_;
  OVAtomic<OVRef<OVImage>> logo4_;
};
