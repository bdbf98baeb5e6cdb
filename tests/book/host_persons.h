#pragma once

#include <functional>
#include <map>
#include <vector>

#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/person.h>

/// A person of a host's own class, as bare as the interface allows.
class HostPerson final : public IOVPerson {
 public:
  explicit HostPerson(OVString ID) : ID_(std::move(ID)) {}

  /// The names of the properties that were asked for, in order.
  mutable std::vector<OVString> asked;
  const OVList<OVString> tags = OVList<OVString>::list();

  OVString ID() const override { return ID_; }
  OVString addressBookID() const override { return "host"; }
  OVString displayName() const override { return "Host Person"; }
  OVRef<OVValue> valueByProperty(const OVRef<OVProperty>& property) const override {
    asked.push_back(property->name());
    return valueByPropertyName(property->name());
  }
  OVRef<OVValue> valueByPropertyName(const OVStringView& name) const override {
    const auto at = values_.find(name);
    return at == values_.end() ? nullptr : at->second;
  }
  void setValueByProperty(const OVRef<OVValue>& value, const OVRef<OVProperty>& property) override {
    setValueByPropertyName(value, property->name());
  }
  void setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) override {
    values_[name] = value;
  }
  OVRef<OVImage> thumbnail() const override { return nullptr; }
  void setThumbnail(const OVRef<OVImage>& /*image*/) override {}
  OVRef<OVObjectPhone> mainPhone() const override { return nullptr; }
  OVRef<OVObjectEmail> mainEmail() const override { return nullptr; }
  OVList<IOVGroup> groups() const override { return OVList<IOVGroup>::list(); }
  OVList<OVProperty> notNullValueProperty() const override { return OVList<OVProperty>::list(); }
  OVList<OVString> tagArray() const override { return tags; }
  void addTag(const OVString& tag) override { tags.push_back(tag); }
  void removeTag(const OVString& tag) override { tags.remove(tag); }
  void setTags(const OVList<OVString>& /*tags*/) override {}
  void setIsOrganization(bool /*isOrganization*/) override {}
  bool isOrganization() const override { return true; }
  OVString showName() const override { return "Shown"; }
  OVString companyName() const override { return "Company"; }
  OVString jobTitle() const override { return "Title"; }

 private:
  OVString ID_;
  std::map<OVString, OVRef<OVValue>, std::less<>> values_;
};

/// A group of a host's own class.
class HostGroup final : public IOVGroup {
 public:
  HostGroup(OVString ID, OVString displayName)
      : ID_(std::move(ID)), displayName_(std::move(displayName)) {}

  OVList<IOVGroup> groupsInside = OVList<IOVGroup>::list();
  OVList<IOVPerson> members = OVList<IOVPerson>::list();

  OVString ID() const override { return ID_; }
  OVString displayName() const override { return displayName_; }
  OVList<IOVGroup> subGroups() const override { return groupsInside; }
  OVList<IOVPerson> persons() const override { return members; }

 private:
  OVString ID_;
  OVString displayName_;
};

inline OVRef<HostPerson> hostPerson(const OVString& ID) { return std::make_shared<HostPerson>(ID); }

inline OVRef<HostGroup> hostGroup(const OVString& ID, const OVString& displayName = "Group") {
  return std::make_shared<HostGroup>(ID, displayName);
}
