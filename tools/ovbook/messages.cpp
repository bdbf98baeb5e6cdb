#include "messages.h"

#include <cstddef>
#include <string>
#include <unordered_map>

#include "session.h"

namespace ovbook {

namespace {

constexpr std::size_t kMaxPerFile = 20;

/// The messages of one file.
struct Count {
  std::size_t shown = 0;
  std::size_t hidden = 0;
  std::size_t hiddenLosses = 0;
};

void tell(const std::string& message, bool isLoss, Session& session) {
  isLoss ? session.complain(message) : session.report(message);
}

void tell(const OVVCardProblem& problem, Session& session) {
  const std::string warning = isLoss(problem) ? "" : "warning: ";
  tell(placeOf(problem) + ": " + warning + problem.reason.str(), isLoss(problem), session);
}

void tellOfMore(const OVString& file, const Count& count, Session& session) {
  std::string message = file.str() + ": " + std::to_string(count.hidden) + " more message" +
                        (count.hidden == 1 ? "" : "s");
  if (count.hiddenLosses > 0) {
    message += ", " + std::to_string(count.hiddenLosses) + " of them about what was left out";
  }
  tell(message + " (--all-messages shows them)", count.hiddenLosses > 0, session);
}

}  // namespace

std::string placeOf(const OVVCardProblem& problem) {
  return problem.file.str() + ":" + std::to_string(problem.line);
}

bool isLoss(const OVVCardProblem& problem) { return problem.severity == OVVCardSeverity::Error; }

void report(const std::vector<OVVCardProblem>& problems, bool showsAll, Session& session) {
  std::unordered_map<OVString, Count> counts;
  std::vector<OVString> files;
  for (const OVVCardProblem& problem : problems) {
    Count& count = counts[problem.file];
    if (showsAll || count.shown < kMaxPerFile) {
      ++count.shown;
      tell(problem, session);
      continue;
    }
    if (count.hidden++ == 0) files.push_back(problem.file);
    if (isLoss(problem)) ++count.hiddenLosses;
  }
  for (const OVString& file : files) tellOfMore(file, counts[file], session);
}

}  // namespace ovbook
