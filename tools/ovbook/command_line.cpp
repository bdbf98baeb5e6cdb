#include "command_line.h"

#include <cerrno>
#include <new>
#include <ostream>

#include "commands/commands.h"
#include "live_books.h"
#include "output/descriptor_buffer.h"
#include "parser.h"
#include "session.h"

namespace ovbook {

namespace {

void addCommands(const Command& ovbook, Session& session) {
  addImportCommand(ovbook, session);
  addExportCommand(ovbook, session);
  addBooksCommand(ovbook, session);
  addListCommand(ovbook, session);
  addShowCommand(ovbook, session);
  addDumpCommand(ovbook, session);
  addNameOrderCommand(ovbook, session);
  addCountryCommands(ovbook, session);
  addAddressCommands(ovbook, session);
  addTagCommand(ovbook, session);
}

int parseAndRun(const std::vector<std::string>& arguments, Session& session) {
  const Parser parser;
  const Command ovbook = parser.top();
  ovbook.setFooter(
      "Exit status: 0 on success, 1 when something was left out, as lines on standard error say,\n"
      "2 when the command failed.");
  addCommands(ovbook, session);
  return parser.run(arguments, session);
}

int reportFailures(const std::vector<std::string>& arguments, Session& session) {
  try {
    return parseAndRun(arguments, session);
  } catch (const OutputError&) {
    throw;
  } catch (const std::bad_alloc&) {
    session.report("out of memory");
  } catch (const std::exception& failure) {
    session.report(failure.what());
  }
  return kFailed;
}

}  // namespace

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
        const LiveBooks* live) {
  const LiveBooksElsewhere elsewhere(arguments);
  Session session(out, err, live == nullptr ? elsewhere : *live);
  try {
    const int status = reportFailures(arguments, session);
    out.flush();
    return status;
  } catch (const OutputError& failure) {
    // A reader that has seen enough, `head` say, is not a failure.
    if (failure.code().value() == EPIPE) return session.status();
    err << "ovbook: " << failure.what() << '\n' << std::flush;
    return kFailed;
  }
}

}  // namespace ovbook
