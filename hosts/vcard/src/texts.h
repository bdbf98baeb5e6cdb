#pragma once

#include "bindings.h"

namespace ov::vcard {

/// One text.
bool readText(const Field& field, const Binding& binding, PersonDraft& draft);
void writeText(const Binding& binding, const PersonValues& values, CardWriter& card);
/// A text whose commas separate the members of a list.
void writeListText(const Binding& binding, const PersonValues& values, CardWriter& card);

/// ORG: the company, and the units of the department with semicolons between them.
bool readOrganization(const Field& field, const Binding& binding, PersonDraft& draft);
void writeOrganization(const Binding& binding, const PersonValues& values, CardWriter& card);

/// KIND and the older ways to say that a card is that of an organisation.
bool readKind(const Field& field, const Binding& binding, PersonDraft& draft);
void writeKind(const Binding& binding, const PersonValues& values, CardWriter& card);

/// Whether the text under "Is Organization" says so: every text but "", "0", "no" and "false".
[[nodiscard]] bool meansOrganization(const OVString& text);

/// CATEGORIES: the tags.
bool readTags(const Field& field, const Binding& binding, PersonDraft& draft);
void writeTags(const Binding& binding, const PersonValues& values, CardWriter& card);

}  // namespace ov::vcard
