#include "arrivals.h"

#include <new>
#include <utility>

namespace ov::vcard {

namespace {

template <class T, class ByID>
void takeBack(std::vector<T>& all, std::size_t count, ByID& byID) {
  for (std::size_t i = count; i < all.size(); ++i) byID.erase(all[i]->ID());
  all.resize(count);
}

}  // namespace

Arrivals::Arrivals(BookContent& book)
    : book_(book), personCount_(book.persons.size()), problemCount_(book.problems.size()) {
  groups_.reserve(book.groups.size());
  for (const auto& group : book.groups) groups_.push_back(BookContent::recordOf(*group));
}

Arrivals::~Arrivals() {
  if (isKept_) return;
  forgetTags();
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    std::swap(BookContent::recordOf(*book_.groups[i]), groups_[i]);
  }
  takeBack(book_.groups, groups_.size(), book_.groupsByID);
  takeBack(book_.persons, personCount_, book_.personsByID);
  book_.problems.resize(problemCount_);
  std::erase_if(book_.idsByContent, [&](const auto& each) { return !book_.has(each.second); });
  book_.wantedAgain.clear();
}

void Arrivals::keep() {
  for (std::size_t i = personCount_; book_.tags != nullptr && i < book_.persons.size(); ++i) {
    const Person& person = *book_.persons[i];
    for (const OVString tag : person.ownTags()) {
      book_.tags->addPersonIDForTag(person.ID(), tag);
    }
  }
  isKept_ = true;
}

void Arrivals::forgetTags() noexcept {
  if (book_.tags == nullptr) return;
  try {
    for (std::size_t i = personCount_; i < book_.persons.size(); ++i) {
      book_.tags->removeForPersonID(book_.persons[i]->ID());
    }
  } catch (const std::bad_alloc&) {  // tags of persons who are not there do no harm
  }
}

}  // namespace ov::vcard
