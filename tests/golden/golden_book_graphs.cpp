#include <OVAddressBookSDK/tag_manager.h>

#include "golden/golden_graphs.h"
#include "support/archive/archived_fields.h"
#include "support/values.h"

namespace {

using Any = OVList<OVObject>;
using Texts = OVList<OVString>;

OVRef<OVGroupGeneral> group(const OVString& title, const Texts& subgroups, const Texts& persons) {
  auto group = OVGroupGeneral::init();
  group->setID("an ID that is not archived");
  group->setTitle(title);
  group->setSubArray(subgroups);
  group->setPersons(persons);
  group->setExtend(OVString("an extension that is not archived"));
  return group;
}

OVRef<OVObject> groups() {
  return Any::list({group("Family", Texts::list({"close", "distant"}), Texts::list({"ada"})),
                    group("Empty", Texts::list(), Texts::list()),
                    group("Only a title", nullptr, nullptr), OVGroupGeneral::init()});
}

OVRef<OVPersonGeneral> personWithNote(const OVString& ID, const OVString& note) {
  auto person = OVPersonGeneral::initWithID(ID);
  person->setValueByPropertyName(valueOf(OVValueTypeNote, note), OVProPertyNote);
  return person;
}

OVRef<OVObject> persons() {
  const auto extended = personWithNote("", "has tags and an extension");
  extended->setTags(Texts::list({"a tag that is not archived"}));
  extended->setExtend(OVString("an extension that is not archived"));
  extended->setValueByPropertyName(textValue("not archived"), "no standard property");
  return Any::list({goldenPerson(), extended, OVPersonGeneral::initWithID("bare")});
}

OVRef<OVObject> personWithoutID() { return personWithNote(nullptr, "has no ID"); }

OVRef<OVObject> books() {
  return Any::list(
      {OVAddressBookGeneral::init(), restored(archivedAs("OVAddressBookGeneral", {}))});
}

/// Persons, labels, values and data that are met twice, a group, an object of an unknown class, and
/// a value that is its own datum.
OVRef<OVObject> book() {
  const auto book = OVAddressBookGeneral::init();
  const auto ada = goldenPerson();
  const auto twin = personWithNote("twin", "shares Ada's address and phones");
  twin->setValueByPropertyName(ada->valueByPropertyName(OVProPertyAddress), OVProPertyAddress);
  twin->setValueByPropertyName(ada->valueByPropertyName(OVProPertyPhone), OVProPertyPhone);
  const auto odd = OVPersonGeneral::initWithID("異");
  const auto own = valueOf(OVValueTypeString, nullptr, labelOf("itself"));
  own->setValue(own);
  odd->setValueByPropertyName(own, OVProPertyOther);
  odd->setValueByPropertyName(valueOf(OVValueTypeString, foreignObject()), OVProPertyCompany);
  for (const auto& [ID, person] : {std::pair{OVString("ada"), ada}, {"alias", ada}, {"twin", twin}})
    book->personsDic().set(ID, person);
  book->personsDic().set(odd->ID(), odd);
  const auto members = Texts::list({"ada", "twin"});
  book->groupsDic().set("family", group("Family", Texts::list({"all"}), members));
  book->groupsDic().set("all", group("All", Texts::list(), members));
  return book;
}

OVRef<OVObject> tags() {
  const auto manager = OVTagManager::init();
  manager->addPersonIDForTag("ada", "friends");
  manager->addPersonIDForTag("twin", "friends");
  manager->addPersonIDForTag("ada", "Büro");
  return Any::list({manager, OVTagManager::init()});
}

}  // namespace

std::vector<GoldenGraph> goldenBookGraphs() {
  return {{"books", books},     {"book", book},
          {"persons", persons}, {"person_without_id", personWithoutID},
          {"groups", groups},   {"tags", tags}};
}
