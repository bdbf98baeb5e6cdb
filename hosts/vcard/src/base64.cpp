#include "base64.h"

#include <glib.h>

namespace ov::vcard {

std::string encodeBase64(std::string_view bytes) {
  std::string text(bytes.size() / 3 * 4 + 8, '\0');
  int state = 0;
  int save = 0;
  std::size_t size = g_base64_encode_step(reinterpret_cast<const guchar*>(bytes.data()),
                                          bytes.size(), FALSE, text.data(), &state, &save);
  size += g_base64_encode_close(FALSE, text.data() + size, &state, &save);
  text.resize(size);
  return text;
}

std::string decodeBase64(std::string_view text) {
  std::string bytes(text.size() / 4 * 3 + 3, '\0');
  int state = 0;
  unsigned save = 0;
  bytes.resize(g_base64_decode_step(text.data(), text.size(),
                                    reinterpret_cast<guchar*>(bytes.data()), &state, &save));
  return bytes;
}

}  // namespace ov::vcard
