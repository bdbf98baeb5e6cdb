#include <OVAddressBookSDK/log.h>

#include <syslog.h>

#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

std::vector<std::pair<int, std::string>> systemLog;

class LogLine : public testing::Test {
 protected:
  OVString logged(const OVString& line) {
    log_.log(line);
    const auto lines = log_.lines();
    return lines.empty() ? nullptr : lines.back();
  }

  RecordingLog log_;
};

}  // namespace

/// Replaces the C library's.
extern "C" void syslog(int priority, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  char line[1024];
  std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  systemLog.emplace_back(priority, line);
}

namespace {

TEST(Log, WritesToTheSystemLogByDefault) {
  systemLog.clear();
  OVLog::sharedLog()->log("a line");
  EXPECT_THAT(systemLog, ElementsAre(Pair(LOG_USER | LOG_NOTICE, "a line")));
}

TEST(Log, TheLineIsNoFormat) {
  systemLog.clear();
  OVLog::sharedLog()->log("100 %s %n");
  EXPECT_THAT(systemLog, ElementsAre(Pair(testing::_, "100 %s %n")));
}

TEST(Log, ALogOfNoneDropsEveryLine) {
  systemLog.clear();
  OVLog::none()->log("a line");
  EXPECT_THAT(systemLog, IsEmpty());
}

TEST(Log, AHostInstallsAnotherLog) {
  systemLog.clear();
  const auto original = OVLog::sharedLog();
  const auto own = std::make_shared<RecordingLog>();
  OVLog::setSharedLog(own);
  OVLog::sharedLog()->log("a line");
  OVLog::setSharedLog(nullptr);
  EXPECT_THAT(own->lines(), ElementsAre(OVString("a line")));
  EXPECT_THAT(systemLog, IsEmpty());
  EXPECT_EQ(OVLog::sharedLog(), original);
}

TEST_F(LogLine, PlainTextStaysAsItIs) {
  const OVString line("a\tb \xC3\xA4 ");
  EXPECT_TRUE(logged(line).isSame(line));
}

TEST_F(LogLine, NullWritesNothing) {
  logged(nullptr);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(LogLine, TheEmptyLineIsWritten) { EXPECT_EQ(logged(""), ""); }

TEST_F(LogLine, LineBreaksNeverMakeTwoLines) {
  EXPECT_EQ(logged("a\nb\r\nc\vd\fe"), "a b  c d e");
  EXPECT_EQ(log_.lines().size(), 1U);
}

TEST_F(LogLine, OtherControlCharactersBecomeBlanks) {
  EXPECT_EQ(logged(std::string_view("a\0b\x1B"
                                    "c\x7F",
                                    6)),
            "a b c ");
}

}  // namespace
