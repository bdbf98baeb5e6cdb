// What libebook-contacts reads from ordinary cards, the codec reads to the same values.

#include <libebook-contacts/libebook-contacts.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "codec/file_text.h"
#include "hosts/card/codec/cards.h"

namespace ov::card {
namespace {

struct Unreference {
  void operator()(EVCard* card) const { g_object_unref(card); }
};

template <class T>
std::vector<const T*> listed(GList* list) {
  std::vector<const T*> items;
  for (; list != nullptr; list = list->next) items.push_back(static_cast<const T*>(list->data));
  return items;
}

/// One line of a card, in the words of the witness: "group.NAME;PARAM=value|part|part".
std::string testimony(EVCardAttribute* attribute) {
  const char* const group = e_vcard_attribute_get_group(attribute);
  std::string text = group == nullptr ? "" : std::string(group) + ".";
  text += upperASCII(e_vcard_attribute_get_name(attribute));
  std::vector<std::string> parameters;
  for (const auto* parameter :
       listed<EVCardAttributeParam>(e_vcard_attribute_get_params(attribute))) {
    auto* const param = const_cast<EVCardAttributeParam*>(parameter);
    const std::string name = upperASCII(e_vcard_attribute_param_get_name(param));
    if (name == "ENCODING" || name == "CHARSET") continue;
    std::string whole = ";" + name + "=";
    for (const char* value : listed<char>(e_vcard_attribute_param_get_values(param)))
      whole += std::string(value) + ",";
    parameters.insert(parameters.begin(), whole);
  }
  for (const std::string& parameter : parameters) text += parameter;
  bool isDataURI = false;  // which the witness takes apart
  for (const GString* value : listed<GString>(e_vcard_attribute_get_values_decoded(attribute))) {
    text.append(isDataURI ? ";" : "|").append(value->str, value->len);
    isDataURI = std::string_view(value->str).starts_with("data:");
  }
  return text;
}

std::vector<std::string> witnessed(std::string_view source) {
  std::vector<std::string> lines;
  const std::unique_ptr<EVCard, Unreference> card(
      e_vcard_new_from_string(std::string(source).c_str()));
  for (GList* at = e_vcard_get_attributes(card.get()); at != nullptr; at = at->next) {
    auto* const attribute = static_cast<EVCardAttribute*>(at->data);
    if (!sameWord(e_vcard_attribute_get_name(attribute), "VERSION"))
      lines.push_back(testimony(attribute));
  }
  return lines;
}

std::string ours(const Line& line) {
  std::string text = line.group().empty() ? "" : std::string(line.group()) + ".";
  text += line.name();
  for (const Parameter& parameter : line.parameters()) {
    text.append(";").append(parameter.name).append("=");
    for (const std::string_view value : parameter.values) text.append(value).append(",");
  }
  if (const auto binary = line.isBase64() ? line.binary() : std::nullopt)
    return text + "|" + binary->bytes;
  if (line.binary()) return text.append("|").append(line.text());
  const char separator = line.name() == "CATEGORIES" ? ',' : ';';
  for (const std::string_view part : splitValue(line.value(), separator)) {
    text.append("|").append(unescape(part));
  }
  return text;
}

/// The witness knows nothing of soft line breaks, of cards inside cards, and of most character
/// sets.
bool isOrdinary(std::string_view source) {
  return source.find("QUOTED-PRINTABLE") == std::string_view::npos &&
         source.find("AGENT") == std::string_view::npos;
}

TEST(Witness, ReadsTheExamplesAsWeDo) {
  std::ifstream file(OV_EXAMPLE_CONTACTS, std::ios::binary);
  ProblemLog problems;
  const std::string text = textOfFile({std::istreambuf_iterator<char>(file), {}}, problems);
  int cards = 0;
  readCards(text, [&](const Card& card) {
    if (!isOrdinary(card.source)) return;
    std::vector<std::string> lines;
    for (const Line& line : card.lines) lines.push_back(ours(line));
    EXPECT_EQ(witnessed(card.source), lines);
    ++cards;
  });
  EXPECT_GT(cards, 30);
}

}  // namespace
}  // namespace ov::card
