#include <OVAddressBookSDK/workspace.h>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Workspace, PassesOnAValidUrlUnchanged) {
  RecordingWorkspace workspace;
  EXPECT_TRUE(workspace.openURL("tel:49301234567"));
  EXPECT_TRUE(workspace.openURL("mailto:%41@b?subject=$(x)"));
  EXPECT_THAT(workspace.opened(),
              ElementsAre(OVString("tel:49301234567"), OVString("mailto:%41@b?subject=$(x)")));
}

TEST(Workspace, AcceptsASchemeAlone) {
  RecordingWorkspace workspace;
  EXPECT_TRUE(workspace.openURL("tel:"));
  EXPECT_TRUE(workspace.openURL("facetime://"));
  EXPECT_TRUE(workspace.openURL("imessage://"));
}

TEST(Workspace, DropsWhatIsNoUrl) {
  RecordingWorkspace workspace;
  EXPECT_FALSE(workspace.openURL(nullptr));
  EXPECT_FALSE(workspace.openURL(""));
  EXPECT_FALSE(workspace.openURL("mailto:a b@c"));
  EXPECT_FALSE(workspace.openURL("mailto:\u00E4@b"));
  EXPECT_FALSE(workspace.openURL("--help"));
  EXPECT_THAT(workspace.opened(), IsEmpty());
}

TEST(Workspace, TheWorkspaceOfNoneOpensNothing) {
  EXPECT_FALSE(OVWorkspace::none()->openURL("tel:1"));
}

TEST(Workspace, AHostInstallsAnotherWorkspace) {
  const auto original = OVWorkspace::sharedWorkspace();
  ASSERT_NE(original, nullptr);
  const auto own = std::make_shared<RecordingWorkspace>();
  OVWorkspace::setSharedWorkspace(own);
  OVWorkspace::sharedWorkspace()->openURL("tel:1");
  OVWorkspace::setSharedWorkspace(nullptr);
  EXPECT_THAT(own->opened(), ElementsAre(OVString("tel:1")));
  EXPECT_EQ(OVWorkspace::sharedWorkspace(), original);
}

}  // namespace
