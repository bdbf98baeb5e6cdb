#pragma once

#include <vector>

#include <OVAddressBookSDK/tag_manager.h>

#include "support/printers.h"

using Texts = std::vector<OVString>;

/// The elements; nothing for a null list.
inline Texts texts(const OVList<OVString>& list) {
  Texts found;
  if (list == nullptr) return found;
  for (const OVString& text : list) found.push_back(text);
  return found;
}

inline Texts tagsOf(const OVTagManager& manager) {
  Texts tags;
  for (std::uint64_t i = 0; i < manager.count(); ++i) tags.push_back(manager.tagAtIndex(i));
  return tags;
}

inline OVList<OVString> listOf(const Texts& elements) {
  const auto list = OVList<OVString>::list();
  for (const OVString& element : elements) list.push_back(element);
  return list;
}
