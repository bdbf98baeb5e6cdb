#pragma once

#include <memory>
#include <system_error>
#include <vector>

#include <OVAddressBookVCard/vcard_book.h>
#include <OVAddressBookVCard/vcard_problem.h>

#include "memory/store.h"

namespace ov::vcard {

/// A book over vCard files: its persons and groups, and its file.
struct BookContent {
  std::shared_ptr<ov::card::Store> store;
  OVString path;
  std::vector<OVVCardProblem> problems;
  std::error_code saveError;
};

}  // namespace ov::vcard
