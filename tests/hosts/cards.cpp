#include "hosts/cards.h"

#include <sstream>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookVCard/vcard_export.h>
#include <gmock/gmock.h>

namespace {

std::string orNull(const OVString& text) { return text.isNull() ? "null" : text.str(); }

std::string addressText(const OVObjectAddress& address) {
  std::string text = orNull(address.countryCode());
  for (const OVString* field :
       {&OVAddressFieldStreet, &OVAddressFieldPostalCode, &OVAddressFieldCity,
        &OVAddressFieldProvince, &OVAddressFieldCountryOrArea}) {
    text += "|" + address.stringValueByFieldName(*field).str();
  }
  return text;
}

std::string dateText(const OVDate& date) {
  const OVDate::Day day = date.day();
  const auto midnight = OVDate::dateWithYearMonthDay(day.year, day.month, day.day);
  std::ostringstream text;
  text << day.year << '-' << day.month << '-' << day.day;
  const double seconds =
      date.timeIntervalSinceReferenceDate() - midnight->timeIntervalSinceReferenceDate();
  if (seconds != 0) text << '+' << seconds;
  return text.str();
}

std::string entryText(const OVSingleValue& entry, bool isMain) {
  const OVRef<OVLabel> label = entry.label();
  std::string text = isMain ? "*" : "";
  if (label != nullptr) text += orNull(label->name()) + "|" + orNull(label->displayName());
  return text + ": " + datumText(entry.value());
}

/// The entry that keeps what the other values do not say about a card.
bool isOddLines(const OVSingleValue& entry) {
  return entry.label() != nullptr && entry.label()->name() == "vCard" &&
         datumText(entry.value()).starts_with("BEGIN:VCARD");
}

void describe(const OVList<IOVGroup>& groups, const std::string& indent, std::ostream& stream) {
  for (const OVRef<IOVGroup> group : groups) {
    stream << indent << "group " << group->ID() << " " << group->displayName() << ":";
    const auto persons = group->persons();
    for (const OVRef<IOVPerson> person : persons) stream << " " << person->ID();
    stream << "\n";
    describe(group->subGroups(), indent + "  ", stream);
  }
}

}  // namespace

OVRef<OVVCardBook> bookOf(std::string_view text) {
  OVRef<OVVCardBook> book = OVVCardBook::init();
  book->loadWithData(OVData::dataWithText(text));
  return book;
}

OVRef<IOVPerson> onlyPerson(const OVVCardBook& book) {
  const auto persons = book.allPersons();
  return persons.size() == 1 ? persons.front() : nullptr;
}

OVRef<IOVPerson> person(std::string_view lines, std::string_view version) {
  const OVRef<OVVCardBook> book = bookOf(card(lines, version));
  EXPECT_THAT(problems(*book), testing::IsEmpty());
  EXPECT_EQ(book->allPersonsCount(), 1U);
  return onlyPerson(*book);
}

std::vector<std::string> idsOf(const OVList<IOVPerson>& persons) {
  std::vector<std::string> ids;
  for (const OVRef<IOVPerson> person : persons) ids.push_back(person->ID().str());
  return ids;
}

std::string datumText(const OVRef<OVObject>& datum) {
  if (const OVString text = ov::cast<OVString>(datum)) return text.str();
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) return phone->phoneNumber().str();
  if (const auto email = ov::cast<OVObjectEmail>(datum)) return email->email().str();
  if (const auto date = ov::cast<OVDate>(datum)) return dateText(*date);
  if (const auto image = ov::cast<OVImage>(datum)) return std::string(image->data()->text());
  if (const auto address = ov::cast<OVObjectAddress>(datum)) return addressText(*address);
  if (const auto name = ov::cast<OVObjectPersonName>(datum)) {
    return orNull(name->first()) + "|" + orNull(name->middle()) + "|" + orNull(name->last());
  }
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) {
    return orNull(account->server()->name()) + ":" + orNull(account->userName());
  }
  if (const auto tags = ov::cast<OVList<OVString>>(datum)) {
    std::string text;
    for (const OVString tag : tags) text += "#" + tag.str();
    return text;
  }
  return "?";
}

std::vector<std::string> entries(const IOVPerson& person, const OVString& property) {
  std::vector<std::string> texts;
  const OVRef<OVValue> value = person.valueByPropertyName(property);
  if (const auto several = std::dynamic_pointer_cast<OVMultipleValue>(value)) {
    for (std::uint64_t i = 0; i < several->count(); ++i) {
      const auto entry = several->valueAtIndex(i);
      if (isOddLines(*entry)) continue;
      texts.push_back(entryText(*entry, entry == several->mainValue()));
    }
  } else if (const auto single = std::dynamic_pointer_cast<OVSingleValue>(value)) {
    texts.push_back(datumText(single->value()));
  }
  return texts;
}

std::string entry(const IOVPerson& person, const OVString& property) {
  const std::vector<std::string> texts = entries(person, property);
  if (texts.size() == 1) return texts.front();
  return "(" + std::to_string(texts.size()) + " entries)";
}

std::vector<std::string> oddLines(const IOVPerson& person) {
  std::vector<std::string> lines;
  const auto others =
      std::dynamic_pointer_cast<OVMultipleValue>(person.valueByPropertyName(OVProPertyOther));
  for (std::uint64_t i = 0; others != nullptr && i < others->count(); ++i) {
    if (!isOddLines(*others->valueAtIndex(i))) continue;
    std::string text = datumText(others->valueAtIndex(i)->value());
    for (std::size_t fold; (fold = text.find("\n ")) != std::string::npos;) text.erase(fold, 2);
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
      if (line != "BEGIN:VCARD" && line != "VERSION:4.0" && line != "END:VCARD") {
        lines.push_back(line);
      }
    }
  }
  return lines;
}

std::string description(const IOVPerson& person) {
  std::ostringstream stream;
  stream << person.ID() << "\n";
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    for (const std::string& text : entries(person, property->name())) {
      stream << "  " << property->name() << " " << text << "\n";
    }
  }
  for (const std::string& line : oddLines(person)) stream << "  (" << line << ")\n";
  return stream.str();
}

std::string description(const OVAddressBook& book) {
  std::ostringstream stream;
  const auto persons = book.allPersons();
  for (const OVRef<IOVPerson> person : persons) stream << description(*person);
  describe(book.rootGroups(), "", stream);
  return stream.str();
}

std::vector<std::string> writtenLines(const OVRef<IOVPerson>& person) {
  const OVRef<OVVCardBook> book = OVVCardBook::init();
  book->addOneFromOtherPerson(person);
  std::string text(book->saveData()->text());
  for (std::size_t fold; (fold = text.find("\r\n ")) != std::string::npos;) text.erase(fold, 3);

  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
    const bool isFrame = line.starts_with("BEGIN:") || line.starts_with("VERSION:") ||
                         line.starts_with("UID:") || line.starts_with("END:");
    if (!isFrame) lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> problems(const OVVCardBook& book) {
  std::vector<std::string> texts;
  for (const OVVCardProblem& problem : book.problems()) {
    texts.push_back(std::to_string(problem.line) + ": " + problem.reason.str());
  }
  return texts;
}
