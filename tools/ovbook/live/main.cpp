#include "live/desktop_books.h"
#include "standard_streams.h"

int main(int argc, char** argv) {
  const ovbook::DesktopBooks books;
  return ovbook::runOnStandardStreams(argc, argv, &books);
}
