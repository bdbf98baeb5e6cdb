// Objects wait in a queue until they are listed, so that a deep graph needs no stack and a ring of
// objects is walked once.

#include "support/archive/archive_listing.h"

#include <deque>
#include <map>
#include <span>
#include <unordered_map>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "support/archive/listed_fields.h"
#include "support/archive/listed_values.h"

namespace {

template <class Elements, class Print>
std::string joined(const Elements& elements, Print print) {
  std::string result;
  for (const auto& element : elements) result += (result.empty() ? "" : ", ") + print(element);
  return result;
}

std::map<OVString, const OVOpaqueValue*> sorted(std::span<const OVOpaqueField> fields) {
  std::map<OVString, const OVOpaqueValue*> byKey;
  for (const OVOpaqueField& each : fields) byKey.try_emplace(each.key, &each.value);
  return byKey;
}

class Listing {
 public:
  std::string of(const OVRef<OVObject>& root) {
    text_ = "root = " + value(root) + '\n';
    for (; !waiting_.empty(); waiting_.pop_front()) {
      number_ = numbers_.at(waiting_.front().get());
      list(waiting_.front());
    }
    return text_;
  }

 private:
  std::string value(const OVRef<OVObject>& object) {
    if (object == nullptr) return "null";
    if (const auto text = ov::cast<OVString>(object)) return listedText(text);
    if (const auto number = ov::cast<OVNumber>(object)) return listedNumber(*number);
    if (const auto data = ov::cast<OVData>(object)) return listedData(*data);
    const auto [at, isNew] = numbers_.try_emplace(object.get(), numbers_.size() + 1);
    if (isNew) waiting_.push_back(object);
    return "#" + std::to_string(at->second);
  }

  void line(const std::string& rest) { text_ += "#" + std::to_string(number_) + rest + '\n'; }
  void field(const std::string& key, const std::string& value) { line("." + key + " = " + value); }

  void list(const OVRef<OVObject>& object) {
    if (const auto list = ov::cast<OVList<OVObject>>(object)) {
      line(list.isImmutable() ? " : immutable list" : " : list");
      std::size_t position = 0;
      for (const OVRef<OVObject> each : list) {
        line("[" + std::to_string(position++) + "] = " + value(each));
      }
    } else if (const auto dictionary = ov::cast<OVDictionary<OVObject>>(object)) {
      line(dictionary.isImmutable() ? " : immutable dictionary" : " : dictionary");
      for (const auto& [key, each] : dictionary) {
        line("[" + listedText(key) + "] = " + value(each));
      }
    } else if (const auto date = ov::cast<OVDate>(object)) {
      line(" : date");
      field("time", listedReal(date->timeIntervalSinceReferenceDate()));
    } else if (const auto opaque = ov::cast<OVOpaqueObject>(object)) {
      listOpaque(*opaque);
    } else {
      listFields(listedFields(object));
    }
  }

  void listFields(const ListedFields& object) {
    line(" : " + object.className);
    for (const auto& [key, content] : object.fields) {
      if (const auto* plain = std::get_if<std::string>(&content)) {
        field(key, *plain);
      } else if (const auto* elements = std::get_if<ListedFields::Objects>(&content)) {
        field(key, "[" + joined(*elements, [this](const auto& each) { return value(each); }) + "]");
      } else if (const auto& held = std::get<OVRef<OVObject>>(content); held != nullptr) {
        field(key, value(held));
      }
    }
  }

  void listOpaque(const OVOpaqueObject& object) {
    line(" : opaque " + object.className().str() + " (" +
         joined(object.classes(), [](const OVString& name) { return name.str(); }) + ")");
    for (const auto& [key, content] : sorted(object.fields())) field(key.str(), plain(*content));
  }

  std::string plain(const OVOpaqueValue& content) {
    const auto each = [this](const OVOpaqueValue& element) { return plain(element); };
    if (const auto* held = std::get_if<OVOpaqueValue::Reference>(&content.content)) {
      return value(held->object);
    }
    if (const auto* leaf = std::get_if<OVOpaqueValue::Inline>(&content.content)) {
      const auto date = ov::cast<OVDate>(leaf->object);
      return date == nullptr ? value(leaf->object)
                             : "date " + listedReal(date->timeIntervalSinceReferenceDate());
    }
    if (const auto* array = std::get_if<OVOpaqueValue::Array>(&content.content)) {
      return "[" + joined(*array, each) + "]";
    }
    if (const auto* set = std::get_if<OVOpaqueValue::Set>(&content.content)) {
      return "set [" + joined(set->elements, each) + "]";
    }
    const auto fields = sorted(std::get<OVOpaqueValue::Dictionary>(content.content));
    return "{" +
           joined(fields,
                  [&](const auto& entry) {
                    return listedText(entry.first) + ": " + plain(*entry.second);
                  }) +
           "}";
  }

  std::string text_;
  std::size_t number_ = 0;
  std::unordered_map<const void*, std::size_t> numbers_;
  std::deque<OVRef<OVObject>> waiting_;
};

}  // namespace

std::string archiveListing(const OVRef<OVObject>& root) { return Listing().of(root); }
