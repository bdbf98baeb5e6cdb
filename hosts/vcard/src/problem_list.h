#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookVCard/vcard_problem.h>

namespace ov::vcard {

/// Collects what goes wrong while one file is read.
class ProblemList {
 public:
  ProblemList(OVString file, std::vector<OVVCardProblem>& problems)
      : file_(std::move(file)), problems_(problems) {}

  void error(std::size_t line, std::string_view reason) {
    problems_.push_back({OVVCardSeverity::Error, file_, line, reason});
  }
  void warning(std::size_t line, std::string_view reason) {
    problems_.push_back({OVVCardSeverity::Warning, file_, line, reason});
  }

  [[nodiscard]] const OVString& file() const { return file_; }

 private:
  OVString file_;
  std::vector<OVVCardProblem>& problems_;
};

}  // namespace ov::vcard
