#pragma once

#include "bindings.h"

namespace ov::vcard {

/// TEL: phone numbers.
bool readPhone(const Field& field, const Binding& binding, PersonDraft& draft);
void writePhones(const Binding& binding, const PersonValues& values, CardWriter& card);

/// EMAIL: e-mail addresses.
bool readEmail(const Field& field, const Binding& binding, PersonDraft& draft);
void writeEmails(const Binding& binding, const PersonValues& values, CardWriter& card);

/// URL.
bool readURL(const Field& field, const Binding& binding, PersonDraft& draft);
void writeURLs(const Binding& binding, const PersonValues& values, CardWriter& card);

/// RELATED: related names.
bool readRelatedName(const Field& field, const Binding& binding, PersonDraft& draft);
void writeRelatedNames(const Binding& binding, const PersonValues& values, CardWriter& card);

/// Adds an entry with the label and preference that its line gives it.
bool addEntry(const Field& field, const Binding& binding, const OVRef<OVObject>& datum,
              PersonDraft& draft);

/// Writes one entry, "PREF=1" when it is the main one of several. `parameters` begin with a
/// semicolon, or are empty.
class EntryWriter {
 public:
  EntryWriter(const Binding& binding, const PersonValues& values, CardWriter& card);

  [[nodiscard]] const std::vector<OVRef<OVSingleValue>>& entries() const { return entries_; }
  void write(const OVRef<OVSingleValue>& entry, std::string parameters, std::string_view value);
  /// Under another name than the binding's, with a label that is spelled already.
  void writeAs(std::string_view name, const LabelSpelling& label, const OVRef<OVSingleValue>& entry,
               std::string parameters, std::string_view value);
  [[nodiscard]] LabelSpelling label(const OVRef<OVSingleValue>& entry) const;

 private:
  const Binding& binding_;
  CardWriter& card_;
  std::vector<OVRef<OVSingleValue>> entries_;
  OVRef<OVSingleValue> unmarked_;  // the main entry, until it has been written
};

}  // namespace ov::vcard
