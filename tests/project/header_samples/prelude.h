#pragma once

#include <OVAddressBookSDK/OVAddressBookSDK.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/fakes/fake_platform.h"

// What a host has at hand in the samples: a toolkit, settings and a bus of its own.

struct {
  bool showUri(const char* uri) const {
    std::cout << uri << "\n";
    return true;
  }
  OVList<OVString> countries() const { return OVList<OVString>::list({"CH", "DE"}); }
  OVString localeName() const { return "de_CH"; }
  OVString lower(const OVString& text) const { return text; }
} const toolkit;

struct {
  OVRef<OVObject> read(const OVString& key) const { return values[key]; }
  void write(const OVString& key, const OVRef<OVObject>& object) const { values.set(key, object); }
  void remove(const OVString& key) const { values.erase(key); }
  bool flush() const { return true; }
  OVDictionary<OVObject> values = OVDictionary<OVObject>::dictionary();
} const settings;

struct {
  int subscribe(const OVString& /*name*/, OVNotificationCenter::Callback callback) {
    subscribers.push_back(std::move(callback));
    return static_cast<int>(subscribers.size());
  }
  void unsubscribe(int id) { subscribers.at(static_cast<std::size_t>(id) - 1) = nullptr; }
  void publish(const OVNotification& notification) const {
    for (const auto& subscriber : subscribers) {
      if (subscriber) subscriber(notification);
    }
  }
  std::vector<OVNotificationCenter::Callback> subscribers;
} bus;

/// Takes what a sample prints, on services that touch nothing outside the process.
class Printed {
 public:
  Printed() : before_(std::cout.rdbuf(text_.rdbuf())) {
    OVLocale::setCurrentLocale(OVLocale::withIdentifier("en_GB"));
  }
  Printed(const Printed&) = delete;
  Printed& operator=(const Printed&) = delete;
  ~Printed() { std::cout.rdbuf(before_); }

  /// All words, with one blank between them.
  [[nodiscard]] std::string words() const {
    std::istringstream stream(text_.str());
    std::string all;
    for (std::string word; stream >> word;) all += (all.empty() ? "" : " ") + word;
    return all;
  }

 private:
  const FakePlatform platform_;
  std::ostringstream text_;
  std::streambuf* before_;
};
