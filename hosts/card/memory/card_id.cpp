#include "card_id.h"

#include <glib.h>

#include <memory>

#include "codec/parameters.h"
#include "mapping/digest.h"

namespace ov::card {

namespace {

struct FreeText {
  void operator()(gchar* text) const { g_free(text); }
};

}  // namespace

std::string contentID(const Lines& lines) {
  Digest digest;
  for (const Line& line : lines) {
    digest.add(line.group());
    digest.add(".");
    digest.add(line.name());
    digest.add(canonicalParameters(line));
    digest.add(":");
    digest.add(line.value());
    digest.add("\n");
  }
  // The layout of a UUID of version 8, which is for uses such as this.
  const std::string digits = digest.digits();
  std::string uuid = digits.substr(0, 8);
  uuid.append("-").append(digits, 8, 4).append("-8").append(digits, 13, 3);
  return uuid.append("-a").append(digits, 17, 3).append("-").append(digits, 20, 12);
}

OVString randomID() {
  const std::unique_ptr<gchar, FreeText> uuid(g_uuid_string_random());
  return {uuid.get()};
}

}  // namespace ov::card
