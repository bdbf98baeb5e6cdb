#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_group.h>
#include <OVAddressBookEDS/eds_session.h>
#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include "desktop.h"
#include "tools/program.h"

/// A session on the desktop of this process, and a new local book.
class LiveTest : public testing::Test {
 protected:
  LiveTest();
  ~LiveTest() override;

  /// The new book, opened and loaded once more.
  [[nodiscard]] OVRef<OVEDSBook> openedBook(const OVString& uid = nullptr);
  /// What another program does (see other_program.cpp).
  static Outcome otherProgram(const std::vector<std::string>& words, const std::string& input = "");
  [[nodiscard]] std::string storedCards() const;
  void putCard(const std::string& lines) const;

  OVRef<OVEDSSession> session;
  OVString bookUID;
};

/// A card of version 3.0 around the lines.
[[nodiscard]] std::string liveCard(const std::string& lines);
[[nodiscard]] OVRef<IOVPerson> personOf(const OVEDSBook& book, const char* id);
[[nodiscard]] OVRef<OVEDSGroup> groupOf(const OVEDSBook& book, const char* id);
[[nodiscard]] OVString phoneOf(const OVRef<IOVPerson>& person);
/// Gives the person that phone, and no other.
void setPhone(const OVRef<IOVPerson>& person, const char* number);
void setName(const OVRef<IOVPerson>& person, const char* first, const char* last);
/// Adds persons with the IDs "p0", "p1" and so on.
void addPersons(OVEDSBook& book, int count);
/// Waits until something waits in the book, then applies it; again, until `isThere`.
[[nodiscard]] bool applied(OVEDSBook& book,
                           const std::function<bool(const OVEDSChanges&)>& isThere);
