// Saving a book while another thread sets what is atomic in it.

#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/multiple_value.h>

#include "book/archive/small_book.h"
#include "support/processes/changing.h"
#include "support/values.h"

namespace {

constexpr OVValueType kNumberedType = OVValueTypePhone;

OVRef<OVLabel> numberedLabel(int number) {
  auto label = OVLabel::init();
  label->setName(std::to_string(number));
  label->setDisplayName(std::to_string(number));
  return label;
}

/// One person with labelled values, of which the first is looked at, and an address.
struct Book {
  OVRef<OVAddressBookGeneral> book = OVAddressBookGeneral::init();
  OVRef<OVMutableSingleValue> value = OVMutableSingleValue::init();
  OVRef<OVMutableMultipleValue> multiple = OVMutableMultipleValue::init();
  OVRef<OVLabel> label = numberedLabel(0);
  OVRef<OVObjectAddress> address = OVObjectAddress::init();
  OVRef<OVGroupGeneral> group = OVGroupGeneral::init();

  Book() {
    for (const auto& each : {value, OVMutableSingleValue::init(), OVMutableSingleValue::init()}) {
      each->setType(kNumberedType);
      each->setLabel(label);
      each->setValue(OVObjectPhone::initWithPhoneNumber("0"));
      multiple->addValue(each);
    }
    const auto person = OVPersonGeneral::initWithID("p");
    person->setValueByPropertyName(multiple, OVProPertyPhone);
    person->setValueByPropertyName(valueOf(OVValueTypeAddress, address), OVProPertyAddress);
    book->personsDic().set("p", person);
    book->groupsDic().set("g", group);
    setGroup(0);
  }

  void setGroup(int number) const {
    const OVString text = std::to_string(number);
    group->setID(text);
    group->setTitle(text);
    group->setSubArray(OVList<OVString>::list({text}));
    group->setPersons(OVList<OVString>::list({text}));
    group->setExtend(text);
  }

  [[nodiscard]] OVRef<OVAddressBookGeneral> savedAndRestored() const {
    return bookIn(book->saveToData());
  }
  [[nodiscard]] OVRef<OVSingleValue> savedValue() const {
    const auto person = savedAndRestored()->personsDic()["p"];
    return ov::cast<OVMultipleValue>(person->valueByPropertyName(OVProPertyPhone))->valueAtIndex(0);
  }
};

bool isNumber(const OVString& text) {
  return !text.empty() && text.view().find_first_not_of("0123456789") == std::string_view::npos;
}

TEST(SavingBesideChanges, TheBlockHoldsWholeFieldsOfAGroup) {
  const Book book;
  expectWholeWhileChanging(
      [&] {
        const auto group = book.savedAndRestored()->groupsDic()["g"];
        return isNumber(group->title()) && isNumber(group->subArray().front()) &&
               isNumber(group->persons().front());
      },
      [&](int i) { book.setGroup(i); });
}

TEST(SavingBesideChanges, TheBlockHoldsWholeTextsOfALabel) {
  const Book book;
  expectWholeWhileChanging(
      [&] {
        const auto label = book.savedValue()->label();
        return isNumber(label->name()) && isNumber(label->displayName());
      },
      [&](int i) {
        book.label->setName(std::to_string(i));
        book.label->setDisplayName(std::to_string(i));
      });
}

TEST(SavingBesideChanges, TheBlockHoldsAWholeLabelDatumAndTypeOfAValue) {
  const Book book;
  expectWholeWhileChanging(
      [&] {
        const auto value = book.savedValue();
        const auto phone = ov::cast<OVObjectPhone>(value->value());
        return isNumber(value->label()->name()) && phone != nullptr &&
               isNumber(phone->phoneNumber()) &&
               (value->type() == kNumberedType || value->type() == OVValueTypeEmail);
      },
      [&](int i) {
        book.value->setLabel(numberedLabel(i));
        book.value->setValue(OVObjectPhone::initWithPhoneNumber(std::to_string(i)));
        book.value->setType(i % 2 == 0 ? kNumberedType : OVValueTypeEmail);
      });
}

TEST(SavingBesideChanges, TheBlockHoldsTheOldOrTheNewMainValue) {
  const Book book;
  const auto setMain = [&](int i) {
    book.multiple->setMainValue(book.multiple->valueAtIndex(i % 2 == 0 ? 1 : 2));
  };
  setMain(0);
  expectWholeWhileChanging(
      [&] {
        const auto person = book.savedAndRestored()->personsDic()["p"];
        const auto phones = ov::cast<OVMultipleValue>(person->valueByPropertyName(OVProPertyPhone));
        const auto main = phones->mainValue();
        return main == phones->valueAtIndex(1) || main == phones->valueAtIndex(2);
      },
      setMain);
}

TEST(SavingBesideChanges, TheBlockHoldsTheOldOrTheNewCountryOfAnAddress) {
  const Book book;
  book.address->setCountryCode("de");
  expectWholeWhileChanging(
      [&] {
        const auto person = book.savedAndRestored()->personsDic()["p"];
        const auto code =
            ov::cast<OVObjectAddress>(
                ov::cast<OVSingleValue>(person->valueByPropertyName(OVProPertyAddress))->value())
                ->countryCode();
        return code == "de" || code == "fr";
      },
      [&](int i) { book.address->setCountryCode(i % 2 == 0 ? "fr" : "de"); });
}

TEST(SavingBesideChanges, TagsMayBeAskedForMeanwhile) {
  const auto person = OVPersonGeneral::initWithID("p");
  expectWholeWhileChanging([&] { return person->tagArray() == person->tagArray(); },
                           [&](int) { (void)person->tagArray(); });
}

}  // namespace
