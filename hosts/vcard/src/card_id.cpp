#include "card_id.h"

#include <glib.h>

#include <memory>

#include "ascii.h"

namespace ov::vcard {

namespace {

constexpr std::string_view kPrefix = "urn:uuid:";

struct FreeChecksum {
  void operator()(GChecksum* checksum) const { g_checksum_free(checksum); }
};

struct FreeText {
  void operator()(gchar* text) const { g_free(text); }
};

bool isUUID(std::string_view id) {
  return id.size() == 36 && g_uuid_string_is_valid(std::string(id).c_str()) != FALSE;
}

}  // namespace

std::string contentID(const std::vector<ContentLine>& lines) {
  const std::unique_ptr<GChecksum, FreeChecksum> checksum(g_checksum_new(G_CHECKSUM_SHA256));
  const auto add = [&](std::string_view text) {
    g_checksum_update(checksum.get(), reinterpret_cast<const guchar*>(text.data()),
                      static_cast<gssize>(text.size()));
  };
  for (const ContentLine& line : lines) {
    for (const std::string_view part :
         {std::string_view(line.group), std::string_view("."), std::string_view(line.name),
          std::string_view(line.parameters), std::string_view(":"), std::string_view(line.value),
          std::string_view("\n")}) {
      add(part);
    }
  }
  // The layout of a UUID of version 8, which is for uses such as this.
  const std::string_view digits = g_checksum_get_string(checksum.get());
  std::string uuid;
  uuid.append(digits.substr(0, 8)).append("-").append(digits.substr(8, 4)).append("-8");
  uuid.append(digits.substr(13, 3)).append("-a").append(digits.substr(17, 3)).append("-");
  return uuid.append(digits.substr(20, 12));
}

OVString randomID() {
  const std::unique_ptr<gchar, FreeText> uuid(g_uuid_string_random());
  return {uuid.get()};
}

std::string referenceKey(std::string_view id) {
  id = trim(id);
  if (startsWithWord(id, kPrefix)) id.remove_prefix(kPrefix.size());
  return lowerASCII(id);
}

std::string referenceTo(std::string_view id) {
  return (isUUID(id) ? std::string(kPrefix) : std::string()).append(id);
}

}  // namespace ov::vcard
