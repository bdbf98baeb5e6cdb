#include <sys/resource.h>

#include "live_test.h"
#include "support/processes/own_mounts.h"

namespace {

using testing::HasSubstr;
using LiveDisk = LiveTest;

/// No file of the service's process for books may be longer than so many bytes.
void limitFiles(rlim_t bytes) {
  const pid_t factory = Desktop::ofThisProcess().factory().value();
  rlimit limit{};
  ASSERT_EQ(prlimit(factory, RLIMIT_FSIZE, nullptr, &limit), 0);
  limit.rlim_cur = bytes;
  ASSERT_EQ(prlimit(factory, RLIMIT_FSIZE, &limit, nullptr), 0);
}

TEST_F(LiveDisk, WhatTheServiceCannotWriteStaysInTheBook) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nTEL;TYPE=WORK:555-01\r\n");
  const auto book = openedBook();
  limitFiles(0);
  setPhone(personOf(*book, "kim"), "555-02");
  addPersons(*book, 1);
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Refused) << book->saveError().message();
  EXPECT_EQ(book->problems().size(), 2U);
  EXPECT_EQ(book->allPersonsCount(), 2U);
  EXPECT_THAT(storedCards(), HasSubstr("555-01"));
  limitFiles(RLIM_INFINITY);
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_TRUE(book->problems().empty());
  const auto again = openedBook();
  EXPECT_EQ(again->allPersonsCount(), 2U);
  EXPECT_EQ(phoneOf(personOf(*again, "kim")), OVString("555-02"));
}

/// The service does not start where it may not write, and says nothing.
TEST(LiveReadOnlyDisk, CallsEndWithTheirDeadlineAndNothingIsLost) {
  Desktop desktop;
  const auto otherMachine = [&](std::vector<std::string> words) {
    words.insert(words.begin(), {OV_OTHER_MACHINE, "system-address-book"});
    Surroundings surroundings;
    surroundings.environment = desktop.environment();
    return runProgram(words, surroundings);
  };
  EXPECT_EQ(otherMachine({"add", "kim"}).status, 0);
  desktop.restart([&] { makeReadOnly(desktop.path("data")); });
  const Outcome outcome = otherMachine({"list"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, std::make_error_code(std::errc::timed_out).message() + "\n");
  makeWritable(desktop.path("data"));
  desktop.restart();
  EXPECT_EQ(otherMachine({"list"}).out, "kim\t\n");
}

}  // namespace
