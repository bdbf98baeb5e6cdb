#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include <OVAddressBookSDK/object.h>

/// What an object of the library says about itself, under the keys that its archive has.
struct ListedFields {
  using Objects = std::vector<OVRef<OVObject>>;
  /// Plain text, an object, or the elements of an array.
  using Value = std::variant<std::string, OVRef<OVObject>, Objects>;

  std::string className;
  std::map<std::string, Value> fields;
};

/// Of one of the library's classes; without a class name for any other object.
ListedFields listedFields(const OVRef<OVObject>& object);
