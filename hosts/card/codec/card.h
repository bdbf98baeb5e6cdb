#pragma once

#include <cstddef>
#include <deque>
#include <memory_resource>
#include <string_view>

#include "line.h"
#include "version.h"

namespace ov::card {

/// One card as it is in a text.
struct Card {
  explicit Card(std::pmr::memory_resource* memory) : lines(memory) {}

  /// 3.0 where the card does not say.
  Version version = Version::V3_0;
  /// The line of BEGIN:VCARD, counted from 1.
  std::size_t number = 0;
  /// The card from BEGIN:VCARD to the end of the line END:VCARD, as it is in the text; but where
  /// lines in other character sets than UTF-8 are spelled again, memory of the card.
  std::string_view source;
  bool isRespelled = false;
  /// What has to follow `source` to end the card: empty unless END:VCARD or its line end is
  /// missing.
  std::string_view rest;
  /// What ends the line BEGIN:VCARD; CR LF where nothing does.
  std::string_view lineEnd;
  /// The properties in order, without VERSION. The source of each is a part of `source`; between
  /// them are BEGIN, VERSION, END, empty lines and lines that are not properties.
  std::pmr::deque<Line> lines;
};

}  // namespace ov::card
