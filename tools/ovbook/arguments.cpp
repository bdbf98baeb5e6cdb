#include "arguments.h"

#include <algorithm>

#include <CLI/CLI.hpp>

namespace ovbook {

namespace {

constexpr char kMark = '\x1f';

bool isProtected(std::string_view argument) { return argument.starts_with('['); }

std::string restored(std::string argument) {
  if (isProtected(argument) && argument.ends_with(kMark)) argument.pop_back();
  return argument;
}

}  // namespace

std::vector<std::string> protectedAndReversed(const std::vector<std::string>& arguments) {
  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
  for (std::string& argument : reversed) {
    if (isProtected(argument)) argument += kMark;
  }
  return reversed;
}

std::string unprotected(std::string_view message) {
  std::string text(message);
  std::erase(text, kMark);
  return text;
}

std::string textOf(const CLI::Option& option) {
  return option.results().empty() ? std::string() : restored(option.results().front());
}

std::vector<std::string> textsOf(const CLI::Option& option) {
  std::vector<std::string> texts = option.results();
  std::transform(texts.begin(), texts.end(), texts.begin(), restored);
  return texts;
}

CLI::Option* addArgument(CLI::App& command, const std::string& name, const std::string& help) {
  return command.add_option(name, help)->type_name("");
}

CLI::Option* addArguments(CLI::App& command, const std::string& name, const std::string& help,
                          int least) {
  return command.add_option(name, help)
      ->type_name("")
      ->expected(least, CLI::detail::expected_max_vector_size)
      ->allow_extra_args()
      ->required(least > 0);
}

CLI::Option* addOption(CLI::App& command, const std::string& flags, const std::string& valueName,
                       const std::string& help) {
  return command.add_option(flags, help)->type_name(valueName);
}

CLI::Option* addFlag(CLI::App& command, const std::string& flags, const std::string& help) {
  return command.add_flag(flags, help);
}

}  // namespace ovbook
