#include "person_writer.h"

#include "bindings.h"
#include "card_id.h"
#include "escapes.h"

namespace ov::vcard {

void writePerson(const IOVPerson& person, const OVString& id, std::string& out) {
  CardWriter card(out);
  card.begin();
  if (!id.empty()) card.line("UID", "", escapeText(id));
  const PersonValues values(person);
  for (const Binding& binding : bindings()) {
    if (binding.write != nullptr) binding.write(binding, values, card);
  }
  card.end();
}

void writeGroup(const OVString& id, const OVString& name, const std::vector<OVString>& members,
                const std::vector<KeptLine>& others, std::string& out) {
  CardWriter card(out);
  card.begin();
  if (!id.empty()) card.line("UID", "", escapeText(id));
  card.line("KIND", "", "group");
  card.line("FN", "", escapeText(name));
  for (const OVString& member : members) card.line("MEMBER", "", escapeURI(referenceTo(member)));
  for (const KeptLine& line : others) card.line(line.name, line.parameters, line.value);
  card.end();
}

}  // namespace ov::vcard
