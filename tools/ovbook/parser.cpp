// Nothing else in the program knows CLI11. Its messages are kept, but say which command to ask for
// help, and its lists in brackets are switched off.

#include "parser.h"

#include <algorithm>
#include <string_view>

#include <CLI/CLI.hpp>

#include "session.h"

namespace ovbook {

namespace {

// CLI::App::parse would take an argument in brackets apart as a list of its own ("[a,b]"), so each
// that begins with a bracket gets a mark at its end.
constexpr char kMark = '\x1f';

bool isProtected(std::string_view argument) { return argument.starts_with('['); }

/// The arguments in the order in which CLI::App::parse takes them, with marks.
std::vector<std::string> protectedAndReversed(const std::vector<std::string>& arguments) {
  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
  for (std::string& argument : reversed) {
    if (isProtected(argument)) argument += kMark;
  }
  return reversed;
}

std::string restored(std::string argument) {
  if (isProtected(argument) && argument.ends_with(kMark)) argument.pop_back();
  return argument;
}

std::string withoutMarks(std::string message) {
  std::erase(message, kMark);
  return message;
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

/// Prints help or the version, or what was wrong with the arguments.
int answer(const CLI::App& ovbook, const CLI::ParseError& request, Session& session) {
  if (request.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    return ovbook.exit(request, session.out(), session.err());
  }
  const CLI::App& command = commandOf(ovbook);
  session.report(withoutMarks(complaint(command, request)) + " (see " + fullName(command) +
                 " --help)");
  return kFailed;
}

}  // namespace

Argument Argument::required() const {
  option_->required();
  return *this;
}

Argument Argument::oneOf(std::initializer_list<std::string> values) const {
  option_->check(CLI::IsMember(std::vector<std::string>(values)));
  return *this;
}

bool Argument::isGiven() const { return option_->count() > 0; }

std::string Argument::text() const {
  return option_->results().empty() ? std::string() : restored(option_->results().front());
}

std::vector<std::string> Argument::texts() const {
  std::vector<std::string> texts = option_->results();
  std::transform(texts.begin(), texts.end(), texts.begin(), restored);
  return texts;
}

Command Command::addCommand(const std::string& name, const std::string& help) const {
  app_->require_subcommand(1);
  return Command(*app_->add_subcommand(name, help));
}

void Command::setFooter(const std::string& text) const { app_->footer(text); }

void Command::setAction(std::function<void()> action) const { app_->callback(std::move(action)); }

Argument Command::addArgument(const std::string& name, const std::string& help) const {
  return Argument(*app_->add_option(name, help)->type_name(""));
}

Argument Command::addArguments(const std::string& name, const std::string& help, int least) const {
  return Argument(*app_->add_option(name, help)
                       ->type_name("")
                       ->expected(least, CLI::detail::expected_max_vector_size)
                       ->allow_extra_args()
                       ->required(least > 0));
}

Argument Command::addOption(const std::string& flags, const std::string& valueName,
                            const std::string& help) const {
  return Argument(*app_->add_option(flags, help)->type_name(valueName));
}

Argument Command::addFlag(const std::string& flags, const std::string& help) const {
  return Argument(*app_->add_flag(flags, help));
}

Parser::Parser() : app_(std::make_unique<CLI::App>("Keeps snapshots of address books.", "ovbook")) {
  app_->set_help_flag("-h,--help", "Show this help and exit");
  app_->set_version_flag("--version", "ovbook " OVBOOK_VERSION, "Show the version and exit");
}

Parser::~Parser() = default;

Command Parser::top() const { return Command(*app_); }

int Parser::run(const std::vector<std::string>& arguments, Session& session) const {
  try {
    app_->parse(protectedAndReversed(arguments));
  } catch (const CLI::ParseError& request) {
    return answer(*app_, request, session);
  }
  return session.status();
}

}  // namespace ovbook
