#pragma once

#include <optional>
#include <vector>

#include "content_lines.h"
#include "field.h"
#include "problem_list.h"

namespace ov::vcard {

/// Takes one property apart; nothing when it cannot be read.
[[nodiscard]] std::optional<Field> parseLine(const ContentLine& line);

/// Takes the properties of a card apart: names, groups, parameters, decoded values.
[[nodiscard]] std::vector<Field> parseCard(const std::vector<ContentLine>& lines,
                                           ProblemList& problems);

}  // namespace ov::vcard
