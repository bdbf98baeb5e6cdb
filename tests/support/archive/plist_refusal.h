#pragma once

#include <span>
#include <string>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/plist_reader.h"

/// Visits every object of the list; the message of the refusal, or "accepted".
inline std::string refusal(const std::string& list) {
  try {
    const ov::detail::PlistReader reader(std::as_bytes(std::span(list)));
    std::string storage;
    for (std::uint64_t object = 0; object < reader.objectCount(); ++object) {
      const auto item = reader.item(object);
      if (ov::detail::PlistReader::isText(item)) static_cast<void>(reader.text(item, storage));
      if (item.kind < ov::detail::PlistItem::Kind::array) continue;
      for (std::uint64_t i = 0; i < item.count; ++i) {
        static_cast<void>(reader.reference(item, i));
      }
    }
    return "accepted";
  } catch (const OVInvalidArchive& error) {
    return error.what();
  }
}
