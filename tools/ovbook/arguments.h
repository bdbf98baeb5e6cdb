#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace ovbook {

/// Arguments in the order in which CLI::App::parse takes them. It would take one in brackets apart
/// as a list of its own ("[a,b]"), so each that begins with a bracket gets a mark at its end, and
/// arguments are read back by the functions below only.
[[nodiscard]] std::vector<std::string> protectedAndReversed(
    const std::vector<std::string>& arguments);

/// `message` without such marks.
[[nodiscard]] std::string unprotected(std::string_view message);

/// What an option or positional was given; "" when it was not.
[[nodiscard]] std::string textOf(const CLI::Option& option);
/// All that it was given, in order.
[[nodiscard]] std::vector<std::string> textsOf(const CLI::Option& option);

/// A positional argument.
CLI::Option* addArgument(CLI::App& command, const std::string& name, const std::string& help);
/// A positional that takes what is left, at least `least` arguments.
CLI::Option* addArguments(CLI::App& command, const std::string& name, const std::string& help,
                          int least);
/// An option with a value: `flags` is "-o,--output", `valueName` what help calls the value.
CLI::Option* addOption(CLI::App& command, const std::string& flags, const std::string& valueName,
                       const std::string& help);
/// An option without a value: it is there when its `count` is not 0.
CLI::Option* addFlag(CLI::App& command, const std::string& flags, const std::string& help);

}  // namespace ovbook
