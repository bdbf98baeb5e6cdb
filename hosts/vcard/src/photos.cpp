#include "photos.h"

#include <algorithm>
#include <array>
#include <optional>

#include <OVAddressBookSDK/image.h>

#include "ascii.h"
#include "base64.h"

namespace ov::vcard {

namespace {

struct Beginning {
  std::string_view bytes;
  std::string_view mediaType;
};
constexpr std::array kBeginnings{
    Beginning{"\x89PNG", "image/png"}, Beginning{"\xFF\xD8\xFF", "image/jpeg"},
    Beginning{"GIF8", "image/gif"},    Beginning{"BM", "image/bmp"},
    Beginning{"RIFF", "image/webp"},   Beginning{"<svg", "image/svg+xml"},
    Beginning{"II*", "image/tiff"},    Beginning{"MM", "image/tiff"},
};

/// The bytes in a base64 data URI; nothing for any other text.
std::optional<std::string> bytesOf(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (!startsWithWord(text, "data:") || comma == std::string_view::npos) return std::nullopt;
  const std::string header = lowerASCII(text.substr(0, comma));
  if (!header.ends_with(";base64")) return std::nullopt;
  return decodeBase64(text.substr(comma + 1));
}

}  // namespace

std::string dataURI(std::string_view bytes) {
  const auto* const at =
      std::find_if(kBeginnings.begin(), kBeginnings.end(),
                   [&](const Beginning& b) { return bytes.starts_with(b.bytes); });
  std::string uri = "data:";
  uri += at == kBeginnings.end() ? "application/octet-stream" : at->mediaType;
  return uri.append(";base64,").append(encodeBase64(bytes));
}

bool readPhoto(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.text.empty()) return field.value.empty();
  const std::optional<std::string> bytes = field.binary ? field.text : bytesOf(field.text);
  if (!bytes || bytes->empty()) return false;
  return draft.set(*binding.property, OVImage::imageWithData(OVData::dataWithText(*bytes)));
}

void writePhoto(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const auto image = values.datum<OVImage>(*binding.property);
  if (image != nullptr && image->data() != nullptr) {
    card.line(binding.name, "", dataURI(image->data()->text()));
  }
}

}  // namespace ov::vcard
