#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <OVAddressBookSDK/object.h>

namespace ov::detail {

/// Where the objects of a graph are first met, so that an error can name the place. Objects are
/// known by their addresses, and live as long as this does.
class ArchivePlaces {
 public:
  /// What is met from now on is in this object.
  void enter(const OVObject& owner) { owner_ = &owner; }
  /// An object is referred to; the key of that field comes next.
  void meet(const OVObject& object);
  /// An object is met that cannot be archived; `name` throws that.
  void refuse(const OVRef<OVObject>& object);
  /// The key of the field that refers to what was met since the last key. Throws
  /// `std::invalid_argument` for an object that was refused, with the path to it.
  void name(std::string_view key);

 private:
  struct Place {
    const OVObject* owner;
    std::string key;
  };

  /// The path from the root, as in `personDic["p-1"].Phone.valueArray[1].value`; "" for the root.
  [[nodiscard]] std::string pathTo(const OVObject& object) const;

  const OVObject* owner_ = nullptr;
  std::unordered_map<const OVObject*, Place> places_;
  std::vector<const OVObject*> unnamed_;
  OVRef<OVObject> refused_;  // the first
};

}  // namespace ov::detail
