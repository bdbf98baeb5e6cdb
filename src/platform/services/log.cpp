#include <OVAddressBookSDK/log.h>

#include <syslog.h>

#include <algorithm>
#include <string>
#include <utility>

#include "platform/services/shared_instance.h"

namespace {

class SystemLog final : public OVLog {
  void write(const OVString& line) override { syslog(LOG_USER | LOG_NOTICE, "%s", line.c_str()); }
};

class NoLog final : public OVLog {
  void write(const OVString& /*line*/) override {}
};

OVRef<OVLog> makeLog() { return std::make_shared<SystemLog>(); }

ov::SharedInstance<OVLog>& theLog() {
  static auto& instance = *new ov::SharedInstance<OVLog>(&makeLog);
  return instance;
}

bool breaksLine(char c) {
  constexpr char kDelete = 0x7F;
  return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == kDelete;
}

}  // namespace

OVLog::~OVLog() = default;

OVRef<OVLog> OVLog::sharedLog() { return theLog().get(); }

void OVLog::setSharedLog(OVRef<OVLog> log) { theLog().set(std::move(log)); }

OVRef<OVLog> OVLog::none() { return std::make_shared<NoLog>(); }

void OVLog::log(const OVString& line) {
  if (line.isNull()) return;
  const std::string_view given = line.view();
  if (std::none_of(given.begin(), given.end(), &breaksLine)) {
    write(line);
    return;
  }
  std::string single(given);
  std::replace_if(single.begin(), single.end(), &breaksLine, ' ');
  write(single);
}
