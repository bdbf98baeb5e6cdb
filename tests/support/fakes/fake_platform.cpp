#include "support/fakes/fake_platform.h"

std::vector<OVString> RecordingWorkspace::opened() const {
  const std::lock_guard lock(mutex_);
  return opened_;
}

bool RecordingWorkspace::open(const OVString& url) {
  const std::lock_guard lock(mutex_);
  opened_.push_back(url);
  return true;
}

std::vector<OVString> RecordingLog::lines() const {
  const std::lock_guard lock(mutex_);
  return lines_;
}

void RecordingLog::write(const OVString& line) {
  const std::lock_guard lock(mutex_);
  lines_.push_back(line);
}

FakePlatform::FakePlatform() {
  OVUserDefaults::setStandardUserDefaults(defaults);
  OVNotificationCenter::setDefaultCenter(center);
  OVWorkspace::setSharedWorkspace(workspace);
  OVLog::setSharedLog(log);
}

FakePlatform::~FakePlatform() {
  OVUserDefaults::setStandardUserDefaults(nullptr);
  OVNotificationCenter::setDefaultCenter(nullptr);
  OVWorkspace::setSharedWorkspace(nullptr);
  OVLog::setSharedLog(nullptr);
  OVLocale::setCurrentLocale(nullptr);
}
