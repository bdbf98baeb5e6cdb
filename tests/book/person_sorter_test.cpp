#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/person_sorter.h>

#include "person_lists.h"
#include "support/fakes/fake_locale.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

class PersonSorter : public testing::Test {
 protected:
  void add(const ListedPerson& person) { persons_.push_back(OVRef<OVPersonGeneral>(person)); }
  std::string sorted(OVPersonOrder order) {
    auto persons = persons_;
    OVPersonSorter(order).sort(persons);
    std::string IDs;
    for (const auto& person : persons) IDs += person == nullptr ? "-" : person->ID().str();
    return IDs;
  }

  const FakePlatform platform_;
  const FakeLocale locale_{"en_US"};
  std::vector<OVRef<IOVPerson>> persons_;
};

}  // namespace

TEST_F(PersonSorter, FollowsTheNameOrder) {
  add(ListedPerson("1").name("Ann", nullptr, "Zorn"));
  add(ListedPerson("2").name("Zoe", nullptr, "Abel"));
  EXPECT_EQ(sorted(OVPersonOrder::Name), "12");
  OVAddressBook::setlastNameInFront(true);
  EXPECT_EQ(sorted(OVPersonOrder::Name), "21");
}

TEST_F(PersonSorter, ComparesWholeLastNamesFirst) {
  OVAddressBook::setlastNameInFront(true);
  add(ListedPerson("1").name("An", nullptr, "Lian"));
  add(ListedPerson("2").name("Bo", nullptr, "Li"));
  EXPECT_EQ(sorted(OVPersonOrder::Name), "21");
}

TEST_F(PersonSorter, PutsWhoHasNothingLast) {
  add(ListedPerson("1"));
  persons_.push_back(nullptr);
  add(ListedPerson("2").phone("123"));
  add(ListedPerson("3").name("\u6e21", nullptr, "\u8fba"));
  EXPECT_EQ(sorted(OVPersonOrder::Name), "231-");
}

TEST_F(PersonSorter, HearsPhoneticNames) {
  OVAddressBook::setlastNameInFront(true);
  add(ListedPerson("1")
          .name("\u82b1\u5b50", nullptr, "\u6e21\u8fba")
          .text(OVProPertyLastNamePhonetic, "Watanabe"));
  add(ListedPerson("2").name("Ann", nullptr, "Zorn"));
  EXPECT_EQ(sorted(OVPersonOrder::Name), "12");
}

TEST_F(PersonSorter, ByCompanyThenByName) {
  add(ListedPerson("1").name("Zoe", nullptr, nullptr).text(OVProPertyCompany, "Ebb"));
  add(ListedPerson("2").name("Ann", nullptr, nullptr));
  add(ListedPerson("3").name("Ann", nullptr, nullptr).text(OVProPertyCompany, "Ebb"));
  add(ListedPerson("4").text(OVProPertyCompany, "Dike"));
  EXPECT_EQ(sorted(OVPersonOrder::Company), "4312");
  EXPECT_EQ(sorted(OVPersonOrder::None), "1234");
}

TEST_F(PersonSorter, KeepsTheOrderOfEquals) {
  for (const char* ID : {"3", "1", "2"}) add(ListedPerson(ID).name("Ann", nullptr, nullptr));
  EXPECT_EQ(sorted(OVPersonOrder::Name), "312");
}

TEST_F(PersonSorter, KeysOrderAsTheListDoes) {
  const ListedPerson ann = ListedPerson("1").name("Ann", nullptr, "Lee");
  const ListedPerson bob = ListedPerson("2").name("bob", nullptr, "Lee");
  const OVPersonSorter sorter(OVPersonOrder::Name);
  EXPECT_LT(sorter.keyOf(*ann), sorter.keyOf(*bob));
  EXPECT_LT(sorter.keyOf(*bob), sorter.keyOf(*ListedPerson("3")));
}
