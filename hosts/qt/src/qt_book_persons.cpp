#include <memory>
#include <vector>

#include "qt_book_inner.h"

/// Changes of persons.

using ov::qt::BookSteps;
using ov::qt::idsOf;

bool OVQtBook::setValue(const OVRef<IOVPerson>& person, const OVString& property,
                        const OVRef<OVValue>& value) {
  if (person == nullptr || !canChange()) return false;
  const auto before = person->valueByPropertyName(property);
  if (before == value) return false;
  BookSteps& steps = inner_->steps;
  const OVString id = person->ID();
  inner_->push(
      tr("Edit"), [=, &steps] { steps.setValue(id, property, value); },
      [=, &steps] { steps.setValue(id, property, before); });
  return person->valueByPropertyName(property) == value;
}

OVRef<IOVPerson> OVQtBook::addPerson() {
  const auto came = addCopies({nullptr});
  return came.empty() ? nullptr : came.front();
}

OVQtBook::Persons OVQtBook::addCopies(const Persons& persons) {
  if (!canChange() || persons.empty()) return {};
  struct Arrivals {
    Persons first;
    std::vector<ov::qt::RemovedPerson> removed;
    bool wereHere = false;
  };
  const auto arrivals = std::make_shared<Arrivals>();
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("New Contact"),
      [=, this, &steps] {
        if (arrivals->wereHere) {
          steps.bringBack(arrivals->removed);
          emit groupsChanged();
        } else {
          arrivals->first = steps.bring(persons);
          arrivals->wereHere = true;
        }
        emit tagsChanged();
      },
      [=, this, &steps] {
        arrivals->removed = steps.remove(idsOf(arrivals->first));
        emit groupsChanged();
        emit tagsChanged();
      });
  return arrivals->first;
}

bool OVQtBook::removePersons(const Persons& persons) {
  if (!canChange() || persons.empty()) return false;
  const auto removed = std::make_shared<std::vector<ov::qt::RemovedPerson>>();
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Remove Contacts"),
      [this, removed, &steps, ids = idsOf(persons)] {
        *removed = steps.remove(ids);
        emit groupsChanged();
        emit tagsChanged();
      },
      [this, removed, &steps] {
        steps.bringBack(*removed);
        emit groupsChanged();
        emit tagsChanged();
      });
  return true;
}
