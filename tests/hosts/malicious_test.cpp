#include <glib.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

/// Collects what the parser behind the book complains of: nothing ill-formed may ever reach it.
class MaliciousInput : public testing::Test {
 protected:
  MaliciousInput() { previous_ = g_log_set_default_handler(collect, &complaints_); }
  ~MaliciousInput() override { g_log_set_default_handler(previous_, nullptr); }

  /// Reads the text, and what is written of it, which must be the same book.
  void expectStable(std::string_view text) {
    const auto book = bookOf(text);
    const auto again = bookOf(book->saveData()->text());
    EXPECT_EQ(description(*again), description(*book)) << shown(text);
    EXPECT_EQ(complaints_, "") << shown(text);
    complaints_.clear();
  }

 private:
  static void collect(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* message,
                      gpointer complaints) {
    static_cast<std::string*>(complaints)->append(message).append("\n");
  }
  static std::string shown(std::string_view text) {
    return testing::PrintToString(std::string(text));
  }

  std::string complaints_;
  GLogFunc previous_ = nullptr;
};

TEST_F(MaliciousInput, MayBeCutAnywhere) {
  useCutCards([this](const std::string& text) { expectStable(text); });
}

TEST_F(MaliciousInput, MayLackAnyByte) {
  useCardsThatLackAByte([this](const std::string& text) { expectStable(text); });
}

TEST_F(MaliciousInput, MayHaveAnyByteChanged) {
  useChangedCards(1000, [this](const std::string& text) { expectStable(text); });
}

TEST_F(MaliciousInput, MayBeAnyBytes) {
  useAnyBytes([this](const std::string& text) { expectStable(text); });
}

TEST_F(MaliciousInput, MayNestWithoutEnd) {
  useNestedCards([this](const std::string& text) { expectStable(text); });
}

/// What would take forever if the time grew with the square of the size.
TEST_F(MaliciousInput, TakesTimeInProportionToItsSize) {
  useCostlyCards(20000,
                 [](const std::string& text) { static_cast<void>(bookOf(text)->saveData()); });
}

}  // namespace
