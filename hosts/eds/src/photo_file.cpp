#include "photo_file.h"

#include <glib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "codec/line_writer.h"
#include "glib_ptr.h"
#include "mapping/bindings.h"
#include "mapping/others.h"
#include "mapping/patch.h"
#include "mapping/properties.h"

namespace ov::eds {

namespace {

using ov::card::CardText;
using ov::card::Line;

constexpr std::string_view kScheme = "file:";

/// Null for none.
const Line* photoIn(const CardText& text, bool byName) {
  for (const Line& line : text.lines()) {
    if (line.name() != "PHOTO") continue;
    const bool isName = !line.isBase64() && line.value().starts_with(kScheme);
    if (isName == byName) return &line;
  }
  return nullptr;
}

bool isInside(const std::filesystem::path& file, const char* folder) {
  std::error_code error;
  const auto top = std::filesystem::weakly_canonical(
      std::filesystem::path(folder) / "evolution" / "addressbook", error);
  const auto relative = file.lexically_relative(top);
  return !error && !relative.empty() && *relative.begin() != "..";
}

std::optional<std::string> bytesOf(const std::string& uri) {
  const GText path(g_filename_from_uri(uri.c_str(), nullptr, nullptr));
  if (path == nullptr) return std::nullopt;
  std::error_code error;
  const auto file = std::filesystem::canonical(path.get(), error);
  if (error || !std::filesystem::is_regular_file(file, error)) return std::nullopt;
  if (!isInside(file, g_get_user_data_dir()) && !isInside(file, g_get_user_cache_dir())) {
    return std::nullopt;
  }
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

}  // namespace

std::optional<std::string> withPhoto(std::string_view card) {
  if (card.find("PHOTO") == std::string_view::npos ||
      card.find(kScheme) == std::string_view::npos) {
    return std::nullopt;
  }
  const CardText text{std::string(card)};
  const Line* const photo = photoIn(text, true);
  if (photo == nullptr) return std::nullopt;
  const auto bytes = bytesOf(std::string(photo->text()));
  if (!bytes || bytes->empty()) return std::nullopt;
  std::string line;
  ov::card::LineWriter writer(line, text.card()->version, text.card()->lineEnd);
  writer.binary({photo->group(), "PHOTO", {}}, *bytes, ov::card::mediaTypeOf(*bytes));
  std::string readable;
  ov::card::Patch patch(*text.card());
  for (std::size_t i = 0; i < text.lines().size(); ++i) {
    if (&text.lines()[i] != photo) continue;
    patch.drop(i);
    patch.insert(i, line);
  }
  patch.write(readable);
  return readable;
}

std::string withPhotoName(std::string card, std::string_view readable, std::string_view original) {
  const CardText named{std::string(original)};
  const CardText held{std::string(readable)};
  const Line* const name = photoIn(named, true);
  const Line* const photo = photoIn(held, false);
  if (name == nullptr || photo == nullptr) return card;
  const auto at = card.find(photo->source());
  if (at != std::string::npos) card.replace(at, photo->source().size(), name->source());
  return card;
}

}  // namespace ov::eds
