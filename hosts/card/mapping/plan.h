#pragma once

#include <cstddef>
#include <vector>

#include "line_sink.h"
#include "reading.h"

namespace ov::card {

/// An entry that is to be written, and the line that says it already; null for none.
struct EntryLine {
  OVRef<OVSingleValue> entry;
  const Line* line = nullptr;
  const Claim* claim = nullptr;  // of the line
  Preference preference = Preference::Verbatim;
};

/// Compares what lines said of a person with what the person says now.
class Plan {
 public:
  Plan(const Lines& lines, const PersonReading& before, const PersonValues& now);

  /// The entries of a property of several values, in their order, the main one preferred so that
  /// it is read as such. A new main entry of several is always marked when `marksMain`.
  [[nodiscard]] std::vector<EntryLine> entryLines(const Binding& binding, bool marksMain) const;

  /// Whether everything that a line says of properties of one value holds.
  [[nodiscard]] bool holds(const Claim& claim) const;
  /// Whether the property has another value than the lines say.
  [[nodiscard]] bool isChanged(const OVString& property) const;
  /// Whether lines that hold say what the binding would write.
  [[nodiscard]] bool isSaid(const Binding& binding) const;
  /// Whether the line is where those of the binding are written.
  [[nodiscard]] static bool belongsTo(const Claim& claim, const Binding& binding);

  [[nodiscard]] const Lines& lines() const { return lines_; }
  [[nodiscard]] const std::vector<Claim>& claims() const { return before_.claims(); }
  [[nodiscard]] const PersonValues& values() const { return now_; }

 private:
  const Lines& lines_;
  const PersonReading& before_;
  const PersonValues& now_;
  mutable std::vector<std::pair<const OVString*, bool>> changed_;
};

/// The place of a binding in the order in which lines are written: that of the first one that is
/// written for its property.
[[nodiscard]] std::size_t rankOf(const Binding& binding);

/// Whether the lines of a binding are about the property.
[[nodiscard]] bool concerns(const Binding& binding, const OVString* property);

}  // namespace ov::card
