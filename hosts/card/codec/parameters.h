#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "header.h"
#include "line.h"
#include "version.h"

namespace ov::card {

// Canonical parameters are spelled as vCard 4.0 does, each after a semicolon: named, encoded, in
// quotes where need be, PREF=1 for the type that means it, without encoding and character set.

/// Appends a parameter.
void appendParameter(std::string& parameters, std::string_view name,
                     std::initializer_list<std::string_view> values);
void appendParameter(std::string& parameters, const Parameter& parameter);

/// Appends the types, each word a value of its own: with PREF among them, or without.
void appendTypes(std::string& parameters, const Parameter& types, bool withPreference);

/// All parameters of a line.
[[nodiscard]] std::string canonicalParameters(const Line& line);

/// Canonical parameters as a version spells them.
[[nodiscard]] std::string spelledParameters(std::string_view parameters, Version version);

/// Parameters as written in a line, without those for encoding and character set.
[[nodiscard]] std::string withoutEncoding(std::string_view rawParameters);

}  // namespace ov::card
