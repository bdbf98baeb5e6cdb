#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Builds binary property lists byte by byte, in whatever sizes a test chooses: what other programs
/// and mischief put into files. It shares no code with the library.
class PlistBuilder {
 public:
  /// An object's place in the list. Any other number makes a reference that leads nowhere.
  using Number = std::uint64_t;
  using Fields = std::vector<std::pair<std::string_view, Number>>;

  /// An object by its very bytes.
  Number raw(std::string bytes);
  Number null() { return raw(std::string(1, '\x00')); }
  Number boolean(bool value) { return raw(value ? "\x09" : "\x08"); }
  /// In the fewest bytes, or in `width` of them: 1, 2, 4, 8 or 16.
  Number integer(std::int64_t value, unsigned width = 0);
  Number real(double value);
  Number shortReal(float value);
  /// Seconds since 2001.
  Number date(double seconds);
  Number bytes(std::string_view bytes);
  Number ascii(std::string_view text);
  Number utf16(std::u16string_view text);
  /// In `width` bytes: 1 to 8.
  Number uid(std::uint64_t value, unsigned width = 1);
  Number array(std::vector<Number> elements);
  Number set(std::vector<Number> elements);
  Number dictionary(std::vector<Number> keys, const std::vector<Number>& values);
  /// A dictionary with texts as keys; each text is an object of its own.
  Number fields(const Fields& fields);

  /// What a container refers to, for a list that has to be tied together afterwards. Its length
  /// stays as it was.
  std::vector<Number>& references(Number container) {
    return objects_[static_cast<std::size_t>(container)].references;
  }
  [[nodiscard]] Number count() const { return objects_.size(); }

  /// 1 to 8, or 0 for the fewest bytes that do.
  unsigned offsetSize = 0;
  unsigned referenceSize = 0;

  /// The whole list.
  [[nodiscard]] std::string list(Number top) const;

  static std::string bigEndian(std::uint64_t number, unsigned width);
  /// The first bytes of an object with a length.
  static std::string head(unsigned kind, std::size_t length);

 private:
  struct Object {
    std::string bytes;
    std::vector<Number> references;
  };
  Number add(std::string bytes, std::vector<Number> references);

  std::vector<Object> objects_;
};
