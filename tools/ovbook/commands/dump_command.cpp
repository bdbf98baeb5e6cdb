#include <CLI/CLI.hpp>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "arguments.h"
#include "commands/commands.h"
#include "dump/graph_walk.h"
#include "dump/json_sink.h"
#include "dump/text_sink.h"
#include "files.h"
#include "session.h"

namespace ovbook {

namespace {

OVRef<OVObject> readArchive(const std::string& path) {
  try {
    return OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(readFile(path));
  } catch (const OVInvalidArchive& damage) {
    throw Failure(path, damage.what());
  }
}

}  // namespace

void addDumpCommand(CLI::App& ovbook, Session& session) {
  CLI::App* command = ovbook.add_subcommand("dump", "Show the objects of any keyed archive");
  command->footer(
      "Objects of all classes are shown with their fields as they are stored. What several places\n"
      "refer to is shown once, with a number: \"#3\" (in JSON \"id\": 3), and \"#3\" alone\n"
      "({\"ref\": 3}) everywhere else. What lies very deep is shown behind the rest, likewise.");
  const auto* file = addArgument(*command, "FILE", "The archive to show")->required();
  const auto* json = addFlag(*command, "--json", "As JSON, for programs");
  command->callback([=, &session] {
    // Kept to the end of the program: an archive may hold rings, which nothing takes apart.
    static OVRef<OVObject> root;
    root = readArchive(textOf(*file));
    if (json->count() > 0) {
      JsonSink sink(session.out());
      walkGraph(root, sink);
    } else {
      TextSink sink(session.out());
      walkGraph(root, sink);
    }
  });
}

}  // namespace ovbook
