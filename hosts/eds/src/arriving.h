#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "book_content.h"

namespace ov::eds {

/// A group of the book, and the text of the card that it is to become.
struct GroupRenewal {
  std::shared_ptr<ov::card::Group> group;
  std::shared_ptr<const std::string> text;
};

/// Brings cards of the service that are new to the book into it, all of them or none, then lets the
/// groups find their members.
void arrive(BookContent& book, std::vector<std::string> cards,
            const std::vector<GroupRenewal>& renewals = {}, const Progress& progress = {});

}  // namespace ov::eds
