#include <functional>
#include <ostream>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "output/escape.h"
#include "preferences.h"
#include "session.h"
#include "tag_store.h"

namespace ovbook {

namespace {

/// The parts of the command line that the actions are made of.
struct TagCommand {
  CLI::App& app;
  const CLI::Option& store;
  Session& session;
};

using Change = std::function<void(OVTagManager& tags)>;

void changeStore(const CLI::Option& store, const Change& change) {
  const auto tags = openTagStore(textOf(store));
  change(*tags);
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
  CLI::App* action = tag.app.add_subcommand("list", "List the tags and who carries them");
  action->footer(
      "One line a tag, in the order of first use: the tag and the IDs of its persons, apart by\n"
      "tabs. Tabs, line breaks and other control characters stand as \\t, \\n, \\r or \\uXXXX, and "
      "a\n"
      "backslash as \\\\.");
  action->callback([store = &tag.store, session = &tag.session] {
    printTags(*openTagStore(textOf(*store)), session->out());
  });
}

void addAddAction(const TagCommand& tag) {
  CLI::App* action = tag.app.add_subcommand("add", "Give a person a tag");
  const auto* person = addArgument(*action, "PERSON", "The person's ID")->required();
  const auto* name = addArgument(*action, "TAG", "The tag")->required();
  action->callback([=, store = &tag.store] {
    changeStore(*store, [=](OVTagManager& tags) {
      tags.addPersonIDForTag(textOf(*person), textOf(*name));
    });
  });
}

void addRemoveAction(const TagCommand& tag) {
  CLI::App* action = tag.app.add_subcommand("remove", "Take a tag from a person");
  const auto* person = addArgument(*action, "PERSON", "The person's ID")->required();
  const auto* name = addArgument(*action, "TAG", "The tag")->required();
  action->callback([=, store = &tag.store] {
    changeStore(*store, [=](OVTagManager& tags) {
      tags.removePersonIDFromTag(textOf(*person), textOf(*name));
    });
  });
}

void addDropAction(const TagCommand& tag) {
  CLI::App* action = tag.app.add_subcommand("drop", "Take a tag from everybody");
  const auto* name = addArgument(*action, "TAG", "The tag")->required();
  action->callback([=, store = &tag.store] {
    changeStore(*store, [=](OVTagManager& tags) { tags.removeTag(textOf(*name)); });
  });
}

void addClearAction(const TagCommand& tag) {
  CLI::App* action = tag.app.add_subcommand("clear", "Take all tags from a person");
  const auto* person = addArgument(*action, "PERSON", "The person's ID")->required();
  action->callback([=, store = &tag.store] {
    changeStore(*store, [=](OVTagManager& tags) { tags.removeForPersonID(textOf(*person)); });
  });
}

void addSetAction(const TagCommand& tag) {
  CLI::App* action =
      tag.app.add_subcommand("set", "Give a person these tags in place of all others");
  const auto* person = addArgument(*action, "PERSON", "The person's ID")->required();
  const auto* names = addArguments(*action, "TAG", "The tags", 1);
  action->callback([=, store = &tag.store] {
    const auto list = OVList<OVString>::list();
    for (const std::string& name : textsOf(*names)) list.push_back(name);
    changeStore(*store,
                [=](OVTagManager& tags) { tags.setTagsForPersonID(list, textOf(*person)); });
  });
}

}  // namespace

void addTagCommand(CLI::App& ovbook, Session& session) {
  CLI::App* command = ovbook.add_subcommand("tag", "Look at or change a store of tags");
  command->require_subcommand(1);
  command->footer("The store comes before the action: ovbook tag STORE add PERSON TAG.");
  const auto* store =
      addArgument(*command, "STORE", "The store's name; the first change makes it")->required();
  const TagCommand tag{*command, *store, session};
  addListAction(tag);
  addAddAction(tag);
  addRemoveAction(tag);
  addDropAction(tag);
  addClearAction(tag);
  addSetAction(tag);
}

}  // namespace ovbook
