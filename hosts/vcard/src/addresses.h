#pragma once

#include "bindings.h"

namespace ov::vcard {

/// ADR: postal addresses.
bool readAddress(const Field& field, const Binding& binding, PersonDraft& draft);
void writeAddresses(const Binding& binding, const PersonValues& values, CardWriter& card);

}  // namespace ov::vcard
