#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// Receives the library's diagnostic lines. Any thread may call it.
///
/// The platform's default writes to the system log (facility "user", level "notice").
///
/// A host that keeps a log of its own derives from this class and installs it:
///
/// \code
/// class HostLog : public OVLog {
///   void write(const OVString& line) override { std::cout << line << "\n"; }
/// };
/// OVLog::setSharedLog(std::make_shared<HostLog>());
/// OVLog::sharedLog()->log("started");  // prints: started
/// \endcode
class OV_EXPORT OVLog {
 public:
  OVLog(const OVLog&) = delete;
  OVLog& operator=(const OVLog&) = delete;
  virtual ~OVLog();

  /// The log that the library uses; never null.
  [[nodiscard]] static OVRef<OVLog> sharedLog();
  /// Installs another log; null restores the platform's default.
  static void setSharedLog(OVRef<OVLog> log);

  /// A log that drops every line.
  [[nodiscard]] static OVRef<OVLog> none();

  /// Writes one line; nothing for null. Each control character except the tab, line breaks
  /// included, becomes a space, so that one call never writes two lines.
  void log(const OVString& line);

 protected:
  OVLog() = default;

 private:
  /// Called with a line that is not null and holds no line break. Must not throw.
  virtual void write(const OVString& line) = 0;
};
