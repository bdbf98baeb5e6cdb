#pragma once

#include <string_view>

#include "bindings.h"

namespace ov::vcard {

/// IMPP: instant-message accounts.
bool readInstantMessage(const Field& field, const Binding& binding, PersonDraft& draft);
/// The older way: a property for each service, with the user's name as it is.
bool readServiceAccount(const Field& field, const Binding& binding, PersonDraft& draft);
/// Whether the name is that of such a property.
bool isServiceProperty(std::string_view name);
void writeInstantMessages(const Binding& binding, const PersonValues& values, CardWriter& card);

}  // namespace ov::vcard
