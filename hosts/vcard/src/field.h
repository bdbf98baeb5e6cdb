#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ov::vcard {

struct Parameter {
  /// In upper case.
  std::string name;
  std::vector<std::string> values;
};

/// The preference of an entry that says nothing of it.
inline constexpr int kNotPreferred = 101;

/// One property of a card, taken apart.
struct Field {
  /// Line of the file.
  std::size_t number = 0;
  std::string group;
  /// In upper case.
  std::string name;
  /// In the order of the card; no name twice.
  std::vector<Parameter> parameters;
  /// The value as it stands, canonical (see escapes.h) or base64.
  std::string value;
  /// The value as a text; the bytes behind base64.
  std::string text;
  bool binary = false;

  /// Lines of the same group that say more about this one.
  const Field* label = nullptr;
  const Field* country = nullptr;
  /// Whether this is such a line, and has been claimed.
  bool isCompanion = false;

  /// Null when there is none.
  [[nodiscard]] const Parameter* parameter(std::string_view parameterName) const;
  /// The first value of the parameter; "" when there is none.
  [[nodiscard]] std::string_view parameterValue(std::string_view parameterName) const;

  /// The TYPE values in upper case, without PREF.
  [[nodiscard]] std::vector<std::string> types() const;

  /// 1 for the most preferred to 100, from PREF or TYPE, or `kNotPreferred`.
  [[nodiscard]] int preference() const;

  /// The parts between semicolons as texts. Commas that separate list members become `listJoint`.
  [[nodiscard]] std::vector<std::string> components(std::string_view listJoint) const;

  /// True for `base`, and for "X-...-" followed by `base`.
  [[nodiscard]] bool isNamed(std::string_view base, bool vendorForms) const;
};

/// The parameter as it stands in a card, with a semicolon in front.
[[nodiscard]] std::string spelled(const Parameter& parameter);

/// Joins each line that labels another, or tells its country, to the lines of its group.
void joinCompanions(std::vector<Field>& fields);

}  // namespace ov::vcard
