#include <OVAddressBookSDK/workspace.h>

#include <utility>

#include "platform/services/desktop_workspace.h"
#include "platform/services/shared_instance.h"
#include "platform/services/url.h"

namespace {

class NoWorkspace final : public OVWorkspace {
  bool open(const OVString& /*url*/) override { return false; }
};

OVRef<OVWorkspace> makeWorkspace() { return std::make_shared<ov::DesktopWorkspace>(); }

ov::SharedInstance<OVWorkspace>& theWorkspace() {
  static auto& instance = *new ov::SharedInstance<OVWorkspace>(&makeWorkspace);
  return instance;
}

}  // namespace

OVWorkspace::~OVWorkspace() = default;

OVRef<OVWorkspace> OVWorkspace::sharedWorkspace() { return theWorkspace().get(); }

void OVWorkspace::setSharedWorkspace(OVRef<OVWorkspace> workspace) {
  theWorkspace().set(std::move(workspace));
}

OVRef<OVWorkspace> OVWorkspace::none() { return std::make_shared<NoWorkspace>(); }

bool OVWorkspace::openURL(const OVString& url) { return ov::isValidUrl(url.view()) && open(url); }
