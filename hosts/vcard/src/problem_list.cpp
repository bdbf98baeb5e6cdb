#include "problem_list.h"

#include <algorithm>

namespace ov::vcard {

namespace {

constexpr std::size_t kMaxPerReason = 100;
constexpr std::size_t kMaxReasons = 1000;
constexpr std::string_view kOtherReasons = "there are more problems of other kinds";

}  // namespace

void ProblemList::add(OVVCardSeverity severity, std::size_t line, std::string_view reason) {
  if (counts_.size() >= kMaxReasons && !counts_.contains(reason)) reason = kOtherReasons;
  const auto at = counts_.find(reason);
  Count& count = at == counts_.end() ? counts_[std::string(reason)] : at->second;
  ++count.all;
  if (reason != kOtherReasons && count.all <= kMaxPerReason) {
    problems_.push_back({severity, file_, line, reason});
    return;
  }
  if (count.firstNotListed.reason.isNull()) {
    count.firstNotListed = {severity, file_, line, reason};
    order_.emplace_back(reason);
  }
  count.firstNotListed.severity = std::max(count.firstNotListed.severity, severity);
}

std::vector<OVVCardProblem> ProblemList::take() {
  for (const std::string& reason : order_) {
    const Count& count = counts_.at(reason);
    OVVCardProblem problem = count.firstNotListed;
    const std::size_t listed = reason == kOtherReasons ? 0 : kMaxPerReason;
    problem.reason =
        OVString(reason + " (from here on " + std::to_string(count.all - listed) + " times)");
    problems_.push_back(std::move(problem));
  }
  return std::move(problems_);
}

}  // namespace ov::vcard
