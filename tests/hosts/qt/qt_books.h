#pragma once

#include <QtCore/QStringList>
#include <QtTest/QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookQt/persons_filter.h>
#include <OVAddressBookQt/qt_book.h>
#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/tag_manager.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "support/fakes/fake_locale.h"
#include "support/fakes/fake_platform.h"

inline std::ostream& operator<<(std::ostream& out, const QString& text) {
  return out << text.toStdString();
}

/// Three persons, a group in a group, and a tag.
inline constexpr const char* kSmallBook =
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:a\r\nFN:Ann Zorn\r\nN:Zorn;Ann;;;\r\n"
    "TEL;TYPE=work:+44 (55) "
    "50-23\r\nTEL;TYPE=home;PREF=1:123\r\nCATEGORIES:friends\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:b\r\nFN:Bob Abel\r\nN:Abel;Bob;;;\r\n"
    "EMAIL:bob@ebb.example\r\nORG:Ebb\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:c\r\nFN:J\u00fcrgen\r\nN:;J\u00fcrgen;;;\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nKIND:group\r\nUID:g\r\nFN:Tide\r\nMEMBER:a\r\nMEMBER:h\r\n"
    "END:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nKIND:group\r\nUID:h\r\nFN:Ebb\r\nMEMBER:b\r\nEND:VCARD\r\n";

inline OVRef<OVAddressBook> cardBook(const char* cards = kSmallBook) {
  auto book = OVVCardBook::init();
  book->loadWithData(OVData::dataWithText(cards));
  return book;
}

/// The same persons and groups as a data block would have them.
inline OVRef<OVAddressBook> blockBook(const char* cards = kSmallBook) {
  const auto book = cardBook(cards);
  const auto general = OVAddressBookGeneral::init();
  for (const auto& person : book->allPersons()) general->addPerson(person);
  for (const char* id : {"g", "h"}) general->addGroup(book->groupByID(id));
  const auto restored = OVAddressBookGeneral::addressBookWithData(general->saveToData());
  return OVBlockBook::initWithBook(ov::cast<OVAddressBookGeneral>(restored));
}

/// A test on a book of each kind.
class QtBooks : public testing::TestWithParam<OVRef<OVAddressBook> (*)(const char*)> {
 protected:
  OVRef<IOVPerson> person(const char* id) const { return book_.personWithID(id); }
  OVRef<IOVGroup> group(const char* id) const { return book_.book()->groupByID(id); }
  void name(const OVRef<IOVPerson>& person, const OVString& first, const OVString& last) {
    book_.setValue(person, OVProPertyName,
                   ov::labelled(OVObjectPersonName::initWithFirstMiddleLast(first, nullptr, last),
                                "Name", OVValueTypePersonName));
  }
  static QString shown(const QAbstractItemModel& model, const QModelIndex& parent = {}) {
    QStringList texts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
      const QModelIndex index = model.index(row, 0, parent);
      const QString below = shown(model, index);
      texts.append(index.data().toString() + (below.isEmpty() ? QString() : "[" + below + "]"));
    }
    return texts.join(QStringLiteral(", "));
  }

  const FakePlatform platform_;
  const FakeLocale locale_{"en_US"};
  OVQtBook book_{GetParam()(kSmallBook)};
};

/// Ends the test program when the model breaks a rule of models.
class Checked {
 public:
  explicit Checked(QAbstractItemModel& model)
      : tester_(&model, QAbstractItemModelTester::FailureReportingMode::Fatal) {}

 private:
  QAbstractItemModelTester tester_;
};

inline std::string bookName(
    const testing::TestParamInfo<OVRef<OVAddressBook> (*)(const char*)>& info) {
  return info.index == 0 ? "Cards" : "Block";
}

#define OV_ON_EACH_BOOK(Name) \
  INSTANTIATE_TEST_SUITE_P(Each, Name, testing::Values(&cardBook, &blockBook), &bookName)
