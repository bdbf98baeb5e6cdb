#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory_resource>
#include <string_view>

#include "line.h"
#include "version.h"

namespace ov::card {

/// One card as it stands in a text.
///
/// All views of a card and its lines live as long as both the text and the card.
struct Card {
  /// 3.0 where the card does not tell.
  Version version = Version::V3_0;
  /// Where BEGIN:VCARD stands, counted from 1.
  std::size_t number = 0;
  /// The card from BEGIN:VCARD to the end of the line END:VCARD: the bytes of the text where those
  /// are UTF-8; where not, lines in other character sets are spelled in UTF-8.
  std::string_view source;
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
