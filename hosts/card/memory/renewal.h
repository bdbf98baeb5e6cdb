#pragma once

#include <memory>
#include <string>

#include "import_transaction.h"
#include "mapping/reading.h"

namespace ov::card {

/// The values of a person, with an entry of "Other" for what they do not say about the card.
[[nodiscard]] ValueTable valuesOf(const Lines& lines, PersonReading& reading);

/// Has the person say what the card in `text` says, the first one there; nothing when there is
/// none.
void renewPerson(Person& person, const std::shared_ptr<const std::string>& text);

/// The same for a group of the book that the transaction imports into; its members are found with
/// it.
void renewGroup(const std::shared_ptr<Group>& group, const std::shared_ptr<const std::string>& text,
                ImportTransaction& transaction);

}  // namespace ov::card
