#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

/// The values in a property list as our reader finds them, for another program to compare; nothing
/// when the list is refused, holds itself, or would take very long to write down.
///
/// null, true, false and texts are themselves; all else is an object of one entry: {"i": "5"}
/// integers, {"r": bits} reals, {"d": bits} dates, {"b": hex} data, {"u": "5"} UIDs, {"a": [...]}
/// arrays, {"s": [...]} sets, {"m": [[key, value], ...]} dictionaries, {"t": text} texts whose lone
/// surrogates were replaced.
std::optional<std::string> plistJson(std::span<const std::byte> block);
