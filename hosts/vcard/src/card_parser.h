#pragma once

#include <vector>

#include "content_lines.h"
#include "field.h"
#include "problem_list.h"

namespace ov::vcard {

/// Takes the properties of a card apart: names, groups, parameters, decoded values.
[[nodiscard]] std::vector<Field> parseCard(const std::vector<ContentLine>& lines,
                                           ProblemList& problems);

}  // namespace ov::vcard
