#pragma once

#include <cstdlib>

#include <gtest/gtest.h>

/// Runs a part of a test in a new process, where no catalogue of the library has been built yet,
/// and expects all its expectations to hold. Used once in a test, before everything else.
template <class Work>
void expectInOwnProcess(Work work) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        work();
        std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
      },
      testing::ExitedWithCode(EXIT_SUCCESS), "");
}
