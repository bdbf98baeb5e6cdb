#include "platform/archive/class_table.h"

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
  for (const OVClass* each :
       {&kTextClass, &kMutableTextClass, &kNumberClass, &kDataClass, &kMutableDataClass,
        &kOpaqueClass, &kArrayClass, &kMutableArrayClass, &kDictionaryClass,
        &kMutableDictionaryClass, &kDateClass, &kImageClass}) {
    byName.emplace(each->name, each);
  }
  return byName;
}

struct HostClasses {
  std::shared_mutex mutex;
  Classes byName;
};

HostClasses& hostClasses() {
  static auto& classes = *new HostClasses();
  return classes;
}

}  // namespace

const OVClass* libraryClass(std::string_view name) {
  const Classes& library = libraryClassesOnce.get(build);
  const auto at = library.find(name);
  return at == library.end() ? nullptr : at->second;
}

const OVClass* registeredClass(std::string_view name) {
  if (const OVClass* own = libraryClass(name)) return own->make == nullptr ? nullptr : own;
  HostClasses& host = hostClasses();
  const std::shared_lock lock(host.mutex);
  const auto at = host.byName.find(name);
  return at == host.byName.end() ? nullptr : at->second;
}

bool isLibraryClass(const OVClass& candidate) { return libraryClass(candidate.name) == &candidate; }

void registerHostClass(const OVClass& hostClass) {
  if (hostClass.name == nullptr || *hostClass.name == '\0' || hostClass.make == nullptr) {
    throw std::invalid_argument(
        "OVKeyedUnarchiver: a class needs a name and a function to make it");
  }
  const std::string_view name = hostClass.name;
  HostClasses& host = hostClasses();
  const std::unique_lock lock(host.mutex);
  const bool isTaken = libraryClass(name) != nullptr ||
                       host.byName.try_emplace(name, &hostClass).first->second != &hostClass;
  if (isTaken) {
    throw std::invalid_argument("OVKeyedUnarchiver: the class name " + std::string(name) +
                                " belongs to another class");
  }
}

}  // namespace ov::detail
