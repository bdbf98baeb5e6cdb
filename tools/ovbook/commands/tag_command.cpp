// The actions are made before the command line is parsed: they keep their arguments, and read them
// when they run. A change is one batch, and a failure unless it has been stored.

#include <functional>
#include <ostream>

#include "commands/commands.h"
#include "output/escape.h"
#include "parser.h"
#include "preferences.h"
#include "session.h"
#include "tag_store.h"

namespace ovbook {

namespace {

/// The parts of the command line that the actions are made of.
struct TagCommand {
  Command app;
  Argument store;
  Session& session;
};

using Change = std::function<void(OVTagManager& tags)>;

void changeStore(const Argument& store, const Change& change) {
  const auto tags = openTagStore(store.text());
  OVTagManager::Batch batch(tags);
  change(*tags);
  batch.end();
  requireStoredPreferences("the tags");
}

void printTags(const OVTagManager& tags, std::ostream& out) {
  for (std::uint64_t i = 0; i < tags.count(); ++i) {
    const OVString tag = tags.tagAtIndex(i);
    out << tsvField(tag);
    if (const auto personIDs = tags.personIDsByTag(tag)) {
      for (const OVString& personID : personIDs) out << '\t' << tsvField(personID);
    }
    out << '\n';
  }
}

void addListAction(const TagCommand& tag) {
  const Command action = tag.app.addCommand("list", "List the tags and who has them");
  action.setFooter(
      "One line per tag, in the order of first use: the tag and the IDs of its persons, separated\n"
      "by tabs. Tabs, line breaks and other control characters are written as \\t, \\n, \\r or\n"
      "\\uXXXX, and a backslash as \\\\.");
  action.setAction([store = tag.store, session = &tag.session] {
    printTags(*openTagStore(store.text()), session->out());
  });
}

void addAddAction(const TagCommand& tag) {
  const Command action = tag.app.addCommand("add", "Give a person a tag");
  const Argument person = action.addArgument("PERSON", "The person's ID").required();
  const Argument name = action.addArgument("TAG", "The tag").required();
  action.setAction([=, store = tag.store] {
    changeStore(store,
                [=](OVTagManager& tags) { tags.addPersonIDForTag(person.text(), name.text()); });
  });
}

void addRemoveAction(const TagCommand& tag) {
  const Command action = tag.app.addCommand("remove", "Take a tag from a person");
  const Argument person = action.addArgument("PERSON", "The person's ID").required();
  const Argument name = action.addArgument("TAG", "The tag").required();
  action.setAction([=, store = tag.store] {
    changeStore(
        store, [=](OVTagManager& tags) { tags.removePersonIDFromTag(person.text(), name.text()); });
  });
}

void addDropAction(const TagCommand& tag) {
  const Command action = tag.app.addCommand("drop", "Take a tag from everybody");
  const Argument name = action.addArgument("TAG", "The tag").required();
  action.setAction([=, store = tag.store] {
    changeStore(store, [=](OVTagManager& tags) { tags.removeTag(name.text()); });
  });
}

void addClearAction(const TagCommand& tag) {
  const Command action = tag.app.addCommand("clear", "Take all tags from a person");
  const Argument person = action.addArgument("PERSON", "The person's ID").required();
  action.setAction([=, store = tag.store] {
    changeStore(store, [=](OVTagManager& tags) { tags.removeForPersonID(person.text()); });
  });
}

void addSetAction(const TagCommand& tag) {
  const Command action =
      tag.app.addCommand("set", "Give a person these tags in place of all others");
  const Argument person = action.addArgument("PERSON", "The person's ID").required();
  const Argument names = action.addArguments("TAG", "The tags", 1);
  action.setAction([=, store = tag.store] {
    const auto list = OVList<OVString>::list();
    for (const std::string& name : names.texts()) list.push_back(name);
    changeStore(store, [=](OVTagManager& tags) { tags.setTagsForPersonID(list, person.text()); });
  });
}

}  // namespace

void addTagCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("tag", "Show or change a store of tags");
  command.setFooter("The store comes before the action: ovbook tag STORE add PERSON TAG.");
  const Argument store =
      command.addArgument("STORE", "The store's name; the first change creates it").required();
  const TagCommand tag{command, store, session};
  addListAction(tag);
  addAddAction(tag);
  addRemoveAction(tag);
  addDropAction(tag);
  addClearAction(tag);
  addSetAction(tag);
}

}  // namespace ovbook
