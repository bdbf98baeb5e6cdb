#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "commands/commands.h"
#include "dump/graph_walk.h"
#include "dump/json_sink.h"
#include "dump/text_sink.h"
#include "files.h"
#include "parser.h"
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

void addDumpCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("dump", "Show the objects of any keyed archive");
  command.setFooter(
      "Objects of all classes are shown with their fields as they are stored. What several places\n"
      "refer to is shown once, with a number: \"#3\" (in JSON \"id\": 3), and \"#3\" alone\n"
      "({\"ref\": 3}) everywhere else. Very deep objects are shown after the rest in the same "
      "way.\n"
      "At most 512 MiB are read from a pipe or a device.");
  const Argument file = command.addArgument("FILE", "The archive to show").required();
  const Argument json = command.addFlag("--json", "As JSON, for programs");
  command.setAction([=, &session] {
    // Kept to the end of the program: an archive may hold rings, which nothing takes apart.
    static OVRef<OVObject> root;
    root = readArchive(file.text());
    if (json.isGiven()) {
      JsonSink sink(session.out());
      walkGraph(root, sink);
    } else {
      TextSink sink(session.out());
      walkGraph(root, sink);
    }
  });
}

}  // namespace ovbook
