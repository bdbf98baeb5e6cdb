#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <OVAddressBookVCard/vcard_problem.h>

#include "codec/problems.h"
#include "mapping/keyed_hash.h"

namespace ov::vcard {

/// Collects what goes wrong while one file is read. What repeats without end is counted.
class ProblemList final : public ov::card::Problems {
 public:
  explicit ProblemList(OVString file) : file_(std::move(file)) {}

  void error(std::size_t line, std::string_view reason) override {
    add(OVVCardSeverity::Error, line, reason);
  }
  void warning(std::size_t line, std::string_view reason) override {
    add(OVVCardSeverity::Warning, line, reason);
  }

  /// What was collected, in order, then what was counted.
  [[nodiscard]] std::vector<OVVCardProblem> take();

 private:
  struct Count {
    std::size_t all = 0;
    OVVCardProblem firstNotListed;
  };

  void add(OVVCardSeverity severity, std::size_t line, std::string_view reason);

  OVString file_;
  std::vector<OVVCardProblem> problems_;
  std::unordered_map<std::string, Count, ov::card::KeyedHash, std::equal_to<>> counts_;
  std::vector<std::string> order_;  // the reasons that were counted beyond what is listed
};

}  // namespace ov::vcard
