#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "book/archive/small_book.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

class WholeBook : public testing::Test {
 protected:
  OVRef<OVPersonGeneral> person(const OVString& ID) const { return book_->personsDic()[ID]; }
  OVRef<OVMultipleValue> all(const OVString& name) const {
    return ov::cast<OVMultipleValue>(person("zoë")->valueByPropertyName(name));
  }
  template <class T>
  ov::Handle<T> datum(const OVString& name) const {
    return ov::cast<T>(datumOf(person("zoë"), name));
  }

  const OVRef<OVData> block_ = smallBook()->saveToData();
  const OVRef<OVAddressBookGeneral> book_ = bookIn(block_);
};

TEST_F(WholeBook, SavedReadAndSavedAgainHasTheSameBytes) {
  EXPECT_TRUE(smallBook()->saveToData()->text() == block_->text());
  ASSERT_NE(book_, nullptr);
  EXPECT_TRUE(book_->saveToData()->text() == block_->text());
  EXPECT_TRUE(bookIn(book_->saveToData())->saveToData()->text() == block_->text());
}

TEST_F(WholeBook, EveryTypeOfValueComesBack) {
  EXPECT_EQ(datum<OVObjectPersonName>(OVProPertyName)->first(), "Zoë");
  EXPECT_TRUE(datum<OVObjectPersonName>(OVProPertyName)->middle().isNull());
  EXPECT_EQ(datum<OVObjectPersonName>(OVProPertyName)->last(), "Ōe");
  EXPECT_EQ(datum<OVImage>(OVProPertyThumbnail)->data()->text(), "\x89PNG");
  EXPECT_EQ(datum<OVDate>(OVProPertyBirthday)->day(), (OVDate::Day{1969, 7, 20}));
  EXPECT_EQ(datum<OVString>(OVProPertyNote), "😀 note");
  EXPECT_EQ(datum<OVObjectPhone>(OVProPertyPhone)->phoneNumber(), "");
  EXPECT_EQ(datum<OVObjectEmail>(OVProPertyEmail)->email(), "zoe@example.org");
  const auto address = datum<OVObjectAddress>(OVProPertyAddress);
  EXPECT_EQ(address->countryCode(), "de");
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldCity), "Görlitz");
  EXPECT_EQ(address->valueCount(), 2U);
  const auto account = datum<OVObjectInstantMessage>(OVProPertyInstantMessage);
  EXPECT_EQ(account->userName(), "zoe");
  EXPECT_EQ(account->server()->name(), "Jabber");
}

TEST_F(WholeBook, TypeCodesComeBack) {
  const auto typeOf = [&](const OVString& ID, const OVString& name) {
    return person(ID)->valueByPropertyName(name)->type();
  };
  EXPECT_EQ(typeOf("zoë", OVProPertyName), OVValueTypePersonName);
  EXPECT_EQ(typeOf("zoë", OVProPertyPhone), OVValueTypeMultiple);
  EXPECT_EQ(all(OVProPertyPhone)->subType(), OVValueTypePhone);
  EXPECT_EQ(typeOf("b", OVProPertyCompany), static_cast<OVValueType>(-1));
  EXPECT_EQ(typeOf("b", OVProPertyDate), OVValueTypeString);
}

TEST_F(WholeBook, TheMainValueComesBack) {
  const auto phones = all(OVProPertyPhone);
  ASSERT_EQ(phones->count(), 2U);
  EXPECT_EQ(phones->indexOfValue(phones->mainValue()), 1U);
}

TEST_F(WholeBook, OneLabelInManyValuesComesBackAsOne) {
  const auto thumbnail = ov::cast<OVSingleValue>(person("zoë")->valueByPropertyName("Thumbnail"));
  const auto home = thumbnail->label();
  ASSERT_NE(home, nullptr);
  EXPECT_EQ(home->displayName(), "Home");
  EXPECT_EQ(all(OVProPertyPhone)->valueAtIndex(0)->label(), home);
  EXPECT_EQ(all(OVProPertyEmail)->mainValue()->label(), home);
  EXPECT_NE(all(OVProPertyPhone)->valueAtIndex(1)->label(), home);
}

TEST_F(WholeBook, OnePersonUnderTwoIDsComesBackAsOne) {
  EXPECT_EQ(person("again"), person("zoë"));
  EXPECT_NE(person("b"), person("zoë"));
  EXPECT_EQ(person("again")->ID(), "zoë");
}

TEST(RestoredObject, OutlivesTheRestOfItsBookOnAnyThread) {
  OVRef<OVValue> kept;
  {
    const OVRef<OVAddressBookGeneral> book = bookIn(smallBook()->saveToData());
    kept = book->personsDic()["zoë"]->valueByPropertyName(OVProPertyNote);
  }
  std::thread([value = std::move(kept)]() mutable {
    EXPECT_EQ(ov::cast<OVString>(ov::cast<OVSingleValue>(value)->value()), "😀 note");
    value.reset();
  }).join();
}

TEST(WholeBookSharing, OnePersonInTwoDictionariesComesBackAsOne) {
  const auto person = OVPersonGeneral::initWithID("p");
  const auto both =
      OVList<OVObject>::list({OVDictionary<OVPersonGeneral>::dictionary({{"p", person}}),
                              OVDictionary<OVObject>::dictionary({{"other", person}})});
  const auto read = restored<OVList<OVDictionary<OVPersonGeneral>>>(both);
  ASSERT_NE((read[0])["p"], nullptr);
  EXPECT_EQ((read[0])["p"], (read[1])["other"]);
}

TEST_F(WholeBook, NullFieldsComeBackAsNull) {
  const auto second = all(OVProPertyPhone)->valueAtIndex(1);
  EXPECT_TRUE(second->label()->name().isNull());
  EXPECT_EQ(datumOf(person("b"), OVProPertyDate), nullptr);
  EXPECT_EQ(ov::cast<OVSingleValue>(person("b")->valueByPropertyName(OVProPertyDate))->label(),
            nullptr);
  const auto empty = book_->groupsDic()["empty"];
  EXPECT_TRUE(empty->title().isNull());
  EXPECT_EQ(empty->subArray(), nullptr);
  EXPECT_EQ(empty->persons(), nullptr);
}

TEST_F(WholeBook, AnUnknownClassIsKept) {
  EXPECT_TRUE(isForeignObject(datumOf(person("b"), OVProPertyOther)));
}

TEST_F(WholeBook, OrdersComeBack) {
  std::vector<OVString> IDs;
  for (const auto& [ID, each] : book_->personsDic()) IDs.push_back(ID);
  EXPECT_EQ(IDs, (std::vector<OVString>{"zoë", "again", "b"}));
  const auto members = book_->groupsDic()["g"]->persons();
  EXPECT_EQ((std::vector<OVString>{members.begin(), members.end()}),
            (std::vector<OVString>{"zoë", "b"}));
}

}  // namespace
