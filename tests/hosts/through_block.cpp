#include "hosts/through_block.h"

#include <sstream>

#include <gtest/gtest.h>

#include <OVAddressBookVCard/vcard_export.h>

#include "hosts/cards.h"
#include "hosts/snapshot.h"

std::string throughBlock(const OVAddressBook& book) {
  const auto block = snapshotOf(book)->saveToData();
  const auto restored =
      ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  return std::string(ov::vcard::exportBook(restored)->text());
}

std::vector<std::string> linesIn(std::string text) {
  for (std::size_t fold; (fold = text.find("\r\n ")) != std::string::npos;) text.erase(fold, 3);
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
    const bool isFrame =
        line.starts_with("BEGIN:") || line.starts_with("VERSION:") || line.starts_with("END:");
    if (!isFrame) lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> linesAfterBlock(const std::string& lines, std::string_view version) {
  const auto book = bookOf(card("UID:1\n" + lines, version));
  const std::string once = throughBlock(*book);
  const auto again = bookOf(once);
  EXPECT_EQ(description(*again), description(*book));
  EXPECT_EQ(throughBlock(*again), once) << lines;
  std::vector<std::string> all = linesIn(once);
  EXPECT_FALSE(all.empty());
  if (!all.empty() && all.front() == "UID:1") all.erase(all.begin());
  return all;
}
