#include "live_test.h"

namespace {

using testing::HasSubstr;
using LivePhotos = LiveTest;

// A transparent PNG of one pixel.
constexpr const char* kPixel =
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJg"
    "gg==";

TEST_F(LivePhotos, PhotoOfAFileOfTheServiceIsShownAndKept) {
  putCard(std::string("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nPHOTO;ENCODING=b;TYPE=PNG:") + kPixel +
          "\r\n");
  EXPECT_THAT(storedCards(), HasSubstr("PHOTO;VALUE=uri:file:"));
  const auto book = openedBook();
  const auto kim = personOf(*book, "kim");
  ASSERT_NE(kim->thumbnail(), nullptr);
  EXPECT_TRUE(std::string(kim->thumbnail()->data()->text()).starts_with("\x89PNG"));
  setPhone(kim, "555-02");
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("PHOTO;VALUE=uri:file:"));
  EXPECT_NE(personOf(*openedBook(), "kim")->thumbnail(), nullptr);
}

TEST_F(LivePhotos, PhotoInAFileElsewhereIsNotRead) {
  const std::string secret = Desktop::ofThisProcess().path("home/secret");
  writeFile(secret, "\x89PNG secret");
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nPHOTO;VALUE=uri:file://" + secret + "\r\n");
  EXPECT_EQ(personOf(*openedBook(), "kim")->thumbnail(), nullptr);
}

TEST_F(LivePhotos, NewPhotoIsSaved) {
  const auto book = openedBook();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  mira->setThumbnail(OVImage::imageWithData(OVData::dataWithText("\x89PNG\r\n\x1a\n of Mira")));
  EXPECT_FALSE(book->saveWithin({}));
  const auto read = personOf(*openedBook(), mira->ID().str().c_str());
  ASSERT_NE(read->thumbnail(), nullptr);
  EXPECT_THAT(std::string(read->thumbnail()->data()->text()), HasSubstr("of Mira"));
}

}  // namespace
