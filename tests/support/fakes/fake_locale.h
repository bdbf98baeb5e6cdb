#pragma once

#include <utility>

#include <OVAddressBookSDK/locale.h>

/// The platform's locale with an identifier, and if need be a list of countries, of its own. In
/// force for as long as it lives.
class FakeLocale {
 public:
  explicit FakeLocale(OVString identifier) {
    OVLocale::setCurrentLocale(OVLocale::withIdentifier(identifier));
  }
  FakeLocale(OVString identifier, OVList<OVString> countryCodes) {
    OVLocale::setCurrentLocale(
        std::make_shared<Service>(std::move(identifier), std::move(countryCodes)));
  }
  FakeLocale(const FakeLocale&) = delete;
  FakeLocale& operator=(const FakeLocale&) = delete;
  ~FakeLocale() { OVLocale::setCurrentLocale(nullptr); }

 private:
  class Service final : public OVLocale {
   public:
    Service(OVString identifier, OVList<OVString> countryCodes)
        : identifier_(std::move(identifier)), countryCodes_(std::move(countryCodes)) {}

    OVList<OVString> isoCountryCodes() const override { return countryCodes_; }
    OVString currentLocaleIdentifier() const override { return identifier_; }
    OVString lowercase(const OVString& text) const override { return mapping_->lowercase(text); }

   private:
    OVString identifier_;
    OVList<OVString> countryCodes_;
    OVRef<OVLocale> mapping_ = OVLocale::withIdentifier("en_US");
  };
};
