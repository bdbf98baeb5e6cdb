#include <algorithm>
#include <array>

#include "codec/ascii.h"
#include "codec/text_lines.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

namespace {

struct Beginning {
  std::string_view bytes;
  std::string_view mediaType;
};
constexpr std::array kBeginnings{
    Beginning{"\x89PNG", "image/png"},  Beginning{"\xFF\xD8\xFF", "image/jpeg"},
    Beginning{"GIF8", "image/gif"},     Beginning{"BM", "image/bmp"},
    Beginning{"<svg", "image/svg+xml"}, Beginning{"II*", "image/tiff"},
    Beginning{"MM", "image/tiff"},
};
/// What follows the size of the first box of an image in a container for films.
constexpr std::array kBrands{
    Beginning{"ftypavif", "image/avif"}, Beginning{"ftypavis", "image/avif"},
    Beginning{"ftypheic", "image/heic"}, Beginning{"ftypheix", "image/heic"},
    Beginning{"ftypmif1", "image/heif"},
};

template <std::size_t N>
std::string_view typeIn(const std::array<Beginning, N>& beginnings, std::string_view bytes) {
  const auto* const at =
      std::find_if(beginnings.begin(), beginnings.end(),
                   [&](const Beginning& each) { return bytes.starts_with(each.bytes); });
  return at == beginnings.end() ? std::string_view() : at->mediaType;
}

/// Whether the value begins as a data URI does. Photos are large: the value is not asked for.
bool isDataURI(const Line& line) {
  constexpr std::size_t kLongestHeader = 4096;
  const std::string_view source = line.source().substr(0, kLongestHeader);
  return lowerASCII(unfolded(source, 1)).find("data:") != std::string::npos;
}

/// Whether the type that a card names is the one of the bytes.
bool isTypeOf(std::string_view given, std::string_view mediaType) {
  if (given.empty() || sameWord(given, mediaType)) return true;
  const std::string_view format = mediaType.substr(std::min(mediaType.find('/'), mediaType.size()));
  if (format.empty()) return false;
  return sameWord(given, format.substr(1)) ||
         (sameWord(given, "JPG") && mediaType == "image/jpeg") ||
         (sameWord(given, "SVG") && mediaType == "image/svg+xml");
}

}  // namespace

std::string_view mediaTypeOf(std::string_view bytes) {
  constexpr std::size_t kSizeOfSize = 4;
  if (bytes.starts_with("RIFF") && bytes.substr(0, 12).ends_with("WEBP")) return "image/webp";
  if (const auto type = typeIn(kBeginnings, bytes); !type.empty()) return type;
  const std::string_view box = bytes.substr(std::min(bytes.size(), kSizeOfSize));
  if (const auto type = typeIn(kBrands, box); !type.empty()) return type;
  return kUnknownMediaType;
}

Fit readPhoto(const Line& line, const Binding& binding, PersonReading& reading) {
  if (reading.isOfOddLines() && line.value().starts_with(kDigestOfPhoto)) {
    const auto digest = OVImage::imageWithData(OVData::dataWithText(line.value()));
    return reading.set(*binding.property, digest) ? Fit::Unusual : Fit::Other;
  }
  if (!line.isBase64() && !isDataURI(line)) {
    return line.value().empty() ? Fit::Nothing : Fit::Other;
  }
  if (reading.has(*binding.property)) return Fit::Other;
  if (const auto known = reading.knownPhoto()) {
    return reading.set(*binding.property, known) ? Fit::Usual : Fit::Other;
  }
  auto binary = line.binary();
  if (!binary || binary->bytes.empty()) {
    return line.isBase64() && line.value().empty() ? Fit::Nothing : Fit::Other;
  }
  const std::string_view mediaType = mediaTypeOf(binary->bytes);
  const bool isUsual = isTypeOf(binary->mediaType, mediaType) &&
                       isTypeOf(line.parameterValue("TYPE"), mediaType) &&
                       isTypeOf(line.parameterValue("MEDIATYPE"), mediaType);
  const auto bytes = std::make_shared<const std::string>(std::move(binary->bytes));
  const auto data = OVData::dataWithBytesNoCopy(std::as_bytes(std::span(*bytes)), bytes);
  reading.set(*binding.property, OVImage::imageWithData(data));
  return isUsual ? Fit::Usual : Fit::Unusual;
}

bool spellPhoto(const Binding& binding, const PersonValues& values, const OVSingleValue* /*entry*/,
                Spelling& spelling) {
  const auto image = values.datum<OVImage>(*binding.property);
  if (image == nullptr || image->data() == nullptr) return false;
  spelling.bytes = image->data();
  spelling.mediaType = mediaTypeOf(image->data()->text());
  return spelling.bytes->size() > 0;
}

}  // namespace ov::card
