#include "platform/services/name_order.h"

#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <OVAddressBookSDK/notification_names.h>
#include <OVAddressBookSDK/number.h>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

namespace {

class NameOrder : public testing::Test {
 protected:
  FakePlatform platform_;
};

TEST_F(NameOrder, IsFirstNameFirstInFreshUserDefaults) { EXPECT_FALSE(ov::lastNameInFront()); }

TEST_F(NameOrder, IsReadAfreshEachTime) {
  ov::setLastNameInFront(true);
  EXPECT_TRUE(ov::lastNameInFront());
  platform_.defaults->setBoolForKey(false, "l_n_f");
  EXPECT_FALSE(ov::lastNameInFront());
  OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
  platform_.defaults->setBoolForKey(true, "l_n_f");
  EXPECT_FALSE(ov::lastNameInFront());
}

TEST_F(NameOrder, IsStoredAsATruthValue) {
  ov::setLastNameInFront(true);
  const auto stored = ov::cast<OVNumber>(platform_.defaults->objectForKey("l_n_f"));
  ASSERT_NE(stored, nullptr);
  EXPECT_EQ(stored->value(), OVNumber::Value(true));
}

TEST_F(NameOrder, ASettingIsAnnouncedOncePerCallAlsoWhenUnchanged) {
  int announced = 0;
  const auto observer = platform_.center->addObserver(OV_LastNmaeFrontChange_notification,
                                                      [&](const OVNotification&) { ++announced; });
  ov::setLastNameInFront(true);
  EXPECT_EQ(announced, 1);
  ov::setLastNameInFront(true);
  EXPECT_EQ(announced, 2);
  EXPECT_TRUE(ov::lastNameInFront());
}

TEST_F(NameOrder, TheAnnouncementHasNeitherSenderNorUserInformation) {
  std::vector<OVNotification> announced;
  const auto observer = platform_.center->addObserver(
      nullptr, [&](const OVNotification& notification) { announced.push_back(notification); });
  ov::setLastNameInFront(false);
  ASSERT_EQ(announced.size(), 1U);
  EXPECT_EQ(announced[0].name, "OV_LastNmaeFrontChange_notification");
  EXPECT_EQ(announced[0].object, nullptr);
  EXPECT_EQ(announced[0].userInfo, nullptr);
}

TEST_F(NameOrder, TheAnnouncementComesOnTheCallersThreadOnceThePreferenceIsSet) {
  bool seen = false;
  std::thread::id thread;
  const auto observer = platform_.center->addObserver(OV_LastNmaeFrontChange_notification,
                                                      [&](const OVNotification&) {
                                                        seen = ov::lastNameInFront();
                                                        thread = std::this_thread::get_id();
                                                      });
  ov::setLastNameInFront(true);
  EXPECT_TRUE(seen);
  EXPECT_EQ(thread, std::this_thread::get_id());
}

/// Notes the order of what is done to it.
class OrderedDefaults final : public OVUserDefaults {
 public:
  explicit OrderedDefaults(std::vector<std::string>& steps) : steps_(steps) {}

 private:
  OVRef<OVObject> load(const OVString& /*key*/) const override { return nullptr; }
  void store(const OVRef<OVObject>& /*object*/, const OVString& key) override {
    steps_.push_back("store " + key.str());
  }
  bool writeThrough() override {
    steps_.emplace_back("synchronize");
    return true;
  }

  std::vector<std::string>& steps_;
};

TEST_F(NameOrder, IsSetAndAnnouncedOnAnotherThreadThatSetsIt) {
  std::thread::id announcing;
  bool flagThen = false;
  const auto observer = platform_.center->addObserver(OV_LastNmaeFrontChange_notification,
                                                      [&](const OVNotification&) {
                                                        announcing = std::this_thread::get_id();
                                                        flagThen = ov::lastNameInFront();
                                                      });
  std::thread setter([] { ov::setLastNameInFront(true); });
  const std::thread::id expected = setter.get_id();
  setter.join();
  EXPECT_EQ(announcing, expected);
  EXPECT_TRUE(flagThen);
  EXPECT_TRUE(ov::lastNameInFront());
}

TEST_F(NameOrder, IsStoredThenWrittenThroughThenAnnounced) {
  std::vector<std::string> steps;
  OVUserDefaults::setStandardUserDefaults(std::make_shared<OrderedDefaults>(steps));
  const auto observer = platform_.center->addObserver(
      nullptr, [&](const OVNotification&) { steps.emplace_back("announce"); });
  ov::setLastNameInFront(true);
  EXPECT_THAT(steps, testing::ElementsAre("store l_n_f", "synchronize", "announce"));
}

TEST(NameOrderOnDisk, IsReadByTheNextProcess) {
  const TemporaryFolder home;
  ::setenv("XDG_CONFIG_HOME", home.path().c_str(), 1);
  OVUserDefaults::setApplicationIdentifier("name-order");
  EXPECT_TRUE(ChildProcess([] {
                ov::setLastNameInFront(true);
                return ov::lastNameInFront();
              }).succeeded());
  EXPECT_TRUE(ChildProcess([] { return ov::lastNameInFront(); }).succeeded());
  EXPECT_TRUE(ov::lastNameInFront());
}

}  // namespace
