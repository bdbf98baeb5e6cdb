// Writes a person from anywhere as a new card: the values by the table of bindings, and those of
// the odd lines from an earlier import that still hold. A photo among them is recognised by its
// digest.

#include "person_card.h"

#include <algorithm>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "codec/parameters.h"
#include "digest.h"
#include "others.h"
#include "plan.h"
#include "properties.h"

namespace ov::card {

namespace {

std::string digestOf(std::string_view bytes) {
  Digest digest;
  digest.add(bytes);
  return std::string(kDigestOfPhoto) + digest.digits();
}

/// Whether a data URI may hold the word and is read as the same again.
bool fitsDataURI(std::string_view word) {
  return !word.empty() && word.find_first_of("\\,") == std::string_view::npos;
}

/// The media type that a line gives its bytes.
std::string mediaTypeFor(const Line& line, std::string_view bytes) {
  const std::string_view given = line.parameterValue("MEDIATYPE");
  if (fitsDataURI(given)) return std::string(given);
  if (const auto type = mediaTypeOf(bytes); type != kUnknownMediaType) return std::string(type);
  const std::string_view type = line.parameterValue("TYPE");
  return fitsDataURI(type) ? "image/" + lowerASCII(type) : std::string(kUnknownMediaType);
}

/// Writes a person as a new card, with the odd lines that still hold.
class NewCard {
 public:
  NewCard(const IOVPerson& person, const Lines& odd, const PersonReading& reading, Version version,
          std::string& out)
      : values_(person), plan_(odd, reading, values_), sink_(out, version, "\r\n") {
    for (const Line& line : odd) sink_.reserveGroup(line.group());
  }

  void write(const OVString& id) {
    sink_.begin();
    if (!id.empty()) sink_.line({{}, "UID", {}}, escapeText(id));
    const std::vector<EntryLine> others = plan_.entryLines(otherBinding(), false);
    Entries entries;
    for (const EntryLine& each : others) entries.push_back(each.entry);
    const OtherLines lines(entries, values_, !id.empty());
    hasFormattedName_ = false;
    for (std::size_t i = 0; i < others.size(); ++i) {
      const Line* const line = others[i].line != nullptr ? others[i].line : lines.lineOf(i);
      hasFormattedName_ |= line != nullptr && line->name() == "FN";
    }
    for (const Binding& binding : bindings()) {
      if (binding.spell == nullptr || &binding == &otherBinding()) continue;
      binding.isLabelled() ? writeEntries(binding) : writeOne(binding);
    }
    const OVRef<OVSingleValue> main =
        others.size() > 1 ? values_.mainEntry(OVProPertyOther) : nullptr;
    for (std::size_t i = 0; i < others.size(); ++i) {
      writeOther(others[i], lines.lineOf(i), others[i].entry == main);
    }
    sink_.end();
  }

 private:
  void writeOne(const Binding& binding) {
    if (binding.read == readPhoto && writePhotoLike()) return;
    for (std::size_t i = 0; i < plan_.lines().size(); ++i) {
      const Claim& claim = plan_.claims()[i];
      if (Plan::belongsTo(claim, binding) && claim.fit != Fit::Nothing && plan_.holds(claim)) {
        sink_.writeLike(plan_.lines()[i], claim.group, Preference::Verbatim);
      }
    }
    if (plan_.isSaid(binding)) return;
    if (binding.read == readFormattedName && hasFormattedName_) return;
    Spelling spelling{binding.name, {}, {}, {}, {}, {}};
    if (binding.spell(binding, values_, nullptr, spelling)) {
      sink_.write(spelling, Preference::Verbatim);
    }
  }

  /// The odd line of a photo names the photo by its digest.
  bool writePhotoLike() {
    const auto image = values_.datum<OVImage>(OVProPertyThumbnail);
    if (image == nullptr || image->data() == nullptr) return false;
    const auto held = image->data()->text();
    const std::string_view bytes = held;
    for (const Line& line : plan_.lines()) {
      if (line.name() != "PHOTO" || !line.value().starts_with(kDigestOfPhoto)) continue;
      if (line.value() != digestOf(bytes)) return false;
      sink_.writeLike(line, bytes, mediaTypeFor(line, bytes));
      return true;
    }
    return false;
  }

  void writeEntries(const Binding& binding) {
    bool hasAnniversary = false;
    for (const EntryLine& each : plan_.entryLines(binding, true)) {
      if (each.line != nullptr) {
        sink_.writeLike(*each.line, each.claim->group, each.preference);
        hasAnniversary |= each.line->name() == "ANNIVERSARY";
        continue;
      }
      Spelling spelling{binding.name, {}, {}, {}, {}, {}};
      if (!binding.spell(binding, values_, each.entry.get(), spelling)) continue;
      spelling.label = spellingOf(each.entry->label(), binding.descriptor(), binding.name);
      if (binding.read == readDate && !hasAnniversary) hasAnniversary = becomeAnniversary(spelling);
      sink_.write(spelling, each.preference);
    }
  }

  void writeOther(const EntryLine& other, const Line* line, bool isMain) {
    if (other.line != nullptr) {
      sink_.writeLike(*other.line, other.claim->group, Preference::Verbatim);
      return;
    }
    const Binding& binding = otherBinding();
    Spelling spelling{binding.name, {}, {}, {}, {}, {}};
    if (line != nullptr) {
      spelling = spellingOfOther(*line, *other.entry);
    } else if (binding.spell(binding, values_, other.entry.get(), spelling)) {
      spelling.label = spellingOf(other.entry->label(), binding.descriptor(), binding.name);
    } else {
      return;
    }
    sink_.write(spelling, isMain && line == nullptr ? Preference::First : Preference::Verbatim);
  }

  PersonValues values_;
  Plan plan_;
  LineSink sink_;
  bool hasFormattedName_ = false;
};

/// Writes the line of a photo with a digest in place of the bytes.
void writePhotoName(const Line& line, std::string_view bytes, LineSink& sink) {
  std::string parameters = parametersOf(line, Preference::Verbatim);
  if (const auto binary = line.binary(); binary && line.parameter("MEDIATYPE") == nullptr &&
                                         !binary->mediaType.empty() &&
                                         binary->mediaType != mediaTypeFor(line, bytes)) {
    appendParameter(parameters, "MEDIATYPE", {binary->mediaType});
  }
  sink.line({line.group(), line.name(), parameters}, digestOf(bytes));
}

/// The lines of "Other" that are kept for all others.
OVString oddLinesIn(const PersonValues& values) {
  for (const OVRef<OVSingleValue>& entry : values.entries(OVProPertyOther)) {
    if (isOddLinesEntry(*entry)) return ov::cast<OVString>(entry->value());
  }
  return nullptr;
}

}  // namespace

void writePerson(const IOVPerson& person, const OVString& id, std::string& out, Version version) {
  const CardText odd(oddLinesIn(PersonValues(person)).str());
  LabelReader labels;
  const PersonReading reading = PersonReading::ofOddLines(odd.lines(), labels);
  NewCard(person, odd.lines(), reading, version, out).write(id);
}

OVString oddLinesOf(const Lines& lines, const PersonReading& reading) {
  std::vector<std::size_t> odd;
  const std::vector<Claim>& claims = reading.claims();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (claims[i].isOdd && claims[i].role == Claim::Role::Value) odd.push_back(i);
  }
  if (odd.empty()) return nullptr;
  std::stable_sort(odd.begin(), odd.end(), [&](std::size_t a, std::size_t b) {
    const Claim& first = claims[a];
    const Claim& second = claims[b];
    return std::pair(rankOf(*first.binding), first.entry) <
           std::pair(rankOf(*second.binding), second.entry);
  });
  std::string text;
  LineSink sink(text, Version::V4_0, "\n");
  sink.begin();
  for (const std::size_t i : odd) {
    const auto image = lines[i].name() == "PHOTO" && claims[i].fit != Fit::Other
                           ? ov::cast<OVImage>(reading.datum(OVProPertyThumbnail))
                           : nullptr;
    if (image == nullptr) {
      sink.writeLike(lines[i], claims[i].group, Preference::Verbatim);
    } else {
      writePhotoName(lines[i], image->data()->text(), sink);
    }
  }
  sink.end();
  return {text};
}

}  // namespace ov::card
