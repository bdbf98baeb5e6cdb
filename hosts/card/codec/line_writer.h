#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "line.h"
#include "version.h"

namespace ov::card {

/// What stands before the value of a line that is to be written.
struct LineHeader {
  std::string_view group = {};
  std::string_view name;
  /// Canonical: as `appendParameter` spells them, encoding and character set left out.
  std::string_view parameters = {};
};

/// Appends a parameter with a semicolon in front, its values encoded and quoted where need be.
void appendParameter(std::string& parameters, std::string_view name,
                     std::initializer_list<std::string_view> values);
void appendParameter(std::string& parameters, const Parameter& parameter);
/// All parameters of a line, as `LineHeader` takes them.
[[nodiscard]] std::string canonicalParameters(const Line& line);

/// Writes lines as a version of vCard spells them, folded at 75 bytes.
///
/// Callers think in vCard 4.0: values are canonical (see escapes.h), the preferred entry has PREF.
/// In 2.1 and 3.0 PREF=1 becomes a type; in 2.1 types stand without a name, and text with line
/// breaks or beyond ASCII becomes quoted-printable UTF-8. Reading gives what was written.
class LineWriter {
 public:
  explicit LineWriter(std::string& out, Version version = Version::V4_0,
                      std::string_view lineEnd = "\r\n");

  /// BEGIN:VCARD with VERSION, and END:VCARD.
  void begin();
  void end();

  void line(const LineHeader& header, std::string_view value);
  /// Bytes as base64: a data URI in 4.0, where `mediaType` must not be empty; an encoded value
  /// before that, with the TYPE that belongs to the media type unless `header` has one.
  void binary(const LineHeader& header, std::string_view bytes, std::string_view mediaType);
  /// Another value for a line that exists: group, name and parameters stay as they stand, as far as
  /// they say nothing of the encoding.
  void lineLike(const Line& line, std::string_view value);
};

}  // namespace ov::card
