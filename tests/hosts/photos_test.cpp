#include "mapping/properties.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "codec/base64.h"
#include "hosts/cards.h"

namespace {

using ov::card::encodeBase64;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kPNG = "\x89PNG\r\n\x1a\n...";

TEST(Photos, AreReadFromEveryVersion) {
  const std::string text = encodeBase64(kPNG);
  EXPECT_EQ(
      entry(*person("PHOTO;PNG;ENCODING=BASE64:\n " + text + "\n\n", "2.1"), OVProPertyThumbnail),
      kPNG);
  EXPECT_EQ(entry(*person("PHOTO;ENCODING=b;TYPE=PNG:" + text, "3.0"), OVProPertyThumbnail), kPNG);
  EXPECT_EQ(entry(*person("PHOTO:data:image/png;base64," + text), OVProPertyThumbnail), kPNG);
  EXPECT_EQ(
      entry(*person("PHOTO;VALUE=uri:DATA:image/png;BASE64\\," + text, "3.0"), OVProPertyThumbnail),
      kPNG);
}

TEST(Photos, AreWrittenAsDataURIs) {
  EXPECT_THAT(writtenLines(person("PHOTO;ENCODING=b;TYPE=PNG:" + encodeBase64(kPNG), "3.0")),
              ElementsAre("PHOTO:data:image/png;base64," + encodeBase64(kPNG)));
}

TEST(Photos, AreReadWhereverTheirURIIsFolded) {
  const std::string uri = "data:image/png;base64," + encodeBase64(kPNG);
  for (std::size_t i = 1; i < uri.size(); ++i) {
    const std::string folded = uri.substr(0, i) + "\n " + uri.substr(i);
    EXPECT_EQ(entry(*person("PHOTO:" + folded), OVProPertyThumbnail), kPNG) << folded;
  }
}

TEST(Photos, TellTheirMediaType) {
  using std::string_literals::operator""s;
  const std::pair<std::string, const char*> rows[] = {
      {"\x89PNG..", "image/png"},
      {"\xFF\xD8\xFF\xE0", "image/jpeg"},
      {"GIF89a", "image/gif"},
      {"BM....", "image/bmp"},
      {"RIFF....WEBP", "image/webp"},
      {"<svg>", "image/svg+xml"},
      {"II*\0"s, "image/tiff"},
      {"MM\0*"s, "image/tiff"},
      {"\0\0\0\x1C"
       "ftypheic...."s,
       "image/heic"},
      {"\0\0\0\x1C"
       "ftypavif...."s,
       "image/avif"},
      {"RIFF....WAVE", "application/octet-stream"},
      {"what", "application/octet-stream"},
  };
  for (const auto& [bytes, type] : rows) EXPECT_EQ(ov::card::mediaTypeOf(bytes), type);
}

TEST(Photos, ThatAreElsewhereAreKept) {
  for (const char* value : {"http://example.com/p.png", "data:image/png,ABCDEFGH", "data:nothing",
                            "data:image/png;base64,"}) {
    const auto read = person("PHOTO;VALUE=uri:" + std::string(value));
    EXPECT_THAT(entries(*read, OVProPertyThumbnail), IsEmpty()) << value;
    EXPECT_EQ(entry(*read, OVProPertyOther), "*PHOTO;VALUE=uri|PHOTO: " + std::string(value));
  }
}

TEST(Photos, BeyondTheFirstAreKept) {
  const auto read = person("PHOTO;ENCODING=b:QUFB\nPHOTO;ENCODING=b;TYPE=PNG:QkJC", "3.0");
  EXPECT_EQ(entry(*read, OVProPertyThumbnail), "AAA");
  EXPECT_EQ(entry(*read, OVProPertyOther),
            "*PHOTO;TYPE=PNG|PHOTO: data:application/octet-stream;base64,QkJC");
}

}  // namespace
