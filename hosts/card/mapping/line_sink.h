#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "codec/line_writer.h"
#include "reading.h"

namespace ov::card {

/// The preference that a line gets.
enum class Preference : std::uint8_t { Verbatim, First, None };

/// The parameters of a line as vCard 4.0 has them.
[[nodiscard]] std::string parametersOf(const Line& line, Preference preference);

/// Writes lines of a card with their labels.
class LineSink {
 public:
  LineSink(std::string& out, Version version, std::string_view lineEnd)
      : writer_(out, version, lineEnd), version_(version) {}

  /// A group of this name is there already.
  void reserveGroup(std::string_view group);

  void begin() { writer_.begin(); }
  void end() { writer_.end(); }
  void line(const LineHeader& header, std::string_view value) { writer_.line(header, value); }

  /// Whether the line goes into `group`, unless that is empty, and has its label there already.
  void write(const Spelling& spelling, Preference preference, std::string_view group = {});
  /// A line of another card, and with the first line of a group what the group says about it.
  void writeLike(const Line& line, const LineGroup* group, Preference preference);
  /// That line only.
  void writeAlone(const Line& line, Preference preference);
  /// The same with other bytes.
  void writeLike(const Line& line, std::string_view bytes, std::string_view mediaType);

 private:
  void writeCompanions(const LineGroup& group);
  std::string newGroup();
  std::string groupOfLabel(const LabelSpelling& label, bool& isNew);

  LineWriter writer_;
  Version version_;
  std::unordered_set<std::string, KeyedHash, std::equal_to<>> groups_;
  std::unordered_map<std::string, std::string, KeyedHash, std::equal_to<>> groupsOfLongLabels_;
  std::unordered_set<const LineGroup*> written_;
  std::size_t items_ = 0;
};

}  // namespace ov::card
