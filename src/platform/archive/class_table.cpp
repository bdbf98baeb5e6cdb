#include "platform/archive/class_table.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <shared_mutex>
#include <stdexcept>
#include <string>
#include <unordered_map>

#include "platform/built_once.h"

namespace ov::detail {

namespace {

using Classes = std::unordered_map<std::string_view, const OVClass*>;

constinit BuiltOnce<Classes> libraryClassesOnce;

Classes build() {
  Classes byName;
  for (const OVClass* each : libraryClasses()) byName.emplace(each->name, each);
  for (const OVClass* each : {&kDateClass, &kImageClass}) byName.emplace(each->name, each);
  return byName;
}

/// The library's table by name.
const Classes& libraryClassesByName() { return libraryClassesOnce.get(build); }

struct HostClasses {
  std::shared_mutex mutex;
  Classes byName;
};

HostClasses& hostClasses() {
  static auto& classes = *new HostClasses();
  return classes;
}

/// Names that the archive reads in forms of its own.
bool isArchivesOwn(std::string_view name) {
  constexpr std::string_view kOwn[] = {"NSString",     "NSMutableString", "NSNumber",
                                       "NSData",       "NSArray",         "NSMutableArray",
                                       "NSDictionary", "NSMutableData",   "NSMutableDictionary"};
  return std::find(std::begin(kOwn), std::end(kOwn), name) != std::end(kOwn);
}

}  // namespace

const OVClass* registeredClass(std::string_view name) {
  const Classes& library = libraryClassesByName();
  if (const auto at = library.find(name); at != library.end()) return at->second;
  HostClasses& host = hostClasses();
  const std::shared_lock lock(host.mutex);
  const auto at = host.byName.find(name);
  return at == host.byName.end() ? nullptr : at->second;
}

bool isLibraryClass(const OVClass& candidate) {
  const OVClass* own[] = {&kOpaqueClass, &kArrayClass, &kMutableArrayClass, &kDictionaryClass,
                          &kMutableDictionaryClass};
  if (std::find(std::begin(own), std::end(own), &candidate) != std::end(own)) return true;
  const Classes& library = libraryClassesByName();
  const auto at = library.find(candidate.name);
  return at != library.end() && at->second == &candidate;
}

void registerHostClass(const OVClass& hostClass) {
  if (hostClass.name == nullptr || *hostClass.name == '\0' || hostClass.make == nullptr) {
    throw std::invalid_argument(
        "OVKeyedUnarchiver: a class needs a name and a function to make it");
  }
  const std::string_view name = hostClass.name;
  HostClasses& host = hostClasses();
  const std::unique_lock lock(host.mutex);
  const bool isTaken = isArchivesOwn(name) || libraryClassesByName().contains(name) ||
                       host.byName.try_emplace(name, &hostClass).first->second != &hostClass;
  if (isTaken) {
    throw std::invalid_argument("OVKeyedUnarchiver: the class name " + std::string(name) +
                                " belongs to another class");
  }
}

}  // namespace ov::detail
