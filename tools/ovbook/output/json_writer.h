#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace ovbook {

/// Writes one JSON text piece by piece, laid out for people. Objects get a key before each value.
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out) : out_(out) {}

  void beginObject() { begin('{', '}'); }
  void beginArray() { begin('[', ']'); }
  /// Ends the innermost object or array.
  void end();
  void key(std::string_view key);
  void text(std::string_view text);
  /// A number, true, false or null.
  void literal(std::string_view literal);

 private:
  struct Level {
    char closing;
    bool isEmpty = true;
  };

  void begin(char opening, char closing);
  void separate();
  void startLine();

  std::ostream& out_;
  std::vector<Level> levels_;
  bool isAfterKey_ = false;
};

}  // namespace ovbook
