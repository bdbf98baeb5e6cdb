#include <OVAddressBookVCard/vcard_export.h>

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/person_general.h>

#include "book/host_persons.h"
#include "hosts/cards.h"
#include "hosts/through_block.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

using testing::IsEmpty;

const std::string kBook =
    card("UID:a\nN:L;F\nFN:Mr. L\nTEL:1\nTEL;TYPE=cell;PREF=1:2\nCATEGORIES:x,y\nX-FOO;TYPE=b:c") +
    card("UID:b\nFN:B\nADR;TYPE=work:;;s;c;;;France") +
    card("UID:g\nKIND:group\nFN:G\nMEMBER:b\nMEMBER:h\nMEMBER:a") +
    card("UID:h\nKIND:group\nFN:H\nMEMBER:a");

TEST(Export, OfNothingIsNothing) {
  EXPECT_EQ(ov::vcard::exportBook(nullptr), nullptr);
  EXPECT_EQ(ov::vcard::exportBook(OVVCardBook::init())->size(), 0U);
  EXPECT_EQ(ov::vcard::exportBook(OVAddressBook::init())->size(), 0U);
  EXPECT_EQ(ov::vcard::exportBook(OVAddressBookGeneral::init())->size(), 0U);
}

TEST(Export, OfAnyBookIsReadBack) {
  const auto book = bookOf(kBook);
  ASSERT_THAT(problems(*book), IsEmpty());
  const auto again = bookOf(ov::vcard::exportBook(book)->text());
  EXPECT_THAT(problems(*again), IsEmpty());
  EXPECT_EQ(description(*again), description(*book));
}

/// A book of a host's own class, its groups in a ring.
class HostBook final : public OVAddressBook {
 public:
  HostBook() {
    outer->members.push_back(one);
    outer->groupsInside.push_back(inner);
    inner->groupsInside.push_back(outer);
  }
  ~HostBook() override { inner->groupsInside.clear(); }

  [[nodiscard]] OVList<IOVPerson> allPersons() const override {
    return OVList<IOVPerson>::list({one});
  }
  [[nodiscard]] OVList<IOVGroup> rootGroups() const override {
    return OVList<IOVGroup>::list({outer});
  }

  const OVRef<HostPerson> one = hostPerson("p");
  const OVRef<HostGroup> outer = hostGroup("o", "Outer");
  const OVRef<HostGroup> inner = hostGroup("i", nullptr);
};

TEST(Export, OfAHostsBookWritesEachGroupOnce) {
  EXPECT_EQ(ov::vcard::exportBook(std::make_shared<HostBook>())->text(),
            "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:p\r\nEND:VCARD\r\n"
            "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:o\r\nKIND:group\r\nFN:Outer\r\nMEMBER:p\r\n"
            "MEMBER:i\r\nEND:VCARD\r\n"
            "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:i\r\nKIND:group\r\nFN:\r\nMEMBER:o\r\n"
            "END:VCARD\r\n");
}

TEST(Export, OfASnapshotIsReadBack) {
  const auto book = bookOf(kBook);
  const auto again = bookOf(throughBlock(*book));
  EXPECT_THAT(problems(*again), IsEmpty());
  EXPECT_EQ(description(*again), description(*book));
}

TEST(Export, OfABookWithoutDictionariesIsEmpty) {
  const auto block =
      OVKeyedArchiver::archivedDataWithRootObject(archivedAs("OVAddressBookGeneral", {}));
  const auto empty =
      ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  ASSERT_NE(empty, nullptr);
  ASSERT_EQ(empty->personsDic(), nullptr);
  EXPECT_EQ(ov::vcard::exportBook(empty)->size(), 0U);
}

TEST(Export, FoldsLongLinesBetweenCharacters) {
  std::string note;
  for (int i = 0; i < 60; ++i) note += "\u5C71\u00E4b";
  const auto book = bookOf(card("NOTE:" + note + "\nX-A:" + std::string(500, 'x')));
  std::istringstream stream{std::string(ov::vcard::exportBook(book)->text())};
  for (std::string line; std::getline(stream, line);) {
    ASSERT_TRUE(line.ends_with('\r'));
    line.pop_back();
    EXPECT_LE(line.size(), 75U);
    EXPECT_EQ(OVString(line).view(), line) << "a character was cut in two";
  }
  EXPECT_EQ(description(*bookOf(book->saveData()->text())), description(*book));
}

TEST(Export, GivesTheSameBytesForTheSameBook) {
  const auto book = bookOf(kBook);
  const std::string text(book->saveData()->text());
  EXPECT_EQ(bookOf(text)->saveData()->text(), text);
  EXPECT_EQ(bookOf(kBook)->saveData()->text(), text);
}

TEST(Export, WritesPersonsWithoutID) {
  const auto general = OVAddressBookGeneral::init();
  general->addPerson(OVPersonGeneral::initWithID(""));
  EXPECT_EQ(ov::vcard::exportBook(general)->text(), "BEGIN:VCARD\r\nVERSION:4.0\r\nEND:VCARD\r\n");
}

}  // namespace
