#include "mapping/properties.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Dates, AreReadInEverySpelling) {
  const std::pair<const char*, const char*> rows[] = {
      {"19810612", "1981-6-12"},
      {"1981-06-12", "1981-6-12"},
      {"--0229", "1604-2-29"},
      {"--02-29", "1604-2-29"},
      {"1604-12-24", "1604-12-24"},
      {"20000229", "2000-2-29"},
      {"19930131T073000", "1993-1-31+27000"},
      {"1993-01-31T07:30:00Z", "1993-1-31+27000"},
      {"19930131T0730", "1993-1-31+27000"},
      {"19930131T07", "1993-1-31+25200"},
      {"19930131T000000Z", "1993-1-31"},
      {"19930131T003000+0200", "1993-1-31+1800"},
      {"19930131T233000-03:30", "1993-1-31+84600"},
      {"--0131T0730", "1604-1-31+27000"},
      {" 19810612 ", "1981-6-12"},
  };
  for (const auto& [text, expected] : rows) {
    EXPECT_EQ(entry(*person("BDAY:" + std::string(text)), OVProPertyBirthday), expected) << text;
  }
}

TEST(Dates, ThatAreNoneAreKept) {
  for (const char* text : {"circa 1962",     "1962",
                           "1962-05",        "---05",
                           "--13",           "19810631",
                           "20010229",       "19811301",
                           "1981061",        "198106120",
                           "19930131T",      "19930131T25",
                           "19930131T1261",  "19930131T100000.5",
                           "19930131T10+24", "19930131T+02",
                           "T1000",          "x19810612",
                           "0000-01-01",     "99991231T235960"}) {
    const auto read = person("BDAY:" + std::string(text));
    EXPECT_THAT(entries(*read, OVProPertyBirthday), IsEmpty()) << text;
    EXPECT_EQ(entry(*read, OVProPertyOther), "*BDAY|BDAY: " + std::string(text));
  }
}

TEST(Dates, MayNameTheYearThatIsNone) {
  EXPECT_EQ(entry(*person("BDAY;X-SOME-OMIT-YEAR=1900:1900-04-15"), OVProPertyBirthday),
            "1604-4-15");
  EXPECT_EQ(entry(*person("BDAY;X-SOME-OMIT-YEAR=1900:1981-04-15"), OVProPertyBirthday),
            "1981-4-15");
}

TEST(Dates, AreWrittenAndComeBack) {
  for (const char* line :
       {"BDAY:19810612", "BDAY:--0229", "BDAY:19930131T073015", "BDAY:00010101",
        "BDAY:99991231T235959", "BDAY:19930131T073015Z", "BDAY:19930131T003000+0200",
        "BDAY:19930131T235960", "BDAY:1985", "BDAY:1985-04", "BDAY:0000-01-01",
        "BDAY:99991231T235960", "BDAY:16040412"}) {
    EXPECT_THAT(writtenLines(person(line)), ElementsAre(line));
  }
}

TEST(Dates, ThatNoCardCanSpellAreNotWritten) {
  for (const double seconds : {std::nan(""), HUGE_VAL, 1e15, -1e15, -63145526401.0 - 31536000}) {
    const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(seconds);
    EXPECT_EQ(ov::card::spelledDate(*date), "") << seconds;
  }
  EXPECT_EQ(ov::card::spelledDate(*OVDate::dateWithTimeIntervalSinceReferenceDate(0.75)),
            "20010101");
}

TEST(Birthday, TakesTheFirst) {
  const auto read = person("BDAY:circa 1962\nBDAY:19620101\nBDAY:19630101");
  EXPECT_EQ(entry(*read, OVProPertyBirthday), "1962-1-1");
  EXPECT_THAT(entries(*read, OVProPertyOther),
              ElementsAre("*BDAY|BDAY: circa 1962", "BDAY|BDAY: 19630101"));
}

TEST(Anniversary, IsALabelledDate) {
  for (const char* line :
       {"ANNIVERSARY:20090822", "X-ANNIVERSARY:2009-08-22", "X-BOOK-ANNIVERSARY:2009-08-22"}) {
    const auto read = person(line);
    EXPECT_EQ(entry(*read, OVProPertyDate), "*anniversary|Anniversary: 2009-8-22") << line;
    EXPECT_THAT(writtenLines(read), ElementsAre("ANNIVERSARY:20090822")) << line;
  }
}

TEST(LabelledDates, KeepTheirOrderAndLabels) {
  const char* lines =
      "a.X-ABDATE:2011-01-15\na.X-ABLabel:_$!<Anniversary>!$_\n"
      "b.X-ABDATE;TYPE=pref:2016-06-01\nb.X-ABLabel:opening\n"
      "X-ABDATE:--0101\nANNIVERSARY:20200202";
  const auto read = person(lines);
  EXPECT_THAT(entries(*read, OVProPertyDate),
              ElementsAre("anniversary|Anniversary: 2011-1-15", "*opening|opening: 2016-6-1",
                          "Date|Date: 1604-1-1", "anniversary|Anniversary: 2020-2-2"));
  EXPECT_THAT(writtenLines(read),
              ElementsAre("ANNIVERSARY:20110115", "item1.X-ABDATE;PREF=1:20160601",
                          "item1.X-ABLABEL:opening", "X-ABDATE:--0101",
                          "X-ABDATE;TYPE=anniversary:20200202"));
}

TEST(LabelledDates, ThatAreNoneAreKept) {
  EXPECT_EQ(entry(*person("ANNIVERSARY;VALUE=text:last spring"), OVProPertyOther),
            "*ANNIVERSARY;VALUE=text|ANNIVERSARY: last spring");
}

}  // namespace
