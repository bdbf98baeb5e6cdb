#include <gtest/gtest.h>

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/phone.h>

#include "support/archive/archived_fields.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

using Opened = std::vector<OVString>;

class Actions : public testing::Test {
 protected:
  Opened opened() const { return platform_.workspace->opened(); }

  static void callEveryWay(const OVRef<OVObjectPhone>& phone) {
    phone->call();
    phone->videoCall();
    phone->sendMessage();
  }
  static void callEveryWay(const OVString& number) {
    callEveryWay(OVObjectPhone::initWithPhoneNumber(number));
  }
  static void sendTo(const OVString& address) {
    OVObjectEmail::initWithEmail(address)->sendEmail();
  }

 private:
  const FakePlatform platform_;
};

TEST_F(Actions, CallOpensTheDigits) {
  OVObjectPhone::initWithPhoneNumber("+49 (30) 1234-567")->call();
  EXPECT_EQ(opened(), Opened{"tel:49301234567"});
}

TEST_F(Actions, VideoCallOpensTheDigits) {
  OVObjectPhone::initWithPhoneNumber("+49 (30) 1234-567")->videoCall();
  EXPECT_EQ(opened(), Opened{"facetime://49301234567"});
}

TEST_F(Actions, MessageOpensTheDigits) {
  OVObjectPhone::initWithPhoneNumber("+49 (30) 1234-567")->sendMessage();
  EXPECT_EQ(opened(), Opened{"imessage://49301234567"});
}

TEST_F(Actions, InvalidNumberOpensNothing) {
  callEveryWay("555.1234");
  callEveryWay("555-ABCD");
  EXPECT_EQ(opened(), Opened{});
}

TEST_F(Actions, EmptyNumberOpensTheScheme) {
  OVObjectPhone::initWithPhoneNumber("")->call();
  EXPECT_EQ(opened(), Opened{"tel:"});
}

TEST_F(Actions, NumberWithoutDigitsOpensTheScheme) {
  callEveryWay("()");
  callEveryWay(" ");
  EXPECT_EQ(opened(),
            (Opened{"tel:", "facetime://", "imessage://", "tel:", "facetime://", "imessage://"}));
}

TEST_F(Actions, NullNumberOfAnArchiveOpensTheScheme) {
  callEveryWay(restored<OVObjectPhone>(archivedAs("OVObjectPhone", {})));
  EXPECT_EQ(opened(), (Opened{"tel:", "facetime://", "imessage://"}));
}

TEST_F(Actions, FarOffCharactersOpenAsTheDigitsOfTheirLowBytes) {
  OVObjectPhone::initWithPhoneNumber("\u0130\u0031")->call();
  EXPECT_EQ(opened(), Opened{"tel:01"});
}

TEST_F(Actions, EmailOpensTheAddressUnchanged) {
  sendTo("a@b");
  sendTo("Ann.O'Hara+x%20@example.com?subject=Hi");
  sendTo("@");
  EXPECT_EQ(opened(),
            (Opened{"mailto:a@b", "mailto:Ann.O'Hara+x%20@example.com?subject=Hi", "mailto:@"}));
}

TEST_F(Actions, InvalidEmailOpensNothing) {
  for (const OVString address : {"ab", "a@b@c", ""}) sendTo(address);
  restored<OVObjectEmail>(archivedAs("OVObjectEmail", {}))->sendEmail();
  EXPECT_EQ(opened(), Opened{});
}

TEST_F(Actions, EmailThatMakesNoUrlOpensNothing) {
  sendTo("a b@c");
  sendTo("a@b\n");
  EXPECT_EQ(opened(), Opened{});
}

}  // namespace
