#pragma once

#include <streambuf>
#include <string>

namespace bench {

/// Appends to a string, without the copies that a string stream makes.
class Appender : public std::streambuf {
 public:
  explicit Appender(std::string& text) : text_(text) {}

 private:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    text_.append(bytes, static_cast<std::size_t>(count));
    return count;
  }
  int_type overflow(int_type byte) override {
    text_.push_back(static_cast<char>(byte));
    return byte;
  }

  std::string& text_;
};

/// Reads from a string in place.
class Reader : public std::streambuf {
 public:
  explicit Reader(std::string& text) { setg(text.data(), text.data(), text.data() + text.size()); }
};

}  // namespace bench
