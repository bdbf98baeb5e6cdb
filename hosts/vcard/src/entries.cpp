#include "entries.h"

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/phone.h>

#include "ascii.h"
#include "escapes.h"

namespace ov::vcard {

namespace {

std::string_view withoutScheme(std::string_view text, std::string_view scheme) {
  return startsWithWord(text, scheme) ? text.substr(scheme.size()) : text;
}

/// True for text that begins with a scheme and holds no blank.
bool isURI(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon < 2) return false;
  return isToken(text.substr(0, colon)) && text.find_first_of(" \t\n") == std::string_view::npos;
}

}  // namespace

bool addEntry(const Field& field, const Binding& binding, const OVRef<OVObject>& datum,
              PersonDraft& draft) {
  draft.add(*binding.property, datum, labelOf(field, binding.descriptor(), binding.impliedType),
            field.preference());
  return true;
}

EntryWriter::EntryWriter(const Binding& binding, const PersonValues& values, CardWriter& card)
    : binding_(binding), card_(card), entries_(values.entries(*binding.property)) {
  if (entries_.size() > 1) unmarked_ = values.mainEntry(*binding.property);
}

LabelSpelling EntryWriter::label(const OVRef<OVSingleValue>& entry) const {
  return spellingOf(entry->label(), binding_.descriptor(), binding_.name);
}

void EntryWriter::write(const OVRef<OVSingleValue>& entry, std::string parameters,
                        std::string_view value) {
  writeAs(binding_.name, label(entry), entry, std::move(parameters), value);
}

void EntryWriter::writeAs(std::string_view name, const LabelSpelling& label,
                          const OVRef<OVSingleValue>& entry, std::string parameters,
                          std::string_view value) {
  if (entry == unmarked_) {
    parameters += ";PREF=1";
    unmarked_ = nullptr;
  }
  card_.labelledLine(name, std::move(parameters), label, value);
}

bool readPhone(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  const std::string_view number = withoutScheme(field.text, "tel:");
  return number.empty() ||
         addEntry(field, binding, OVObjectPhone::initWithPhoneNumber(number), draft);
}

void writePhones(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    if (const auto phone = ov::cast<OVObjectPhone>(entry->value())) {
      writer.write(entry, {}, escapeText(phone->phoneNumber()));
    }
  }
}

bool readEmail(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  const std::string_view address = withoutScheme(field.text, "mailto:");
  return address.empty() || addEntry(field, binding, OVObjectEmail::initWithEmail(address), draft);
}

void writeEmails(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    if (const auto email = ov::cast<OVObjectEmail>(entry->value())) {
      writer.write(entry, {}, escapeText(email->email()));
    }
  }
}

bool readURL(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  return field.text.empty() || addEntry(field, binding, OVString(field.text), draft);
}

void writeURLs(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    if (const OVString url = ov::cast<OVString>(entry->value()); !url.isNull()) {
      writer.write(entry, {}, escapeURI(url));
    }
  }
}

bool readRelatedName(const Field& field, const Binding& binding, PersonDraft& draft) {
  return readURL(field, binding, draft);
}

void writeRelatedNames(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    const OVString name = ov::cast<OVString>(entry->value());
    if (name.isNull()) continue;
    if (isURI(name)) {
      writer.write(entry, {}, escapeURI(name));
    } else {
      writer.write(entry, ";VALUE=text", escapeText(name));
    }
  }
}

}  // namespace ov::vcard
