#pragma once

#include <string>
#include <string_view>

#include "bindings.h"

namespace ov::vcard {

/// The bytes as a base64 data URI, with the media type that their beginning tells.
[[nodiscard]] std::string dataURI(std::string_view bytes);

/// PHOTO: the thumbnail. A photo that stands elsewhere (a URL) is not taken.
bool readPhoto(const Field& field, const Binding& binding, PersonDraft& draft);
void writePhoto(const Binding& binding, const PersonValues& values, CardWriter& card);

}  // namespace ov::vcard
