#pragma once

#include "bindings.h"

namespace ov::vcard {

/// N: the name, prefix and suffix.
bool readName(const Field& field, const Binding& binding, PersonDraft& draft);
/// Writes N and FN.
void writeName(const Binding& binding, const PersonValues& values, CardWriter& card);

/// FN: remembered until `finishName`.
bool readFormattedName(const Field& field, const Binding& binding, PersonDraft& draft);

/// Makes FN the name of a person without N. An FN that says more than the parts of the name put
/// together is kept as it stands. To be called when all lines have been read.
void finishName(PersonDraft& draft);

/// SOUND with the reading of a Japanese name: the phonetic names.
bool readSound(const Field& field, const Binding& binding, PersonDraft& draft);

}  // namespace ov::vcard
