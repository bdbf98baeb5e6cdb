#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>

#include "program.h"
#include "support/processes/temporary_folder.h"

/// Runs the command in a folder of its own, with preferences of its own.
class OvbookTest : public testing::Test {
 protected:
  using Arguments = std::vector<std::string>;

  [[nodiscard]] Outcome ovbook(const Arguments& arguments) { return ovbookIn({}, arguments); }
  [[nodiscard]] Outcome ovbookIn(Surroundings surroundings, const Arguments& arguments);

  /// The path of a file in the test's folder.
  [[nodiscard]] std::string path(std::string_view name) const { return folder_.at(name); }
  /// Writes a file and gives its path.
  std::string file(std::string_view name, std::string_view content) const;
  /// Writes the book and gives its path.
  [[nodiscard]] std::string bookFile(const OVAddressBookGeneral& book) const;
  /// The names of all files and folders in the test's folder but the preferences.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  TemporaryFolder folder_;
};

/// What a command that cannot do its work leaves: status 2, no output, one line of error.
Outcome failure(const std::string& message);

/// What a command that did all its work leaves.
Outcome success(const std::string& out = "");

/// A card of version 4.0 around the lines.
std::string card(std::string_view lines);
