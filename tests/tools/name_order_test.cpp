#include <OVAddressBookSDK/person_name.h>

#include "ovbook_test.h"
#include "support/values.h"

using testing::HasSubstr;

namespace {

class NameOrder : public OvbookTest {
 protected:
  std::string bookOfJaneDoe() {
    const auto person = OVPersonGeneral::initWithID("jd");
    person->setValueByPropertyName(
        valueOf(OVValueTypePersonName,
                OVObjectPersonName::initWithFirstMiddleLast("Jane", nullptr, "Doe")),
        OVProPertyName);
    const auto book = OVAddressBookGeneral::init();
    book->addPerson(person);
    return bookFile(*book);
  }
};

}  // namespace

TEST_F(NameOrder, FirstNamesComeFirstByDefault) {
  EXPECT_EQ(ovbook({"name-order"}), success("first\n"));
}

TEST_F(NameOrder, IsReadByTheNextProcess) {
  EXPECT_EQ(ovbook({"name-order", "last"}), success());
  EXPECT_EQ(ovbook({"name-order"}), success("last\n"));
  EXPECT_EQ(ovbook({"name-order", "first"}), success());
  EXPECT_EQ(ovbook({"name-order"}), success("first\n"));
}

TEST_F(NameOrder, ShowsInTheNextList) {
  const std::string book = bookOfJaneDoe();
  EXPECT_EQ(ovbook({"list", book}), success("jd  Jane Doe\n"));
  EXPECT_EQ(ovbook({"name-order", "last"}), success());
  EXPECT_EQ(ovbook({"list", book}), success("jd  Doe Jane\n"));
}

TEST_F(NameOrder, TakesNoOtherWord) {
  const Outcome outcome = ovbook({"name-order", "middle"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("middle not in {first,last}"));
  EXPECT_EQ(ovbook({"name-order"}), success("first\n"));
}

TEST_F(NameOrder, ThatCannotBeStoredIsAFailure) {
  EXPECT_EQ(
      ovbookIn({.environment = {"XDG_CONFIG_HOME=/dev/null"}}, {"name-order", "last"}),
      failure("the name order could not be stored: the preferences cannot be written (see the "
              "log)"));
}
