#pragma once

#include <clocale>
#include <cstdlib>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "support/fakes/fake_locale.h"

/// Expects `report` to give the same text under every one of several locales: as the locale
/// service, and as the environment and the C library have it.
inline void expectSameInAllLocales(const std::function<std::string()>& report) {
  const std::string expected = report();
  for (const char* identifier : {"C", "C.UTF-8", "de_DE", "tr_TR", "ja_JP"}) {
    const FakeLocale locale(identifier);
    EXPECT_EQ(report(), expected) << identifier;
  }
  const char* const before = std::getenv("LC_ALL");
  const std::string kept = before == nullptr ? "" : before;
  for (const char* name : {"C", "C.UTF-8", "de_DE.UTF-8", "tr_TR.UTF-8", "ja_JP.UTF-8"}) {
    ::setenv("LC_ALL", name, 1);
    std::setlocale(LC_ALL, "");
    EXPECT_EQ(report(), expected) << name;
  }
  before == nullptr ? ::unsetenv("LC_ALL") : ::setenv("LC_ALL", kept.c_str(), 1);
  std::setlocale(LC_ALL, "C");
}
