#include "card_reader.h"

#include <algorithm>

#include "ascii.h"
#include "bindings.h"
#include "escapes.h"
#include "names.h"

namespace ov::vcard {

namespace {

bool isID(const Field& field) { return field.name == "UID"; }

bool saysGroup(const Field& field) {
  return field.isNamed("KIND", true) && sameWord(trim(field.text), "group");
}

void readLine(const Field& field, PersonDraft& draft) {
  const Binding* const binding = bindingOf(field);
  if (binding == nullptr || !binding->read(field, *binding, draft)) {
    keepLine(field, draft);
    return;
  }
  keepParameters(field, *binding, draft);
  if (field.label != nullptr && !binding->isLabelled()) keepLine(*field.label, draft);
}

/// The name of a group from the parts of N, for cards without FN.
OVString joinedName(const Field& field) {
  std::string name;
  for (const std::string& part : field.components(" ")) {
    if (!part.empty()) name.append(name.empty() ? "" : " ").append(part);
  }
  return name;
}

}  // namespace

OVString idOf(const std::vector<Field>& fields) {
  const auto at = std::find_if(fields.begin(), fields.end(), [](const Field& field) {
    return isID(field) && !trim(field.text).empty();
  });
  return at == fields.end() ? OVString() : OVString(trim(at->text));
}

bool isGroup(const std::vector<Field>& fields) {
  return std::any_of(fields.begin(), fields.end(), saysGroup);
}

PersonDraft readPerson(const std::vector<Field>& fields) {
  PersonDraft draft;
  bool identified = false;
  for (const Field& field : fields) {
    if (field.isCompanion) continue;
    if (!identified && isID(field)) {
      identified = !trim(field.text).empty();
    } else {
      readLine(field, draft);
    }
  }
  finishName(draft);
  return draft;
}

GroupDraft readGroup(const std::vector<Field>& fields) {
  GroupDraft group;
  const Field* parts = nullptr;
  bool identified = false;
  for (const Field& field : fields) {
    if (!identified && isID(field)) {
      identified = !trim(field.text).empty();
    } else if (field.name == "FN" && group.name.empty()) {
      group.name = field.text;
    } else if (field.name == "N" && parts == nullptr) {
      parts = &field;
    } else if (field.isNamed("MEMBER", true)) {
      if (!trim(field.text).empty()) group.members.push_back({trim(field.text), field.number});
    } else if (!saysGroup(field)) {
      group.others.push_back(keptLine(field));
    }
  }
  if (parts != nullptr && group.name.empty()) {
    group.name = joinedName(*parts);
  } else if (parts != nullptr && joinedName(*parts) != group.name) {
    group.others.push_back(keptLine(*parts));
  }
  if (group.name.isNull()) group.name = "";
  return group;
}

}  // namespace ov::vcard
