#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/group_general.h>
#include <OVAddressBookSDK/person_general.h>

#include "support/processes/changing.h"

namespace {

TEST(AtomicProperties, ExtensionOfAPersonIsWholeWhileItIsReplaced) {
  const auto person = OVPersonGeneral::initWithID("p");
  person->setExtend(OVString("0"));
  expectWholeWhileChanging([&] { return !ov::cast<OVString>(person->extend()).empty(); },
                           [&](int i) { person->setExtend(OVString(std::to_string(i))); });
}

TEST(AtomicProperties, GroupIsWholeWhileItIsReplaced) {
  const auto group = OVGroupGeneral::init();
  const auto fill = [&](int i) {
    const OVString text = std::to_string(i);
    group->setID(text);
    group->setTitle(text);
    group->setSubArray(OVList<OVString>::list({text}));
    group->setPersons(OVList<OVString>::list({text}));
    group->setExtend(text);
  };
  fill(0);
  expectWholeWhileChanging(
      [&] {
        return !group->ID().empty() && !group->title().empty() &&
               !group->subArray().front().empty() && !group->persons().front().empty() &&
               !ov::cast<OVString>(group->extend()).empty();
      },
      fill);
}

class PictureBook final : public OVAddressBook {
 public:
  PictureBook() = default;
  void show(const OVRef<OVImage>& image) {
    setThumbnail(image);
    setLogo1(image);
    setLogo2(image);
    setLogo3(image);
    setLogo4(image);
  }
};

TEST(AtomicProperties, PicturesOfABookAreWholeWhileTheyAreReplaced) {
  PictureBook book;
  const auto show = [&](int i) {
    book.show(OVImage::imageWithData(OVData::dataWithText(std::to_string(i))));
  };
  show(0);
  expectWholeWhileChanging(
      [&] {
        return book.thumbnail()->data()->size() > 0 && book.logo1()->data()->size() > 0 &&
               book.logo2()->data()->size() > 0 && book.logo3()->data()->size() > 0 &&
               book.logo4()->data()->size() > 0;
      },
      show);
}

}  // namespace
