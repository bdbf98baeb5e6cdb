#pragma once

#include <OVAddressBookSDK/workspace.h>

namespace ov {

/// Opens URLs with `xdg-open`.
class DesktopWorkspace final : public OVWorkspace {
 private:
  bool open(const OVString& url) override;
};

}  // namespace ov
