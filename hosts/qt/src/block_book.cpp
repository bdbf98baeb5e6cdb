// A general book behind the interface of any book. It keeps neither groups nor tags as programs see
// them: both are made from its dictionaries when somebody asks for them.

#include <OVAddressBookQt/block_book.h>

#include <unordered_set>

#include "block_content.h"

using ov::qt::BlockContent;
using ov::qt::groupsOf;
using ov::qt::personsOf;

OVBlockBook::OVBlockBook(const OVRef<OVAddressBookGeneral>& book)
    : content_(std::make_shared<BlockContent>()) {
  content_->book = book;
  content_->id = ov::qt::randomID();
}

OVBlockBook::~OVBlockBook() = default;

OVRef<OVBlockBook> OVBlockBook::init() { return initWithBook(OVAddressBookGeneral::init()); }

OVRef<OVBlockBook> OVBlockBook::initWithBook(const OVRef<OVAddressBookGeneral>& book) {
  return book == nullptr ? nullptr : OVRef<OVBlockBook>(new OVBlockBook(book));
}

OVRef<OVAddressBookGeneral> OVBlockBook::generalBook() const {
  content_->writeTags();
  return content_->book;
}

OVString OVBlockBook::ID() const { return content_->id; }

bool OVBlockBook::canOprate() const {
  return content_->book->personsDic() != nullptr && content_->book->groupsDic() != nullptr;
}

OVRef<OVData> OVBlockBook::saveData() { return generalBook()->saveToData(); }

OVList<OVProperty> OVBlockBook::supportProperty() const {
  auto properties = OVList<OVProperty>::list();
  for (const auto& property : OVProperty::StandardPropertyArray()) properties.push_back(property);
  return properties;
}

OVList<OVProperty> OVBlockBook::commonProperty() const { return supportProperty(); }

std::uint64_t OVBlockBook::allPersonsCount() const { return allPersons().size(); }

OVList<IOVPerson> OVBlockBook::allPersons() const {
  auto persons = OVList<IOVPerson>::list();
  const auto all = personsOf(*content_);
  for (const auto& [id, person] : all) {
    if (person != nullptr) persons.push_back(person);
  }
  return persons;
}

OVList<IOVPerson> OVBlockBook::personsForIDs(const OVList<OVString>& personIDs) const {
  auto persons = OVList<IOVPerson>::list();
  const auto all = personsOf(*content_);
  for (const OVString& id : personIDs) {
    if (const auto person = all[id]) persons.push_back(person);
  }
  return persons;
}

OVRef<IOVPerson> OVBlockBook::newPerson() {
  return addOneFromOtherPerson(OVPersonGeneral::initWithID(ov::qt::randomID()));
}

void OVBlockBook::removePersons(const OVList<IOVPerson>& persons) {
  if (!canOprate()) return;
  const auto all = content_->book->personsDic();
  for (const auto& person : persons) {
    const OVString id = person->ID();
    if (OVRef<IOVPerson>(all[id]) != person) continue;
    tagManager()->removeForPersonID(id);
    content_->removeFromGroups(id);
    all.erase(id);
  }
}

OVRef<IOVPerson> OVBlockBook::addOneFromOtherPerson(const OVRef<IOVPerson>& person) {
  if (person == nullptr || !canOprate()) return nullptr;
  const auto all = content_->book->personsDic();
  const OVString wanted = person->ID();
  const bool isFree = !wanted.empty() && all.find(wanted) == all.end();
  auto taken = std::dynamic_pointer_cast<OVPersonGeneral>(person);
  if (taken == nullptr || !isFree) {
    taken = OVPersonGeneral::initWithID(isFree ? wanted : ov::qt::randomID());
    for (const auto& property : OVProperty::StandardPropertyArray()) {
      const auto value = person->valueByProperty(property);
      if (value != nullptr) taken->setValueByProperty(value->mutableCopy(), property);
    }
  }
  all.set(taken->ID(), taken);
  const auto tags = tagManager();
  for (const auto& list : {person->tagArray().copy(), ov::qt::tagsIn(*taken)}) {
    for (const OVString& tag : list) tags->addPersonIDForTag(taken->ID(), tag);
  }
  return taken;
}

OVRef<IOVPerson> OVBlockBook::addBatchPersonForOther(const OVRef<IOVPerson>& person) {
  return addOneFromOtherPerson(person);
}

std::uint64_t OVBlockBook::rootGroupsCount() const { return rootGroups().size(); }

OVList<IOVGroup> OVBlockBook::rootGroups() const {
  auto roots = OVList<IOVGroup>::list();
  const auto all = groupsOf(*content_);
  std::unordered_set<OVString> inner;
  for (const auto& [id, record] : all) {
    const auto below = record == nullptr ? nullptr : record->subArray();
    for (const OVString& each : below) inner.insert(each);
  }
  for (const auto& [id, record] : all) {
    if (record != nullptr && !inner.contains(id)) roots.push_back(content_->group(id));
  }
  // Groups inside each other are inside nothing else.
  std::unordered_set<OVString> shown;
  for (const auto& root : roots) content_->addAllBelow(root->ID(), shown);
  for (const auto& [id, record] : all) {
    if (record == nullptr || shown.contains(id)) continue;
    roots.push_back(content_->group(id));
    content_->addAllBelow(id, shown);
  }
  return roots;
}

OVRef<IOVGroup> OVBlockBook::groupByID(const OVString& groupID) const {
  return content_->group(groupID);
}

OVRef<IOVGroup> OVBlockBook::addGroupByName(const OVString& name) {
  if (name.isNull() || !canOprate()) return nullptr;
  const auto record = OVGroupGeneral::init();
  const OVString id = ov::qt::randomID();
  record->setID(id);
  record->setTitle(name);
  content_->book->groupsDic().set(id, record);
  return content_->group(id);
}

bool OVBlockBook::removeGroup(const OVRef<IOVGroup>& group) {
  const OVString id = content_->idOf(group);
  if (id.isNull() || !canOprate()) return false;
  const auto all = content_->book->groupsDic();
  for (const auto& [each, record] : all) {
    const auto below = record == nullptr ? nullptr : record->subArray();
    if (below != nullptr) below.remove(id);
  }
  content_->groups.erase(id);
  return all.erase(id);
}

OVRef<OVTagManager> OVBlockBook::tagManager() const {
  if (content_->tags == nullptr) content_->makeTags();
  return content_->tags;
}
