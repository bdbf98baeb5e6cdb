#include <malloc.h>

#include <OVAddressBookQt/persons_filter.h>

#include "qt_books.h"

namespace {

std::size_t memoryInUse() {
  const struct mallinfo2 now = mallinfo2();
  return now.uordblks + now.hblkhd;
}

OVRef<OVAddressBook> bookOf(int count) {
  const auto general = OVAddressBookGeneral::init();
  for (int i = 0; i < count; ++i) {
    const auto person = OVPersonGeneral::initWithID(std::to_string(i));
    const std::string last = "Person" + std::to_string(i * 7919 % count);
    person->setValueByPropertyName(
        ov::labelled(OVObjectPersonName::initWithFirstMiddleLast("Ann", nullptr, last), "Name",
                     OVValueTypePersonName),
        OVProPertyName);
    general->personsDic().set(person->ID(), person);
  }
  return OVBlockBook::initWithBook(general);
}

}  // namespace

TEST(ManyPersons, TakeAtMostThirtyBytesEachBesideTheBook) {
  constexpr int kCount = 100000;
  const FakePlatform platform;
  OVQtBook book(bookOf(kCount));
  const std::size_t before = memoryInUse();
  const OVPersonsModel model(&book);
  OVPersonsFilter filter(const_cast<OVPersonsModel*>(&model));
  const std::size_t bytes = memoryInUse() - before;
  ASSERT_EQ(filter.rowCount(), kCount);
  EXPECT_LE(bytes, std::size_t{18} * kCount);  // so that a list view may have its share
  filter.setText("person");
  ASSERT_EQ(filter.rowCount(), kCount);
  EXPECT_LE(memoryInUse() - before, std::size_t{30} * kCount);
  filter.setText("person1");
  filter.setText("");
  EXPECT_LE(memoryInUse() - before, std::size_t{30} * kCount);
}
