#pragma once

#include <memory>

#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/group_general.h>

#include "block_content.h"

namespace ov::qt {

/// A group of a `OVBlockBook`: reads and changes the record of the general book.
class BlockGroup final : public IOVGroup {
 public:
  BlockGroup(OVString id, OVRef<OVGroupGeneral> record, std::weak_ptr<BlockContent> content);

  [[nodiscard]] OVString ID() const override { return id_; }
  [[nodiscard]] OVString displayName() const override { return record_->title(); }
  [[nodiscard]] OVList<IOVGroup> subGroups() const override;
  [[nodiscard]] OVList<IOVPerson> persons() const override;
  [[nodiscard]] OVRef<OVGroupGeneral> emptyGeneralGroup() const override;

  void setDisplayName(const OVString& name) override;
  bool addPerson(const OVRef<IOVPerson>& person) override;
  bool removePerson(const OVRef<IOVPerson>& person) override;
  bool addSubGroup(const OVRef<IOVGroup>& group) override;
  bool removeSubGroup(const OVRef<IOVGroup>& group) override;

 private:
  OVString id_;
  OVRef<OVGroupGeneral> record_;
  std::weak_ptr<BlockContent> content_;
};

}  // namespace ov::qt
