#include "session.h"

#include <ostream>

#include "output/escape.h"

namespace ovbook {

void Session::report(std::string_view message) {
  out_.flush();
  err_ << "ovbook: " << printable(message) << '\n' << std::flush;
}

void Session::complain(std::string_view message) {
  report(message);
  status_ = kIncomplete;
}

}  // namespace ovbook
