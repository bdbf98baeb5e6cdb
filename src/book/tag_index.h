#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>

namespace ov::detail {

/// Changes the lists of a tag manager, and knows what long ones hold, so that they need not be
/// walked for every change. It notices what others change in them meanwhile.
class TagIndex {
 public:
  using Texts = OVList<OVString>;

  [[nodiscard]] bool contains(const Texts& list, const OVString& text);
  void push_back(const Texts& list, const OVString& text);
  /// Every occurrence.
  void remove(const Texts& list, const OVString& text) noexcept;

 private:
  /// What a list held at its last change.
  struct Known {
    OVRef<OVObject> list;  // so that no other list can have its address
    std::uint32_t changes = 0;
    std::uint16_t replacements = 0;
    std::unique_ptr<DictionaryObject> texts;
  };
  using Place = std::unordered_map<const OVObject*, Known>::iterator;

  /// The end where nothing is known of the list as it is.
  [[nodiscard]] Place find(const Texts& list);
  [[nodiscard]] Place learn(const Texts& list);

  std::unordered_map<const OVObject*, Known> known_;
};

}  // namespace ov::detail
