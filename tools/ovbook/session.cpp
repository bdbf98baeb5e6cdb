#include "session.h"

#include <ostream>

#include "output/descriptor_buffer.h"
#include "output/escape.h"

namespace ovbook {

void Session::report(std::string_view message) {
  const std::string line = "ovbook: " + printable(message) + "\n";
  try {
    out_.flush();  // what was written so far comes before the line
  } catch (const OutputError&) {
    err_ << line << std::flush;
    throw;
  }
  err_ << line << std::flush;
}

void Session::complain(std::string_view message) {
  status_ = kIncomplete;
  report(message);
}

}  // namespace ovbook
