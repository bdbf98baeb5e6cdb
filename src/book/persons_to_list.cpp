// Classes that stand in for those of the book and its persons while a block is read, and leave out
// most of their fields.

#include <OVAddressBookSDK/persons_to_list.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/general_book_keys.h"
#include "book/listed_person.h"
#include "book/person_texts.h"
#include "platform/archive/archive_reader.h"
#include "platform/archive/class_table.h"
#include "platform/built_once.h"
#include "platform/dispose.h"
#include "platform/maker.h"
#include "property/standard_properties.h"

namespace ov::detail {

namespace {

std::vector<StandardProperty> listedRows() {
  std::vector<StandardProperty> rows;
  for (const StandardProperty& row : standardProperties()) {
    if (isListed(row.name)) rows.push_back(row);
  }
  return rows;
}

/// A book of which the persons are read.
class ListedBook final : public OVObject {
 public:
  ListedBook() = default;
  ListedBook(const ListedBook&) = delete;
  ListedBook& operator=(const ListedBook&) = delete;
  ~ListedBook() override { dispose(std::move(persons_)); }

  [[nodiscard]] const OVRef<OVObject>& persons() const { return persons_; }
  [[nodiscard]] const OVClass* classForCoder() const override {
    return &OVAddressBookGeneral::archivedClass();
  }
  void encodeWithCoder(OVKeyedArchiver& /*coder*/) const override {
    throw std::invalid_argument("OVAddressBookGeneral: a book was read for a list");
  }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    persons_ = coder.decodeObjectForKey(kPersonsKey);
  }

 private:
  OVRef<OVObject> persons_;
};

template <class T>
OVClass standInFor(const OVClass& original) {
  return {original.name, original.superclass, &Maker::empty<T>};
}

const OVClass* listedClass(std::string_view name) {
  static const OVClass person = standInFor<ListedPerson>(OVPersonGeneral::archivedClass());
  static const OVClass book = standInFor<ListedBook>(OVAddressBookGeneral::archivedClass());
  if (name == person.name) return &person;
  if (name == book.name) return &book;
  return registeredClass(name);
}

}  // namespace

void ListedPerson::encodeWithCoder(OVKeyedArchiver& /*coder*/) const { refuseToKeep(); }

void ListedPerson::initWithCoder(OVKeyedUnarchiver& coder) {
  static BuiltOnce<std::vector<StandardProperty>> rows;
  readFields(coder, rows.get(listedRows));
}

void ListedPerson::refuseToKeep() const {
  throw std::invalid_argument("OVPersonGeneral: the person \"" + ID().str() +
                              "\" was read for a list, without the rest, and cannot be kept");
}

}  // namespace ov::detail

OVDictionary<const OVPersonGeneral> ov::personsToList(const OVRef<OVData>& data) {
  const auto root = detail::unarchived(data, detail::listedClass);
  if (const auto hosts = ov::cast<OVAddressBookGeneral>(root)) return hosts->personsDic();
  const auto listed = ov::cast<detail::ListedBook>(root);
  return listed == nullptr ? nullptr : ov::cast<OVDictionary<OVPersonGeneral>>(listed->persons());
}
