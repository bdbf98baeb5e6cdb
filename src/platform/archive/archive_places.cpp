#include "platform/archive/archive_places.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <typeinfo>
#include <utility>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>

namespace ov::detail {

namespace {

/// A longer path is shortened in the middle.
constexpr std::size_t kMaxSteps = 64;

[[noreturn]] void raiseRefused(const OVObject& object, const std::string& path) {
  const char* mangled = typeid(object).name();
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> readable(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
  throw std::invalid_argument(std::string("OVKeyedArchiver: the class ") +
                              (readable ? readable.get() : mangled) + " cannot be archived" +
                              (path.empty() ? "" : ", at " + path) +
                              ": override classForCoder() in it");
}

/// From the object that holds it to the object.
std::string step(const OVObject* owner, const std::string& key, const OVObject& object) {
  const auto isIt = [&object](const OVRef<OVObject>& held) { return held.get() == &object; };
  if (const auto* list = dynamic_cast<const ListObject*>(owner)) {
    const auto at = std::ranges::find_if(list->items, isIt);
    return '[' + std::to_string(at - list->items.begin()) + ']';
  }
  if (const auto* dictionary = dynamic_cast<const DictionaryObject*>(owner)) {
    const auto& entries = dictionary->entries();
    const auto at = std::ranges::find_if(entries, isIt, &DictionaryObject::Entry::value);
    return "[\"" + (at == entries.end() ? std::string() : at->key.str()) + "\"]";
  }
  return '.' + key;
}

}  // namespace

void ArchivePlaces::meet(const OVObject& object) {
  if (places_.try_emplace(&object, Place{owner_, {}}).second) unnamed_.push_back(&object);
}

void ArchivePlaces::refuse(const OVRef<OVObject>& object) {
  if (refused_ != nullptr) return;
  meet(*object);
  refused_ = object;
}

void ArchivePlaces::name(std::string_view key) {
  for (const OVObject* object : unnamed_) places_[object].key = key;
  unnamed_.clear();
  if (refused_ != nullptr) raiseRefused(*refused_, pathTo(*refused_));
}

std::string ArchivePlaces::pathTo(const OVObject& object) const {
  std::vector<std::string> steps;
  for (const OVObject* at = &object;;) {
    const auto found = places_.find(at);
    if (found == places_.end() || found->second.owner == nullptr) break;
    const auto& [owner, key] = found->second;
    steps.push_back(step(owner, key, *at));
    at = owner;
  }
  std::ranges::reverse(steps);
  if (steps.size() > kMaxSteps) {
    const auto half = static_cast<std::ptrdiff_t>(kMaxSteps / 2);
    const auto after = steps.erase(steps.begin() + half, steps.end() - half);
    steps.insert(after, " ... ");
  }
  std::string path;
  for (const std::string& each : steps) path += each;
  return path.starts_with('.') ? path.substr(1) : path;
}

}  // namespace ov::detail
