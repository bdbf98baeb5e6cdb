#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// The desktop's part that the library needs: it opens URLs. Any thread may call it.
///
/// The platform's default runs `xdg-open` with the URL, detached from this process: it waits for
/// nothing and leaves nothing behind, however much memory this process has. `xdg-open` is searched
/// for in the absolute folders of `PATH`, never in the current folder.
///
/// A host with its own way to open a URL derives from this class and installs it:
///
/// \code
/// class HostWorkspace : public OVWorkspace {
///   bool open(const OVString& url) override { return toolkit.showUri(url.c_str()); }
/// };
/// OVWorkspace::setSharedWorkspace(std::make_shared<HostWorkspace>());
/// OVObjectPhone::initWithPhoneNumber("+44 55 50 23")->call();  // opens: tel:44555023
/// \endcode
class OV_EXPORT OVWorkspace {
 public:
  OVWorkspace(const OVWorkspace&) = delete;
  OVWorkspace& operator=(const OVWorkspace&) = delete;
  virtual ~OVWorkspace();

  /// The workspace that the library uses; never null.
  [[nodiscard]] static OVRef<OVWorkspace> sharedWorkspace();
  /// Installs another workspace; null restores the platform's default.
  static void setSharedWorkspace(OVRef<OVWorkspace> workspace);

  /// A workspace that opens nothing, for hosts without a desktop; `openURL` returns false.
  [[nodiscard]] static OVRef<OVWorkspace> none();

  /// Passes `url` to the user's handler for its scheme; true if it was passed on, whatever the
  /// handler does with it. Null and anything but an absolute URL of RFC 3986 (a blank, a character
  /// outside ASCII, no scheme, ...) are dropped.
  bool openURL(const OVString& url);

 protected:
  OVWorkspace() = default;

 private:
  /// Called with a valid URL only.
  virtual bool open(const OVString& url) = 0;
};
