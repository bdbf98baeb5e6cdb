// Classes that stand in for those of the book and its persons while a block is read, and leave out
// most of their fields.

#include <OVAddressBookSDK/persons_to_list.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/general_book_keys.h"
#include "book/listed_person.h"
#include "book/person_texts.h"
#include "platform/archive/unarchived_with.h"
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
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    persons_ = coder.decodeObjectForKey(kPersonsKey);
  }

 private:
  OVRef<OVObject> persons_;
};

template <class T>
OVClass insteadOf(const OVClass& original) {
  return {original.name, original.superclass, &Maker::empty<T>};
}

}  // namespace

void ListedPerson::encodeWithCoder(OVKeyedArchiver& /*coder*/) const {
  throw std::invalid_argument("OVPersonGeneral: the person \"" + ID().str() +
                              "\" was read for a list and cannot be archived");
}

void ListedPerson::initWithCoder(OVKeyedUnarchiver& coder) {
  static BuiltOnce<std::vector<StandardProperty>> rows;
  readFields(coder, rows.get(listedRows));
}

}  // namespace ov::detail

OVDictionary<const OVPersonGeneral> ov::personsToList(const OVRef<OVData>& data) {
  using namespace ov::detail;
  static const OVClass person = insteadOf<ListedPerson>(OVPersonGeneral::archivedClass());
  static const OVClass book = insteadOf<ListedBook>(OVAddressBookGeneral::archivedClass());
  static constexpr std::array instead{&person, &book};
  const OVRef<OVObject> root = unarchivedWith(data, instead);
  if (const auto hosts = ov::cast<OVAddressBookGeneral>(root)) return hosts->personsDic();
  const auto listed = ov::cast<ListedBook>(root);
  return listed == nullptr ? nullptr : ov::cast<OVDictionary<OVPersonGeneral>>(listed->persons());
}
