#include <gtest/gtest.h>

#include <OVAddressBookSDK/person_heading.h>

#include "person_lists.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

class PersonHeading : public testing::Test {
 protected:
  static OVString mainOf(const ListedPerson& person) { return ov::headingOf(*person).main; }

  const FakePlatform platform_;
};

}  // namespace

TEST_F(PersonHeading, IsTheName) {
  EXPECT_EQ(mainOf(ListedPerson("1").name("Ann", nullptr, "Lee").text(OVProPertyCompany, "Ebb")),
            "Ann Lee");
}

TEST_F(PersonHeading, OfAnOrganisationIsItsCompany) {
  ListedPerson person("1");
  person.name("Ann", nullptr, "Lee")
      .text(OVProPertyCompany, "Ebb")
      .text(OVProPertyIsOrganization, "true");
  EXPECT_EQ(mainOf(person), "Ebb");
  EXPECT_EQ(ov::headingOf(*person).below, "Ann Lee");
  for (const char* no : {"", "0", "NO", "False"}) {
    EXPECT_EQ(mainOf(person.text(OVProPertyIsOrganization, no)), "Ann Lee") << no;
  }
}

TEST_F(PersonHeading, WithoutANameIsWhatTellsThePersonApart) {
  ListedPerson person("1");
  EXPECT_EQ(mainOf(person), OVString());
  EXPECT_EQ(mainOf(person.phone("").phone("123")), "123");
  EXPECT_EQ(mainOf(person.email("a@b")), "a@b");
  EXPECT_EQ(mainOf(person.text(OVProPertyNickname, "Annie")), "Annie");
  EXPECT_EQ(mainOf(person.text(OVProPertyCompany, "Ebb")), "Ebb");
}
