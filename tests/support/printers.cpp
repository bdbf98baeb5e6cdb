#include "support/printers.h"

#include <ostream>

void PrintTo(const OVString& text, std::ostream* stream) {
  if (text.isNull()) {
    *stream << "null";
  } else {
    *stream << '"' << text << '"';
  }
}
