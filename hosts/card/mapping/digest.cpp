#include "digest.h"

#include <glib.h>

namespace ov::card {

Digest::Digest() : checksum_(g_checksum_new(G_CHECKSUM_SHA256)) {}

Digest::~Digest() { g_checksum_free(static_cast<GChecksum*>(checksum_)); }

void Digest::add(std::string_view bytes) {
  g_checksum_update(static_cast<GChecksum*>(checksum_),
                    reinterpret_cast<const guchar*>(bytes.data()),
                    static_cast<gssize>(bytes.size()));
}

std::string Digest::digits() { return g_checksum_get_string(static_cast<GChecksum*>(checksum_)); }

}  // namespace ov::card
