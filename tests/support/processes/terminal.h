#pragma once

#include <string>

/// A terminal that a program is run on. It shows bytes just as they are written.
class Terminal {
 public:
  Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal();

  /// What the program writes to.
  [[nodiscard]] int descriptor() const { return program_; }
  /// Everything up to the end, which comes when all other processes have closed the terminal.
  [[nodiscard]] std::string readAll();

 private:
  void closeProgramSide();

  int screen_;
  int program_ = -1;
};
