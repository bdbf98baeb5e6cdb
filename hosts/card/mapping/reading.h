#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/multiple_value.h>

#include "bindings.h"

namespace ov::card {

using Lines = std::pmr::deque<Line>;

/// Lines of one group ("item1.") that belong together.
struct LineGroup {
  /// Verbatim.
  std::string_view name;
  /// X-ABLabel and X-ABADR; null for none.
  const Line* label = nullptr;
  const Line* country = nullptr;
  OwnLabel ownLabel;
  /// What X-ABADR says; null where that is not a country.
  OVString countryCode;
  /// How many lines there are that do not go into one of the others.
  std::size_t count = 0;
  bool takesLabel = false;
  bool takesCountry = false;
  /// Whether one of them is odd (see Claim).
  bool isOdd = false;
};

/// What a line said of a person.
struct Claim {
  enum class Role : std::uint8_t { Value, ID, Companion };
  Role role = Role::Value;
  Fit fit = Fit::Nothing;
  /// Whether writing the person would not give the line again.
  bool isOdd = false;
  /// Null where the line is about no property.
  const Binding* binding = nullptr;
  /// The entry of a property of several values.
  std::size_t entry = 0;
  /// Null without a group.
  LineGroup* group = nullptr;
};

/// True for a line that makes its card that of a group.
[[nodiscard]] bool saysGroup(const Line& line);
/// True for a line that may say something about the others of its group.
[[nodiscard]] bool isCompanion(const Line& line);
/// The UID of a card; null when there is none.
[[nodiscard]] OVString uidOf(const Lines& lines);

/// Reads the lines of a card as the values of a person.
class PersonReading {
 public:
  /// `photo` is what the card is known to hold as photo, so that it need not be decoded where no
  /// other line may hold it; null when it is not known.
  PersonReading(const Lines& lines, LabelReader& labels, OVRef<OVImage> photo = nullptr);
  /// The lines that an earlier reading found odd. One of them may name the photo by its digest.
  [[nodiscard]] static PersonReading ofOddLines(const Lines& lines, LabelReader& labels);

  /// The UID; null when there is none.
  [[nodiscard]] const OVString& id() const { return id_; }
  [[nodiscard]] ValueTable takeValues() { return std::move(values_); }
  /// Null when there are none.
  [[nodiscard]] const OVList<OVString>& tags() const { return tags_; }
  /// One for each line.
  [[nodiscard]] const std::vector<Claim>& claims() const { return claims_; }
  [[nodiscard]] Entries entries(const OVString& property) const;
  /// The datum of a property of one value; null without.
  [[nodiscard]] OVRef<OVObject> datum(const OVString& property) const;

  /// For the readers of properties.
  /// @{
  [[nodiscard]] bool has(const OVString& property) const;
  /// Sets a property of one value. False when it has one already.
  bool set(const OVString& property, const OVRef<OVObject>& datum);
  /// Adds an entry with the label and preference that its line gives it.
  Fit add(const Line& line, const Binding& binding, const OVRef<OVObject>& datum);
  void add(const Binding& binding, const OVRef<OVObject>& datum, const OVRef<OVLabel>& label,
           int preference);
  [[nodiscard]] LabelTexts labelOf(const Line& line, const Binding& binding);
  void addTag(std::string_view tag);
  /// A text that other cards are likely to say too.
  [[nodiscard]] OVString shared(std::string_view text) const;
  /// The group of the line that is being read; null without.
  [[nodiscard]] const LineGroup* group() const { return current_->group; }
  [[nodiscard]] OVRef<OVImage> knownPhoto() const { return photo_; }
  [[nodiscard]] bool isOfOddLines() const { return isOfOddLines_; }
  /// Says that the line is about another property than its name says.
  void claimFor(const Binding& binding) { current_->binding = &binding; }
  /// Whether the line is the first one that names the person.
  [[nodiscard]] bool isFirstFormattedName(const Line& line) const { return formatted_ == &line; }
  /// Whether a line of the card has this name.
  [[nodiscard]] bool hasLine(std::string_view name);
  /// @}

  /// How the line would fit into a person who has these values already; null for none.
  [[nodiscard]] static Fit fitOf(const Line& line, const PersonValues* values);

 private:
  struct Several {
    const OVString* property;
    OVRef<OVMutableMultipleValue> entries;
    int bestPreference;
  };
  PersonReading() = default;

  void readAll();
  void findGroups();
  void readFirst(std::string_view name);
  void read(const Line& line, Claim& claim);
  void keep(const Line& line, Claim& claim);
  void judgePreferences();
  void judgeGroups();
  void judgeEqualEntries();
  void judgeCompanions();
  void judgeLinesOfOneProperty();

  const Lines* lines_ = nullptr;
  LabelReader* labels_ = nullptr;
  OVRef<OVImage> photo_;
  OVString id_;
  ValueTable values_;
  std::vector<Several> several_;
  OVList<OVString> tags_ = nullptr;
  std::unordered_set<std::string_view, KeyedHash> seenTags_;
  std::map<std::string, LineGroup, std::less<>> groups_;
  std::vector<Claim> claims_;
  std::unordered_set<std::string_view, KeyedHash> lineNames_;  // of lines_, once asked for
  Claim* current_ = nullptr;
  const Line* formatted_ = nullptr;
  bool isOfOddLines_ = false;
  bool isProbe_ = false;                   // nothing is to be read
  const PersonValues* present_ = nullptr;  // what a probe has
};

}  // namespace ov::card
