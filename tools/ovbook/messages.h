#pragma once

#include <vector>

#include <OVAddressBookVCard/vcard_problem.h>

namespace ovbook {

class Session;

/// Reports what was not imported verbatim: for each file the first messages and how many more there
/// are, or all of them. The program will end with `kIncomplete` where something was lost.
void report(const std::vector<OVVCardProblem>& problems, bool showsAll, Session& session);

/// The problem's file and line.
[[nodiscard]] std::string placeOf(const OVVCardProblem& problem);

[[nodiscard]] bool isLoss(const OVVCardProblem& problem);

}  // namespace ovbook
