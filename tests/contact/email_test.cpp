#include <OVAddressBookSDK/email.h>

#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

OVRef<OVObjectEmail> emailOf(const OVString& address) {
  return OVObjectEmail::initWithEmail(address);
}

TEST(EmailAddress, NullIsRefused) { EXPECT_EQ(emailOf(nullptr), nullptr); }

TEST(EmailAddress, IsKeptUnchanged) {
  const OVString address = " Ann <ann@example.com>\n";
  EXPECT_TRUE(emailOf(address)->email().isSame(address));
}

TEST(EmailAddress, OneAtSignMakesItValid) {
  for (const OVString address : {"a@b", "@", "a@", "@b", "a b@c d", "ä@ö", "a@b.c.d"}) {
    EXPECT_TRUE(emailOf(address)->valid()) << address;
  }
}

TEST(EmailAddress, NoneOrSeveralMakeItInvalid) {
  for (const OVString address : {"ab", "a@b@c", "@@", "a@@b", " ", "a＠b"}) {
    EXPECT_FALSE(emailOf(address)->valid()) << address;
  }
}

TEST(EmailAddress, EmptyOneIsInvalid) {
  const auto email = emailOf("");
  ASSERT_NE(email, nullptr);
  EXPECT_EQ(email->email(), "");
  EXPECT_FALSE(email->valid());
}

TEST(EmailAddress, WorkingOutValidAgainChangesNothing) {
  const auto email = emailOf("a@b");
  email->initValid();
  EXPECT_TRUE(email->valid());
}

TEST(EmailAddress, EmailsAreComparedByIdentity) { EXPECT_NE(emailOf("a@b"), emailOf("a@b")); }

TEST(EmailArchive, HoldsTheAddressOnly) {
  const auto email = emailOf("a@b");
  const ArchivedForm form(email);
  EXPECT_EQ(form.classes(), (std::vector<OVString>{"OVObjectEmail", "NSObject"}));
  EXPECT_EQ(form.keys(), std::vector<OVString>{"email"});
  EXPECT_EQ(restored<OVObjectEmail>(email)->email(), "a@b");
}

TEST(EmailArchive, ValidIsComputedAgain) {
  EXPECT_TRUE(restored<OVObjectEmail>(emailOf("a@b"))->valid());
  EXPECT_FALSE(restored<OVObjectEmail>(emailOf("ab"))->valid());
}

TEST(EmailArchive, WithoutAddressIsNullAndInvalid) {
  const auto email = restored<OVObjectEmail>(archivedAs("OVObjectEmail", {}));
  ASSERT_NE(email, nullptr);
  EXPECT_EQ(email->email(), nullptr);
  EXPECT_FALSE(email->valid());
  EXPECT_TRUE(ArchivedForm(email).keys().empty());
}

TEST(EmailArchive, EmptyAddressIsWritten) {
  EXPECT_EQ(ArchivedForm(emailOf("")).keys(), std::vector<OVString>{"email"});
}

TEST(EmailArchive, AddressThatIsNoTextReadsAsNull) {
  const auto email =
      restored<OVObjectEmail>(archivedAs("OVObjectEmail", {{"email", foreignObject()}}));
  EXPECT_EQ(email->email(), nullptr);
  EXPECT_FALSE(email->valid());
}

TEST(EmailArchive, AddressThatIsNoTextIsWrittenBack) {
  const auto email =
      restored<OVObjectEmail>(archivedAs("OVObjectEmail", {{"email", foreignObject()}}));
  EXPECT_TRUE(isForeignObject(ArchivedForm(email).object("email")));
}

/// A host's own kind of address.
class Alias : public OVObjectEmail {
 public:
  explicit Alias(const OVString& email) : OVObjectEmail(email) {}
};

TEST(DerivedEmail, IsMadeWithItsAddress) {
  EXPECT_EQ(std::make_shared<Alias>("a@b")->email(), "a@b");
  EXPECT_TRUE(std::make_shared<Alias>("a@b")->valid());
  EXPECT_FALSE(std::make_shared<Alias>(nullptr)->valid());
}

}  // namespace
