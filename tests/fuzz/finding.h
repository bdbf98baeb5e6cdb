#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

/// What a fuzzing target found: says it and ends the program, which the fuzzer notices.
[[noreturn]] inline void finding(std::string_view what) {
  std::cerr << "FINDING: " << what << std::endl;
  std::abort();
}

inline void expectThat(bool holds, std::string_view otherwise) {
  if (!holds) finding(otherwise);
}
