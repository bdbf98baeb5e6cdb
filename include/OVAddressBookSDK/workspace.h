#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// The desktop, as far as the library needs it: it opens URLs. Any thread may call it.
///
/// The platform's default runs `xdg-open` with the URL, detached from this process: it waits for
/// nothing and leaves nothing behind, however much memory this process has. `xdg-open` is looked
/// for in the folders that `PATH` names in full; the current folder is never searched.
///
/// A host that has its own way to open a URL derives from this class and installs it:
///
///     class HostWorkspace : public OVWorkspace {
///       bool open(const OVString& url) override { return toolkit.showUri(url.c_str()); }
///     };
///     OVWorkspace::setSharedWorkspace(std::make_shared<HostWorkspace>());
class OV_EXPORT OVWorkspace {
 public:
  OVWorkspace(const OVWorkspace&) = delete;
  OVWorkspace& operator=(const OVWorkspace&) = delete;
  virtual ~OVWorkspace();

  /// The workspace that the library uses; never null.
  [[nodiscard]] static OVRef<OVWorkspace> sharedWorkspace();
  /// Installs another workspace; null brings the platform's default back.
  static void setSharedWorkspace(OVRef<OVWorkspace> workspace);

  /// A workspace that opens nothing, for hosts without a desktop; `openURL` returns false.
  [[nodiscard]] static OVRef<OVWorkspace> none();

  /// Hands `url` to the user's handler for its scheme; true when it was handed on. What the handler
  /// makes of it is not known. Null and text that is not an absolute URL of RFC 3986 (a blank, a
  /// character outside ASCII, no scheme, ...) are dropped.
  bool openURL(const OVString& url);

 protected:
  OVWorkspace() = default;

 private:
  /// Called with a valid URL only.
  virtual bool open(const OVString& url) = 0;
};
