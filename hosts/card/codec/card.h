#pragma once

#include <cstddef>
#include <deque>
#include <memory_resource>
#include <string_view>

#include "line.h"
#include "version.h"

namespace ov::card {

/// One card as it stands in a text.
struct Card {
  explicit Card(std::pmr::memory_resource* memory) : lines(memory) {}

  /// 3.0 where the card does not tell.
  Version version = Version::V3_0;
  /// Where BEGIN:VCARD stands, counted from 1.
  std::size_t number = 0;
  /// The card from BEGIN:VCARD to the end of the line END:VCARD, as it stands in the text; but
  /// where lines in other character sets than UTF-8 are spelled anew, memory of the card.
  std::string_view source;
  bool isSpelledAnew = false;
  /// What has to follow `source` to end the card: empty unless END:VCARD or its line end is
  /// missing.
  std::string_view rest;
  /// What ends the line BEGIN:VCARD; CR LF where nothing does.
  std::string_view lineEnd;
  /// The properties in order, without VERSION. The source of each is a part of `source`; between
  /// them stand BEGIN, VERSION, END, empty lines and lines that are no property.
  std::pmr::deque<Line> lines;
};

}  // namespace ov::card
