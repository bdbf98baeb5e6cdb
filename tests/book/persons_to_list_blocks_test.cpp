// What lists read of blocks that other programs, or mischief, made.

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/persons_to_list.h>

#include "support/archive/archive_builder.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

using Uid = ArchiveBuilder::Uid;
constexpr Uid kNowhere = 4711;

/// A book with one ID, "p", and what that leads to.
OVRef<OVData> bookOf(ArchiveBuilder& b, Uid person, Uid groups = 0) {
  const Uid persons = b.dictionaryOf("NSMutableDictionary", {b.addText("p")}, {person});
  return b.archive(
      b.object("OVAddressBookGeneral", {{"personDic", b.to(persons)}, {"groupDic", b.to(groups)}}));
}

ArchiveBuilder::Fields namedPerson(ArchiveBuilder& b) {
  const Uid company = b.object("OVMutableSingleValue", {{"value", b.to(b.addText("Ebb"))}});
  const Uid note = b.object("OVMutableSingleValue", {{"value", b.to(b.addText("note"))}});
  return {{"ID", b.to(b.addText("p"))}, {"Company", b.to(company)}, {"Note", b.to(note)}};
}

bool has(const OVRef<OVPersonGeneral>& person, const OVString& property) {
  return person->valueByPropertyName(property) != nullptr;
}

/// A host's own class, under that name.
template <class Base>
class Hosts : public Base {
 public:
  static const OVClass& archivedClass() {
    static const std::string name = std::string("TestListed") + Base::archivedClass().name;
    static const OVClass record{name.c_str(), &Base::archivedClass(),
                                [] { return OVRef<OVObject>(std::make_shared<Hosts>()); }};
    return record;
  }
  const OVClass* classForCoder() const override { return &archivedClass(); }
};

using HostsPerson = Hosts<OVPersonGeneral>;
using HostsBook = Hosts<OVAddressBookGeneral>;

}  // namespace

TEST(PersonsToListOfBlocks, AreReadWhateverTheRestOfTheBookIs) {
  ArchiveBuilder b;
  const auto block = bookOf(b, b.object("OVPersonGeneral", namedPerson(b)), kNowhere);
  EXPECT_THROW((void)OVAddressBookGeneral::addressBookWithData(block), OVInvalidArchive);
  EXPECT_TRUE(has(ov::personsToList(block)["p"], OVProPertyCompany));
}

TEST(PersonsToListOfBlocks, AreNullWhereAnIDLeadsToSomethingElse) {
  ArchiveBuilder b;
  const auto persons = ov::personsToList(bookOf(b, b.object("Unknown", {})));
  EXPECT_EQ(persons.size(), 1U);
  EXPECT_EQ(persons["p"], nullptr);
}

TEST(PersonsToListOfBlocks, AreNoneWithoutADictionary) {
  ArchiveBuilder b;
  EXPECT_EQ(ov::personsToList(b.archive(b.object("OVAddressBookGeneral", {}))), nullptr);
}

TEST(PersonsToListOfBlocks, OfAnUnknownClassThatNamesTheirsAreReadInPart) {
  ArchiveBuilder b;
  const Uid newer = b.add(b.fields(
      {{"$classname", b.ascii("Newer")}, {"$classhints", b.array({b.ascii("OVPersonGeneral")})}}));
  auto fields = namedPerson(b);
  fields.emplace_back("$class", b.to(newer));
  const auto person = ov::personsToList(bookOf(b, b.add(b.fields(fields))))["p"];
  EXPECT_TRUE(has(person, OVProPertyCompany));
  EXPECT_FALSE(has(person, OVProPertyNote));
}

TEST(PersonsToListOfBlocks, OfAHostsClassesAreWhole) {
  OVKeyedUnarchiver::registerClass(HostsPerson::archivedClass());
  OVKeyedUnarchiver::registerClass(HostsBook::archivedClass());
  const auto hosts = std::make_shared<HostsPerson>();
  const auto plain = OVPersonGeneral::initWithID("plain");
  for (OVPersonGeneral* person : {static_cast<OVPersonGeneral*>(hosts.get()), plain.get()}) {
    person->setValueByPropertyName(textValue("note"), OVProPertyNote);
  }
  const auto book = std::make_shared<HostsBook>();
  book->personsDic().set("hosts", hosts);
  book->personsDic().set("plain", plain);
  const auto persons = ov::personsToList(book->saveToData());
  EXPECT_TRUE(has(persons["hosts"], OVProPertyNote));
  EXPECT_FALSE(has(persons["plain"], OVProPertyNote));
}

TEST(PersonsToListOfBlocks, RefuseToKeepABookInThePlaceOfAValue) {
  ArchiveBuilder b;
  const Uid book = b.object("OVAddressBookGeneral", {});
  const Uid company = b.object("OVMutableSingleValue", {{"value", b.to(book)}});
  const Uid person = b.object("OVPersonGeneral", {{"Company", b.to(company)}});
  const auto value =
      ov::personsToList(bookOf(b, person))["p"]->valueByPropertyName(OVProPertyCompany);
  ASSERT_NE(value, nullptr);
  EXPECT_THROW((void)OVKeyedArchiver::archivedDataWithRootObject(value), std::invalid_argument);
}

TEST(PersonsToListOfBlocks, InARingAreReleasedWhenTheBlockIsRefused) {
  ArchiveBuilder b;
  const Uid person = b.reserve();
  const Uid name = b.object("OVMutableSingleValue", {{"value", b.to(person)}});
  b.place(person, b.fields({{"$class", b.to(b.classNamed("OVPersonGeneral"))},
                            {"Name", b.to(name)},
                            {"Email", b.to(kNowhere)}}));
  EXPECT_THROW((void)ov::personsToList(bookOf(b, person)), OVInvalidArchive);
}
