#include "output/progress_bar.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ovbook::ProgressBar;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

class ProgressBarTest : public testing::Test {
 protected:
  void pass(std::chrono::milliseconds time) { now_ += time; }
  std::string shown() const { return terminal_.str(); }
  std::string shownLast() const { return shown().substr(shown().rfind('\r') + 1); }

  ProgressBar::Clock clock() {
    return [this] { return now_; };
  }

  std::ostringstream terminal_;

 private:
  ProgressBar::Time now_;
};

constexpr std::chrono::milliseconds kHalfASecond{500};

}  // namespace

TEST_F(ProgressBarTest, QuickTasksShowNothing) {
  {
    ProgressBar bar(terminal_, "Reading", clock());
    bar.show(1, 2);
    pass(kHalfASecond - std::chrono::milliseconds(1));
    bar.show(2, 2);
  }
  EXPECT_EQ(shown(), "");
}

TEST_F(ProgressBarTest, LongTasksShowHowFarTheyAre) {
  ProgressBar bar(terminal_, "Reading", clock());
  pass(kHalfASecond);
  bar.show(1, 2);
  EXPECT_EQ(shown(), "\rReading [###############               ] 50 %");
  pass(kHalfASecond);
  bar.show(2, 2);
  EXPECT_EQ(shownLast(), "Reading [##############################] 100 %");
}

TEST_F(ProgressBarTest, TheLineIsWipedAtTheEnd) {
  {
    ProgressBar bar(terminal_, "Reading", clock());
    pass(kHalfASecond);
    bar.show(1, 2);
  }
  EXPECT_THAT(shown(), EndsWith("50 %\r\033[K"));
}

TEST_F(ProgressBarTest, IsNotDrawnMoreOftenThanItCanBeSeen) {
  ProgressBar bar(terminal_, "Reading", clock());
  pass(kHalfASecond);
  bar.show(1, 100);
  const std::string before = shown();
  pass(std::chrono::milliseconds(1));
  bar.show(2, 100);
  EXPECT_EQ(shown(), before);
  pass(kHalfASecond);
  bar.show(1, 100);
  EXPECT_EQ(shown(), before);
}

TEST_F(ProgressBarTest, OddCountsStayBetweenNothingAndAll) {
  ProgressBar bar(terminal_, "Reading", clock());
  pass(kHalfASecond);
  bar.show(0, 0);
  EXPECT_THAT(shownLast(), HasSubstr("] 0 %"));
  pass(kHalfASecond);
  bar.show(5, 2);
  EXPECT_THAT(shownLast(), HasSubstr("] 100 %"));
  pass(kHalfASecond);
  bar.show(~0ULL - 1, ~0ULL);
  pass(kHalfASecond);
  bar.show(~0ULL / 2, ~0ULL);
  EXPECT_THAT(shownLast(), HasSubstr("] 50 %"));
}
