#include "command_line.h"

#include <cerrno>
#include <new>
#include <ostream>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "commands/commands.h"
#include "output/descriptor_buffer.h"
#include "session.h"

namespace ovbook {

namespace {

void addCommands(CLI::App& ovbook, Session& session) {
  addImportCommand(ovbook, session);
  addExportCommand(ovbook, session);
  addListCommand(ovbook, session);
  addShowCommand(ovbook, session);
  addDumpCommand(ovbook, session);
  addNameOrderCommand(ovbook, session);
  addCountryCommands(ovbook, session);
  addAddressCommands(ovbook, session);
  addTagCommand(ovbook, session);
}

/// The innermost command that was named.
const CLI::App& commandOf(const CLI::App& ovbook) {
  const CLI::App* command = &ovbook;
  while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
  return *command;
}

/// "ovbook tag add"
std::string fullName(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  return parent == nullptr ? command.get_name() : fullName(*parent) + " " + command.get_name();
}

/// What was wrong with the arguments.
std::string complaint(const CLI::App& command, const CLI::ParseError& error) {
  const std::vector<std::string> unknown = command.remaining();
  const bool isAtCommand = !command.get_subcommands({}).empty();
  if (isAtCommand && !unknown.empty()) return unknown.front() + ": no such command or option";
  return error.what();
}

/// Prints help or the version, or else tells what was wrong with the arguments.
int answer(const CLI::App& ovbook, const CLI::ParseError& request, Session& session) {
  if (request.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    return ovbook.exit(request, session.out(), session.err());
  }
  const CLI::App& command = commandOf(ovbook);
  session.report(unprotected(complaint(command, request)) + " (" + fullName(command) +
                 " --help tells more)");
  return kFailed;
}

int parseAndRun(const std::vector<std::string>& arguments, Session& session) {
  CLI::App ovbook("Keeps snapshots of address books.", "ovbook");
  ovbook.set_help_flag("-h,--help", "Show this help and exit");
  ovbook.set_version_flag("--version", "ovbook " OVBOOK_VERSION, "Show the version and exit");
  ovbook.require_subcommand(1);
  ovbook.footer(
      "Exit status: 0 when all went well, 1 when something was left out that a line on\n"
      "standard error names, 2 when the command could not do its work.");
  addCommands(ovbook, session);
  try {
    ovbook.parse(protectedAndReversed(arguments));
  } catch (const CLI::ParseError& request) {
    return answer(ovbook, request, session);
  }
  return session.status();
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

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  Session session(out, err);
  try {
    const int status = reportFailures(arguments, session);
    out.flush();
    return status;
  } catch (const OutputError& failure) {
    // A reader that has seen enough, `head` say, is no failure.
    if (failure.code().value() == EPIPE) return session.status();
    err << "ovbook: " << failure.what() << '\n' << std::flush;
    return kFailed;
  }
}

}  // namespace ovbook
