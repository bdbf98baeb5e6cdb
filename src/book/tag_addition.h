#pragma once

#include <utility>

#include "book/tag_index.h"

namespace ov::detail {

/// Adds a text to a list that does not hold it yet, and removes it again unless it is kept.
class TagAddition {
 public:
  using Texts = OVList<OVString>;
  using TextsByText = OVDictionary<Texts>;

  TagAddition(OVString text, Texts list, TagIndex& index)
      : index_(index), text_(std::move(text)), list_(std::move(list)) {
    if (list_ == nullptr || index_.contains(list_, text_)) return;
    index_.push_back(list_, text_);
    isAdded_ = true;
  }
  /// Makes the list when there is none under the key.
  TagAddition(const OVString& text, const OVString& key, const TextsByText& dictionary,
              TagIndex& index)
      : TagAddition(text, dictionary[key], index) {
    if (list_ != nullptr || dictionary == nullptr) return;
    dictionary.set(key, Texts::list({text}));
    key_ = key;
    dictionary_ = dictionary;
  }
  TagAddition(const TagAddition&) = delete;
  TagAddition& operator=(const TagAddition&) = delete;
  ~TagAddition() {
    if (isAdded_) index_.remove(list_, text_);
    if (dictionary_ != nullptr) dictionary_.erase(key_);
  }

  void keep() {
    isAdded_ = false;
    dictionary_ = nullptr;
  }

 private:
  TagIndex& index_;
  OVString text_;
  Texts list_;
  bool isAdded_ = false;
  OVString key_;
  TextsByText dictionary_;  // null unless the list was made
};

}  // namespace ov::detail
