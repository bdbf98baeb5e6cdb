#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace ovbook {

class Session;

/// A positional or an option of a command, and what it was given. Copies are the same one; the
/// parser outlives them.
class Argument {
 public:
  explicit Argument(CLI::Option& option) : option_(&option) {}

  /// The command is not understood without it.
  [[nodiscard]] Argument required() const;
  /// The command is not understood when it is given another value.
  [[nodiscard]] Argument oneOf(std::initializer_list<std::string> values) const;

  [[nodiscard]] bool isGiven() const;
  /// What it was given; "" when it was not.
  [[nodiscard]] std::string text() const;
  /// All that it was given, in order.
  [[nodiscard]] std::vector<std::string> texts() const;

 private:
  CLI::Option* option_;
};

/// A command that users name, and what it takes. Copies are the same one; the parser outlives them.
class Command {
 public:
  explicit Command(CLI::App& app) : app_(&app) {}

  /// A command that is named after this one; of its commands one has to be.
  [[nodiscard]] Command addCommand(const std::string& name, const std::string& help) const;
  /// What help shows below the arguments.
  void setFooter(const std::string& text) const;
  /// What the command does, once its arguments are known.
  void setAction(std::function<void()> action) const;

  /// A positional argument.
  [[nodiscard]] Argument addArgument(const std::string& name, const std::string& help) const;
  /// A positional that takes what is left, at least `least` arguments.
  [[nodiscard]] Argument addArguments(const std::string& name, const std::string& help,
                                      int least) const;
  /// An option with a value: `flags` is "-o,--output", `valueName` what help calls the value.
  [[nodiscard]] Argument addOption(const std::string& flags, const std::string& valueName,
                                   const std::string& help) const;
  /// An option without a value.
  [[nodiscard]] Argument addFlag(const std::string& flags, const std::string& help) const;

 private:
  CLI::App* app_;
};

/// Knows the commands of `ovbook`, and runs the one that is named. Everything of CLI11 is behind
/// it: its headers are slow to compile.
class Parser {
 public:
  Parser();
  ~Parser();
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  /// `ovbook` itself.
  [[nodiscard]] Command top() const;

  /// Runs the command that the arguments name, or prints help, the version, or what was wrong with
  /// the arguments. Returns the exit status; throws what the command throws.
  [[nodiscard]] int run(const std::vector<std::string>& arguments, Session& session) const;

 private:
  std::unique_ptr<CLI::App> app_;
};

}  // namespace ovbook
