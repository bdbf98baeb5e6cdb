#include <OVAddressBookSDK/address_formater.h>

#include <array>
#include <map>
#include <sstream>

#include "address/test_data.h"
#include "support/printers.h"

namespace {

using FieldValues = std::map<std::string, std::string>;

const std::array<std::pair<const char*, const char*>, 5> kValues{{
    {"OVAddressFieldCountryOrArea", "Neverland"},
    {"OVAddressFieldProvince", "North Shire"},
    {"OVAddressFieldCity", "\u00d8rsta"},
    {"OVAddressFieldStreet", "1 Main Street"},
    {"OVAddressFieldPostalCode", "  00-1 "},
}};

/// Prints an address step by step after the tables in the data files.
class Reference {
 public:
  Reference() {
    for (const auto& row : addressTable("folding")) storedAs_[row.at(0)] = row.at(1);
    for (const auto& row : addressTable("layouts")) {
      std::string codes = row.at(1);
      std::erase(codes, ',');
      std::istringstream words(codes);
      for (std::string code; words >> code;) layouts_[code] = row.at(0);
    }
  }

  [[nodiscard]] const std::map<std::string, std::string>& layouts() const { return layouts_; }

  [[nodiscard]] std::string onLines(const std::string& layout, const FieldValues& values) const {
    std::vector<std::string> lines{""};
    for (const std::string& item : items(layout)) {
      if (item == "/") lines.emplace_back();
      addTo(lines.back(), item, values);
    }
    std::string text;
    for (const std::string& line : lines)
      if (!line.empty()) text += (text.empty() ? "" : "\n") + line;
    return text;
  }

  [[nodiscard]] std::string onOneLine(const std::string& layout, const FieldValues& values) const {
    std::string text;
    for (const std::string& item : items(layout)) addTo(text, item, values);
    return text;
  }

 private:
  static std::vector<std::string> items(const std::string& layout) {
    std::vector<std::string> found;
    std::istringstream stream(layout);
    for (std::string item; stream >> item;) found.push_back(item);
    return found;
  }

  void addTo(std::string& text, const std::string& word, const FieldValues& values) const {
    if (word == "/" || word == "+") return;
    const auto value = values.find(storedAs_.at("OVAddressField" + word));
    if (value != values.end()) text += (text.empty() ? "" : " ") + value->second;
  }

  std::map<std::string, std::string> storedAs_;
  std::map<std::string, std::string> layouts_;
};

TEST(LayoutSweep, EverySubsetOfValuesPrintsAsTheReferenceDoesForEveryCode) {
  const Reference reference;
  auto layouts = reference.layouts();
  EXPECT_EQ(layouts.size(), 172U);
  layouts["xx"] = layouts.at("us");
  for (const auto& [code, layout] : layouts)
    for (unsigned subset = 0; subset < 1U << kValues.size(); ++subset) {
      const auto address = OVObjectAddress::init();
      FieldValues values;
      for (std::size_t i = 0; i < kValues.size(); ++i)
        if ((subset >> i & 1U) != 0) {
          address->setStringValueForFieldName(kValues[i].second, kValues[i].first);
          values.insert(kValues[i]);
        }
      const auto formater = OVAddressFormater::initWithObject(address);
      EXPECT_EQ(formater->formatStringByCountryCode(code), reference.onLines(layout, values))
          << code << ", subset " << subset;
      EXPECT_EQ(formater->stringByCountryCode(code), reference.onOneLine(layout, values))
          << code << ", subset " << subset;
    }
}

}  // namespace
