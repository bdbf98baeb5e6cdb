#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "line.h"
#include "version.h"

namespace ov::card {

/// What precedes the value of a line that is to be written.
struct LineHeader {
  std::string_view group = {};
  std::string_view name;
  /// Canonical (see parameters.h), encoding and character set left out.
  std::string_view parameters = {};
};

/// Writes lines as a version of vCard spells them, folded at 75 bytes.
///
/// Callers think in vCard 4.0: values are canonical (see escapes.h), the preferred entry has PREF.
/// Before 4.0 PREF=1 becomes a type. In 2.1 types have no name, text beyond ASCII and line breaks
/// become quoted-printable UTF-8, and other text is not folded. Reading gives what was written,
/// except that in 2.1 commas separate the members of CATEGORIES only.
class LineWriter {
 public:
  /// Both texts must live as long as the writer.
  explicit LineWriter(std::string& out, Version version = Version::V4_0,
                      std::string_view lineEnd = "\r\n")
      : out_(out), version_(version), lineEnd_(lineEnd) {}

  /// BEGIN:VCARD with VERSION, and END:VCARD.
  void begin();
  void end();

  void line(const LineHeader& header, std::string_view value);
  /// Bytes as base64: a data URI in 4.0; an encoded value before that, with the TYPE that belongs
  /// to the media type, unless `header` has a TYPE. `mediaType` is a generic one when it is empty.
  void binary(const LineHeader& header, std::string_view bytes, std::string_view mediaType);
  /// Another value for a line that exists: group, name and parameters stay as they are, except for
  /// those for the encoding.
  void lineLike(const Line& line, std::string_view value);

 private:
  void start(const LineHeader& header);
  /// A value after a header that is spelled for this version.
  void finish(std::string_view name, std::string_view value);
  void put(std::string_view text);
  void fold(std::string_view text);
  void endLine();

  std::string& out_;
  Version version_;
  std::string_view lineEnd_;
  std::size_t column_ = 0;
  bool isNameAlone_ = false;
};

}  // namespace ov::card
